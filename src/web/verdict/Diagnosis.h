#pragma once

#include "findings/SiteResults.h"
#include "run/SiteSource.h"
#include "run/StopToken.h"
#include "web/address/Address.h"
#include "web/discovery/Discovered.h"
#include "web/verdict/Meanings.h"

#include <string>

namespace quillmark::web {

/// Turns wrong references into findings, with their kind, their level and what was probably meant.
class Diagnosis {
public:
    /// `machine` is asked whether a path with a leading "/" exists on this computer; null for a
    /// site on a host.
    Diagnosis(SiteResults& results, const Discovered& found, const Inventory& inventory,
              const Addresses& addresses, Meanings& meanings, SiteSource* machine);

    /// Appends a finding for each wrong reference, in the order in which they were read.
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
