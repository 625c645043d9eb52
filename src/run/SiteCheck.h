#pragma once

namespace quillmark {

/// One check of a site by one set of rules, made anew for each run. Every step looks at the abort
/// flag itself, so that Stop, a full list and a missing start file all end a run the same way.
class SiteCheck {
public:
    virtual ~SiteCheck() = default;

    /// Everything from the inventory to the duplicate files; the host, if there is one, is already
    /// connected. Throws a Failure that ends the run.
    virtual void perform() = 0;
    /// Adds up the sizes of all files and of the unused ones, into the run's state.
    virtual void computeStatistics() = 0;
};

} // namespace quillmark
