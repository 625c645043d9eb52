#pragma once

#include "platform/curl/CurlHandle.h"

#include <optional>
#include <string>
#include <utility>

namespace quillmark {

/// An absolute address of http or https as libcurl takes it apart. Blanks and bytes beyond ASCII
/// are percent-encoded, as browsers do.
class WebAddress {
public:
    /// nullopt for other schemes, for addresses that are not absolute, and for control bytes.
    static std::optional<WebAddress> parse(const std::string& text);

    /// The host's name in upper case, without the port.
    std::string host() const;
    /// "https://www.site.example:443/path?query", for comparing the beginnings of two addresses.
    /// The ":" and the port behind the host see to it that hosts are compared whole.
    std::string comparable() const;
    CURLU* handle() const { return url_.get(); }

private:
    explicit WebAddress(CurlUrl url) : url_(std::move(url)) {}
    std::string part(CURLUPart which) const;

    CurlUrl url_;
};

} // namespace quillmark
