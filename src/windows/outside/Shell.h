#pragma once

#include <string_view>

namespace quillmark {

/// The desktop that other programs are started from.
class Shell {
public:
    virtual ~Shell() = default;

    /// Opens a web address in the browser, or a local file (full path in "\" form) with the program
    /// that it belongs to. Returns at once. Throws a Failure when the desktop has nothing for it.
    virtual void open(std::string_view target) = 0;
};

} // namespace quillmark
