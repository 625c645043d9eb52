#pragma once

#include "platform/http/Fetch.h"

#include <chrono>
#include <cstddef>
#include <map>
#include <string>

namespace quillmark {

/// The fetches that wait for their turn, so that no host gets more than its share at once while
/// other hosts need not wait behind it.
class HostQueue {
public:
    using Clock = std::chrono::steady_clock;

    explicit HostQueue(std::size_t toOneHost) : toOneHost_(toOneHost) {}

    /// Lets a fetch wait for its host, behind those of a lower order.
    void push(const std::string& host, Fetch& fetch);
    /// Takes out the first fetch in order whose host has room and does not rest; nullptr if there
    /// is none. It occupies its host until leave().
    Fetch* takeFirst(Clock::time_point now);
    /// Ends a fetch that takeFirst() gave out, which makes room for the host's next one.
    void leave(const std::string& host);
    /// Gives a host no new fetch until then.
    void rest(const std::string& host, Clock::time_point until);

private:
    struct Host {
        std::map<std::size_t, Fetch*> waiting;
        std::size_t running = 0;
        Clock::time_point restsUntil;
    };

    void withdraw(const Host& host);
    void offer(Host& host);

    std::size_t toOneHost_;
    std::map<std::string, Host> hosts_;
    std::map<std::size_t, Host*> ready_; ///< Hosts with room, by the order of their first fetch.
};

} // namespace quillmark
