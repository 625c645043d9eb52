#include "platform/http/HostQueue.h"

#include <algorithm>

namespace quillmark {

void HostQueue::push(const std::string& host, Fetch& fetch) {
    Host& at = hosts_[host];
    withdraw(at);
    at.waiting.emplace(fetch.order, &fetch);
    offer(at);
}

Fetch* HostQueue::takeFirst(Clock::time_point now) {
    const auto first = std::find_if(ready_.begin(), ready_.end(), [now](const auto& ready) {
        return ready.second->restsUntil <= now;
    });
    if (first == ready_.end()) {
        return nullptr;
    }
    Host& host = *first->second;
    withdraw(host);
    Fetch* const fetch = host.waiting.begin()->second;
    host.waiting.erase(host.waiting.begin());
    ++host.running;
    offer(host);
    return fetch;
}

void HostQueue::leave(const std::string& host) {
    Host& left = hosts_[host];
    withdraw(left);
    --left.running;
    offer(left);
}

void HostQueue::rest(const std::string& host, Clock::time_point until) {
    Host& resting = hosts_[host];
    resting.restsUntil = std::max(resting.restsUntil, until);
}

// Called before any change to a host, since the order of its first fetch is its key in ready_.
void HostQueue::withdraw(const Host& host) {
    if (!host.waiting.empty()) {
        ready_.erase(host.waiting.begin()->first);
    }
}

void HostQueue::offer(Host& host) {
    if (host.running < toOneHost_ && !host.waiting.empty()) {
        ready_.emplace(host.waiting.begin()->first, &host);
    }
}

} // namespace quillmark
