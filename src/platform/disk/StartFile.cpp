#include "platform/disk/StartFile.h"

#include "base/Failure.h"
#include "base/Paths.h"
#include "platform/NativePath.h"
#include "platform/disk/Spelling.h"
#include "run/FtpLogin.h"

#include <fstream>

namespace quillmark {

namespace {

namespace fs = std::filesystem;

/// 1032: a file that no check can begin with, or log in with.
Failure cannotStart(const std::string& reason) {
    return {1032, reason};
}

std::string quoted(const fs::path& file) {
    return "\"" + file.string() + "\"";
}

/// A start file to propose instead of its folder: one that is there, if any.
fs::path exampleIn(const fs::path& folder) {
    for (const char* name : {"index.html", "index.htm", "default.htm"}) {
        if (fs::exists(folder / name)) {
            return folder / name;
        }
    }
    return folder / "index.html";
}

void requireFile(const fs::path& file) {
    std::error_code error;
    if (fs::is_directory(file, error)) {
        throw cannotStart(quoted(file) + " is a folder; name the start file in it, such as " +
                          exampleIn(file).string());
    }
    if (!fs::is_regular_file(file, error)) {
        throw cannotStart("there is no start file " + quoted(file) +
                          "; name the first page of the site, such as site/index.html");
    }
}

void requireListed(const fs::path& file) {
    std::error_code error;
    if (fs::is_symlink(file, error)) {
        throw cannotStart(quoted(file) +
                          " is a symbolic link, and links are no files of the site; "
                          "name the file that it leads to: " +
                          fs::weakly_canonical(file, error).string());
    }
    if (file.filename().string().starts_with('.')) {
        throw cannotStart(quoted(file) + " is hidden, since its name begins with \".\", and hidden "
                                         "files are no files of the site; rename it or name "
                                         "another page");
    }
}

} // namespace

fs::path startPageOf(const fs::path& fileOrFolder, const std::vector<std::string>& indexNames) {
    std::error_code error;
    for (const std::string& name : indexNames) {
        if (fs::is_directory(fileOrFolder, error) &&
            fs::is_regular_file(fileOrFolder / name, error)) {
            return fileOrFolder / name;
        }
    }
    return fileOrFolder;
}

std::string startPathOf(const fs::path& file) {
    requireFile(file);
    const fs::path path = fs::absolute(file).lexically_normal();
    if (path.string().find('\\') != std::string::npos) {
        throw cannotStart(quoted(path) +
                          R"( holds a "\", which stands for a folder here; rename that folder)");
    }
    return ToBackSlashes(path.string());
}

std::string siteRootOf(const fs::path& folder) {
    if (!fs::is_directory(folder)) {
        throw cannotStart("there is no folder " + quoted(folder));
    }
    return ToBackSlashes(fs::absolute(folder).lexically_normal().string());
}

void requireStartFile(std::string_view startPath, Rules rules) {
    requireFile(Spelling().onDisk(nativePath(startPath)));
    requireListedStartFile(startPath, rules);
}

void requireKeyFile(const Profile& profile) {
    if (profile.logsInByKeyFile() && !std::ifstream(keyFileOf(profile))) {
        throw cannotStart("the key file " + quoted(fs::path(profile.KEY_FILE)) + " cannot be read");
    }
}

void requireListedStartFile(std::string_view startPath, Rules rules) {
    const fs::path file = Spelling().onDisk(nativePath(startPath));
    std::error_code error;
    if (rules == Rules::Classic && fs::exists(file, error)) {
        requireListed(file);
    }
}

} // namespace quillmark
