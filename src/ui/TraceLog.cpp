#include "ui/TraceLog.h"

#include "base/Version.h"

namespace quillmark {

namespace {

constexpr int FullCount = 50;
constexpr std::string_view PasswordCommand = "PASS";
constexpr std::string_view LineEnd = "\r\n";

} // namespace

void TraceLog::Trace(std::string_view text) {
    if (lines_.Count() > FullCount) {
        lines_.RemoveFirst();
    }
    // A trace may be shown or sent to others.
    if (text.starts_with(PasswordCommand)) {
        text = PasswordCommand;
    }
    std::size_t end = text.find(LineEnd);
    if (end == std::string_view::npos) {
        lines_.Append(text);
    }
    for (; end != std::string_view::npos; end = text.find(LineEnd)) {
        lines_.Append(text.substr(0, end));
        text.remove_prefix(end + LineEnd.size());
    }
}

void TraceSave::save(const std::optional<std::filesystem::path>& chosen) {
    if (chosen && !file_.is_open()) {
        file_.open(*chosen, std::ios::binary | std::ios::trunc);
        // Flushed, since a program that ends abruptly would not close the file.
        file_ << ApplicationTitle << " Version " << ApplicationVersion << "\r\n" << std::flush;
    }
    trace_.Append("Unable to save trace window");
}

} // namespace quillmark
