#pragma once

#include "base/OrderedQueue.h"
#include "findings/Finding.h"
#include "web/page/PageContent.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark::web {

/// Longer references, in bytes, are shown cut: data: addresses hold whole files.
inline constexpr std::size_t LongestShown = 4096;

/// A file to read for its references.
struct PageTask {
    std::string fullPath; ///< "/" form. A page behind a link has the path through the link.
    std::string path;     ///< The same, relative to the top of the site.
    PageKind kind = PageKind::Html;
};

/// A reference and what it leads to.
struct JudgedReference {
    enum class Target : std::uint8_t {
        OwnPage,
        File,           ///< `file`, under its own path.
        FileBehindLink, ///< `file`, under the path `path`.
        Folder,         ///< The folder `path`, which has no index page.
        Elsewhere,      ///< `path`, which a link leads out of the site to; something is there.
        Missing,        ///< `path`, and nothing is there.
        DanglingLink,   ///< `file`, a link to nothing.
        Ignored,
        ThisComputer,
        NoAddress
    };
    enum class Fragment : std::uint8_t { None, Unknown, Missing };
    struct Text {
        std::uint32_t start = 0;
        std::uint32_t length = 0;
    };

    Target target = Target::File;
    IgnoredReason reason = IgnoredReason::AnotherSite;
    Role role = Role::Link;
    bool fromTop = false;               ///< It was written with a leading "/".
    Fragment fragment = Fragment::None; ///< Unknown until the target's ids are known.
    std::uint16_t place = 0;
    std::uint32_t ordinal = 0; ///< 0-based index into PageContent::references.
    Position at;
    std::uint32_t file = 0;
    Text path;                     ///< Relative to the top of the site.
    Text written;                  ///< As written, if it will be shown.
    std::uint64_t rawHash = 0;     ///< Hash of the fragment as written.
    std::uint64_t decodedHash = 0; ///< Hash of the fragment, percent-decoded.
};

/// All that is known of a page after reading it. One object serves many pages and reuses its
/// memory.
struct JudgedPage {
    std::string trouble; ///< Why it could not be read; empty if it was.
    std::vector<JudgedReference> references;
    std::vector<std::uint64_t> ids;  ///< Hashes of its ids, ascending.
    std::optional<std::string> base; ///< The path of its base href, if that lies in the site.
    std::string texts;               ///< What JudgedReference::Text points into.

    std::string_view text(JudgedReference::Text part) const {
        return std::string_view(texts).substr(part.start, part.length);
    }
    void clear() {
        trouble.clear();
        references.clear();
        ids.clear();
        base.reset();
        texts.clear();
    }
};

/// The pages to judge, handed out in the order of their discovery.
using PageQueue = OrderedQueue<PageTask, JudgedPage>;

} // namespace quillmark::web
