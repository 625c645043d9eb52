#include "report/FindingIdentity.h"

#include "base/Hash.h"

#include <cstdint>

namespace quillmark {

namespace {

std::string hexadecimal(std::uint64_t number) {
    std::string text(16, '0');
    for (std::size_t digit = text.size(); digit-- > 0; number /= 16) {
        text[digit] = "0123456789abcdef"[number % 16];
    }
    return text;
}

} // namespace

FindingIdentity identityOf(const SiteResults& site, const Finding& finding) {
    return {site.fromTop(site.pagePath(finding.at.page)), finding.reference, finding.kind};
}

std::vector<std::string> fingerprints(const SiteResults& site) {
    std::map<FindingIdentity, int> counts;
    std::vector<std::string> result;
    result.reserve(site.findings.size());
    for (const Finding& finding : site.findings) {
        const FindingIdentity identity = identityOf(site, finding);
        std::string text(nameOf(identity.kind));
        // Zero bytes part the texts, none of which holds one.
        text.append(1, '\0').append(identity.page).append(1, '\0').append(identity.reference);
        text.append(1, '\0').append(std::to_string(++counts[identity]));
        result.push_back(hexadecimal(hashOf(text)));
    }
    return result;
}

} // namespace quillmark
