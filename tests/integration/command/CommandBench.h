#pragma once

#include "support/Process.h"
#include "support/TempFolder.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace quillmark::test {

using Words = std::vector<std::string>;

/// quillmark-check as a user starts it, with a folder of its own and a site to check.
struct CommandBench {
    TempFolder site;
    TempFolder program;
    TempFolder workingFolder;

    Command command(const Words& words) const {
        Command result{
            {QUILLMARK_CHECK}, workingFolder.path(), {{"QUILLMARK_FOLDER", program.path()}}};
        result.words.insert(result.words.end(), words.begin(), words.end());
        return result;
    }
    Finished check(const Words& words) const { return run(command(words)); }
    std::string start() const { return (site.path() / "index.html").string(); }
    nlohmann::json json(Words words) const {
        words.insert(words.end(), {"--json", "-", "-q"});
        return nlohmann::json::parse(check(words).out);
    }
    /// A small site: one page, one broken reference, one unused file.
    void writeBrokenSite() const {
        site.write("index.html",
                   "<a href=\"gone.html\">\r\n<img src=\"pic.gif\">\r\n<a href=\"#top\">\r\n");
        site.write("pic.gif", "GIF");
        site.write("orphan.txt", "?");
    }
};

} // namespace quillmark::test
