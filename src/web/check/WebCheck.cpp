#include "web/check/WebCheck.h"

#include "base/Failure.h"
#include "base/Paths.h"
#include "web/address/Address.h"
#include "web/address/PathSegments.h"
#include "web/check/Phases.h"
#include "web/discovery/Discovery.h"
#include "web/judge/PageJudge.h"
#include "web/links/LinkCheck.h"
#include "web/site/HostSource.h"
#include "web/site/InventoryWalk.h"
#include "web/verdict/Diagnosis.h"
#include "web/verdict/FilePasses.h"
#include "web/verdict/Fragments.h"

#include <algorithm>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

namespace quillmark::web {

namespace {

std::string withFinalSlash(std::string folder) {
    if (!folder.empty() && !folder.ends_with('/')) {
        folder += '/';
    }
    return folder;
}

/// The site's address: the one that the user gave, or one made of the host alias.
std::optional<SiteUrl> siteUrlOf(const Profile& profile) {
    if (!profile.SITE_URL.empty()) {
        return parseSiteUrl(profile.SITE_URL);
    }
    return profile.HOST_ALIAS.empty() ? std::nullopt
                                      : parseSiteUrl("http://" + profile.HOST_ALIAS + "/");
}

bool isEarlier(const Finding& a, const Finding& b) {
    return std::tie(a.at.page, a.at.line, a.at.column) <
           std::tie(b.at.page, b.at.line, b.at.column);
}

/// One check with its parts. Made anew for each, so that no part remembers an earlier one.
class WebRun {
public:
    WebRun(SiteResults& results, RunState& state, const Settings& settings,
           const WebOptions& options, Outside& outside, SiteSource& source)
        : results_(results), state_(state), profile_(settings.profile), options_(options),
          outside_(outside), source_(source), phases_(outside, state, source.severalAtOnce()),
          inventory_(results), spellings_(inventory_),
          kinds_(settings.configuration.lstCheckHTML), rules_{options.indexNames,
                                                              kinds_.extensions(),
                                                              options.cleanUrls,
                                                              settings.configuration.IGNORECASE ==
                                                                  1},
          targets_(inventory_, spellings_, source, rules_), addresses_(siteUrlOf(settings.profile)),
          anyServer_(siteUrlOf(settings.profile), Addresses::Servers::Any),
          exclude_(options.exclude),
          keep_(options.keep), judge_{source, targets_, addresses_, anyServer_, exclude_} {}

    void perform() {
        settleTop();
        takeInventory();
        readPages();
        judge();
        findUnused();
        findDuplicates();
        checkLinks();
        finishFindings();
        postTroubles(found_.troubles);
        outside_.listener.RemoveThinking();
    }

private:
    void settleTop() {
        start_ = state_.localMode ? ToForwardSlashes(profile_.START_PATH) : profile_.START_PATH;
        const std::string root =
            state_.localMode ? ToForwardSlashes(profile_.SITE_ROOT) : profile_.SITE_ROOT;
        const std::string top = root.empty() ? std::string(folderOf(start_)) : withFinalSlash(root);
        if (!start_.starts_with(top)) {
            throw invalidValue("The start file \"" + start_ + "\" does not lie in \"" + top + "\"");
        }
        results_.top = results_.texts.keep(top);
    }

    void takeInventory() {
        outside_.messages.post("Taking the Inventory");
        std::vector<std::string> troubles;
        phases_.perform("Taking the Inventory", [&] {
            web::takeInventory(source_, {profile_.MAX_LEVELS, threads()}, phases_, results_,
                               inventory_, troubles);
        });
        postTroubles(troubles);
    }

    void readPages() {
        if (state_.abort) {
            return;
        }
        const auto start = startFile();
        if (!start) {
            outside_.messages.post("Unable to read start file");
            state_.abort = true;
            return;
        }
        outside_.messages.post("Reading Pages");
        phases_.perform("Reading Pages", [&] { readFrom(*start); });
    }

    /// The start path may be spelled in another letter case than the file: that is no reason to
    /// refuse the whole check.
    std::optional<std::uint32_t> startFile() const {
        const std::string_view path = results_.fromTop(start_);
        if (const auto exact = inventory_.file(path)) {
            return exact;
        }
        const auto spelled = spellings_.find(path);
        return spelled ? inventory_.file(*spelled) : std::nullopt;
    }

    void readFrom(std::uint32_t start) {
        PageQueue queue(pageJudges(judge_), threads());
        Discovery discovery(results_, inventory_, kinds_, source_, queue, found_,
                            {phases_.done, phases_.known});
        // Visitors come to the start page by its address alone.
        results_.files[start].used = true;
        results_.files[inventory_.realFile(start)].used = true;
        discovery.addPage(start, PageKind::Html);
        discovery.readAll(phases_);
        addSitemaps(discovery);
        discovery.readAll(phases_);
        if (options_.allPages) {
            addAllPages(discovery);
            discovery.readAll(phases_);
        }
    }

    unsigned threads() const {
        if (!source_.severalAtOnce()) {
            return 1;
        }
        return options_.threads > 0 ? options_.threads
                                    : std::max(1U, std::thread::hardware_concurrency());
    }

    /// Search engines look for sitemaps at the top of the site without a reference to them.
    void addSitemaps(Discovery& discovery) {
        for (std::uint32_t i = 0; i < results_.files.size() && !phases_.stopped(); ++i) {
            const std::string_view path = inventory_.pathOf(i);
            if (path.starts_with("sitemap") && path.ends_with(".xml") &&
                path.find('/') == std::string_view::npos && inventory_.isInSite(i)) {
                discovery.addPage(i, PageKind::Feed);
            }
        }
    }

    void addAllPages(Discovery& discovery) {
        for (std::uint32_t i = 0; i < results_.files.size() && !phases_.stopped(); ++i) {
            const std::string_view path = inventory_.pathOf(i);
            if (!results_.files[i].hidden && kinds_.byName(path) == PageKind::Html &&
                inventory_.isInSite(i) && !exclude_.match(path)) {
                discovery.addPage(i, PageKind::Html);
            }
        }
    }

    void judge() {
        phases_.perform("Checking References", [&] {
            Fragments(results_, found_, source_).perform(phases_);
            Meanings meanings(inventory_, spellings_, kinds_.extensions());
            Diagnosis(results_, found_, inventory_, addresses_, meanings,
                      state_.localMode ? &source_ : nullptr)
                .perform(phases_);
        });
        if (profile_.IGNORE_CGI == 1) {
            std::erase_if(results_.ignored, [](const IgnoredReference& ignored) {
                return ignored.reference.find(".cgi") != std::string_view::npos ||
                       ignored.reference.find(".CGI") != std::string_view::npos;
            });
        }
        state_.invalidPass = state_.abort ? PassProgress::Stopped : PassProgress::Done;
    }

    void findUnused() {
        // The pages that an aborted run did not read may use any file.
        if (!state_.abort) {
            phases_.perform("Checking Unused Files", [&] { findUnusedFiles(results_, keep_); });
            state_.unusedPass = PassProgress::Done;
        }
    }

    void findDuplicates() {
        if (state_.abort || profile_.CHECK_DUPES == 0) {
            return;
        }
        outside_.messages.post("Checking For Duplicate Files");
        phases_.perform("Checking for Duplicate Files", [&] {
            if (state_.localMode) {
                findDuplicateFiles(results_, source_, phases_);
            } else {
                findDuplicatesByName(results_);
            }
        });
        state_.duplicatesPass = state_.abort ? PassProgress::Stopped : PassProgress::Done;
    }

    /// The last step, since it takes longest: Stop then loses nothing else. It runs on the run's
    /// thread, which lets events run while it waits for answers.
    void checkLinks() {
        if (state_.abort || profile_.CHECK_URL != 1) {
            return;
        }
        outside_.messages.post("Checking Web Addresses");
        outside_.listener.InitializeThinking("Checking Web Addresses");
        const bool plain = schemeOf(profile_.SITE_URL).size() == std::string_view("http").size();
        LinkCheck(results_, state_, options_.links, outside_, plain ? "http" : "https").perform();
    }

    void finishFindings() {
        std::stable_sort(results_.findings.begin(), results_.findings.end(), isEarlier);
        results_.totals = countFindings(results_.findings);
    }

    void postTroubles(const std::vector<std::string>& troubles) {
        for (const std::string& trouble : troubles) {
            outside_.messages.post(trouble);
        }
    }

    SiteResults& results_;
    RunState& state_;
    const Profile& profile_;
    const WebOptions& options_;
    Outside& outside_;
    SiteSource& source_;
    Phases phases_;
    Inventory inventory_;
    Spellings spellings_;
    PageKinds kinds_;
    LookupRules rules_;
    TargetFinder targets_;
    Addresses addresses_;
    Addresses anyServer_;
    Patterns exclude_;
    Patterns keep_;
    JudgeContext judge_;
    Discovered found_;
    std::string start_;
};

} // namespace

WebCheck::WebCheck(SiteResults& results, RunState& state, const Settings& settings,
                   const WebOptions& options, Outside& outside, std::string workingCopy)
    : results_(results), state_(state), settings_(settings), options_(options), outside_(outside),
      workingCopy_(std::move(workingCopy)) {}

void WebCheck::perform() {
    results_.filled = true;
    requireSoundOptions(options_, settings_.profile);
    if (state_.abort) {
        return;
    }
    HostSource host(outside_.ftp, outside_.disk, workingCopy_);
    SiteSource& source = state_.localMode ? outside_.site : static_cast<SiteSource&>(host);
    WebRun(results_, state_, settings_, options_, outside_, source).perform();
}

void WebCheck::computeStatistics() {
    state_.hostByteTotal = 0;
    for (const SiteFile& file : results_.files) {
        state_.hostByteTotal += static_cast<double>(file.size);
    }
    state_.unusedByteTotal = 0;
    for (const std::uint32_t file : results_.unused) {
        state_.unusedByteTotal += static_cast<double>(results_.files[file].size);
    }
    state_.statisticsComplete = true;
}

} // namespace quillmark::web
