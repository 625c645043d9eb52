#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// Fetches from the web.
class UrlFetcher {
public:
    virtual ~UrlFetcher() = default;

    /// The body that the address answers with, whatever the status. Throws a Failure when there is no
    /// answer.
    virtual std::string OpenURL(std::string_view url) = 0;
};

} // namespace quillmark
