#pragma once

#include "classic/resolve/ReferenceSink.h"
#include "classic/scan/PageRetrieval.h"
#include "run/RunContext.h"

#include <string_view>

namespace quillmark {

/// Reads image map files of a host: one region per line, each naming the page that it leads to.
class MapFiles : public MapFileReader {
public:
    MapFiles(RunContext& context, PageRetrieval& retrieval, ReferenceSink& sink)
        : context_(context), retrieval_(retrieval), sink_(sink) {}

    int ProcessMapFile(std::string_view directory, std::string_view fileName) override;

    /// Takes the page that a region line names: the word behind its first blank, without the line's
    /// last character.
    void ParseMapEntry(std::string_view directory, std::string_view fileName,
                       std::string_view line);

private:
    void parseLine(std::string_view directory, std::string_view fileName, std::string_view line);

    RunContext& context_;
    PageRetrieval& retrieval_;
    ReferenceSink& sink_;
};

} // namespace quillmark
