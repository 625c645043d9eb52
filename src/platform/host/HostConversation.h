#pragma once

#include "platform/host/FtpTimeouts.h"
#include "platform/host/FtpTrace.h"
#include "platform/host/HostConnection.h"
#include "platform/host/HostTasks.h"
#include "run/EventLoop.h"
#include "run/FtpComponent.h"
#include "run/Messages.h"
#include "run/RunState.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// The operations of one host, in the order of the run, over as many connections as the login
/// allows. It lets events run while it waits, and ends what it does as soon as Stop is pressed.
class HostConversation {
public:
    /// Takes the next bytes of a transfer; false ends it.
    using Taker = std::function<bool(std::string_view bytes)>;

    /// Throws a Failure when the host is none.
    HostConversation(Messages& messages, EventLoop& events, const RunState& state, FtpTrace& trace,
                     const FtpTimeouts& timeouts, const FtpLogin& login);
    /// Ends without a word.
    ~HostConversation();
    HostConversation(const HostConversation&) = delete;
    HostConversation& operator=(const HostConversation&) = delete;

    /// Tells what will be performed next but for what was told before. With one connection nothing
    /// is done ahead.
    void expect(HostOperation operation);

    /// Performs one operation. The bytes of its transfer go to `take`; `restart` says that they
    /// come again from the first one. What `take` throws passes through.
    HostOutcome perform(
        const HostOperation& operation,
        const Taker& take = [](std::string_view /*bytes*/) { return true; },
        const std::function<void()>& restart = [] {});

    /// Ends every connection with a goodbye, where there is somebody to hear it.
    void sayGoodbye();

private:
    HostOutcome follow(HostTask& task, const Taker& take, const std::function<void()>& restart);
    void tell(const HostNews& news);

    Messages& messages_;
    EventLoop& events_;
    const RunState& state_;
    FtpTrace& trace_;
    FtpTimeouts timeouts_;
    FtpLogin login_;
    std::string url_;
    HostTasks tasks_;
    std::vector<std::unique_ptr<HostConnection>> connections_;
};

} // namespace quillmark
