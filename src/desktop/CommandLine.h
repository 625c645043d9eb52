#pragma once

#include "windows/shared/Theme.h"

#include <QCoreApplication>

#include <string>

namespace quillmark {

/// What the command line of the desktop program asks for.
struct CommandLine {
    ThemeChoice theme = ThemeChoice::System;
    std::string startPath; ///< A page to propose in the profile dialog, "\" form; may be empty.
};

/// Reads the command line. Ends the program for --help, --version and a usage error, after saying
/// why.
CommandLine readCommandLine(const QCoreApplication& application);

} // namespace quillmark
