#pragma once

#include "run/Outside.h"
#include "run/RunContext.h"
#include "run/RunSounds.h"
#include "run/RunState.h"
#include "settings/Settings.h"
#include "store/ResultLists.h"

#include <string>
#include <string_view>

namespace quillmark {

class Failure;
class SiteCheck;

/// How a run ended.
enum class RunOutcome { Finished, Aborted, Failed };

/// The check of a site, from the first message to the last. One object serves all runs of a
/// program.
class CheckRun {
public:
    /// `programFolder` is the program's own folder in "\" form.
    CheckRun(ResultLists& lists, RunState& state, const Settings& settings, Outside& outside,
             std::string_view programFolder);

    /// What Start does once the profile is chosen: clears the messages and runs. The start path
    /// must not be empty.
    RunOutcome start();
    /// Performs one check with the settings as they are now. Runs do not nest.
    RunOutcome HostHandler();
    /// What Stop does: the run ends at its next look at the abort flag.
    void stop();

private:
    RunOutcome perform(SiteCheck& check, const Profile& profile);
    void prepare();
    void deleteEarlierFiles();
    void announceMode();
    void connect(const Profile& profile);
    RunOutcome normalEnd(SiteCheck& check, const Profile& profile);
    RunOutcome abortedEnd();
    RunOutcome failedEnd(const Failure& failure);
    void leaveRunState();

    ResultLists& lists_;
    RunState& state_;
    const Settings& settings_;
    Outside& outside_;
    std::string programFolder_;
    RunSounds sounds_;
};

} // namespace quillmark
