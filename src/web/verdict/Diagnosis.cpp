#include "web/verdict/Diagnosis.h"

#include "web/address/PercentCoding.h"
#include "web/address/ReferenceText.h"
#include "web/address/RelativeReference.h"

#include <utility>

namespace quillmark::web {

namespace {

/// The reference as it would have to be written if each "%" in it were part of a name.
std::string withPercentsEncoded(std::string_view reference) {
    std::string result;
    for (const char c : reference) {
        result += c;
        result += c == '%' ? "25" : "";
    }
    return result;
}

/// The query and fragment of a reference: the suggestion keeps them.
std::string_view suffixOf(std::string_view reference) {
    const std::size_t start = reference.find_first_of("?#");
    std::string_view suffix =
        start == std::string_view::npos ? std::string_view() : reference.substr(start);
    while (!suffix.empty() && isBlankOrControl(suffix.back())) {
        suffix.remove_suffix(1);
    }
    return suffix;
}

} // namespace

Diagnosis::Diagnosis(SiteResults& results, const Discovered& found, const Inventory& inventory,
                     const Addresses& addresses, Meanings& meanings, SiteSource* machine)
    : results_(results), found_(found), inventory_(inventory), addresses_(addresses),
      meanings_(meanings), machine_(machine) {}

void Diagnosis::perform(StopToken& stop) {
    results_.findings.reserve(results_.findings.size() + found_.findings.size());
    for (const OpenFinding& open : found_.findings) {
        if (stop.stopped()) {
            return;
        }
        results_.findings.push_back(diagnose(open));
    }
}

Finding Diagnosis::diagnose(const OpenFinding& open) {
    Finding finding;
    finding.kind = open.kind;
    finding.at = open.at;
    finding.reference = open.reference;
    if (open.target != NoTarget) {
        finding.target = results_.path(open.target);
    }
    if (open.kind == FindingKind::Missing) {
        diagnoseMissing(open, finding);
    }
    // A server may list a folder, and the target of a form may be a program of its own.
    if (finding.kind == FindingKind::FolderWithoutIndex || open.role == Role::Form) {
        finding.level = FindingLevel::Note;
    }
    return finding;
}

void Diagnosis::diagnoseMissing(const OpenFinding& open, Finding& finding) {
    const std::string_view path = results_.fromTop(finding.target);
    std::optional<std::string> meant = encodedName(open);
    if (isOnThisComputer(open, path)) {
        finding.kind = FindingKind::ThisComputerOnly;
        const std::string absolute = std::string("/").append(path);
        const std::string_view inside = results_.fromTop(absolute);
        meant = inventory_.file(inside) ? std::optional(std::string(inside)) : std::nullopt;
    } else if (!meant) {
        const Meaning& meaning = meanings_.of(path);
        finding.kind = meaning.kind;
        meant = meaning.path;
    }
    if (meant) {
        finding.suggestion = results_.texts.keep(suggestion(open, *meant));
    }
}

/// "/home/me/site/a.html" works for the author, who opens the page from the disk, and for nobody
/// else.
bool Diagnosis::isOnThisComputer(const OpenFinding& open, std::string_view path) {
    if (!open.fromTop || machine_ == nullptr || path.empty() || path.ends_with('/')) {
        return false;
    }
    const std::string absolute = std::string("/").append(path);
    return absolute.starts_with(results_.top) ||
           (machine_->answers(absolute) && !machine_->answers(absolute + '/'));
}

/// The path of a file whose name holds a "%" that the reference writes as it is: "a%20b.html".
std::optional<std::string> Diagnosis::encodedName(const OpenFinding& open) const {
    if (open.reference.find('%') == std::string_view::npos) {
        return std::nullopt;
    }
    Address address;
    const Base base = addresses_.baseOf(baseOf(open.at.page), std::nullopt);
    addresses_.resolve(withPercentsEncoded(open.reference), base, address);
    const bool there = address.leads == Leads::IntoSite && inventory_.file(address.path);
    return there ? std::optional(std::move(address.path)) : std::nullopt;
}

std::string Diagnosis::suggestion(const OpenFinding& open, std::string_view path) const {
    std::string text =
        open.fromTop
            ? std::string("/").append(asReference(addresses_.topFolder() + std::string(path)))
            : relativeReference(baseOf(open.at.page), path);
    return text.append(suffixOf(open.reference));
}

std::string_view Diagnosis::baseOf(std::uint32_t page) const {
    const auto base = found_.bases.find(page);
    return base != found_.bases.end() ? std::string_view(base->second)
                                      : results_.fromTop(results_.pagePath(page));
}

} // namespace quillmark::web
