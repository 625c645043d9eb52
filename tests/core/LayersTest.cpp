#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace quillmark::test {
namespace {

namespace fs = std::filesystem;

struct Include {
    std::string file; ///< From src/ on.
    std::string header;
    bool own = false; ///< Named in quotes: the project's own.
};

std::vector<Include> allIncludes() {
    std::vector<Include> includes;
    for (const auto& entry : fs::recursive_directory_iterator(QUILLMARK_SOURCE)) {
        std::ifstream stream(entry.path());
        for (std::string line; std::getline(stream, line);) {
            if (!line.starts_with("#include ")) {
                continue;
            }
            const std::string header = line.substr(10, line.find_last_of(">\"") - 10);
            // ui_NAME.h is made from the .ui file beside the source that includes it.
            if (!header.starts_with("ui_")) {
                includes.push_back({fs::relative(entry.path(), QUILLMARK_SOURCE).string(), header,
                                    line[9] == '"'});
            }
        }
    }
    return includes;
}

std::string roomOf(const std::string& file) {
    return file.substr(0, file.find('/'));
}

bool names(const std::string& rooms, const std::string& room) {
    return (" " + rooms + " ").find(" " + room + " ") != std::string::npos;
}

TEST(Layers, IncludesFollowTheArrows) {
    // What each room of src/ may include beside itself.
    const std::map<std::string, std::string> allowed = {
        {"base", ""},
        {"store", "base"},
        {"settings", "base store"},
        {"run", "base store settings"},
        {"classic", "base store settings run"},
        {"findings", "base store"},
        {"report", "base store settings run findings web ui"},
        {"web", "base store settings run findings"},
        {"check", "base store settings run classic findings web"},
        {"ui", "base store settings run findings"},
        {"platform", "base store settings run"},
        {"command", "base store settings run findings report web check ui platform"},
        {"windows", "base store settings run findings report web check ui"},
        {"desktop", "base store settings run findings report web check ui windows platform"},
    };
    const std::vector<Include> includes = allIncludes();
    ASSERT_GT(includes.size(), 200U);
    for (const Include& include : includes) {
        const std::string room = roomOf(include.file);
        const std::string other = roomOf(include.header);
        ASSERT_TRUE(allowed.contains(room)) << include.file;
        EXPECT_TRUE(!include.own || other == room || names(allowed.at(room), other))
            << include.file << " includes " << include.header;
    }
}

TEST(Layers, LibrariesStayBehindTheirAdapters) {
    // Headers of one library or system, and the only rooms of src/ that may know them.
    const std::map<std::string, std::string> tied = {{"utf8proc.h", "base"},
                                                     {"curl/", "platform"},
                                                     {"openssl/", "platform"},
                                                     {"unistd.h", "platform"},
                                                     {"fcntl.h", "platform"},
                                                     {"sys/", "platform"},
                                                     {"netinet/", "platform"},
                                                     {"iconv.h", "web"},
                                                     {"re2/", "web"},
                                                     {"xxhash.h", "base"},
                                                     {"termios.h", "platform"},
                                                     {"CLI/", "command"},
                                                     {"nlohmann/", "command report web"},
                                                     {"Q", "windows desktop"}};
    for (const Include& include : allIncludes()) {
        for (const auto& library : tied) {
            EXPECT_TRUE(include.own || !include.header.starts_with(library.first) ||
                        names(library.second, roomOf(include.file)))
                << include.file << " includes " << include.header;
        }
    }
}

std::string folderOf(const std::string& file) {
    return file.substr(0, file.rfind('/'));
}

/// What is left of the arrows when everything that points at nothing else is taken away, again and
/// again: rings, and what leads to one.
std::map<std::string, std::set<std::string>>
rings(std::map<std::string, std::set<std::string>> left) {
    for (bool taken = true; taken;) {
        taken =
            std::erase_if(left, [&left](const auto& from) {
                return std::none_of(from.second.begin(), from.second.end(),
                                    [&left](const std::string& to) { return left.contains(to); });
            }) > 0;
    }
    return left;
}

TEST(Layers, NeitherFilesNorFoldersIncludeEachOtherInARing) {
    std::map<std::string, std::set<std::string>> arrows; // Of files, and of folders.
    for (const Include& include : allIncludes()) {
        if (!include.own) {
            continue;
        }
        arrows[include.file].insert(include.header);
        if (folderOf(include.file) != folderOf(include.header)) {
            arrows[folderOf(include.file)].insert(folderOf(include.header));
        }
    }
    for (const auto& from : rings(arrows)) {
        ADD_FAILURE() << from.first << " is in a ring of includes or leads to one";
    }
}

} // namespace
} // namespace quillmark::test
