#include "web/address/Address.h"

#include "web/address/PathSegments.h"
#include "web/address/PercentCoding.h"
#include "web/address/ReferenceText.h"
#include "web/text/Ascii.h"

#include <algorithm>
#include <utility>

namespace quillmark::web {

namespace {

constexpr std::uint16_t HttpsPort = 443;

/// "C|" and "C|/...": an old spelling of a drive letter. "C:" looks like a scheme.
bool isDrive(std::string_view text) {
    return text.size() >= 2 && isLetter(text[0]) && text[1] == '|' &&
           (text.size() == 2 || isSlash(text[2]));
}

} // namespace

Addresses::Addresses(std::optional<SiteUrl> site, Servers servers)
    : site_(std::move(site)), servers_(servers) {}

Base Addresses::baseOf(std::string_view page, std::optional<std::string_view> href) const {
    Base own{Leads::IntoSite, topFolder().append(page)};
    if (!href) {
        return own;
    }
    Address address;
    follow(*href, own, address);
    // Browsers pass over a base href that is no address, or one such as "data:".
    if (address.leads == Leads::Nowhere || address.leads == Leads::OtherScheme) {
        return own;
    }
    return {address.leads, std::move(address.path)};
}

std::optional<std::string> Addresses::inSite(const Base& base) const {
    const std::string folder = topFolder();
    if (base.leads != Leads::IntoSite || !base.path.starts_with(folder)) {
        return std::nullopt;
    }
    return base.path.substr(folder.size());
}

void Addresses::resolve(std::string_view text, const Base& base, Address& address) const {
    follow(text, base, address);
    if (address.leads == Leads::IntoSite) {
        enterSite(address);
    }
}

void Addresses::follow(std::string_view text, const Base& base, Address& address) const {
    address.leads = Leads::IntoSite;
    address.path.clear();
    address.fromTop = false;
    address.unreachable = false;
    text = cleanedReference(text, address.cleaned);
    address.fragment = cutFragment(text);
    if (const std::string_view scheme = schemeOf(text); !scheme.empty()) {
        followAbsolute(scheme, text.substr(scheme.size() + 1), base, address);
    } else if (text.size() >= 2 && isSlash(text[0]) && isSlash(text[1])) {
        followServer(text, 0, address);
    } else if (isDrive(text)) {
        address.leads = Leads::ThisComputer;
    } else {
        followPath(text, base, address);
    }
}

void Addresses::followAbsolute(std::string_view scheme, std::string_view text, const Base& base,
                               Address& address) const {
    // A single letter is a drive, "C:": no scheme in use is that short.
    if (scheme.size() == 1 || equalIgnoringCase(scheme, "file")) {
        address.leads = Leads::ThisComputer;
        return;
    }
    const auto port = webPort(scheme);
    if (!port) {
        address.leads = Leads::OtherScheme;
    } else if (*port == HttpsPort && (text.empty() || !isSlash(text.front()))) {
        // "https:page.html" is relative if the page itself has that scheme, as sites of today do.
        followPath(text, base, address);
    } else {
        followServer(text, *port, address);
    }
}

void Addresses::followServer(std::string_view text, std::uint16_t ownPort, Address& address) const {
    while (!text.empty() && isSlash(text.front())) {
        text.remove_prefix(1);
    }
    const std::size_t end = std::min(text.find_first_of("/\\?"), text.size());
    const auto authority = parseAuthority(text.substr(0, end), ownPort);
    if (!authority) {
        address.leads = Leads::Nowhere;
    } else if (servers_ == Servers::Own && (!site_ || *authority != site_->authority)) {
        address.leads = Leads::AnotherSite;
    } else {
        text.remove_prefix(end);
        followPath(text.starts_with('?') || text.empty() ? "/" : text, {}, address);
    }
}

void Addresses::followPath(std::string_view text, const Base& base, Address& address) const {
    text = text.substr(0, text.find('?'));
    address.leads = base.leads;
    if (base.leads != Leads::IntoSite) {
        return;
    }
    if (text.empty()) {
        address.path = base.path;
        return;
    }
    address.fromTop = isSlash(text.front());
    if (address.fromTop) {
        text.remove_prefix(1);
    } else {
        address.path = folderOf(base.path);
    }
    const AppendedPath appended = appendPath(address.path, text);
    address.unreachable = appended.unreachable;
    if (appended.climbedOut) {
        address.leads = Leads::AboveTop;
    }
}

void Addresses::enterSite(Address& address) const {
    if (!site_ || site_->folder.empty()) {
        return;
    }
    if (address.path.starts_with(site_->folder)) {
        address.path.erase(0, site_->folder.size());
    } else if (address.path + "/" == site_->folder) { // "/docs" leads to "/docs/".
        address.path.clear();
    } else {
        address.leads = Leads::AboveTop;
    }
}

} // namespace quillmark::web
