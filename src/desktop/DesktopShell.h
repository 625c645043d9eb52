#pragma once

#include "windows/outside/Desktop.h"

namespace quillmark {

/// Opens targets in the browser, or in the programs that the desktop uses for such files. A target
/// that begins with "http:", "https:" or "ftp:", in any case, is a web address; any other is a file
/// or a folder.
class DesktopShell : public Shell {
public:
    /// Throws 53, "File not found: " and the path, for a file that is not there, and 1030 if no
    /// program takes the target.
    void open(std::string_view target) override;

    /// Judges by the file's type in the desktop's own tables (shared-mime-info). A file that is
    /// marked executable counts too, unless its type is only ever shown: on some disks every page
    /// and picture has that mark.
    bool startsProgram(std::string_view target) const override;

    /// Looks in the folders of PATH for an editor with a window that is known to take a line
    /// number.
    bool hasEditor() const override;
    /// `line` is 1-based. Throws 53 for a file that is not there, and 1030 if no editor starts.
    void edit(std::string_view file, std::uint32_t line) override;
};

} // namespace quillmark
