#pragma once

#include "engine/outside/FtpComponent.h"
#include "support/Process.h"
#include "support/TempFolder.h"

#include <optional>
#include <string>

namespace quillmark::test {

/// An FTP server of its own on a free port; ended with the object.
class Server {
public:
    const FtpLogin& login() const { return login_; }

protected:
    void start(const Command& command);

    TempFolder settings_;
    FtpLogin login_{false, "127.0.0.1", 0, "webmaster", "secret", ""};
    std::optional<Process> process_;
};

/// A server of the real world; paths are those of the machine.
class RealServer : public Server {
public:
    /// "vsftpd" or "ProFTPD".
    explicit RealServer(const std::string& name);

private:
    void startVsftpd();
    void startProftpd();
};

/// The server of tests/support/ftp_faults.py in one of its scenarios.
class FaultServer : public Server {
public:
    explicit FaultServer(const std::string& scenario);
    /// The commands that it got so far, with "-- login" before each connection.
    std::string log() const { return settings_.read("log"); }
    /// How many connections it got.
    int connections() const;
};

} // namespace quillmark::test
