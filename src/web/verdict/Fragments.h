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

/// Judges the fragments of references once the ids of all pages are known. Only hashes are kept of
/// them, so a page with a wrong fragment is read again for its words, and its target for the name
/// that was probably meant.
class Fragments {
public:
    Fragments(SiteResults& results, Discovered& found, SiteSource& source)
        : results_(results), found_(found), source_(source) {}

    /// Appends a finding for each fragment that its target does not have.
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
    std::map<std::uint32_t, std::vector<std::size_t>> byTarget_; ///< Indices into findings.
};

} // namespace quillmark::web
