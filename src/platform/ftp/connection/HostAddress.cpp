#include "platform/ftp/connection/HostAddress.h"

#include "platform/curl/CurlHandle.h"
#include "platform/ftp/connection/FtpFailures.h"

#include <fcntl.h>

namespace quillmark {

namespace {

/// Adds a handle to a multi handle, and removes it at the end of the scope.
class Membership {
public:
    Membership(CURLM* multi, CURL* easy) : multi_(multi), easy_(easy) {
        curl_multi_add_handle(multi_, easy_);
    }
    ~Membership() { curl_multi_remove_handle(multi_, easy_); }
    Membership(const Membership&) = delete;
    Membership& operator=(const Membership&) = delete;

private:
    CURLM* multi_;
    CURL* easy_;
};

std::string bracketed(const std::string& host) {
    const bool bareIp6 = host.find(':') != std::string::npos && host.front() != '[';
    return bareIp6 ? "[" + host + "]" : host;
}

// Without a quick exit, Stop would wait for the name server.
void setOptions(CURL* easy, const std::string& url, std::chrono::milliseconds limit) {
    curl_easy_setopt(easy, CURLOPT_URL, url.c_str());
    curl_easy_setopt(easy, CURLOPT_CONNECT_ONLY, 1L);
    curl_easy_setopt(easy, CURLOPT_PROXY, "");
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, long{limit.count()});
}

bool isConnected(CURLM* multi) {
    int left = 0;
    curl_multi_perform(multi, &left);
    const CURLMsg* const message = curl_multi_info_read(multi, &left);
    if (message != nullptr && message->data.result != CURLE_OK) {
        throw ConnectionLost(curl_easy_strerror(message->data.result));
    }
    return message != nullptr;
}

/// Returns a copy of the connection's descriptor: libcurl closes its own together with its handle.
FileDescriptor ownSocket(CURL* easy) {
    curl_socket_t socket = CURL_SOCKET_BAD;
    curl_easy_getinfo(easy, CURLINFO_ACTIVESOCKET, &socket);
    FileDescriptor own(::fcntl(socket, F_DUPFD_CLOEXEC, 0));
    if (!own.isOpen()) {
        throw cannotConnect();
    }
    return own;
}

} // namespace

// libcurl would log in by itself at an address that begins with "ftp:".
std::string hostUrl(const FtpLogin& login) {
    const CurlUrl url(curl_url());
    curl_url_set(url.get(), CURLUPART_SCHEME, "http", 0);
    CURLUcode code = curl_url_set(url.get(), CURLUPART_HOST, bracketed(login.host).c_str(), 0);
    if (code == CURLUE_OK) {
        code = curl_url_set(url.get(), CURLUPART_PORT, std::to_string(login.port).c_str(), 0);
    }
    char* text = nullptr;
    if (code == CURLUE_OK) {
        code = curl_url_get(url.get(), CURLUPART_URL, &text, 0);
    }
    const CurlText owned(text);
    if (code != CURLUE_OK) {
        throw notAHost(curl_url_strerror(code));
    }
    return text;
}

FileDescriptor connectToHost(const std::string& url, HostWait& wait) {
    const CurlMulti multi(curl_multi_init());
    const CurlEasy easy(curl_easy_init());
    setOptions(easy.get(), url, wait.connectLimit());
    const Membership membership(multi.get(), easy.get());
    wait.startForConnection();
    wait.breathe();
    while (!isConnected(multi.get())) {
        curl_multi_poll(multi.get(), nullptr, 0, int{HostWait::Slice.count()}, nullptr);
        wait.requireTime();
        wait.breathe();
    }
    return ownSocket(easy.get());
}

} // namespace quillmark
