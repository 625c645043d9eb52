#include "support/Process.h"

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillmark::test {

namespace {

std::string contents(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::filesystem::path temporaryFile() {
    std::string name = (std::filesystem::temp_directory_path() / "quillmark-out-XXXXXX").string();
    const int file = mkstemp(name.data());
    if (file < 0) {
        throw std::runtime_error("no temporary file");
    }
    close(file);
    return name;
}

void redirect(const std::filesystem::path& file, int target) {
    const int descriptor = open(file.c_str(), O_WRONLY | O_TRUNC);
    dup2(descriptor, target);
    close(descriptor);
}

[[noreturn]] void become(const Command& command, const std::filesystem::path& out,
                         const std::filesystem::path& err) {
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL); // A test that crashes takes its servers with it.
    redirect(out, STDOUT_FILENO);
    redirect(err, STDERR_FILENO);
    const int nothing = open("/dev/null", O_RDONLY);
    dup2(nothing, STDIN_FILENO);
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

sockaddr_in loopback(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

} // namespace

Process::Process(const Command& command) : outFile_(temporaryFile()), errFile_(temporaryFile()) {
    pid_ = fork();
    if (pid_ < 0) {
        throw std::runtime_error("no process");
    }
    if (pid_ == 0) {
        become(command, outFile_, errFile_);
    }
    setpgid(pid_, pid_);
}

Process::~Process() {
    if (!ended_) {
        kill(-pid_, SIGKILL);
        reap(0);
    }
    std::error_code ignored;
    std::filesystem::remove(outFile_, ignored);
    std::filesystem::remove(errFile_, ignored);
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

Finished Process::wait() {
    if (!ended_) {
        reap(0);
    }
    const int status = WIFSIGNALED(status_) ? 128 + WTERMSIG(status_) : WEXITSTATUS(status_);
    return {status, outSoFar(), errSoFar()};
}

std::string Process::outSoFar() const {
    return contents(outFile_);
}

std::string Process::errSoFar() const {
    return contents(errFile_);
}

void Process::reap(int options) {
    ended_ = waitpid(pid_, &status_, options) == pid_;
}

Finished run(const Command& command) {
    return Process(command).wait();
}

int freePort() {
    const int socketHandle = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = loopback(0);
    socklen_t length = sizeof address;
    if (bind(socketHandle, reinterpret_cast<sockaddr*>(&address), length) != 0) {
        close(socketHandle);
        throw std::runtime_error("no free port");
    }
    getsockname(socketHandle, reinterpret_cast<sockaddr*>(&address), &length);
    close(socketHandle);
    return ntohs(address.sin_port);
}

bool waitForPort(int port) {
    using namespace std::chrono_literals;
    const auto end = std::chrono::steady_clock::now() + 10s;
    while (std::chrono::steady_clock::now() < end) {
        const int socketHandle = socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address = loopback(port);
        const bool listening =
            connect(socketHandle, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
        close(socketHandle);
        if (listening) {
            return true;
        }
        std::this_thread::sleep_for(10ms);
    }
    return false;
}

} // namespace quillmark::test
