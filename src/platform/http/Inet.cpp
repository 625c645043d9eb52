#include "platform/http/Inet.h"

#include "platform/http/WebFailure.h"

#include <chrono>

namespace quillmark {

namespace {

// Short enough for the window to stay responsive.
constexpr std::chrono::milliseconds Slice{25};

} // namespace

Inet::Inet(EventLoop& events, const RunState& state, const FetchLimits& limits)
    : events_(events), state_(state), limits_(limits),
      fetches_(std::make_unique<FetchAhead>(limits_, std::vector<std::string>())) {}

void Inet::expect(std::vector<std::string> urls) {
    fetches_ = std::make_unique<FetchAhead>(limits_, urls);
}

std::string Inet::OpenURL(std::string_view url) {
    const Fetch& fetch = fetches_->ask(url);
    fetches_->drive();
    breathe();
    while (!fetch.ended()) {
        fetches_->wait(Slice);
        fetches_->drive();
        breathe();
    }
    return fetches_->deliver();
}

void Inet::breathe() {
    events_.DoEvents();
    if (state_.abort) {
        expect({});
        throw noAnswerFromTheWeb("the run was stopped");
    }
}

} // namespace quillmark
