#pragma once

#include "platform/curl/CurlHandle.h"

#include <string>

namespace quillmark {

/// An absolute address as libcurl takes it apart. Blanks and bytes beyond ASCII are
/// percent-encoded, as browsers do. Throws a Failure for what is no absolute address: without a
/// scheme, with one that libcurl does not know, or with control bytes.
class WebAddress {
public:
    explicit WebAddress(const std::string& text);

    /// The host's name in upper case, without the port.
    std::string host() const;
    CURLU* handle() const { return url_.get(); }

private:
    CurlUrl url_;
};

} // namespace quillmark
