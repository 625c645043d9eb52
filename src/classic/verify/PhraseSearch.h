#pragma once

#include "run/UrlFetcher.h"

#include <string>
#include <string_view>

namespace quillmark {

/// Looks for a text in a body while it passes, also across the borders of its pieces.
class PhraseSearch : public BodyReader {
public:
    /// The text outlives the search; it is not empty.
    explicit PhraseSearch(std::string_view phrase) : phrase_(phrase) {}

    void begin() override;
    bool take(std::string_view bytes) override;
    bool found() const { return found_; }

private:
    std::string_view phrase_;
    std::string tail_; ///< Of what passed: the text may have begun there.
    bool found_ = false;
};

} // namespace quillmark
