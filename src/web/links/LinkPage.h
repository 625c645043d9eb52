#pragma once

#include "run/UrlFetcher.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark::web {

/// Looks for fragments in the page that a web server sends. The page is kept until it is complete,
/// up to 4 MiB; in a longer one every fragment counts as there.
class LinkPage : public BodyReader {
public:
    /// Whether a page must have an id for this fragment.
    static bool isJudged(std::string_view fragment);

    /// Adds such a fragment, as written. To be called before the page is requested.
    void want(std::string_view fragment);

    void begin() override;
    bool take(std::string_view bytes) override;
    void end(std::string_view contentType) override;

    /// Whether the page was read and does not have the fragment.
    bool lacks(std::string_view fragment) const;
    /// The most similar id of the page; empty if none is near.
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
