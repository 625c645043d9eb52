#include "platform/FileReplacement.h"

#include "platform/TemporaryFile.h"

namespace quillmark {

void replaceFile(const std::filesystem::path& file, std::string_view bytes, mode_t mode) {
    TemporaryFile temporary(file.parent_path(), mode);
    temporary.write(bytes);
    temporary.flush();
    temporary.rename(file);
}

} // namespace quillmark
