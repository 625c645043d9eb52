#pragma once

#include <string_view>

namespace quillmark {

/// Takes the references that a reader of pages finds.
class ReferenceSink {
public:
    virtual ~ReferenceSink() = default;

    /// Takes one reference of the run's current file: its directory part (with the last separator,
    /// may be empty), its file part, and the whole text as the page writes it.
    virtual void MakeAddition(std::string_view targetDirectory, std::string_view target,
                              std::string_view reference) = 0;
};

/// Reads an image map file that a reference leads to.
class MapFileReader {
public:
    virtual ~MapFileReader() = default;

    /// Retrieves the map file and takes the page of every region line in it. Returns 0.
    virtual int ProcessMapFile(std::string_view directory, std::string_view fileName) = 0;
};

} // namespace quillmark
