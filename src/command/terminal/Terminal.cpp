#include "command/terminal/Terminal.h"

#include "base/Printable.h"
#include "platform/Console.h"

#include <cstdlib>
#include <iostream>

namespace quillmark {

bool useColor(bool asked) {
    if (asked) {
        return true;
    }
    const char* noColor = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    const bool capable = terminal != nullptr && std::string_view(terminal) != "dumb";
    return isTerminal(Stream::Output) && capable && (noColor == nullptr || *noColor == '\0');
}

void complain(std::string_view text) {
    std::cerr << "quillmark-check: " << printable(text) << "\n";
}

} // namespace quillmark
