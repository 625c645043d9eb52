#include "web/address/PathSegments.h"

#include "web/address/PercentCoding.h"

namespace quillmark::web {

namespace {

/// How many dots a segment consists of, 1 or 2, each of which may be "%2e"; 0 for a name.
int dots(std::string_view segment) {
    int count = 0;
    while (!segment.empty()) {
        if (segment.front() == '.') {
            segment.remove_prefix(1);
        } else if (segment.starts_with("%2e") || segment.starts_with("%2E")) {
            segment.remove_prefix(3);
        } else {
            return 0;
        }
        if (++count > 2) {
            return 0;
        }
    }
    return count;
}

bool leaveFolder(std::string& folder) {
    if (folder.empty()) {
        return false;
    }
    folder.pop_back();
    folder.resize(folder.rfind('/') + 1); // npos + 1 is 0
    return true;
}

/// Appends a decoded name. An encoded "/" does not separate folders, so such a name stays encoded.
/// Returns whether a file can have that name.
bool appendName(std::string& path, std::string_view segment) {
    if (segment.find('%') == std::string_view::npos) {
        path += segment;
        return true;
    }
    const std::string name = percentDecoded(segment);
    if (name.find('/') == std::string::npos && name.find('\0') == std::string::npos) {
        path += name;
        return true;
    }
    path += segment;
    return false;
}

void foldSlashes(std::string& path) {
    std::size_t kept = 0;
    for (const char c : path) {
        if (c != '/' || (kept > 0 && path[kept - 1] != '/')) {
            path[kept++] = c;
        }
    }
    path.resize(kept);
}

} // namespace

AppendedPath appendPath(std::string& folder, std::string_view path) {
    AppendedPath result;
    bool emptySegment = false;
    for (bool last = false; !last;) {
        std::size_t end = 0;
        while (end < path.size() && path[end] != '/' && path[end] != '\\') {
            ++end;
        }
        last = end == path.size();
        const std::string_view segment = path.substr(0, end);
        path.remove_prefix(last ? end : end + 1);
        const int dotCount = segment.size() <= 6 ? dots(segment) : 0; // "%2e%2e" is the longest.
        if (dotCount == 2) {
            result.climbedOut |= !leaveFolder(folder);
        } else if (dotCount == 0) {
            result.unreachable |= !appendName(folder, segment);
            emptySegment |= segment.empty();
            folder += last ? "" : "/";
        }
    }
    if (emptySegment) {
        foldSlashes(folder);
    }
    return result;
}

std::string_view folderOf(std::string_view path) {
    return path.substr(0, path.rfind('/') + 1); // npos + 1 is 0
}

} // namespace quillmark::web
