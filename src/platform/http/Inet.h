#pragma once

#include "platform/http/FetchAhead.h"
#include "platform/http/FetchLimits.h"
#include "run/EventLoop.h"
#include "run/RunState.h"
#include "run/UrlFetcher.h"

#include <memory>
#include <vector>

namespace quillmark {

/// Requests addresses of http and https, never of other schemes. Certificates must be valid. Stored
/// passwords are not used, the environment's proxies are. An abort ends all requests at once.
class Inet : public UrlFetcher {
public:
    /// Refers to `events` and `state`, whose abort flag ends all requests.
    Inet(EventLoop& events, const RunState& state, const FetchLimits& limits = {});

    void expect(const std::vector<UrlRequest>& requests, const FetchManners& manners) override;
    UrlAnswer OpenURL(const UrlRequest& request) override;

private:
    /// Lets events run; false if the run is being aborted.
    bool breathe();

    EventLoop& events_;
    const RunState& state_;
    FetchLimits limits_;
    std::unique_ptr<FetchAhead> fetches_;
};

} // namespace quillmark
