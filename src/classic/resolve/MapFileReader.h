#pragma once

#include <string_view>

namespace quillmark {

/// Reads an image map file that a reference leads to.
class MapFileReader {
public:
    virtual ~MapFileReader() = default;

    /// Retrieves the map file and takes the page of every region line in it. Returns 0.
    virtual int ProcessMapFile(std::string_view directory, std::string_view fileName) = 0;
};

} // namespace quillmark
