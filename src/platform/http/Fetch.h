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
    bool head = false;     ///< Its next request is a HEAD.
    bool ended = false;
    int retries = 0;                   ///< How many were made.
    std::chrono::milliseconds spent{}; ///< How much of its time this try has used.
    UrlAnswer answer;
    std::vector<std::string> cookies; ///< As libcurl writes them, from redirect to redirect.

    /// The address to request next: the page's own, or that of the last redirect.
    const std::string& address() const {
        return answer.redirects.empty() ? request.url : answer.redirects.back().to;
    }
    /// Begins again at the page's own address.
    void restart() {
        answer = {};
        spent = {};
        cookies.clear();
    }
};

} // namespace quillmark
