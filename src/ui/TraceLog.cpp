#include "ui/TraceLog.h"

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

} // namespace quillmark
