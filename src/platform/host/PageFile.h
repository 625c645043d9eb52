#pragma once

#include "platform/FileDescriptor.h"

#include <cstddef>
#include <filesystem>
#include <string_view>

namespace quillmark {

/// A page on its way to its local file. It grows beside it, under the file's name followed by
/// ".part", and takes its place at the end; dropped before, it leaves no file.
class PageFile {
public:
    /// `localFile` is in "\" form. Throws a Failure when the file cannot be created.
    explicit PageFile(std::string_view localFile);
    ~PageFile();
    PageFile(const PageFile&) = delete;
    PageFile& operator=(const PageFile&) = delete;

    /// Throws a Failure when the disk refuses the bytes.
    void append(std::string_view bytes);
    std::size_t size() const { return size_; }
    /// Empties it for a second attempt.
    void restart();
    /// Puts it in its place.
    void keep();

private:
    std::filesystem::path file_;
    std::filesystem::path part_;
    FileDescriptor descriptor_{-1};
    std::size_t size_ = 0;
};

} // namespace quillmark
