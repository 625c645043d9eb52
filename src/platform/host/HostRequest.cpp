#include "platform/host/HostRequest.h"

#include "platform/host/HostFailures.h"

#include <algorithm>

namespace quillmark {

namespace {

using Operation = HostOperation::Kind;

constexpr long AWeek = 7L * 24 * 60 * 60; ///< More than libcurl counts in milliseconds is too much.
constexpr long RoomSize = 64L * 1024;

/// Every byte but letters and digits in hex: the path comes out of the URL as it went in.
std::string percentEncoded(std::string_view path) {
    constexpr std::string_view Hex = "0123456789ABCDEF";
    std::string encoded;
    encoded.reserve(path.size() * 3);
    for (const char byte : path) {
        const auto code = static_cast<unsigned char>(byte);
        if ((byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
            (byte >= '0' && byte <= '9')) {
            encoded += byte;
        } else {
            encoded += '%';
            encoded += Hex[code / Hex.size()];
            encoded += Hex[code % Hex.size()];
        }
    }
    return encoded;
}

bool isControl(char byte) {
    return byte >= 0 && byte < ' ';
}

/// libcurl refuses control bytes in a URL, and lists what ends in "/" instead of retrieving it.
bool urlCanName(std::string_view file) {
    return !file.empty() && file.back() != '/' && std::none_of(file.begin(), file.end(), isControl);
}

std::string bracketed(const std::string& host) {
    const bool bareIp6 = host.find(':') != std::string::npos && host.front() != '[';
    return bareIp6 ? "[" + host + "]" : host;
}

/// Hosts would read a leading "-" as the switches of a listing.
std::string listCommand(const std::string& verb, const std::string& directory) {
    if (directory.empty()) {
        return verb;
    }
    return verb + (directory.front() == '-' ? " ./" : " ") + directory;
}

const char* schemeOf(Encryption encryption) {
    switch (encryption) {
    case Encryption::Implicit:
        return "ftps";
    case Encryption::Sftp:
        return "sftp";
    default:
        return "ftp";
    }
}

/// The command of an operation without a transfer, or nothing. With "*" in front libcurl keeps the
/// connection after a refusal.
std::string plainCommand(const HostOperation& operation) {
    switch (operation.kind) {
    case Operation::Delete:
        return "*DELE " + operation.path;
    case Operation::RemoveDirectory:
        return "*RMD " + operation.path;
    case Operation::Goodbye:
        return "*QUIT";
    default:
        return {};
    }
}

CurlList listOf(const std::string& command) {
    return CurlList(command.empty() ? nullptr : curl_slist_append(nullptr, command.c_str()));
}

const char* orNothing(const std::string& text) {
    return text.empty() ? nullptr : text.c_str();
}

/// A name in the quotes of libcurl's commands for SFTP.
std::string quoted(const std::string& path) {
    std::string text = "\"";
    for (const char byte : path) {
        text += byte == '"' || byte == '\\' ? "\\" : "";
        text += byte;
    }
    return text + "\"";
}

std::string sftpCommand(const HostOperation& operation) {
    switch (operation.kind) {
    case Operation::Delete:
        return "rm " + quoted(operation.path);
    case Operation::RemoveDirectory:
        return "rmdir " + quoted(operation.path);
    default:
        return {};
    }
}

/// Where SFTP finds a path: one that does not begin at the top is in the user's folder. With "/" at
/// its end libcurl lists it.
std::string sftpPath(const HostOperation& operation) {
    const bool isList = operation.kind == Operation::List;
    std::string path =
        operation.path.starts_with('/') ? operation.path.substr(1) : "~/./" + operation.path;
    while (path.ends_with('/')) {
        path.pop_back();
    }
    return isList ? path + '/' : path;
}

/// Everything encrypted, the data connections, too, or no login at all.
void setEncryption(CURL* easy, const FtpLogin& login) {
    const long level = isTls(login.encryption) ? CURLUSESSL_ALL : CURLUSESSL_NONE;
    curl_easy_setopt(easy, CURLOPT_USE_SSL, level);
    curl_easy_setopt(easy, CURLOPT_FTPSSLAUTH, long{CURLFTPAUTH_TLS});
    const unsigned long without = CURLSSH_AUTH_AGENT;
    const unsigned long with = CURLSSH_AUTH_PASSWORD | CURLSSH_AUTH_KEYBOARD | CURLSSH_AUTH_AGENT;
    if (!login.keyFile.empty()) {
        curl_easy_setopt(easy, CURLOPT_SSH_AUTH_TYPES, CURLSSH_AUTH_PUBLICKEY);
        curl_easy_setopt(easy, CURLOPT_SSH_PRIVATE_KEYFILE, login.keyFile.c_str());
        curl_easy_setopt(easy, CURLOPT_KEYPASSWD, login.keyPassphrase.c_str());
    } else {
        curl_easy_setopt(easy, CURLOPT_SSH_AUTH_TYPES, login.password.empty() ? without : with);
    }
}

} // namespace

bool isTls(Encryption encryption) {
    return encryption == Encryption::Tls || encryption == Encryption::Implicit;
}

bool isSendable(std::string_view text) {
    return text.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
}

std::string hostUrl(const FtpLogin& login) {
    const CurlUrl url(curl_url());
    curl_url_set(url.get(), CURLUPART_SCHEME, schemeOf(login.encryption), 0);
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

// Without a quick exit, Stop would wait for the name server. SIZE would cost a round trip for each
// page and tell nothing. libcurl's own limits are the last resort: ours are in HostTasks.
void setLogin(CURL* easy, const FtpLogin& login, const FtpTimeouts& timeouts) {
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, schemeOf(login.encryption));
    setEncryption(easy, login);
    curl_easy_setopt(easy, CURLOPT_PROXY, "");
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
    curl_easy_setopt(easy, CURLOPT_BUFFERSIZE, RoomSize);
    curl_easy_setopt(easy, CURLOPT_MAXAGE_CONN, AWeek);
    curl_easy_setopt(easy, CURLOPT_PATH_AS_IS, 1L);
    curl_easy_setopt(easy, CURLOPT_FTP_FILEMETHOD, long{CURLFTPMETHOD_NOCWD});
    curl_easy_setopt(easy, CURLOPT_FTP_SKIP_PASV_IP, 1L);
    curl_easy_setopt(easy, CURLOPT_IGNORE_CONTENT_LENGTH, 1L);
    curl_easy_setopt(easy, CURLOPT_SERVER_RESPONSE_TIMEOUT, AWeek);
    curl_easy_setopt(easy, CURLOPT_ACCEPTTIMEOUT_MS, long{timeouts.transfer.count()});
    const std::string user = login.userName.empty() ? "anonymous" : login.userName;
    curl_easy_setopt(easy, CURLOPT_USERNAME, user.c_str());
    curl_easy_setopt(easy, CURLOPT_PASSWORD, login.password.c_str());
    curl_easy_setopt(easy, CURLOPT_FTP_ACCOUNT, orNothing(login.account));
    curl_easy_setopt(easy, CURLOPT_FTPPORT, login.passiveDisabled ? "-" : nullptr);
}

CurlList setSftpOperation(CURL* easy, const std::string& hostUrl, const HostOperation& operation) {
    const bool hasTransfer =
        operation.kind == Operation::List || operation.kind == Operation::Retrieve;
    CurlList commands = listOf(sftpCommand(operation));
    const std::string url = hasTransfer ? hostUrl + percentEncoded(sftpPath(operation)) : hostUrl;
    curl_easy_setopt(easy, CURLOPT_URL, url.c_str());
    curl_easy_setopt(easy, CURLOPT_NOBODY, hasTransfer ? 0L : 1L);
    curl_easy_setopt(easy, CURLOPT_QUOTE, commands.get());
    return commands;
}

CurlList setOperation(CURL* easy, const std::string& hostUrl, const HostOperation& operation) {
    const bool isFacts = operation.kind == Operation::ListFacts;
    const bool isList = operation.kind == Operation::List || isFacts;
    const bool isPage = operation.kind == Operation::Retrieve;
    const bool inUrl = isPage && urlCanName(operation.path);
    std::string transfer = isList ? listCommand(isFacts ? "MLSD" : "LIST", operation.path) : "";
    CurlList commands = listOf(plainCommand(operation));
    if (isPage && !inUrl) {
        transfer = "RETR " + operation.path;
        commands = listOf("TYPE I");
    }
    const bool hasTransfer = isList || isPage;
    const std::string url = inUrl ? hostUrl + percentEncoded(operation.path) : hostUrl;
    curl_easy_setopt(easy, CURLOPT_URL, url.c_str());
    curl_easy_setopt(easy, CURLOPT_NOBODY, hasTransfer ? 0L : 1L);
    curl_easy_setopt(easy, CURLOPT_CUSTOMREQUEST, orNothing(transfer));
    curl_easy_setopt(easy, CURLOPT_QUOTE, hasTransfer ? nullptr : commands.get());
    curl_easy_setopt(easy, CURLOPT_PREQUOTE, hasTransfer ? commands.get() : nullptr);
    return commands;
}

void setConnectLimit(CURL* easy, std::chrono::milliseconds limit) {
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, long{limit.count()});
}

void liftConnectLimit(CURL* easy) {
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, AWeek * 1000);
}

} // namespace quillmark
