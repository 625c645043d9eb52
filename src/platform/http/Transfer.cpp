#include "platform/http/Transfer.h"

#include "base/Version.h"
#include "platform/http/PrivateNetwork.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <sys/socket.h>

namespace quillmark {

namespace {

std::string userAgent() {
    return std::string(ApplicationTitle) + "/" + std::string(ApplicationVersion) + " (link check)";
}

template <typename Value> Value info(CURL* easy, CURLINFO which) {
    Value value{};
    curl_easy_getinfo(easy, which, &value);
    return value;
}

std::string textInfo(CURL* easy, CURLINFO which) {
    const char* const text = info<const char*>(easy, which);
    return text == nullptr ? std::string() : text;
}

std::vector<std::string> cookiesOf(CURL* easy) {
    const CurlList list(info<curl_slist*>(easy, CURLINFO_COOKIELIST));
    std::vector<std::string> cookies;
    for (const curl_slist* each = list.get(); each != nullptr; each = each->next) {
        cookies.emplace_back(each->data);
    }
    return cookies;
}

CurlList headersFor(const WebAddress& address, const std::vector<HeaderRule>& rules) {
    CurlList list;
    for (const HeaderRule& rule : rules) {
        // Hosts and ports are compared whole: a header may hold a secret that no other host may
        // see.
        const auto prefix = WebAddress::parse(rule.prefix);
        if (prefix && address.comparable().starts_with(prefix->comparable())) {
            list.reset(curl_slist_append(list.release(), rule.line.c_str()));
        }
    }
    return list;
}

} // namespace

Transfer::Transfer(CURLM* multi, Fetch& fetch, WebAddress address, const FetchLimits& limits,
                   const FetchManners& manners)
    : multi_(multi), fetch_(fetch), limits_(limits), address_(std::move(address)),
      host_(address_.host()), headers_(headersFor(address_, manners.headers)),
      easy_(curl_easy_init()) {
    setOptions();
    setReceivers();
    setManners(manners);
    if (fetch_.request.reader != nullptr) {
        fetch_.request.reader->begin();
    }
    curl_multi_add_handle(multi_, easy_.get());
}

Transfer::~Transfer() {
    curl_multi_remove_handle(multi_, easy_.get());
}

Transfer& Transfer::of(CURL* easy) {
    return *reinterpret_cast<Transfer*>(info<char*>(easy, CURLINFO_PRIVATE));
}

// HTTP/1.1, since requests that share a connection would evade the limit of a host. Without a quick
// exit, Stop would wait for the name server.
void Transfer::setOptions() {
    CURL* const easy = easy_.get();
    const auto whole = fetch_.head ? limits_.head : limits_.wholeFetch;
    const auto left = std::max(whole - fetch_.spent, std::chrono::milliseconds(1));
    curl_easy_setopt(easy, CURLOPT_CURLU, address_.handle());
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, long{CURL_HTTP_VERSION_1_1});
    curl_easy_setopt(easy, CURLOPT_NOBODY, fetch_.head ? 1L : 0L);
    curl_easy_setopt(easy, CURLOPT_USERAGENT, userAgent().c_str());
    curl_easy_setopt(easy, CURLOPT_HTTPHEADER, headers_.get());
    curl_easy_setopt(easy, CURLOPT_ACCEPT_ENCODING, "gzip");
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, long{limits_.connect.count()});
    curl_easy_setopt(easy, CURLOPT_TIMEOUT_MS, long{left.count()});
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
    useAuthoritiesInOneFile(easy);
}

void Transfer::setReceivers() {
    CURL* const easy = easy_.get();
    curl_easy_setopt(easy, CURLOPT_PRIVATE, this);
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &Transfer::receiveBody);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
    curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, &Transfer::receiveHeader);
    curl_easy_setopt(easy, CURLOPT_HEADERDATA, this);
}

// A proxy would look up the name itself, where nobody sees to which network it leads, so these
// requests use none.
void Transfer::setManners(const FetchManners& manners) {
    if (manners.keepCookies) {
        curl_easy_setopt(easy_.get(), CURLOPT_COOKIEFILE, "");
        for (const std::string& cookie : fetch_.cookies) {
            curl_easy_setopt(easy_.get(), CURLOPT_COOKIELIST, cookie.c_str());
        }
    }
    if (manners.excludePrivate) {
        curl_easy_setopt(easy_.get(), CURLOPT_PROXY, "");
        curl_easy_setopt(easy_.get(), CURLOPT_OPENSOCKETFUNCTION, &Transfer::openSocket);
        curl_easy_setopt(easy_.get(), CURLOPT_OPENSOCKETDATA, this);
    }
}

Reply Transfer::reply(CURLcode code) const {
    CURL* const easy = easy_.get();
    Reply reply;
    reply.status = answered_ ? status() : 0;
    // A transfer that we cut ourselves brought as much as anybody wants.
    reply.failure = cut_ ? UrlFailure::None : failureOf(code);
    reply.redirect = textInfo(easy, CURLINFO_REDIRECT_URL);
    reply.contentType = textInfo(easy, CURLINFO_CONTENT_TYPE);
    reply.cookies = cookiesOf(easy);
    reply.retryAfter = std::chrono::seconds(info<curl_off_t>(easy, CURLINFO_RETRY_AFTER));
    reply.taken = std::chrono::milliseconds(info<curl_off_t>(easy, CURLINFO_TOTAL_TIME_T) / 1000);
    return reply;
}

int Transfer::status() const {
    return static_cast<int>(info<long>(easy_.get(), CURLINFO_RESPONSE_CODE));
}

// A host that cannot be reached from here may still answer others: only a refusal is the host's
// own.
UrlFailure Transfer::failureOf(CURLcode code) const {
    switch (code) {
    case CURLE_OK:
        return UrlFailure::None;
    case CURLE_COULDNT_RESOLVE_HOST:
        return UrlFailure::UnknownName;
    case CURLE_COULDNT_CONNECT:
        if (private_) {
            return UrlFailure::PrivateNetwork;
        }
        return info<long>(easy_.get(), CURLINFO_OS_ERRNO) == ECONNREFUSED ? UrlFailure::Refused
                                                                          : UrlFailure::Broken;
    case CURLE_OPERATION_TIMEDOUT:
        return UrlFailure::TimedOut;
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CIPHER:
    case CURLE_SSL_ISSUER_ERROR:
    case CURLE_SSL_INVALIDCERTSTATUS:
        return UrlFailure::Untrusted;
    default:
        return UrlFailure::Broken;
    }
}

std::size_t Transfer::receiveBody(const char* bytes, std::size_t /*one*/, std::size_t count,
                                  void* transfer) {
    return static_cast<Transfer*>(transfer)->body({bytes, count}) ? count : 0;
}

std::size_t Transfer::receiveHeader(const char* bytes, std::size_t /*one*/, std::size_t count,
                                    void* transfer) {
    return static_cast<Transfer*>(transfer)->header({bytes, count}) ? count : 0;
}

curl_socket_t Transfer::openSocket(void* transfer, curlsocktype /*purpose*/,
                                   curl_sockaddr* address) {
    // This is the address that would be connected to: no name or redirect can hide it.
    if (isPrivate(address->addr)) {
        static_cast<Transfer*>(transfer)->private_ = true;
        return CURL_SOCKET_BAD;
    }
    return ::socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
}

// libcurl ends a transfer when it is told that fewer bytes were taken than it offered. What nobody
// reads is taken as far as that is cheaper than a new connection.
bool Transfer::body(std::string_view bytes) {
    BodyReader* const reader = fetch_.request.reader;
    const std::size_t limit = reader == nullptr ? limits_.unread : limits_.body;
    const std::string_view wanted = bytes.substr(0, limit - bodyBytes_);
    bodyBytes_ += wanted.size();
    const bool goesOn = reader == nullptr || reader->take(wanted);
    cut_ = !goesOn || wanted.size() < bytes.size();
    return !cut_;
}

// libcurl keeps each header line by itself, which takes more memory than the bytes of the line.
bool Transfer::header(std::string_view line) {
    constexpr std::size_t LineCost = 128;
    headerBytes_ += line.size() + LineCost;
    // An answer of 1xx only announces the real one.
    const bool ends = line == "\r\n" || line == "\n";
    answered_ = answered_ || (ends && status() >= 200);
    return headerBytes_ <= limits_.header;
}

} // namespace quillmark
