#pragma once

#include "web/address/SiteUrl.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark::web {

/// Where an address leads.
enum class Leads : std::uint8_t {
    IntoSite,
    AboveTop,     ///< To the site's own server, but not below the top of the site.
    AnotherSite,  ///< Another web server.
    OtherScheme,  ///< mailto:, javascript:, data: and whatever is not fetched from a web server.
    ThisComputer, ///< A drive letter or file:, which works on the author's computer only.
    Nowhere       ///< Not a web address: its host is invalid.
};

/// What the relative references of a page are relative to.
struct Base {
    Leads leads = Leads::IntoSite;
    std::string path; ///< On the site's server, decoded, without the leading "/".
};

/// A resolved reference. One object serves many references and reuses its memory.
struct Address {
    Leads leads = Leads::IntoSite;
    std::string path; ///< Relative to the top of the site, decoded to bytes; folders end in "/".
    std::optional<std::string_view> fragment; ///< As written, without the "#".
    bool fromTop = false;                     ///< It was written with a leading "/".
    bool unreachable = false; ///< It holds an encoded "/" or NUL: no server has such a file.
    std::string cleaned;      ///< The reference without line breaks, if it had some.
};

/// Resolves references as browsers do (WHATWG URL, section 4.4), for a site of http or https. It
/// cuts off the query, which is not part of a file's name, and what follows ":~:" in a fragment,
/// which names a text and no id.
class Addresses {
public:
    enum class Servers { Own, Any };

    /// With Servers::Any every web server counts as the site's own.
    explicit Addresses(std::optional<SiteUrl> site, Servers servers = Servers::Own);

    /// The base of a page with this base href; `page` is its path relative to the top of the site.
    Base baseOf(std::string_view page, std::optional<std::string_view> href) const;

    /// Resolves a reference. The fragment is a view of `text` or of `address.cleaned`.
    void resolve(std::string_view text, const Base& base, Address& address) const;

    /// The path of a base relative to the top of the site, if it lies in the site.
    std::optional<std::string> inSite(const Base& base) const;
    /// The folder of the site's top on its server: "", or "docs/".
    std::string topFolder() const { return site_ ? site_->folder : std::string(); }

private:
    void follow(std::string_view text, const Base& base, Address& address) const;
    void followAbsolute(std::string_view scheme, std::string_view text, const Base& base,
                        Address& address) const;
    void followServer(std::string_view text, std::uint16_t ownPort, Address& address) const;
    void followPath(std::string_view text, const Base& base, Address& address) const;
    void enterSite(Address& address) const;

    std::optional<SiteUrl> site_;
    Servers servers_;
};

} // namespace quillmark::web
