#include "classic/scan/MapFiles.h"

#include <algorithm>
#include <string>

namespace quillmark {

namespace {

/// Calls `take` for each line. A line ends at CR LF, CR, LF or the end of the text.
template <typename Take> void forEachLine(std::string_view text, const Take& take) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        take(text.substr(0, end));
        const std::size_t lineBreak = text.substr(end).starts_with("\r\n") ? 2 : 1;
        text.remove_prefix(std::min(end + lineBreak, text.size()));
    }
}

} // namespace

int MapFiles::ProcessMapFile(std::string_view directory, std::string_view fileName) {
    context_.outside.messages.post("Parsing Map File ", directory, fileName);
    context_.state.currentFile.assign(directory).append(fileName);
    if (retrieval_.RetrieveFile(false) != PageRetrieval::CopyReady) {
        return 0;
    }
    std::string text;
    context_.outside.disk.read(context_.workingCopy, [&text](std::string_view block) {
        text.append(block);
        return true;
    });
    forEachLine(text, [&](std::string_view line) { parseLine(directory, fileName, line); });
    return 0;
}

void MapFiles::parseLine(std::string_view directory, std::string_view fileName,
                         std::string_view line) {
    if (line.starts_with("rect") || line.starts_with("circle") || line.starts_with("poly")) {
        ParseMapEntry(directory, fileName, line);
        return;
    }
    context_.outside.messages.post("Ignoring Map File Line: ", line);
}

void MapFiles::ParseMapEntry(std::string_view /*directory*/, std::string_view /*fileName*/,
                             std::string_view line) {
    context_.outside.messages.post("Parse Map Line:", line);
    const std::string_view searched = line.substr(0, line.empty() ? 0 : line.size() - 1);
    const std::size_t blank = searched.find(' ');
    std::string_view page;
    if (blank != std::string_view::npos) {
        page = searched.substr(blank + 1);
        page = page.substr(0, page.find(' '));
    }
    sink_.MakeAddition("", page, page);
}

} // namespace quillmark
