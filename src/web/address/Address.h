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
    Nowhere       ///< No web address at all: its host is none.
};

/// What relative references of a page are relative to.
struct Base {
    Leads leads = Leads::IntoSite;
    std::string path; ///< On the site's server, decoded, without the leading "/".
};

/// A reference, resolved. One object serves many references and keeps its memory.
struct Address {
    Leads leads = Leads::IntoSite;
    std::string path; ///< From the top of the site, decoded to bytes; a folder ends in "/".
    std::optional<std::string_view> fragment; ///< As written, without the "#".
    bool fromTop = false;                     ///< Was written with a leading "/".
    bool unreachable = false; ///< Holds an encoded "/" or NUL: no server has such a file.
    std::string cleaned;      ///< The reference without line breaks, if it had some.
};

/// Resolves references as browsers do (WHATWG URL, section 4.4), for a site of http or https. A
/// query is cut off, since it is no part of a file's name; what follows ":~:" in a fragment, too.
class Addresses {
public:
    enum class Servers { Own, Any };

    /// With Servers::Any every web server counts as the site's own.
    explicit Addresses(std::optional<SiteUrl> site, Servers servers = Servers::Own);

    /// The base of a page (its path from the top of the site) with this base href.
    Base baseOf(std::string_view page, std::optional<std::string_view> href) const;

    /// Resolves a reference. The address views into `text`, or into its own memory.
    void resolve(std::string_view text, const Base& base, Address& address) const;

    /// The path of a base from the top of the site on, if it lies there.
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
