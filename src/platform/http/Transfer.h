#pragma once

#include "platform/curl/CurlHandle.h"
#include "platform/http/Fetch.h"
#include "platform/http/FetchLimits.h"
#include "platform/http/KeptAhead.h"
#include "platform/http/WebAddress.h"

#include <cstddef>
#include <string>

namespace quillmark {

/// One request under way: what arrives goes into the fetch's body. It is held, its connection left
/// unread, while no more may be kept ahead. Its end, early or not, takes it out of the multi
/// handle.
class Transfer {
public:
    /// Throws a Failure when the fetch's address is none. All arguments outlive the transfer.
    Transfer(CURLM* multi, Fetch& fetch, const FetchLimits& limits, KeptAhead& kept);
    ~Transfer();
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    /// The transfer that a handle belongs to.
    static Transfer& of(CURL* easy);

    Fetch& fetch() const { return fetch_; }
    bool held() const { return held_; }
    /// Whether it was ever held: a host may have lost its patience meanwhile.
    bool wasHeld() const { return wasHeld_; }
    /// Whether the body has been cut at the longest that is kept.
    bool cut() const { return cut_; }
    bool late() const { return fetch_.clock.spent() > limits_.wholeFetch; }
    void resume();

    /// Where the answer sends the asker to, or an empty text.
    std::string redirectTarget() const;
    /// Whether the answer is marked as a gzip stream.
    bool gzipped() const;

private:
    static std::size_t receiveBody(const char* bytes, std::size_t one, std::size_t count,
                                   void* transfer);
    static std::size_t receiveHeader(const char* bytes, std::size_t one, std::size_t count,
                                     void* transfer);
    void setOptions();
    void setReceivers();
    std::size_t body(const char* bytes, std::size_t count);
    std::size_t hold();

    CURLM* multi_;
    Fetch& fetch_;
    const FetchLimits& limits_;
    KeptAhead& kept_;
    WebAddress address_;
    CurlEasy easy_;
    std::size_t headerBytes_ = 0;
    bool held_ = false;
    bool wasHeld_ = false;
    bool cut_ = false;
};

} // namespace quillmark
