#include "command/options/StartFile.h"

#include "base/Paths.h"
#include "platform/NativePath.h"
#include "platform/disk/Spelling.h"

#include <filesystem>

namespace quillmark {

namespace {

namespace fs = std::filesystem;

std::string exampleIn(const fs::path& folder) {
    for (const char* name : {"index.html", "index.htm", "default.htm"}) {
        if (fs::exists(folder / name)) {
            return (folder / name).string();
        }
    }
    return (folder / "index.html").string();
}

void requireFile(const fs::path& file, const std::string& name) {
    std::error_code error;
    if (fs::is_directory(file, error)) {
        throw CannotStart("\"" + name + "\" is a folder; name the start file in it, such as " +
                          exampleIn(file));
    }
    if (!fs::is_regular_file(file, error)) {
        throw CannotStart("there is no start file \"" + name +
                          "\"; name the first page of the site, such as site/index.html");
    }
}

} // namespace

std::string startPathOf(const std::string& file) {
    requireFile(file, file);
    const std::string path = fs::absolute(file).lexically_normal().string();
    if (path.find('\\') != std::string::npos) {
        throw CannotStart("\"" + path +
                          R"(" holds a "\", which stands for a folder here; rename that folder)");
    }
    return ToBackSlashes(path);
}

std::string siteRootOf(const std::string& folder) {
    if (!fs::is_directory(folder)) {
        throw CannotStart("there is no folder \"" + folder + "\"");
    }
    return ToBackSlashes(fs::absolute(folder).lexically_normal().string());
}

void requireStartFile(const std::string& startPath) {
    requireFile(onDiskSpelling(nativePath(startPath)), startPath);
}

} // namespace quillmark
