#include "platform/host/HostRequest.h"

#include "platform/host/HostFailures.h"

#include <algorithm>
#include <array>

namespace quillmark {

namespace {

using Operation = HostOperation::Kind;

constexpr long AWeek = 7L * 24 * 60 * 60; ///< More than libcurl counts in milliseconds is too much.
constexpr long RoomSize = 64L * 1024;

/// libcurl refuses control bytes in a URL, and lists what ends in "/" instead of retrieving it.
bool urlCanName(std::string_view file) {
    const auto isControl = [](char byte) { return byte >= 0 && byte < ' '; };
    return !file.empty() && file.back() != '/' && std::none_of(file.begin(), file.end(), isControl);
}

/// Hosts would read a leading "-" as the switches of a listing.
std::string commandOf(std::string_view verb, const std::string& path) {
    const char* const between = path.starts_with('-') ? " ./" : " ";
    return std::string(verb) + (path.empty() ? "" : between + path);
}

const char* schemeOf(Encryption encryption) {
    const char* const overFtp = encryption == Encryption::Implicit ? "ftps" : "ftp";
    return encryption == Encryption::Sftp ? "sftp" : overFtp;
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

/// Where SFTP finds a path: one that does not begin at the top is in the user's folder. With "/" at
/// its end libcurl lists it.
std::string sftpPath(const HostOperation& operation) {
    const std::string& path = operation.path;
    std::string place = path.starts_with('/') ? path.substr(1) : "~/./" + path;
    place.erase(place.find_last_not_of('/') + 1);
    return operation.kind == Operation::List ? place + '/' : place;
}

/// The command of an operation without a transfer, or nothing. With "*" in front libcurl keeps the
/// connection after a refusal.
std::string plainCommand(const HostOperation& operation, bool isSftp) {
    const HostVerb& verb = verbOf(operation.kind);
    if ((isSftp ? verb.sftp : verb.ftp).empty()) {
        return {};
    }
    return isSftp ? std::string(verb.sftp) + " " + quoted(operation.path)
                  : "*" + commandOf(verb.ftp, operation.path);
}

} // namespace

const HostVerb& verbOf(Operation kind) {
    static constexpr std::array<HostVerb, 7> Verbs = {{{"", "", "log in", false},
                                                       {"LIST", "", "list", true},
                                                       {"MLSD", "", "", true},
                                                       {"RETR", "", "get", true},
                                                       {"DELE", "rm", "remove", false},
                                                       {"RMD", "rmdir", "rmdir", false},
                                                       {"QUIT", "", "quit", false}}};
    return Verbs.at(static_cast<std::size_t>(kind));
}

bool isTls(Encryption encryption) {
    return encryption == Encryption::Tls || encryption == Encryption::Implicit;
}

std::string hostUrl(const FtpLogin& login) {
    const CurlUrl url(curl_url());
    const auto set = [&url](CURLUPart part, const std::string& text) {
        if (const CURLUcode code = curl_url_set(url.get(), part, text.c_str(), 0)) {
            throw notAHost(curl_url_strerror(code));
        }
    };
    const bool isBareIp6 = login.host.find(':') != std::string::npos && login.host[0] != '[';
    set(CURLUPART_SCHEME, schemeOf(login.encryption));
    set(CURLUPART_HOST, isBareIp6 ? "[" + login.host + "]" : login.host);
    set(CURLUPART_PORT, std::to_string(login.port));
    char* text = nullptr;
    curl_url_get(url.get(), CURLUPART_URL, &text, 0);
    return CurlText(text).get();
}

// Without a quick exit, Stop would wait for the name server. SIZE would cost a round trip for each
// page and tell nothing. libcurl's own limits are the last resort: ours are in HostTasks.
void setLogin(CURL* easy, const FtpLogin& login, const FtpTimeouts& timeouts) {
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, schemeOf(login.encryption));
    // Everything encrypted, the data connections, too, or no login at all.
    const long level = isTls(login.encryption) ? CURLUSESSL_ALL : CURLUSESSL_NONE;
    curl_easy_setopt(easy, CURLOPT_USE_SSL, level);
    curl_easy_setopt(easy, CURLOPT_FTPSSLAUTH, long{CURLFTPAUTH_TLS});
    const unsigned long byPassword =
        login.password.empty() ? 0UL : CURLSSH_AUTH_PASSWORD | CURLSSH_AUTH_KEYBOARD;
    const unsigned long byKey = CURLSSH_AUTH_PUBLICKEY;
    curl_easy_setopt(easy, CURLOPT_SSH_AUTH_TYPES,
                     login.keyFile.empty() ? CURLSSH_AUTH_AGENT | byPassword : byKey);
    curl_easy_setopt(easy, CURLOPT_SSH_PRIVATE_KEYFILE, orNothing(login.keyFile));
    curl_easy_setopt(easy, CURLOPT_KEYPASSWD, orNothing(login.keyPassphrase));
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

CurlList setOperation(CURL* easy, const std::string& hostUrl, Encryption encryption,
                      const HostOperation& operation) {
    const bool isSftp = encryption == Encryption::Sftp;
    const bool isPage = operation.kind == Operation::Retrieve;
    const HostVerb& verb = verbOf(operation.kind);
    std::string path;     // In the URL,
    std::string transfer; // or as a command of its own.
    std::string command;
    if (!verb.isTransfer) {
        command = plainCommand(operation, isSftp);
    } else if (isSftp) {
        path = sftpPath(operation);
    } else if (isPage && urlCanName(operation.path)) {
        path = operation.path;
    } else {
        transfer = commandOf(verb.ftp, operation.path);
        command = isPage ? "TYPE I" : "";
    }
    CurlList commands(command.empty() ? nullptr : curl_slist_append(nullptr, command.c_str()));
    const CurlText escaped(curl_easy_escape(easy, path.c_str(), 0));
    curl_easy_setopt(easy, CURLOPT_URL, (hostUrl + escaped.get()).c_str());
    curl_easy_setopt(easy, CURLOPT_NOBODY, verb.isTransfer ? 0L : 1L);
    curl_easy_setopt(easy, CURLOPT_CUSTOMREQUEST, orNothing(transfer));
    curl_easy_setopt(easy, CURLOPT_QUOTE, verb.isTransfer ? nullptr : commands.get());
    curl_easy_setopt(easy, CURLOPT_PREQUOTE, verb.isTransfer ? commands.get() : nullptr);
    return commands;
}

} // namespace quillmark
