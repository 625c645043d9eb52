#pragma once

#include "platform/http/FetchAhead.h"
#include "platform/http/FetchLimits.h"
#include "run/EventLoop.h"
#include "run/RunState.h"
#include "run/UrlFetcher.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// Fetches over http and https, other schemes never; certificates must be good, cookies and stored
/// passwords are not used, the environment's proxies are. Events run while it waits, and an abort
/// ends everything under way at once.
class Inet : public UrlFetcher {
public:
    Inet(EventLoop& events, const RunState& state, const FetchLimits& limits = {});

    /// Also forgets what was expected before, and closes its connections.
    void expect(std::vector<std::string> urls) override;
    std::string OpenURL(std::string_view url) override;

private:
    void breathe();

    EventLoop& events_;
    const RunState& state_;
    FetchLimits limits_;
    std::unique_ptr<FetchAhead> fetches_;
};

} // namespace quillmark
