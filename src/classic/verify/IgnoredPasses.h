#pragma once

#include "run/RunContext.h"

namespace quillmark {

/// The passes that take references off the ignored ones because the user does not want to see them.
/// Once started they run to their end.
class IgnoredPasses {
public:
    explicit IgnoredPasses(RunContext& context) : context_(context) {}

    /// Removes references to a topic of the page itself ("#top").
    void removeTopicReferences();
    /// Removes references that hold ".CGI" or ".cgi"; a mixed-case form stays.
    void removeCGIReferences();

private:
    RunContext& context_;
};

} // namespace quillmark
