#pragma once

#include "base/NameComparison.h"
#include "run/Outside.h"
#include "run/RunState.h"
#include "settings/Settings.h"
#include "store/ResultLists.h"

#include <string>

namespace quillmark {

/// What the parts of one run work on: the lists and the state that outlive it, the settings as they
/// were when it began, and the world outside.
struct RunContext {
    ResultLists& lists;
    RunState& state;
    const Settings& settings;
    Outside& outside;
    /// The file that each page is copied to before it is scanned, full path in "\" form.
    std::string workingCopy;

    /// How references, pages and files are compared in this run.
    NameComparison comparison() const {
        return settings.configuration.IGNORECASE == 1 ? NameComparison::IgnoreCase
                                                      : NameComparison::Exact;
    }

    /// One step of a pass: shows it and lets waiting events run, so that Stop stays live.
    void step(int i, int count) const {
        outside.listener.UpdateThinking(i, count);
        outside.events.DoEvents();
    }
};

} // namespace quillmark
