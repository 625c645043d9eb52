#include "findings/Finding.h"

#include <array>

namespace quillmark {

namespace {

struct KindTexts {
    std::string_view name;
    FindingLevel level;
    std::string_view explanation;
    std::string_view help;
};

/// In the order of FindingKind, whose values are the indices.
constexpr std::array<KindTexts, FindingKinds> Kinds = {{
    {"missing", FindingLevel::Error, "there is no such file",
     "Write the name of a file that is there, or add the file to the site."},
    {"fragment-missing", FindingLevel::Error, "the page has no such id",
     "Write an id that the page has, give the element this id, or leave out what follows \"#\"."},
    {"other-case", FindingLevel::Error, "the name has other capital letters",
     "Spell the name as the file is spelled. Most web servers tell a.html and A.html apart."},
    {"other-form", FindingLevel::Error, "the name has another Unicode form",
     "Write the name with the bytes of the file's name. It looks the same and is spelled with "
     "other characters, which web servers tell apart."},
    {"extension-left-out", FindingLevel::Error, "the extension is left out",
     "Write the whole name of the file. If your server adds extensions, check with --clean-urls."},
    {"folder-without-index", FindingLevel::Note, "the folder has no index page",
     "Add an index page to the folder or refer to a page in it. Most web servers answer with an "
     "error or with a listing."},
    {"this-computer-only", FindingLevel::Error, "works on this computer only",
     "Write the address relative to the page. Visitors have no such file on their computers."},
    {"no-address", FindingLevel::Error, "this is no address",
     "Browsers cannot make an address of this: write a sound one."},
    {"dangling-link", FindingLevel::Error, "the symbolic link leads nowhere",
     "Let the symbolic link lead to a file, or refer to another file."},
    {"address-missing", FindingLevel::Error, "the server has no such page",
     "Find out where the page is now, or remove the reference."},
    {"address-refused", FindingLevel::Error, "the server refuses the address",
     "Open it in a browser. If it works there, exclude it with --exclude."},
    {"host-unknown", FindingLevel::Error, "there is no server of this name",
     "Check the spelling of the name. If the site has gone, remove the reference."},
    {"host-refuses", FindingLevel::Error, "nobody answers there: the connection is refused",
     "Check the name and the port. If the site has gone, remove the reference."},
    {"insecure", FindingLevel::Error,
     "no secure connection: the certificate is wrong, or the server's TLS",
     "Browsers warn their users of this address. Write another one, or tell its owner."},
    {"redirect-loop", FindingLevel::Error, "it is redirected without end",
     "Browsers give up here, too. Write another address, or tell its owner."},
    {"redirect-nowhere", FindingLevel::Error, "it is redirected to what is no web address",
     "Write another address, or tell its owner."},
    {"moved", FindingLevel::Note, "it has moved for good",
     "Write the new address: the server says that it will last."},
    {"undetermined", FindingLevel::Note, "undecided by the server's answer",
     "Open it in a browser: the server keeps programs out, or has trouble."},
    {"timed-out", FindingLevel::Note, "no answer in time", "Check again later."},
    {"no-answer", FindingLevel::Note, "no answer that makes sense",
     "Open it in a browser, or check again later."},
    {"not-asked", FindingLevel::Note, "not judged: the time for web addresses was over",
     "Give the check more time."},
    {"private-address", FindingLevel::Note, "not asked: it is in a private network",
     "Visitors cannot reach it. Write a public address, or remove the reference."},
}};

/// In the order of IgnoredReason.
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

FindingLevel usualLevelOf(FindingKind kind) {
    return Kinds.at(static_cast<std::size_t>(kind)).level;
}

std::string_view helpOf(FindingKind kind) {
    return Kinds.at(static_cast<std::size_t>(kind)).help;
}

} // namespace quillmark
