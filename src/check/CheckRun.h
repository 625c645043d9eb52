#pragma once

#include "findings/SiteResults.h"
#include "run/Outside.h"
#include "run/RunContext.h"
#include "run/RunSounds.h"
#include "run/RunState.h"
#include "settings/Settings.h"
#include "store/ResultLists.h"
#include "web/check/WebOptions.h"

#include <string>
#include <string_view>

namespace quillmark {

class Failure;
class SiteCheck;

/// The check of a site, from the first message to the last. One object serves all runs of a
/// program.
class CheckRun {
public:
    /// `programFolder` is the program's own folder in "\" form. Checks with the web rules fill
    /// `site`: the lists then stay empty until projectLists() fills them from it.
    CheckRun(ResultLists& lists, SiteResults& site, RunState& state, const Settings& settings,
             Outside& outside, std::string_view programFolder);

    /// Sets what checks with the web rules need beyond the settings, from the next run on.
    void setWebOptions(const web::WebOptions& options) { webOptions_ = options; }

    /// What Start does once the profile is chosen: clears the messages and runs. The start path
    /// must not be empty.
    RunOutcome start();
    /// Performs one check with the settings as they are now. Runs do not nest.
    RunOutcome HostHandler();
    /// What Stop does: the run ends at its next look at the abort flag.
    void stop();

private:
    RunOutcome performClassic(const Settings& settings);
    RunOutcome performWeb(const Settings& settings);
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
    SiteResults& site_;
    RunState& state_;
    const Settings& settings_;
    Outside& outside_;
    std::string programFolder_;
    RunSounds sounds_;
    web::WebOptions webOptions_;
};

} // namespace quillmark
