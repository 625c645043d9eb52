#pragma once

#include "windows/shared/Theme.h"

#include <QCoreApplication>

#include <string>

namespace quillmark {

/// What the desktop program is asked for when it is started.
struct CommandLine {
    ThemeChoice theme = ThemeChoice::System;
    std::string startPath; ///< A page to propose in the profile dialog, "\" form; may be empty.
};

/// Reads the command line. Ends the program, having said why, for --help, --version and a usage
/// error.
CommandLine readCommandLine(const QCoreApplication& application);

} // namespace quillmark
