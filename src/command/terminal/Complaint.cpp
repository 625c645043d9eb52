#include "command/terminal/Complaint.h"

#include <iostream>

namespace quillmark {

void complain(const std::string& text) {
    std::cerr << "quillmark-check: " << text << "\n";
}

} // namespace quillmark
