#pragma once

#include <string>

namespace quillmark {

/// What the parts of a run share while it lasts, and the window reads afterwards.
struct RunState {
    bool abort = false;     ///< Set by Stop, by a full list and by failures; ends every loop.
    bool localMode = false; ///< The start path holds a "\": a folder stands for the host.
    std::string
        currentDirectory;    ///< Being listed, or that of the current file; ends in a separator.
    std::string currentFile; ///< Being retrieved or scanned, full path.
    int startLevel = 0;      ///< Depth of the start file's directory.
    std::string baseUrl;     ///< What turns a host path into a web address; empty in Local Mode.
    double hostByteTotal = 0;
    double unusedByteTotal = 0;
    bool statisticsComplete =
        false; ///< The byte totals were computed in this run or an earlier one.
};

} // namespace quillmark
