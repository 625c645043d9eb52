#pragma once

#include "platform/http/Fetch.h"

#include <cstddef>
#include <map>
#include <string>

namespace quillmark {

/// The fetches that wait for their turn, so that no host gets more than its share at once while
/// other hosts need not wait behind it.
class HostQueue {
public:
    explicit HostQueue(std::size_t toOneHost) : toOneHost_(toOneHost) {}

    void push(Fetch& fetch);
    /// Puts a fetch that waits before all others.
    void putFirst(Fetch& fetch);
    /// The first in order whose host has room, or nullptr.
    Fetch* first() const;
    /// Takes first() out of the queue; it occupies its host until leave().
    void takeFirst();
    void leave(const std::string& host);
    bool full(const std::string& host) const;

private:
    struct Host {
        std::map<std::size_t, Fetch*> waiting;
        std::size_t running = 0;
    };

    void withdraw(const Host& host);
    void offer(Host& host);

    std::size_t toOneHost_;
    std::map<std::string, Host> hosts_;
    std::map<std::size_t, Host*> ready_; ///< Hosts with room, by the order of their first fetch.
};

} // namespace quillmark
