#pragma once

#include <filesystem>
#include <fstream>
#include <string_view>

namespace quillmark {

/// Writes a text file for the user's other programs: lines of bytes, each ended by CR LF.
class LineWriter {
public:
    /// Opens the file to replace it (std::ios::trunc) or to add to it (std::ios::app), creating it
    /// if it is not there. Throws a Failure if it cannot be opened.
    LineWriter(const std::filesystem::path& path, std::ios::openmode mode);

    /// Writes one line made of the parts. Throws a Failure if the disk refuses it.
    template <typename... Parts> void line(const Parts&... parts) {
        (write(parts), ...);
        write("\r\n");
    }

    /// Closes the file. Throws a Failure if the disk refuses what was still to be written. Without
    /// this call that goes unnoticed.
    void close();

private:
    void write(std::string_view bytes);

    std::ofstream file_;
};

} // namespace quillmark
