#pragma once

#include "report/CheckReport.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace quillmark {

/// What identifies a finding even after the lines of its page have moved. Several findings of a
/// page with one identity are told apart by their count.
struct FindingIdentity {
    std::string_view page; ///< From the top of the site.
    std::string_view reference;
    FindingKind kind = FindingKind::Missing;

    friend bool operator<(const FindingIdentity& a, const FindingIdentity& b) {
        return std::tie(a.page, a.reference, a.kind) < std::tie(b.page, b.reference, b.kind);
    }
};

/// The identity of a finding of `site`; its texts are views into the results.
FindingIdentity identityOf(const SiteResults& site, const Finding& finding);

/// A name for each finding, in their order, which stays the same from check to check and which no
/// other finding has: 16 hexadecimal digits.
std::vector<std::string> fingerprints(const SiteResults& site);

} // namespace quillmark
