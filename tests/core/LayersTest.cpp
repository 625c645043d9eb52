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

/// What each room of src/ may include beside itself.
const std::map<std::string, std::set<std::string>>& allowedRooms() {
    static const std::map<std::string, std::set<std::string>> allowed = {
        {"base", {}},
        {"store", {"base"}},
        {"settings", {"base", "store"}},
        {"engine", {"base", "store", "settings"}},
        {"ui", {"base", "store", "settings", "engine"}},
        {"platform", {"base", "store", "settings", "engine"}},
        {"command", {"base", "store", "settings", "engine", "ui", "platform"}},
    };
    return allowed;
}

/// Headers of one library or system, and the only folder of src/ that may know them.
const std::map<std::string, std::string>& tiedHeaders() {
    static const std::map<std::string, std::string> tied = {
        {"utf8proc.h", "base/"},   {"curl/", "platform/"},     {"unistd.h", "platform/"},
        {"fcntl.h", "platform/"},  {"sys/", "platform/"},      {"netinet/", "platform/"},
        {"zlib.h", "platform/"},   {"termios.h", "platform/"}, {"CLI/", "command/"},
        {"nlohmann/", "command/"},
    };
    return tied;
}

struct Include {
    std::string file; ///< From src/ on.
    std::string header;
    bool own = false; ///< Named in quotes: the project's own.
};

std::vector<Include> allIncludes() {
    std::vector<Include> includes;
    for (const auto& entry : fs::recursive_directory_iterator(QUILLMARK_SOURCE)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".h" && extension != ".cpp") {
            continue;
        }
        std::ifstream stream(entry.path());
        for (std::string line; std::getline(stream, line);) {
            if (!line.starts_with("#include ")) {
                continue;
            }
            const std::string header = line.substr(10, line.find_last_of(">\"") - 10);
            includes.push_back(
                {fs::relative(entry.path(), QUILLMARK_SOURCE).string(), header, line[9] == '"'});
        }
    }
    return includes;
}

std::string roomOf(const std::string& file) {
    return file.substr(0, file.find('/'));
}

TEST(Layers, IncludesFollowTheArrows) {
    const std::vector<Include> includes = allIncludes();
    ASSERT_GT(includes.size(), 200U);
    for (const Include& include : includes) {
        const std::string room = roomOf(include.file);
        const auto allowed = allowedRooms().find(room);
        ASSERT_NE(allowed, allowedRooms().end()) << include.file;
        if (include.own && roomOf(include.header) != room) {
            EXPECT_TRUE(allowed->second.contains(roomOf(include.header)))
                << include.file << " includes " << include.header;
        }
    }
}

TEST(Layers, LibrariesStayBehindTheirAdapters) {
    for (const Include& include : allIncludes()) {
        for (const auto& tied : tiedHeaders()) {
            if (!include.own && include.header.starts_with(tied.first)) {
                EXPECT_TRUE(include.file.starts_with(tied.second))
                    << include.file << " includes " << include.header;
            }
        }
        EXPECT_FALSE(!include.own && include.header.starts_with("Q"))
            << include.file << " includes " << include.header;
    }
}

/// Takes away, again and again, the files that include nothing that is left: a ring stays.
TEST(Layers, NoFileIncludesItselfInARing) {
    std::map<std::string, std::set<std::string>> left;
    for (const Include& include : allIncludes()) {
        if (include.own) {
            left[include.file].insert(include.header);
        }
    }
    for (bool taken = true; taken;) {
        taken = std::erase_if(left, [&left](const auto& file) {
                    return std::none_of(
                        file.second.begin(), file.second.end(),
                        [&left](const std::string& header) { return left.contains(header); });
                }) > 0;
    }
    for (const auto& file : left) {
        ADD_FAILURE() << file.first << " is in a ring of includes or behind one";
    }
}

} // namespace
} // namespace quillmark::test
