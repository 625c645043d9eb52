#pragma once

#include "platform/curl/CurlHandle.h"
#include "platform/http/Fetch.h"
#include "platform/http/FetchLimits.h"
#include "platform/http/WebAddress.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace quillmark {

/// What one request came to.
struct Reply {
    int status = 0; ///< 0 unless a whole header arrived.
    UrlFailure failure = UrlFailure::None;
    std::string redirect; ///< Where the server redirects to; may be empty.
    std::string contentType;
    std::vector<std::string> cookies;  ///< That may be sent along with the redirect.
    std::chrono::seconds retryAfter{}; ///< The pause that the server wants.
    std::chrono::milliseconds taken{};
};

/// One request under way. Its end, early or not, takes it out of the multi handle.
class Transfer {
public:
    /// All arguments but the address must outlive the transfer.
    Transfer(CURLM* multi, Fetch& fetch, WebAddress address, const FetchLimits& limits,
             const FetchManners& manners);
    ~Transfer();
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    /// The transfer that a handle belongs to.
    static Transfer& of(CURL* easy);

    Fetch& fetch() const { return fetch_; }
    /// The host that is asked, in upper case.
    const std::string& host() const { return host_; }
    /// What the request came to; `code` is how libcurl says it ended.
    Reply reply(CURLcode code) const;

private:
    static std::size_t receiveBody(const char* bytes, std::size_t one, std::size_t count,
                                   void* transfer);
    static std::size_t receiveHeader(const char* bytes, std::size_t one, std::size_t count,
                                     void* transfer);
    static curl_socket_t openSocket(void* transfer, curlsocktype purpose, curl_sockaddr* address);
    void setOptions();
    void setReceivers();
    void setManners(const FetchManners& manners);
    bool body(std::string_view bytes);
    bool header(std::string_view line);
    int status() const;
    UrlFailure failureOf(CURLcode code) const;

    CURLM* multi_;
    Fetch& fetch_;
    const FetchLimits& limits_;
    WebAddress address_;
    std::string host_;
    CurlList headers_;
    CurlEasy easy_;
    std::size_t bodyBytes_ = 0;
    std::size_t headerBytes_ = 0;
    bool answered_ = false; ///< The header has ended.
    bool cut_ = false;      ///< Nobody wants more of the body.
    bool private_ = false;  ///< A connection into a private network was refused.
};

} // namespace quillmark
