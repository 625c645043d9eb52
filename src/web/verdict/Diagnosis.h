#pragma once

#include "findings/SiteResults.h"
#include "run/SiteSource.h"
#include "run/StopToken.h"
#include "web/address/Address.h"
#include "web/discovery/Discovered.h"
#include "web/verdict/Meanings.h"

#include <string>

namespace quillmark::web {

/// Turns what was found wrong into findings: with its kind, its level and what was meant.
class Diagnosis {
public:
    /// `source` is asked whether a path from the top is one of this machine; null: there is none.
    Diagnosis(SiteResults& results, const Discovered& found, const Inventory& inventory,
              const Addresses& addresses, Meanings& meanings, SiteSource* machine);

    /// Appends a finding for each reference that leads to nothing, in their order.
    void perform(StopToken& stop);

private:
    Finding diagnose(const OpenFinding& open);
    void diagnoseMissing(const OpenFinding& open, Finding& finding);
    bool isOnThisComputer(const OpenFinding& open, std::string_view path);
    std::optional<std::string> encodedName(const OpenFinding& open) const;
    std::string suggestion(const OpenFinding& open, std::string_view path) const;
    std::string_view baseOf(std::uint32_t page) const;

    SiteResults& results_;
    const Discovered& found_;
    const Inventory& inventory_;
    const Addresses& addresses_;
    Meanings& meanings_;
    SiteSource* machine_;
};

} // namespace quillmark::web
