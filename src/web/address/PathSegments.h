#pragma once

#include <string>
#include <string_view>

namespace quillmark::web {

/// What appendPath() met in a path.
struct AppendedPath {
    bool climbedOut = false;  ///< A ".." pointed above the top; it was ignored, as browsers do.
    bool unreachable = false; ///< A name holds an encoded "/" or NUL, which no file has.
};

/// Appends the path of a reference, as written, to a decoded folder ("" or "a/b/"). Takes "\" for
/// "/", follows dot segments and percent-decodes the rest (WHATWG URL, section 4.4, path state).
/// Repeated "/" count as one, as they do for servers of files.
AppendedPath appendPath(std::string& folder, std::string_view path);

/// The decoded folder that a decoded path lies in: "a/" of "a/b", "a/" of "a/".
std::string_view folderOf(std::string_view path);

} // namespace quillmark::web
