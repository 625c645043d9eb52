#include "report/formats/Formats.h"

#include <algorithm>

namespace quillmark {

const std::vector<Format>& formats() {
    static const std::vector<Format> all = {
        {"text", "the summary for people", writeText},
        {"json", "objects for programs", writeJsonReport},
        {"sarif", "for code scanning and editors", writeSarif},
        {"junit", "for test reports of CI systems", writeJunit},
        {"github", "annotations of a pull request on GitHub", writeGithub},
        {"gitlab", "Code Quality of a merge request on GitLab", writeGitlab},
        {"csv", "a table for spreadsheets", writeCsv},
        {"markdown", "a comment of a pull request", writeMarkdown},
        {"html", "a page to look around in", writeHtmlPage},
    };
    return all;
}

const Format* findFormat(std::string_view name) {
    const auto found = std::find_if(formats().begin(), formats().end(),
                                    [name](const Format& format) { return format.name == name; });
    return found == formats().end() ? nullptr : &*found;
}

} // namespace quillmark
