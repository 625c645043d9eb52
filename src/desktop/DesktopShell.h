#pragma once

#include "windows/outside/Shell.h"

namespace quillmark {

/// Starts the browser, and the programs that files belong to, as the desktop does. A target that
/// begins with "http:", "https:" or "ftp:", in any case, is a web address; any other is a file or a
/// folder.
class DesktopShell : public Shell {
public:
    /// Throws fileNotFound() for a file that is not there, and 1030 when no program takes the
    /// target.
    void open(std::string_view target) override;
};

} // namespace quillmark
