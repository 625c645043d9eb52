#pragma once

#include <algorithm>
#include <memory>
#include <memory_resource>
#include <string_view>

namespace quillmark {

/// Keeps texts, each for as long as the store lives or until clear().
class TextStore {
public:
    /// A copy of the text that stays where it is.
    std::string_view keep(std::string_view text) {
        if (text.empty()) {
            return {};
        }
        auto* bytes = static_cast<char*>(bytes_->allocate(text.size(), 1));
        std::copy(text.begin(), text.end(), bytes);
        return {bytes, text.size()};
    }
    void clear() { bytes_->release(); }

private:
    std::unique_ptr<std::pmr::monotonic_buffer_resource> bytes_ =
        std::make_unique<std::pmr::monotonic_buffer_resource>();
};

} // namespace quillmark
