#include "platform/http/Transfer.h"

#include "base/UpperCase.h"
#include "base/Version.h"

#include <algorithm>

namespace quillmark {

namespace {

std::string userAgent() {
    return std::string(ApplicationTitle) + "/" + std::string(ApplicationVersion) + " (link check)";
}

} // namespace

Transfer::Transfer(CURLM* multi, Fetch& fetch, const FetchLimits& limits, KeptAhead& kept)
    : multi_(multi), fetch_(fetch), limits_(limits), kept_(kept), address_(fetch.address),
      easy_(curl_easy_init()) {
    setOptions();
    setReceivers();
    curl_multi_add_handle(multi_, easy_.get());
    fetch_.clock.run();
}

Transfer::~Transfer() {
    curl_multi_remove_handle(multi_, easy_.get());
    fetch_.clock.stop();
}

Transfer& Transfer::of(CURL* easy) {
    char* transfer = nullptr;
    curl_easy_getinfo(easy, CURLINFO_PRIVATE, &transfer);
    return *reinterpret_cast<Transfer*>(transfer);
}

// Compressed bodies are kept as they come: libcurl would unpack a whole piece at once, and a piece
// of a few bytes can unpack to more than the memory. HTTP/1.1, since requests that share a
// connection would evade the limit of a host. Without a quick exit, Stop would wait for the name
// server.
void Transfer::setOptions() {
    CURL* const easy = easy_.get();
    curl_easy_setopt(easy, CURLOPT_CURLU, address_.handle());
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, long{CURL_HTTP_VERSION_1_1});
    curl_easy_setopt(easy, CURLOPT_USERAGENT, userAgent().c_str());
    curl_easy_setopt(easy, CURLOPT_ACCEPT_ENCODING, "gzip");
    curl_easy_setopt(easy, CURLOPT_HTTP_CONTENT_DECODING, 0L);
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, long{limits_.connect.count()});
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
}

void Transfer::setReceivers() {
    CURL* const easy = easy_.get();
    curl_easy_setopt(easy, CURLOPT_PRIVATE, this);
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &Transfer::receiveBody);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
    curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, &Transfer::receiveHeader);
    curl_easy_setopt(easy, CURLOPT_HEADERDATA, this);
}

void Transfer::resume() {
    held_ = false;
    fetch_.clock.run();
    curl_easy_pause(easy_.get(), CURLPAUSE_CONT);
}

std::string Transfer::redirectTarget() const {
    const char* target = nullptr;
    curl_easy_getinfo(easy_.get(), CURLINFO_REDIRECT_URL, &target);
    return target == nullptr ? std::string() : std::string(target);
}

bool Transfer::gzipped() const {
    curl_header* header = nullptr;
    if (curl_easy_header(easy_.get(), "Content-Encoding", 0, CURLH_HEADER, -1, &header) !=
        CURLHE_OK) {
        return false;
    }
    const std::string encoding = upperAscii(header->value);
    return encoding == "GZIP" || encoding == "X-GZIP";
}

std::size_t Transfer::receiveBody(const char* bytes, std::size_t /*one*/, std::size_t count,
                                  void* transfer) {
    return static_cast<Transfer*>(transfer)->body(bytes, count);
}

// libcurl remembers each header line by itself, which takes more memory than the line's bytes.
std::size_t Transfer::receiveHeader(const char* /*bytes*/, std::size_t /*one*/, std::size_t count,
                                    void* transfer) {
    constexpr std::size_t LineCost = 128;
    Transfer& self = *static_cast<Transfer*>(transfer);
    self.headerBytes_ += count + LineCost;
    return self.headerBytes_ > self.limits_.header ? 0 : count;
}

// libcurl ends a transfer when it is told that fewer bytes were taken than it offered.
std::size_t Transfer::body(const char* bytes, std::size_t count) {
    const std::size_t wanted = std::min(count, limits_.body - fetch_.body.size());
    if (fetch_.ahead && !kept_.admit(wanted)) {
        return hold();
    }
    fetch_.body.append({bytes, wanted});
    cut_ = wanted < count;
    return wanted;
}

std::size_t Transfer::hold() {
    held_ = true;
    wasHeld_ = true;
    fetch_.clock.stop();
    return CURL_WRITEFUNC_PAUSE;
}

} // namespace quillmark
