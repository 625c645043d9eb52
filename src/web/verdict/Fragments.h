#pragma once

#include "findings/SiteResults.h"
#include "run/SiteSource.h"
#include "run/StopToken.h"
#include "web/discovery/Discovered.h"
#include "web/verdict/NearNames.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark::web {

/// Judges the fragments of references once all pages told their ids. Pages keep hashes only, so a
/// page with a wrong fragment is read again: for the words, and for what was meant.
class Fragments {
public:
    Fragments(SiteResults& results, Discovered& found, SiteSource& source)
        : results_(results), found_(found), source_(source) {}

    /// Appends a finding for each fragment that its page does not have.
    void perform(StopToken& stop);

private:
    void describe(std::uint32_t page, const std::vector<OpenFragment>& wrong);
    void describeOne(const OpenFragment& open, const PageContent& content);
    void suggest(std::uint32_t target, const std::vector<std::size_t>& findings);
    bool read(std::uint32_t page);

    SiteResults& results_;
    Discovered& found_;
    SiteSource& source_;
    NearNames near_;
    std::string bytes_;
    PageContent content_;
    std::map<std::uint32_t, std::vector<std::size_t>> byTarget_; ///< Indices of findings.
};

} // namespace quillmark::web
