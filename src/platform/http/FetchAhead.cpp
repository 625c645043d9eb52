#include "platform/http/FetchAhead.h"

#include "platform/http/Gunzip.h"
#include "platform/http/WebFailure.h"

#include <algorithm>
#include <utility>

namespace quillmark {

FetchAhead::FetchAhead(const FetchLimits& limits, const std::vector<std::string>& urls)
    : limits_(limits), multi_(curl_multi_init()), waiting_(limits.toOneHost),
      kept_(limits.keptAhead) {
    curl_multi_setopt(multi_.get(), CURLMOPT_MAXCONNECTS, static_cast<long>(limits.inAll));
    for (const std::string& url : urls) {
        const auto [place, isNew] = fetches_.try_emplace(url);
        Fetch& fetch = place->second;
        ++fetch.listed;
        if (isNew) {
            fetch.address = url;
            fetch.order = fetches_.size();
            enqueue(fetch);
        }
    }
}

const Fetch& FetchAhead::ask(std::string_view url) {
    const auto [place, isNew] = fetches_.try_emplace(std::string(url));
    asked_ = place;
    Fetch& fetch = place->second;
    if (isNew) {
        fetch.address = url;
        enqueue(fetch);
    }
    if (fetch.state == FetchState::Waiting) {
        waiting_.putFirst(fetch);
    }
    fetch.order = 0;
    kept_.release(fetch.body.size());
    fetch.ahead = false;
    return fetch;
}

void FetchAhead::drive() {
    int running = 0;
    curl_multi_perform(multi_.get(), &running);
    harvest();
    endCutAndLate();
    resumeHeld();
    makeRoomForAsked();
    startWaiting();
}

void FetchAhead::wait(std::chrono::milliseconds slice) {
    curl_multi_poll(multi_.get(), nullptr, 0, static_cast<int>(slice.count()), nullptr);
}

std::string FetchAhead::deliver() {
    Fetch& fetch = asked_->second;
    --fetch.listed;
    fetch.ahead = fetch.listed > 0 && kept_.admit(fetch.body.size());
    const Fetch answer = fetch.ahead ? fetch : std::move(fetch);
    if (!answer.ahead) {
        fetches_.erase(asked_);
    }
    asked_ = fetches_.end();
    if (answer.state == FetchState::Failed) {
        throw noAnswerFromTheWeb(answer.failure);
    }
    return answer.gzipped ? gunzip(answer.body, limits_.body) : joined(answer.body);
}

void FetchAhead::enqueue(Fetch& fetch) {
    try {
        fetch.host = WebAddress(fetch.address).host();
        fetch.state = FetchState::Waiting;
        waiting_.push(fetch);
    } catch (const Failure& failure) {
        fail(fetch, failure.description());
    }
}

// While nothing more may be kept, no fetch begins: its bytes would only be held up, at the cost of
// the host.
void FetchAhead::startWaiting() {
    while (running_.size() < limits_.inAll) {
        Fetch* const first = waiting_.first();
        if (first == nullptr || (first->ahead && kept_.full())) {
            return;
        }
        waiting_.takeFirst();
        start(*first);
    }
}

void FetchAhead::start(Fetch& fetch) {
    fetch.state = FetchState::Running;
    running_.push_back(std::make_unique<Transfer>(multi_.get(), fetch, limits_, kept_));
}

void FetchAhead::harvest() {
    int left = 0;
    while (const CURLMsg* const message = curl_multi_info_read(multi_.get(), &left)) {
        settle(Transfer::of(message->easy_handle), message->data.result);
    }
}

// libcurl leaves no message of a transfer that is cut while it is being resumed.
void FetchAhead::endCutAndLate() {
    for (std::size_t i = running_.size(); i > 0; --i) {
        const Transfer& transfer = *running_[i - 1];
        Fetch& fetch = transfer.fetch();
        if (transfer.cut()) {
            settle(transfer, CURLE_WRITE_ERROR);
        } else if (transfer.late()) {
            remove(transfer);
            fail(fetch, curl_easy_strerror(CURLE_OPERATION_TIMEDOUT));
        }
    }
}

void FetchAhead::settle(const Transfer& transfer, CURLcode code) {
    Fetch& fetch = transfer.fetch();
    const bool answered = code == CURLE_OK || transfer.cut();
    const bool wasHeld = transfer.wasHeld();
    const std::string target = transfer.redirectTarget();
    fetch.gzipped = transfer.gzipped();
    remove(transfer);
    if (answered && !target.empty()) {
        redirect(fetch, target);
    } else if (answered) {
        fetch.state = FetchState::Answered;
    } else if (wasHeld) {
        beginAnew(fetch);
    } else {
        fail(fetch, curl_easy_strerror(code));
    }
}

// Each redirection waits for its turn at the host that it leads to.
void FetchAhead::redirect(Fetch& fetch, const std::string& target) {
    ++fetch.redirects;
    if (fetch.redirects > limits_.redirects) {
        fail(fetch, curl_easy_strerror(CURLE_TOO_MANY_REDIRECTS));
        return;
    }
    dropBody(fetch);
    fetch.address = target;
    enqueue(fetch);
}

void FetchAhead::fail(Fetch& fetch, const std::string& why) {
    dropBody(fetch);
    fetch.state = FetchState::Failed;
    fetch.failure = why;
}

void FetchAhead::resumeHeld() {
    for (const auto& transfer : running_) {
        if (transfer->held() && (!transfer->fetch().ahead || !kept_.full())) {
            transfer->resume();
        }
    }
}

// A redirection can lead to a host whose places are all taken by held transfers, which in turn wait
// for the redirected one. The last of them gives way.
void FetchAhead::makeRoomForAsked() {
    const Fetch& asked = asked_->second;
    const bool hostFull = waiting_.full(asked.host);
    if (asked.state != FetchState::Waiting || (!hostFull && running_.size() < limits_.inAll)) {
        return;
    }
    const auto last = std::find_if(running_.rbegin(), running_.rend(), [&](const auto& transfer) {
        return transfer->held() && (!hostFull || transfer->fetch().host == asked.host);
    });
    if (last != running_.rend()) {
        Fetch& fetch = (*last)->fetch();
        remove(**last);
        beginAnew(fetch);
    }
}

void FetchAhead::beginAnew(Fetch& fetch) {
    dropBody(fetch);
    fetch.clock = FetchClock();
    enqueue(fetch);
}

void FetchAhead::remove(const Transfer& transfer) {
    waiting_.leave(transfer.fetch().host);
    running_.erase(std::find_if(running_.begin(), running_.end(),
                                [&](const auto& each) { return each.get() == &transfer; }));
}

void FetchAhead::dropBody(Fetch& fetch) {
    if (fetch.ahead) {
        kept_.release(fetch.body.size());
    }
    fetch.body = Body();
}

} // namespace quillmark
