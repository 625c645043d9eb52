#pragma once

#include "platform/curl/CurlHandle.h"
#include "platform/http/Fetch.h"
#include "platform/http/FetchLimits.h"
#include "platform/http/HostQueue.h"
#include "platform/http/KeptAhead.h"
#include "platform/http/Transfer.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// Fetches a list of addresses, many at a time, while they are asked for one by one. Each is
/// fetched once however often it is listed. A fetch that has to make room for the one asked for is
/// begun anew later, and so is one that lost its connection while it was held.
class FetchAhead {
public:
    /// `urls` in the order in which they will be asked for.
    FetchAhead(const FetchLimits& limits, const std::vector<std::string>& urls);

    /// Names the address that is wanted now, listed or not: its fetch goes before all others and is
    /// never held. The fetch is there until deliver().
    const Fetch& ask(std::string_view url);
    /// Starts, receives and ends what can be without waiting.
    void drive();
    /// Waits until there is something to drive, `slice` at most.
    void wait(std::chrono::milliseconds slice);
    /// The body of the address asked for, whose fetch has ended. Throws a Failure when there is
    /// none.
    std::string deliver();

private:
    using Fetches = std::map<std::string, Fetch, std::less<>>;

    void enqueue(Fetch& fetch);
    void startWaiting();
    void start(Fetch& fetch);
    void harvest();
    void endCutAndLate();
    void settle(const Transfer& transfer, CURLcode code);
    void redirect(Fetch& fetch, const std::string& target);
    void fail(Fetch& fetch, const std::string& why);
    void resumeHeld();
    void makeRoomForAsked();
    void beginAnew(Fetch& fetch);
    void remove(const Transfer& transfer);
    void dropBody(Fetch& fetch);

    FetchLimits limits_;
    CurlMulti multi_;
    Fetches fetches_;
    Fetches::iterator asked_ = fetches_.end();
    HostQueue waiting_;
    KeptAhead kept_;
    std::vector<std::unique_ptr<Transfer>> running_; ///< In the order of their start.
};

} // namespace quillmark
