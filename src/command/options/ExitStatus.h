#pragma once

namespace quillmark {

/// What quillmark-check tells the shell.
enum ExitStatus : int {
    NothingInvalid = 0,
    InvalidFound = 1,
    NotStarted = 2, ///< A usage error, or nothing to check.
    NotFinished = 3 ///< The run was aborted or failed, or its results could not be written.
};

} // namespace quillmark
