#pragma once

#include "platform/curl/CurlHandle.h"
#include "platform/http/Fetch.h"
#include "platform/http/FetchLimits.h"
#include "platform/http/HostQueue.h"
#include "platform/http/Transfer.h"

#include <chrono>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace quillmark {

/// Requests many addresses at a time, while its caller asks for the answers one by one. Each is
/// requested once however often it is listed, apart from what the manners say about HEAD and
/// retries.
class FetchAhead {
public:
    /// Copies both. Nothing is requested before find().
    FetchAhead(const FetchLimits& limits, const FetchManners& manners);

    /// The fetch of an address, added behind all others if it is new. It is valid as long as this
    /// object.
    const Fetch& find(const UrlRequest& request);
    /// Starts, receives and ends whatever it can without waiting.
    void drive();
    /// Waits until there is something to drive, `slice` at most.
    void wait(std::chrono::milliseconds slice);
    /// Shows in the progress indicator how many have ended.
    void showProgress() const;

private:
    using Clock = HostQueue::Clock;

    void enqueue(Fetch& fetch);
    void startWaiting();
    void harvest();
    void settle(const Transfer& transfer, CURLcode code);
    void redirect(Fetch& fetch, const Reply& reply);
    void conclude(Fetch& fetch, const std::string& host, const Reply& reply);
    void retry(Fetch& fetch, const std::string& host, std::chrono::seconds wish);
    void wakeResting();
    void end(Fetch& fetch, UrlFailure failure);
    void endAll();

    FetchLimits limits_;
    FetchManners manners_;
    Clock::time_point start_ = Clock::now();
    CurlMulti multi_;
    std::unordered_map<std::string, Fetch> fetches_;
    std::size_t ended_ = 0;
    HostQueue waiting_;
    std::multimap<Clock::time_point, Fetch*> resting_; ///< By the end of their pause.
    std::map<const Transfer*, std::unique_ptr<Transfer>> running_;
};

} // namespace quillmark
