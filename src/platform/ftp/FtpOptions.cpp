#include "platform/ftp/FtpOptions.h"

#include <string>
#include <vector>

namespace quillmark {

namespace {

constexpr long AYear = 365L * 24 * 60 * 60;

CurlList listOf(const std::vector<std::string>& commands) {
    CurlList list;
    for (const std::string& command : commands) {
        curl_slist* longer = curl_slist_append(list.get(), command.c_str());
        static_cast<void>(list.release());
        list.reset(longer);
    }
    return list;
}

const char* orNothing(const std::string& text) {
    return text.empty() ? nullptr : text.c_str();
}

} // namespace

// A quick exit, since Stop would wait for the name server otherwise.
void setUsualOptions(CURL* easy) {
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "ftp");
    curl_easy_setopt(easy, CURLOPT_PROXY, "");
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
    curl_easy_setopt(easy, CURLOPT_PATH_AS_IS, 1L);
    curl_easy_setopt(easy, CURLOPT_FTP_FILEMETHOD, long{CURLFTPMETHOD_NOCWD});
    curl_easy_setopt(easy, CURLOPT_IGNORE_CONTENT_LENGTH, 1L);
    curl_easy_setopt(easy, CURLOPT_FTP_SKIP_PASV_IP, 1L);
    curl_easy_setopt(easy, CURLOPT_MAXAGE_CONN, AYear);
}

void setTimeouts(CURL* easy, const FtpTimeouts& timeouts) {
    const auto reply = std::chrono::ceil<std::chrono::seconds>(timeouts.reply);
    curl_easy_setopt(easy, CURLOPT_SERVER_RESPONSE_TIMEOUT, long{reply.count()} + 1);
    curl_easy_setopt(easy, CURLOPT_ACCEPTTIMEOUT_MS, long{timeouts.transfer.count()});
}

void setConnectLimit(CURL* easy, std::chrono::milliseconds limit) {
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, long{limit.count()});
}

void liftConnectLimit(CURL* easy) {
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, AYear);
}

void setLoginOptions(CURL* easy, const FtpLogin& login) {
    const std::string user = login.userName.empty() ? "anonymous" : login.userName;
    curl_easy_setopt(easy, CURLOPT_USERNAME, user.c_str());
    curl_easy_setopt(easy, CURLOPT_PASSWORD, login.password.c_str());
    curl_easy_setopt(easy, CURLOPT_FTP_ACCOUNT, orNothing(login.account));
    curl_easy_setopt(easy, CURLOPT_FTPPORT, login.passiveDisabled ? "-" : nullptr);
}

CurlList setRequestOptions(CURL* easy, const FtpRequest& request) {
    CurlList commands = listOf(request.commands);
    curl_easy_setopt(easy, CURLOPT_URL, request.url.c_str());
    curl_easy_setopt(easy, CURLOPT_NOBODY, request.transfer ? 0L : 1L);
    curl_easy_setopt(easy, CURLOPT_CUSTOMREQUEST, orNothing(request.transferCommand));
    curl_easy_setopt(easy, CURLOPT_QUOTE, request.transfer ? nullptr : commands.get());
    curl_easy_setopt(easy, CURLOPT_PREQUOTE, request.transfer ? commands.get() : nullptr);
    return commands;
}

} // namespace quillmark
