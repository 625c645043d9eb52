#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// Fetches from the web.
class UrlFetcher {
public:
    virtual ~UrlFetcher() = default;

    /// Tells which addresses will be opened next, in this order, so that they can be fetched ahead.
    virtual void expect(std::vector<std::string> urls) = 0;

    /// The body that the address answers with, whatever the status. Throws a Failure when there is
    /// no answer, and when the run is being aborted.
    virtual std::string OpenURL(std::string_view url) = 0;
};

} // namespace quillmark
