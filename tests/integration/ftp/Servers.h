#pragma once

#include "run/FtpComponent.h"
#include "support/Process.h"
#include "support/TempFolder.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark::test {

/// How often the part is in the text.
std::size_t countOf(const std::string& text, std::string_view part);

/// An FTP server of its own on a free port; ended with the object.
class Server {
public:
    const FtpLogin& login() const { return login_; }

protected:
    void start(const Command& command);
    // On the login's address and port; `more` are lines of the server's settings file.
    void startVsftpd(const std::string& more = {});
    void startProftpd(const std::string& more = {});

    TempFolder settings_;
    FtpLogin login_{false, "127.0.0.1", 0, "webmaster", "secret"};
    std::optional<Process> process_;
};

/// A server of the real world, "vsftpd" or "ProFTPD"; paths are those of the machine.
class RealServer : public Server {
public:
    explicit RealServer(const std::string& name, bool passiveDisabled = false,
                        const std::string& address = "127.0.0.1");
};

/// A vsftpd that lets so many log in at once.
class LimitedServer : public Server {
public:
    explicit LimitedServer(int clients);
};

/// A server and a mode of transfer, under the name of a test's row.
struct RealSetting {
    std::string name;
    std::string server;
    bool passiveDisabled;
    std::string address = "127.0.0.1";
};
inline std::vector<RealSetting> realSettings() {
    return {{"VsftpdPassive", "vsftpd", false},
            {"VsftpdActive", "vsftpd", true},
            {"ProftpdPassive", "ProFTPD", false},
            {"ProftpdActive", "ProFTPD", true},
            {"ProftpdPassiveIp6", "ProFTPD", false, "::1"},
            {"ProftpdActiveIp6", "ProFTPD", true, "::1"}};
}

/// The server of tests/support/ftp_faults.py in one of its scenarios.
class FaultServer : public Server {
public:
    explicit FaultServer(const std::string& scenario);
    /// The commands that it got so far, with "-- login" before each connection.
    std::string log() const { return settings_.read("log"); }
    /// How many connections it got.
    std::size_t connections() const { return countOf(log(), "-- login"); }
};

} // namespace quillmark::test
