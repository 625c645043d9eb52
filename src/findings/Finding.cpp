#include "findings/Finding.h"

#include <array>

namespace quillmark {

namespace {

struct KindTexts {
    std::string_view name;
    std::string_view explanation;
};

constexpr std::array<KindTexts, FindingKinds> Kinds = {{
    {"missing", "there is no such file"},
    {"fragment-missing", "the page has no such id"},
    {"other-case", "the name has other capital letters"},
    {"other-form", "the name has another Unicode form"},
    {"extension-left-out", "the extension is left out"},
    {"folder-without-index", "the folder has no index page"},
    {"this-computer-only", "works on this computer only"},
    {"no-address", "this is no address"},
    {"dangling-link", "the symbolic link leads nowhere"},
    {"address-missing", "the server has no such page"},
    {"address-refused", "the server refuses the address"},
    {"host-unknown", "there is no server of this name"},
    {"host-refuses", "nobody answers there: the connection is refused"},
    {"insecure", "no secure connection: the certificate is wrong, or the server's TLS"},
    {"redirect-loop", "it is redirected without end"},
    {"redirect-nowhere", "it is redirected to what is no web address"},
    {"moved", "it has moved for good"},
    {"undetermined", "the server does not tell whether it is there"},
    {"timed-out", "no answer in time"},
    {"no-answer", "no answer that makes sense"},
    {"not-asked", "not asked: the time for web addresses was over"},
    {"private-address", "not asked: it is in a private network"},
}};

constexpr std::array<std::string_view, IgnoredReasons> Reasons = {
    "another site", "other scheme",      "above the top of the site",
    "excluded",     "folder not listed", "ignored by the classic rules"};

} // namespace

std::string_view nameOf(FindingKind kind) {
    return Kinds.at(static_cast<std::size_t>(kind)).name;
}

std::string_view nameOf(FindingLevel level) {
    return level == FindingLevel::Error ? "error" : "note";
}

std::string_view nameOf(IgnoredReason reason) {
    return Reasons.at(static_cast<std::size_t>(reason));
}

std::string_view explanationOf(FindingKind kind) {
    return Kinds.at(static_cast<std::size_t>(kind)).explanation;
}

std::string explanationOf(const Finding& finding) {
    const std::string text(explanationOf(finding.kind));
    return finding.status == 0 ? text : text + " (" + std::to_string(finding.status) + ")";
}

} // namespace quillmark
