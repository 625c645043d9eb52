#pragma once

#include "run/UrlFetcher.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark::web {

/// Looks for fragments in the page that answers. The page is kept until it has ended, as far as
/// that is reasonable; a fragment that was not seen in a longer one counts as there.
class LinkPage : public BodyReader {
public:
    /// Whether a fragment is one that a page must have an id for.
    static bool isJudged(std::string_view fragment);

    /// Such a fragment, as written. It must be told before the page is asked for.
    void want(std::string_view fragment);

    void begin() override;
    bool take(std::string_view bytes) override;
    void end(std::string_view contentType) override;

    /// Whether the page was read and does not have the fragment.
    bool lacks(std::string_view fragment) const;
    /// What is there instead, under the most similar name; may be empty.
    std::string_view nearest(std::string_view fragment) const;

private:
    struct Wanted {
        std::string fragment;
        bool missing = false;
        std::string nearest;
    };

    const Wanted* find(std::string_view fragment) const;

    std::vector<Wanted> wanted_;
    std::string page_;
};

} // namespace quillmark::web
