#pragma once

#include "platform/curl/CurlHandle.h"
#include "platform/host/HostReply.h"
#include "platform/host/HostSockets.h"
#include "platform/host/HostTasks.h"
#include "platform/host/HostVerifier.h"
#include "run/FtpLogin.h"

#include <atomic>
#include <cstddef>
#include <string>
#include <string_view>
#include <thread>

namespace quillmark {

/// One control connection with the host, on libcurl and a thread of its own: libcurl blocks here
/// and there while it waits for a reply. It performs one task after the other, logs in by itself
/// when there is no connection, and attempts once more what a lost connection ended.
class HostConnection {
public:
    /// A reply with more bytes in all its lines is given up; libcurl has room for little more.
    static constexpr std::size_t LongestReply = std::size_t{48} * 1024;

    /// Everything outlives the connection. Throws a Failure when the host is none.
    HostConnection(HostTasks& tasks, const FtpLogin& login, const FtpTimeouts& timeouts);
    /// Closes the tasks, for all connections, and waits for the end of its own.
    ~HostConnection();

    /// Ends what it does at once. The tasks call this and rearm(), each under their lock.
    void interrupt();
    void rearm() { interrupted_ = false; }

private:
    /// What was said during one attempt at an operation.
    struct Exchange {
        HostReply reply; ///< To the last command.
        HostReply own;   ///< To the command that the operation is about.
        std::size_t replySize = 0;
        bool ownCommand = false; ///< The last command was the one that the operation is about.
        bool loggedIn = false;
        bool outOfStep = false; ///< A command was sent before the one before it was answered.
        bool hasWork = false;   ///< libcurl has something to do that no socket tells of.
        bool ended = false;     ///< The bytes are not wanted.
    };

    static int follow(CURL* easy, curl_infotype type, char* data, std::size_t size, void* self);
    static std::size_t receive(char* data, std::size_t size, std::size_t count, void* self);

    void work();
    HostOutcome perform();
    HostOutcome attempt();
    CURLcode drive();
    HostOutcome outcomeOf(CURLcode code);
    HostOutcome::Kind kindOf(CURLcode code, bool loggedIn) const;
    std::string reasonOf(CURLcode code) const;
    bool isSftp() const { return login_.encryption == Encryption::Sftp; }
    bool isEndless() const { return exchange_.replySize > LongestReply; }
    void keep(std::string_view bytes);
    void sent(std::string_view command);
    void heard(std::string_view line);

    HostTasks& tasks_;
    const FtpLogin& login_;
    const std::string url_;
    const FtpTimeouts& timeouts_;
    HostSockets sockets_;
    HostVerifier verifier_;
    CurlMulti multi_;
    CurlEasy easy_;
    std::atomic<bool> interrupted_ = false;
    HostTasks::Seat seat_{*this};
    HostOperation operation_;
    Exchange exchange_;
    std::thread thread_;
};

} // namespace quillmark
