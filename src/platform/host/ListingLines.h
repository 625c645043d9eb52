#pragma once

#include "run/FtpComponent.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmark {

/// Cuts a listing into its lines as it arrives: each ends at a line feed, and one carriage return
/// before it belongs to the line end. Holds one unfinished line at most.
class ListingLines {
public:
    /// The bytes that are kept of a line; what is longer is cut off.
    static constexpr std::size_t LongestLine = std::size_t{64} * 1024;

    explicit ListingLines(const FtpComponent::DirItem& item) : item_(item) {}

    void take(std::string_view bytes);
    /// The listing is complete: a last line without a line feed is a line too.
    void finish() {
        if (!line_.empty()) {
            deliver();
        }
    }
    /// The listing will be sent again from its start; lines that were handed over are not handed
    /// over a second time.
    void restart() {
        line_.clear();
        seen_ = 0;
    }

private:
    void deliver();

    const FtpComponent::DirItem& item_;
    std::string line_;
    std::size_t seen_ = 0;
    std::size_t delivered_ = 0;
};

} // namespace quillmark
