#include "platform/http/FetchAhead.h"

#include <algorithm>
#include <utility>

namespace quillmark {

namespace {

constexpr int TooManyRequests = 429;

/// Whether the same request may get another answer in a moment. A connection may be lost by chance,
/// or because the server sends a body after a HEAD.
bool mayPass(const UrlAnswer& answer) {
    return answer.failure == UrlFailure::TimedOut || answer.failure == UrlFailure::Broken ||
           answer.status == TooManyRequests || (answer.status >= 500 && answer.status < 600);
}

/// Whether the answer to a HEAD proves nothing: many servers take less care with it than with a
/// GET.
bool provesNothing(const UrlAnswer& answer) {
    return answer.status >= 400 || answer.failure == UrlFailure::TimedOut ||
           answer.failure == UrlFailure::Broken;
}

} // namespace

FetchAhead::FetchAhead(const FetchLimits& limits, const FetchManners& manners)
    : limits_(limits), manners_(manners), multi_(curl_multi_init()),
      waiting_(limits.toOneHost.value_or(manners.toOneHost)) {
    // A connection is kept for each request that may run at once.
    curl_multi_setopt(multi_.get(), CURLMOPT_MAXCONNECTS, static_cast<long>(limits.inAll));
}

const Fetch& FetchAhead::find(const UrlRequest& request) {
    const auto [place, isNew] = fetches_.try_emplace(request.url);
    Fetch& fetch = place->second;
    if (isNew) {
        fetch.request = request;
        fetch.order = fetches_.size();
        // A HEAD brings no body to read.
        fetch.head = manners_.headFirst && request.reader == nullptr;
        enqueue(fetch);
    }
    return fetch;
}

void FetchAhead::drive() {
    int running = 0;
    curl_multi_perform(multi_.get(), &running);
    harvest();
    if (manners_.overall.count() > 0 && Clock::now() - start_ > manners_.overall) {
        endAll();
    }
    wakeResting();
    startWaiting();
}

void FetchAhead::wait(std::chrono::milliseconds slice) {
    curl_multi_poll(multi_.get(), nullptr, 0, static_cast<int>(slice.count()), nullptr);
}

void FetchAhead::showProgress() const {
    if (manners_.progress != nullptr) {
        manners_.progress->UpdateThinking(static_cast<int>(ended_),
                                          static_cast<int>(fetches_.size()));
    }
}

void FetchAhead::enqueue(Fetch& fetch) {
    if (const auto address = WebAddress::parse(fetch.address())) {
        waiting_.push(address->host(), fetch);
    } else {
        end(fetch,
            fetch.answer.redirects.empty() ? UrlFailure::NoAddress : UrlFailure::RedirectNowhere);
    }
}

void FetchAhead::startWaiting() {
    const auto now = Clock::now();
    while (running_.size() < limits_.inAll) {
        Fetch* const first = waiting_.takeFirst(now);
        if (first == nullptr) {
            return;
        }
        auto transfer = std::make_unique<Transfer>(
            multi_.get(), *first, *WebAddress::parse(first->address()), limits_, manners_);
        running_.emplace(transfer.get(), std::move(transfer));
    }
}

void FetchAhead::harvest() {
    int left = 0;
    while (const CURLMsg* const message = curl_multi_info_read(multi_.get(), &left)) {
        settle(Transfer::of(message->easy_handle), message->data.result);
    }
}

void FetchAhead::settle(const Transfer& transfer, CURLcode code) {
    Fetch& fetch = transfer.fetch();
    // Copied first, since the transfer ends before its answer is followed.
    const std::string host = transfer.host();
    const Reply reply = transfer.reply(code);
    running_.erase(&transfer);
    waiting_.leave(host);
    fetch.spent += reply.taken;
    fetch.answer.status = reply.status;
    fetch.answer.failure = reply.failure;
    if (reply.failure == UrlFailure::None && !reply.redirect.empty()) {
        redirect(fetch, reply);
    } else {
        conclude(fetch, host, reply);
    }
}

// Each redirect waits for its turn at the host that it leads to.
void FetchAhead::redirect(Fetch& fetch, const Reply& reply) {
    if (fetch.answer.redirects.size() == static_cast<std::size_t>(limits_.redirects)) {
        end(fetch, UrlFailure::EndlessRedirects);
        return;
    }
    fetch.answer.redirects.push_back({reply.status, reply.redirect});
    fetch.cookies = reply.cookies;
    enqueue(fetch);
}

// A server that wants a pause gets it before the GET, too.
void FetchAhead::conclude(Fetch& fetch, const std::string& host, const Reply& reply) {
    const bool getNext = fetch.head && provesNothing(fetch.answer);
    const bool mayWait = mayPass(fetch.answer) && fetch.retries < manners_.retries &&
                         reply.retryAfter <= limits_.longestWish;
    const bool wantsPause =
        mayPass(fetch.answer) && (reply.status == TooManyRequests || reply.retryAfter.count() > 0);
    fetch.head = fetch.head && !getNext;
    if (getNext && !wantsPause) {
        fetch.restart();
        enqueue(fetch);
    } else if (mayWait) {
        retry(fetch, host, reply.retryAfter);
    } else {
        end(fetch, reply.failure);
        if (fetch.request.reader != nullptr) {
            fetch.request.reader->end(reply.contentType);
        }
    }
}

void FetchAhead::retry(Fetch& fetch, const std::string& host, std::chrono::seconds wish) {
    const std::chrono::milliseconds pause = limits_.pause * (1 + 2 * fetch.retries);
    ++fetch.retries;
    fetch.restart();
    resting_.emplace(Clock::now() + std::max<std::chrono::milliseconds>(pause, wish), &fetch);
    waiting_.rest(host, Clock::now() + wish);
}

void FetchAhead::wakeResting() {
    while (!resting_.empty() && resting_.begin()->first <= Clock::now()) {
        Fetch& fetch = *resting_.begin()->second;
        resting_.erase(resting_.begin());
        enqueue(fetch);
    }
}

void FetchAhead::end(Fetch& fetch, UrlFailure failure) {
    fetch.answer.failure = failure;
    fetch.cookies = {};
    fetch.ended = true;
    ++ended_;
}

void FetchAhead::endAll() {
    running_.clear();
    resting_.clear();
    // With room for none, so that nothing starts any more.
    waiting_ = HostQueue(0);
    for (auto& each : fetches_) {
        if (!each.second.ended) {
            end(each.second, UrlFailure::NotAsked);
        }
    }
}

} // namespace quillmark
