#pragma once

#include "findings/SiteResults.h"
#include "run/Outside.h"
#include "run/RunState.h"
#include "run/SiteCheck.h"
#include "settings/Settings.h"
#include "web/check/WebOptions.h"

#include <string>

namespace quillmark::web {

/// One check with the web rules, from the inventory to the findings.
class WebCheck : public SiteCheck {
public:
    /// `workingCopy` is the file that pages of a host are retrieved into, full path in "\" form.
    WebCheck(SiteResults& results, RunState& state, const Settings& settings,
             const WebOptions& options, Outside& outside, std::string workingCopy);

    /// Fills the results, which must be empty. The abort flag ends the check early; what was found
    /// until then stays. Throws a Failure if an option is invalid, the start file lies outside the
    /// site or the host is lost.
    void perform() override;
    void computeStatistics() override;

private:
    SiteResults& results_;
    RunState& state_;
    const Settings& settings_;
    const WebOptions& options_;
    Outside& outside_;
    std::string workingCopy_;
};

} // namespace quillmark::web
