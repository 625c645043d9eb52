#pragma once

#include "findings/Finding.h"
#include "web/page/PageContent.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark::web {

/// A longer reference is shown cut: data: addresses hold whole files.
inline constexpr std::size_t LongestShown = 4096;

/// A file that is to be read for its references.
struct PageTask {
    std::string fullPath; ///< Its address: the full path that its references are relative to.
    std::string path;     ///< The same, from the top of the site on.
    PageKind kind = PageKind::Html;
};

/// What a reference turned out to lead to.
struct JudgedReference {
    enum class Target : std::uint8_t {
        OwnPage,
        File,           ///< `file`, under its own path.
        FileBehindLink, ///< `file`, under the path `path`.
        Folder,         ///< The folder `path`, which has no index page.
        Elsewhere,      ///< `path`, which a link leads out of the site to; something is there.
        Missing,        ///< `path`, where nothing is.
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
    bool fromTop = false;               ///< Was written with a leading "/".
    Fragment fragment = Fragment::None; ///< Unknown until the target's ids are known.
    std::uint16_t place = 0;
    std::uint32_t ordinal = 0; ///< Index into PageContent::references.
    Position at;
    std::uint32_t file = 0;
    Text path;                     ///< From the top of the site on.
    Text written;                  ///< As written, where that will be shown.
    std::uint64_t rawHash = 0;     ///< Of the fragment as written.
    std::uint64_t decodedHash = 0; ///< Of the fragment, percent-decoded.
};

/// All that is known of a page once it was read. One object serves many pages and keeps its memory.
struct JudgedPage {
    std::string trouble; ///< Why it could not be read; empty if it was.
    std::vector<JudgedReference> references;
    std::vector<std::uint64_t> ids;  ///< Hashes, ascending.
    std::optional<std::string> base; ///< The path of its base href, from the top of the site on.
    std::string texts;

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

} // namespace quillmark::web
