#pragma once

#include "findings/SiteResults.h"
#include "run/RunState.h"
#include "settings/Settings.h"
#include "store/ResultLists.h"
#include "ui/TraceLog.h"

namespace quillmark {

/// What a program owns for its whole life and lends to its parts: the results, the state of the
/// run, the settings and the trace.
struct Workspace {
    SiteResults site; ///< Of a check with the web rules; the lists may hold views into them.
    ResultLists lists;
    RunState run;
    Settings settings;
    TraceLog trace;
};

} // namespace quillmark
