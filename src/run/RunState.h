#pragma once

#include <cstdint>
#include <string>

namespace quillmark {

/// How a run ended.
enum class RunOutcome { Finished, Aborted, Failed };

/// How far a pass over the lists came.
enum class PassProgress {
    NotRun,  ///< The run had ended before it, or failed within it: what it fills says nothing.
    Stopped, ///< It compared a part only.
    Done
};

/// How much a run could not read. A clean result that rests on little must not pass for a sound
/// site.
struct ReadingFigures {
    int pagesCutShort = 0;         ///< Pages whose end was not read and may hold references.
    std::uint64_t bytes = 0;       ///< The size of all pages.
    std::uint64_t bytesUnread = 0; ///< What was not read of the pages cut short.
    int secureAddresses = 0;       ///< References to "https:" that were taken for files.
};

/// What the parts of a run share while it lasts, and what the window reads afterwards.
struct RunState {
    bool abort = false;     ///< Set by Stop, by a full list and by failures; ends every loop.
    bool stopped = false;   ///< Set by Stop: ends the page that is being read, too.
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
    RunOutcome outcome = RunOutcome::Finished; ///< Of the latest run.
    ReadingFigures reading;
    PassProgress invalidPass = PassProgress::NotRun;    ///< References compared with the inventory.
    PassProgress unusedPass = PassProgress::NotRun;     ///< Files compared with the references.
    PassProgress duplicatesPass = PassProgress::NotRun; ///< Files compared with each other.
};

} // namespace quillmark
