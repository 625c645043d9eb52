#include "ui/LineWriter.h"

#include "base/Failure.h"

#include <cerrno>
#include <system_error>

namespace quillmark {

namespace {

/// The stream only knows that the disk refused; errno knows why.
void throwUnlessGood(const std::ofstream& file) {
    if (!file) {
        throw failureFromError({errno, std::generic_category()}, pathNotFound());
    }
}

} // namespace

LineWriter::LineWriter(const std::filesystem::path& path, std::ios::openmode mode)
    : file_(path, std::ios::binary | mode) {
    throwUnlessGood(file_);
}

void LineWriter::write(std::string_view bytes) {
    file_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    throwUnlessGood(file_);
}

void LineWriter::close() {
    file_.close();
    throwUnlessGood(file_);
}

} // namespace quillmark
