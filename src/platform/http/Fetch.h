#pragma once

#include "run/UrlFetcher.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace quillmark {

/// One address and what has become of it so far.
struct Fetch {
    UrlRequest request;
    std::size_t order = 0; ///< The lower, the sooner it will be asked for.
    bool head = false;     ///< Its next request does without the body.
    bool ended = false;
    int retries = 0;                   ///< So many were made.
    std::chrono::milliseconds spent{}; ///< Of the time that it has, by this try.
    UrlAnswer answer;
    std::vector<std::string> cookies; ///< As libcurl writes them, from redirect to redirect.

    /// To be requested next: as the page wrote it, or where it was sent to.
    const std::string& address() const {
        return answer.redirects.empty() ? request.url : answer.redirects.back().to;
    }
    /// Begins again where the page leads to.
    void restart() {
        answer = {};
        spent = {};
        cookies.clear();
    }
};

} // namespace quillmark
