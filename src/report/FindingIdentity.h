#pragma once

#include "report/CheckReport.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace quillmark {

/// By what a finding is known again after the lines of its page moved. Where a page has several of
/// one identity, they are told apart by their count.
struct FindingIdentity {
    std::string_view page; ///< From the top of the site.
    std::string_view reference;
    FindingKind kind = FindingKind::Missing;

    friend bool operator<(const FindingIdentity& a, const FindingIdentity& b) {
        return std::tie(a.page, a.reference, a.kind) < std::tie(b.page, b.reference, b.kind);
    }
};

FindingIdentity identityOf(const SiteResults& site, const Finding& finding);

/// A name for each finding that lasts from check to check and that no other finding has: 16
/// hexadecimal digits.
std::vector<std::string> fingerprints(const SiteResults& site);

} // namespace quillmark
