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

    /// Whether the user wants the run to end in the middle of a page. A full list does not end it
    /// there: the page that fills a list is read to its end. On a local site this lets waiting
    /// events run, which nothing else does during a page.
    bool stopRequested() const {
        if (state.localMode) {
            outside.events.DoEvents();
        }
        return state.stopped;
    }

    /// One step of a pass: shows it and lets waiting events run, so that Stop stays live.
    void step(int i, int count) const {
        outside.listener.UpdateThinking(i, count);
        outside.events.DoEvents();
    }
};

} // namespace quillmark
