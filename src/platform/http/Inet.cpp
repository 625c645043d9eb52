#include "platform/http/Inet.h"

#include <chrono>
#include <cstddef>

namespace quillmark {

namespace {

// Short enough for the window to stay responsive.
constexpr std::chrono::milliseconds Slice{25};
constexpr std::size_t BetweenEvents = 256; // Parsing many addresses takes its time.

} // namespace

Inet::Inet(EventLoop& events, const RunState& state, const FetchLimits& limits)
    : events_(events), state_(state), limits_(limits) {
    expect({}, {});
}

void Inet::expect(const std::vector<UrlRequest>& requests, const FetchManners& manners) {
    fetches_ = std::make_unique<FetchAhead>(limits_, manners);
    for (std::size_t i = 0; i < requests.size(); ++i) {
        fetches_->find(requests[i]);
        if (i % BetweenEvents == 0 && !breathe()) {
            return;
        }
    }
}

UrlAnswer Inet::OpenURL(const UrlRequest& request) {
    const Fetch& fetch = fetches_->find(request);
    fetches_->drive();
    while (breathe()) {
        if (fetch.ended) {
            return fetch.answer;
        }
        fetches_->wait(Slice);
        fetches_->drive();
    }
    // The run is being aborted: nobody waits for the other requests.
    expect({}, {});
    return {UrlFailure::NotAsked, 0, {}};
}

bool Inet::breathe() {
    events_.DoEvents();
    fetches_->showProgress();
    return !state_.abort;
}

} // namespace quillmark
