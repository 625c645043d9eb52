#pragma once

#include "windows/outside/Desktop.h"

namespace quillmark {

/// Starts the browser, and the programs that files belong to, as the desktop does. A target that
/// begins with "http:", "https:" or "ftp:", in any case, is a web address; any other is a file or a
/// folder.
class DesktopShell : public Shell {
public:
    /// Throws 53, "File not found: " and its path, for a file that is not there, and 1030 when no
    /// program takes the target.
    void open(std::string_view target) override;

    /// Goes by the file's type in the desktop's own tables (shared-mime-info). A file that is
    /// marked executable counts, too, unless its type is one that is only ever shown: on some disks
    /// every page and picture has that mark.
    bool startsProgram(std::string_view target) const override;

    /// Looks for an editor with a window that is known to take a line, in the folders of PATH.
    bool hasEditor() const override;
    /// Throws 53 for a file that is not there, and 1030 when the editor does not start.
    void edit(std::string_view file, std::uint32_t line) override;
};

} // namespace quillmark
