#pragma once

#include <string>
#include <string_view>

namespace quillmark::web {

/// What became of a path that was appended.
struct AppendedPath {
    bool climbedOut = false; ///< A ".." left the first folder; it was passed over, as in browsers.
    bool unreachable = false;
};

/// Appends a path, as a reference writes it, to a decoded folder ("" or "a/b/"): "\" as "/", dot
/// segments followed, everything else percent-decoded (WHATWG URL, section 4.4, path state).
/// Repeated "/" count as one, as servers take them for files.
AppendedPath appendPath(std::string& folder, std::string_view path);

/// The decoded folder that a decoded path lies in: "a/" of "a/b", "a/" of "a/".
std::string_view folderOf(std::string_view path);

} // namespace quillmark::web
