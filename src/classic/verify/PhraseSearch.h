#pragma once

#include "run/UrlFetcher.h"

#include <string>
#include <string_view>

namespace quillmark {

/// Searches a body for a text while it arrives, also across the borders of its pieces.
class PhraseSearch : public BodyReader {
public:
    /// The text must outlive the search and must not be empty.
    explicit PhraseSearch(std::string_view phrase) : phrase_(phrase) {}

    void begin() override;
    bool take(std::string_view bytes) override;
    bool found() const { return found_; }

private:
    std::string_view phrase_;
    std::string tail_; ///< The last bytes so far: the text may begin in them.
    bool found_ = false;
};

} // namespace quillmark
