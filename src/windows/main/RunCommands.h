#pragma once

namespace quillmark {

/// The check run as the main window's buttons drive it.
class RunCommands {
public:
    virtual ~RunCommands() = default;

    /// Performs one check with the current profile, whose start path is not empty, and returns at
    /// its end. Throws a Failure when it cannot begin.
    virtual void start() = 0;
    /// Lets the check end at its next look at the abort flag.
    virtual void stop() = 0;
};

} // namespace quillmark
