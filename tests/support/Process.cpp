#include "support/Process.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <pty.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace quillmark::test {

namespace {

void redirect(const std::filesystem::path& file, int target) {
    const int descriptor = open(file.c_str(), O_WRONLY | O_CREAT, 0600);
    dup2(descriptor, target);
    close(descriptor);
}

/// Gives the child files in the place of the test's own streams.
void redirectStreams(const std::filesystem::path& folder) {
    setpgid(0, 0);
    redirect(folder / "out", STDOUT_FILENO);
    redirect(folder / "err", STDERR_FILENO);
    const int nothing = open("/dev/null", O_RDONLY);
    dup2(nothing, STDIN_FILENO);
}

[[noreturn]] void become(const Command& command) {
    prctl(PR_SET_PDEATHSIG, SIGKILL); // A test that crashes takes its servers with it.
    if (!command.folder.empty() && chdir(command.folder.c_str()) != 0) {
        _exit(126);
    }
    for (const auto& variable : command.environment) {
        setenv(variable.first.c_str(), variable.second.c_str(), 1);
    }
    std::vector<std::string> words = command.words;
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    execvp(arguments.front(), arguments.data());
    _exit(127);
}

using Call = int (*)(int, const sockaddr*, socklen_t);

/// Whether a port of an address, such as 127.0.0.1, can be bound or be connected to.
bool works(Call call, const std::string& address, int port) {
    addrinfo* found = nullptr;
    if (getaddrinfo(address.c_str(), std::to_string(port).c_str(), nullptr, &found) != 0) {
        return false;
    }
    const int socketHandle = socket(found->ai_family, SOCK_STREAM, 0);
    const bool result = call(socketHandle, found->ai_addr, found->ai_addrlen) == 0;
    close(socketHandle);
    freeaddrinfo(found);
    return result;
}

} // namespace

Process::Process(const Command& command) {
    pid_ = fork();
    if (pid_ < 0) {
        throw std::runtime_error("no process");
    }
    if (pid_ == 0) {
        redirectStreams(output_.path());
        become(command);
    }
    setpgid(pid_, pid_);
}

Process::~Process() {
    if (!ended_) {
        kill(-pid_, SIGKILL);
        reap(0);
    }
}

void Process::signal(int number) const {
    kill(pid_, number);
}

bool Process::running() {
    if (!ended_) {
        reap(WNOHANG);
    }
    return !ended_;
}

bool Process::waitForPort(int port, const std::string& address) {
    using namespace std::chrono_literals;
    const auto end = std::chrono::steady_clock::now() + 120s;
    while (!works(connect, address, port)) {
        if (!running() || std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(10ms);
    }
    return true;
}

Finished Process::wait() {
    if (!ended_) {
        reap(0);
    }
    const int status = WIFSIGNALED(status_) ? 128 + WTERMSIG(status_) : WEXITSTATUS(status_);
    return {status, outSoFar(), errSoFar()};
}

void Process::reap(int options) {
    ended_ = waitpid(pid_, &status_, options) == pid_;
}

Terminal::Terminal(const Command& command, unsigned short columns) {
    winsize size{};
    size.ws_row = 25;
    size.ws_col = columns;
    pid_ = forkpty(&keyboard_, nullptr, nullptr, &size);
    if (pid_ < 0) {
        throw std::runtime_error("no terminal");
    }
    if (pid_ == 0) {
        become(command);
    }
}

Terminal::~Terminal() {
    kill(pid_, SIGKILL);
    close(keyboard_);
    waitpid(pid_, nullptr, 0);
}

bool Terminal::waitFor(std::string_view text) {
    while (shown_.find(text) == std::string::npos) {
        if (!readMore()) {
            return false;
        }
    }
    return true;
}

bool Terminal::type(std::string_view keys) const {
    return write(keyboard_, keys.data(), keys.size()) == static_cast<ssize_t>(keys.size());
}

bool Terminal::echoes() const {
    termios state{};
    return tcgetattr(keyboard_, &state) == 0 && (state.c_lflag & ECHO) != 0;
}

int Terminal::wait() {
    while (readMore()) {
    }
    siginfo_t end{};
    waitid(P_PID, static_cast<id_t>(pid_), &end, WEXITED | WNOWAIT);
    return end.si_code == CLD_EXITED ? end.si_status : 128 + end.si_status;
}

bool Terminal::readMore() {
    constexpr int Limit = 180'000;
    pollfd waited{keyboard_, POLLIN, 0};
    std::array<char, 4096> bytes{};
    if (poll(&waited, 1, Limit) <= 0) {
        return false;
    }
    const ssize_t count = read(keyboard_, bytes.data(), bytes.size());
    shown_.append(bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(0, count)));
    return count > 0;
}

Finished run(const Command& command) {
    return Process(command).wait();
}

int freePort() {
    static int next = 20'000 + getpid() * 16 % 10'000;
    while (next < 32'000) {
        if (works(bind, "127.0.0.1", next++)) {
            return next - 1;
        }
    }
    throw std::runtime_error("no free port");
}

} // namespace quillmark::test
