#include "classic/resolve/UpperLevels.h"

#include "base/Failure.h"
#include "base/PathParser.h"

namespace quillmark {

namespace {

constexpr std::string_view LevelUp = "../";

/// How many "../" groups lead the reference, and the 1-based position of what follows them.
struct LeadingGroups {
    int ups = 0;
    int remainderStart = 0;
};

// A group counts only if at least two characters follow it. A shorter reference keeps its last
// group: "../x.js" becomes a path with "../" in it, which no inventory holds.
LeadingGroups countGroups(std::string_view reference) {
    const int length = static_cast<int>(reference.size());
    int i = 1;
    int ups = 0;
    bool stop = false;
    while (i + 3 < length && !stop) {
        if (reference.substr(static_cast<std::size_t>(i - 1), LevelUp.size()) == LevelUp) {
            ++ups;
        } else {
            stop = true;
        }
        i += 3;
    }
    return {ups, i - 3};
}

std::string_view remainderOf(std::string_view reference, int start) {
    if (start < 1) {
        throw invalidProcedureCall();
    }
    return reference.substr(static_cast<std::size_t>(start - 1));
}

/// The directory up to its `slashes`-th slash from the end; empty if that slash is the first
/// character, or if there are fewer.
std::string_view parentPrefix(std::string_view directory, int slashes) {
    std::size_t end = directory.size();
    for (; slashes > 0; --slashes) {
        const std::size_t slash = end == 0 ? std::string_view::npos : directory.rfind('/', end - 1);
        if (slash == std::string_view::npos) {
            return {};
        }
        end = slash;
    }
    return end == 0 ? std::string_view() : directory.substr(0, end + 1);
}

std::string climb(std::string_view directory, int levels) {
    for (int i = 0; i < levels && directory.size() > 1; ++i) {
        directory = PathParser(directory.substr(0, directory.size() - 1)).Path();
    }
    return std::string(directory);
}

} // namespace

UpperLevels ResolveUpperLevels(std::string_view reference, std::string_view currentDirectory,
                               bool followUpperLevels) {
    const LeadingGroups groups = countGroups(reference);
    std::string path(parentPrefix(currentDirectory, groups.ups + 1));
    if (path.empty()) {
        if (currentDirectory.size() <= 1 || !followUpperLevels) {
            return {};
        }
        path = climb(currentDirectory, groups.ups + 1);
    }
    path += remainderOf(reference, groups.remainderStart);
    return {path, UpperLevels::Resolved};
}

} // namespace quillmark
