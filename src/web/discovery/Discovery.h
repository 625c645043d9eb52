#pragma once

#include "findings/SiteResults.h"
#include "run/SiteSource.h"
#include "run/StopToken.h"
#include "web/discovery/Discovered.h"
#include "web/discovery/PageKinds.h"
#include "web/judge/JudgedPage.h"
#include "web/site/Inventory.h"

#include <atomic>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace quillmark::web {

/// How far the reading has come, for another thread to show.
struct ReadingProgress {
    std::atomic<int>& read;  ///< Pages read.
    std::atomic<int>& known; ///< Pages found so far.
};

/// Reads the pages of a site from one page on and gathers what they refer to. The results depend on
/// the site alone, not on which thread was faster.
class Discovery {
public:
    Discovery(SiteResults& results, const Inventory& inventory, const PageKinds& kinds,
              SiteSource& source, PageQueue& queue, Discovered& found,
              const ReadingProgress& progress);

    /// Queues a file as a page. Its extension says how it is read; if that says nothing, it is read
    /// as `otherwise`.
    void addPage(std::uint32_t file, PageKind otherwise);
    /// Reads all pages that are queued, and the pages that these lead to.
    void readAll(StopToken& stop);

private:
    void take(std::uint32_t page, const JudgedPage& judged);
    void file(std::uint32_t page, const JudgedPage& judged, const JudgedReference& reference);
    void fileTarget(std::uint32_t page, const JudgedReference& reference, std::uint32_t target);
    void addIgnored(const JudgedPage& judged, const JudgedReference& reference, const Place& at);
    void addFinding(const JudgedPage& judged, const JudgedReference& reference, const Place& at,
                    std::uint32_t target);
    std::uint32_t targetOf(std::uint32_t page, const JudgedPage& judged,
                           const JudgedReference& reference);
    std::uint32_t otherTarget(std::string_view path);
    void markUsed(std::uint32_t file);
    void reach(std::uint32_t target, std::uint32_t file, Role role);
    void enqueue(std::uint32_t target, PageKind kind);
    std::string_view interned(std::string_view text);

    SiteResults& results_;
    const Inventory& inventory_;
    const PageKinds& kinds_;
    SiteSource& source_;
    PageQueue& queue_;
    Discovered& found_;
    ReadingProgress progress_;
    std::uint32_t taken_ = 0;
    std::vector<std::optional<PageKind>> kindOfTarget_;
    std::unordered_map<std::string_view, std::uint32_t> otherTargets_; ///< By path from the top.
    std::unordered_set<std::string_view> texts_;
};

} // namespace quillmark::web
