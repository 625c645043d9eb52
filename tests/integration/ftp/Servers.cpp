#include "integration/ftp/Servers.h"

#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <thread>

#include <grp.h>
#include <pwd.h>
#include <unistd.h>

namespace quillmark::test {

namespace {

std::string vsftpdProgram() {
    const char* program = std::getenv("QUILLMARK_VSFTPD");
    return program == nullptr ? VSFTPD : program;
}

} // namespace

std::size_t countOf(const std::string& text, std::string_view part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

void Server::start(const Command& command) {
    process_.emplace(command);
    if (!process_->waitForPort(login_.port, login_.host)) {
        throw std::runtime_error("no server: " + process_->errSoFar() + process_->outSoFar());
    }
}

RealServer::RealServer(const std::string& name, bool passiveDisabled, const std::string& address) {
    login_.host = address;
    login_.port = static_cast<std::int16_t>(freePort());
    login_.passiveDisabled = passiveDisabled;
    name == "vsftpd" ? startVsftpd() : startProftpd();
}

// Without root rights and without PAM: everybody is anonymous, and is who started the server.
void Server::startVsftpd(const std::string& more) {
    login_.userName = "anonymous";
    const std::string folder = settings_.path().string();
    const auto file = settings_.write(
        "vsftpd.conf", "listen=YES\nlisten_address=127.0.0.1\nbackground=NO\nlisten_port=" +
                           std::to_string(login_.port) + "\nanon_root=" + folder +
                           "\nsecure_chroot_dir=" + folder +
                           "\nanonymous_enable=YES\nlocal_enable=NO\nrun_as_launching_user=YES\n"
                           "write_enable=YES\nanon_other_write_enable=YES\nxferlog_enable=NO\n"
                           "anon_world_readable_only=NO\nseccomp_sandbox=NO\nftp_username=" +
                           std::string(getpwuid(getuid())->pw_name) + "\n" + more);
    start({{vsftpdProgram(), file.string()}, {}, {}});
}

void Server::startProftpd(const std::string& more) {
    const passwd* me = getpwuid(getuid());
    const std::string folder = settings_.path().string();
    // The hash of "secret".
    const auto users = settings_.write(
        "users", "webmaster:$1$quill$0gnctURT6YwXj3T5eUh1f1:" + std::to_string(getuid()) + ":" +
                     std::to_string(getgid()) + "::" + folder + ":/bin/sh\n");
    std::filesystem::permissions(users, std::filesystem::perms::owner_read);
    const auto file = settings_.write(
        "proftpd.conf",
        "DefaultAddress " + login_.host + "\nServerType standalone\nUseIPv6 on\nPort " +
            std::to_string(login_.port) + "\nUser " + me->pw_name + "\nGroup " +
            getgrgid(getgid())->gr_name + "\nAuthUserFile " + users.string() + "\nPidFile " +
            folder + "/pid\nSystemLog " + folder +
            "/log\nAuthOrder mod_auth_file.c\nRequireValidShell off\n"
            "UseFtpUsers off\nRootLogin on\nWtmpLog off\nTransferLog none\n"
            "ScoreboardFile none\nDelayEngine off\nControlsEngine off\nControlsSocket " +
            folder + "/controls\n" + more);
    start({{PROFTPD, "-n", "-c", file.string()}, {}, {}});
}

LimitedServer::LimitedServer(int clients) {
    login_.port = static_cast<std::int16_t>(freePort());
    startVsftpd("max_clients=" + std::to_string(clients) + "\n");
}

FaultServer::FaultServer(const std::string& scenario) {
    process_.emplace(
        Command{{PYTHON, FAULTS, scenario, (settings_.path() / "log").string()}, {}, {}});
    while (process_->outSoFar().find('\n') == std::string::npos && process_->running()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    login_.port = static_cast<std::int16_t>(std::stoi(process_->outSoFar()));
}

} // namespace quillmark::test
