#include "platform/http/HostQueue.h"

namespace quillmark {

void HostQueue::push(Fetch& fetch) {
    Host& host = hosts_[fetch.host];
    withdraw(host);
    host.waiting.emplace(fetch.order, &fetch);
    offer(host);
}

void HostQueue::putFirst(Fetch& fetch) {
    Host& host = hosts_[fetch.host];
    withdraw(host);
    host.waiting.erase(fetch.order);
    fetch.order = 0;
    host.waiting.emplace(fetch.order, &fetch);
    offer(host);
}

Fetch* HostQueue::first() const {
    return ready_.empty() ? nullptr : ready_.begin()->second->waiting.begin()->second;
}

void HostQueue::takeFirst() {
    Host& host = *ready_.begin()->second;
    withdraw(host);
    host.waiting.erase(host.waiting.begin());
    ++host.running;
    offer(host);
}

void HostQueue::leave(const std::string& host) {
    Host& left = hosts_[host];
    withdraw(left);
    --left.running;
    offer(left);
}

bool HostQueue::full(const std::string& host) const {
    const auto found = hosts_.find(host);
    return found != hosts_.end() && found->second.running >= toOneHost_;
}

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
