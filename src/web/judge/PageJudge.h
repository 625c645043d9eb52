#pragma once

#include "run/SiteSource.h"
#include "web/address/Address.h"
#include "web/judge/JudgedPage.h"
#include "web/judge/Patterns.h"
#include "web/judge/RecentTargets.h"
#include "web/judge/TargetFinder.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark::web {

/// What the pages of a run are judged by. It does not change while pages are read.
struct JudgeContext {
    SiteSource& source;
    const TargetFinder& targets;
    const Addresses& addresses;
    const Addresses& anyServer; ///< For Role::UseOnly: sitemaps write the server's name out.
    const Patterns& exclude;
};

/// Reads pages and judges their references. Each thread needs a judge of its own.
class PageJudge {
public:
    explicit PageJudge(const JudgeContext& context) : context_(context) {}

    /// Fills `page`, which is cleared first. If it cannot be read, `trouble` says why.
    void judge(const PageTask& task, JudgedPage& page);

private:
    void hashIds(PageKind kind, JudgedPage& page) const;
    void judgeReference(const PageTask& task, std::uint32_t ordinal, JudgedPage& page);
    void judgeAddress(const PageTask& task, const PageReference& reference, JudgedReference judged,
                      JudgedPage& page);
    bool judgeRepeated(const PageReference& reference, JudgedReference judged, JudgedPage& page);
    void judgeTarget(const PageTask& task, const PageReference& reference, JudgedReference judged,
                     JudgedPage& page);
    void judgeUseMap(const PageReference& reference, JudgedReference judged, JudgedPage& page);
    void remember(std::string_view reference, const JudgedReference& judged, bool ownPage);
    static void judgeFragment(std::optional<std::string_view> written, bool ownPage,
                              JudgedReference& judged, const JudgedPage& page);
    bool isExcluded(const PageReference& reference) const;
    void addIgnored(IgnoredReason reason, const PageReference& reference, JudgedReference judged,
                    JudgedPage& page) const;

    const JudgeContext& context_;
    std::string bytes_;
    PageContent content_;
    Base base_;
    Address address_;
    std::string path_; ///< What was found for the address.
    RecentTargets recent_;
};

/// Gives each thread of a PageQueue its work: a judge of its own. `context` must outlive the queue.
std::function<PageQueue::Work()> pageJudges(const JudgeContext& context);

} // namespace quillmark::web
