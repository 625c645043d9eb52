#include "report/formats/Formats.h"

#include <algorithm>

namespace quillmark {

const std::vector<Format>& formats() {
    static const std::vector<Format> all = {
        {"text", writeText},   {"json", writeJsonReport},   {"sarif", writeSarif},
        {"junit", writeJunit}, {"github", writeGithub},     {"gitlab", writeGitlab},
        {"csv", writeCsv},     {"markdown", writeMarkdown}, {"html", writeHtmlPage},
    };
    return all;
}

const Format* findFormat(std::string_view name) {
    const auto found = std::find_if(formats().begin(), formats().end(),
                                    [name](const Format& format) { return format.name == name; });
    return found == formats().end() ? nullptr : &*found;
}

} // namespace quillmark
