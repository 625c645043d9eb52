#include "platform/host/HostConversation.h"

#include "platform/host/HostRequest.h"

#include <utility>

namespace quillmark {

namespace {

using Kind = HostOutcome::Kind;

constexpr std::chrono::milliseconds Slice{25};

/// Gives a task up unless it has come to its end.
class Wanted {
public:
    Wanted(HostTasks& tasks, HostTask& task) : tasks_(tasks), task_(task) {}
    ~Wanted() {
        if (!ended_) {
            tasks_.cancel(task_);
        }
    }
    Wanted(const Wanted&) = delete;
    Wanted& operator=(const Wanted&) = delete;

    void end() { ended_ = true; }

private:
    HostTasks& tasks_;
    HostTask& task_;
    bool ended_ = false;
};

} // namespace

HostConversation::HostConversation(Messages& messages, EventLoop& events, const RunState& state,
                                   FtpTrace& trace, const FtpTimeouts& timeouts,
                                   const FtpLogin& login)
    : messages_(messages), events_(events), state_(state), trace_(trace), timeouts_(timeouts),
      login_(login), url_(hostUrl(login)), tasks_(timeouts) {
    connections_.push_back(std::make_unique<HostConnection>(tasks_, login_, url_, timeouts_));
}

HostConversation::~HostConversation() {
    tasks_.close();
}

void HostConversation::expect(HostOperation operation) {
    if (login_.connections < 2 || state_.stopped) {
        return;
    }
    while (connections_.size() < static_cast<std::size_t>(login_.connections)) {
        connections_.push_back(std::make_unique<HostConnection>(tasks_, login_, url_, timeouts_));
    }
    tasks_.expect(std::move(operation));
}

HostOutcome HostConversation::perform(const HostOperation& operation, const Taker& take,
                                      const std::function<void()>& restart) {
    events_.DoEvents();
    if (state_.stopped) {
        tasks_.cancelAll();
        return {Kind::Ended, {}, false, true};
    }
    const HostTasks::Handle task = tasks_.ask(operation);
    Wanted wanted(tasks_, *task);
    HostOutcome outcome = follow(*task, take, restart);
    if (outcome.kind != Kind::Ended) {
        wanted.end();
    }
    return outcome;
}

HostOutcome HostConversation::follow(HostTask& task, const Taker& take,
                                     const std::function<void()>& restart) {
    for (int attempt = 1;;) {
        const HostNews news = tasks_.waitForNews(task, Slice);
        tell(news);
        if (news.attempt > attempt) {
            restart();
            attempt = news.attempt;
        }
        if (!news.bytes.empty() && !take(news.bytes)) {
            return {Kind::Ended, {}, false, true};
        }
        if (news.outcome) {
            return *news.outcome;
        }
        tasks_.interruptLate();
        events_.DoEvents();
        if (state_.stopped) {
            tasks_.cancelAll();
            return {Kind::Ended, {}, false, true};
        }
    }
}

void HostConversation::tell(const HostNews& news) {
    for (const std::string& line : news.trace) {
        trace_.Trace(line);
    }
    for (const std::string& note : news.notes) {
        messages_.post("Host: ", note);
    }
    if (!news.outcome || news.outcome->kind == Kind::Lost) {
        return;
    }
    if (const std::string refusal = tasks_.takeRefusal(); !refusal.empty()) {
        messages_.post("Host: A further connection failed (", refusal, "); going on with fewer");
    }
}

void HostConversation::sayGoodbye() {
    const auto take = [](std::string_view /*bytes*/) { return true; };
    for (const HostTasks::Handle& goodbye : tasks_.askGoodbyes()) {
        if (follow(*goodbye, take, [] {}).kind == Kind::Ended) {
            return;
        }
    }
}

} // namespace quillmark
