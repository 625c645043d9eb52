#include "ui/TraceSave.h"

#include "base/Version.h"

namespace quillmark {

void TraceSave::save(const std::optional<std::filesystem::path>& chosen) {
    if (chosen && !file_.is_open()) {
        file_.open(*chosen, std::ios::binary | std::ios::trunc);
        // Flushed, since a program that ends abruptly would not close the file.
        file_ << ApplicationTitle << " Version " << ApplicationVersion << "\r\n" << std::flush;
    }
    trace_.Append("Unable to save trace window");
}

} // namespace quillmark
