#pragma once

#include <string>

namespace quillmark {

/// Tells the user on standard error what is wrong.
void complain(const std::string& text);

} // namespace quillmark
