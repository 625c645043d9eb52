#pragma once

#include "run/RunState.h"
#include "settings/Settings.h"
#include "store/ResultLists.h"
#include "ui/TraceLog.h"

namespace quillmark {

/// What a program owns for its whole life, and lends to its parts: the lists, the state of the run,
/// the settings and the trace.
struct Workspace {
    ResultLists lists;
    RunState run;
    Settings settings;
    TraceLog trace;
};

} // namespace quillmark
