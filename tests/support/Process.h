#pragma once

#include "support/TempFolder.h"

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace quillmark::test {

/// How a child process is started: its words, its folder, and variables beside the test's own.
struct Command {
    std::vector<std::string> words;
    std::filesystem::path folder = {};
    std::map<std::string, std::string> environment = {};
};

/// What a finished process left. `status` is its exit status, or 128 plus the signal that ended it.
struct Finished {
    int status = 0;
    std::string out;
    std::string err;
};

/// A child process in the background; its destructor ends it by its own process id.
class Process {
public:
    explicit Process(const Command& command);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    void signal(int number) const;
    bool running();
    /// Waits for its end and returns what it printed.
    Finished wait();
    /// Waits until somebody listens on a port of 127.0.0.1, or of ::1; false if the process ends
    /// before, and after two minutes.
    bool waitForPort(int port, const std::string& address);
    /// What it has printed to standard output and standard error by now.
    std::string outSoFar() const { return output_.read("out"); }
    std::string errSoFar() const { return output_.read("err"); }

private:
    void reap(int options);

    pid_t pid_ = -1;
    bool ended_ = false;
    int status_ = 0;
    TempFolder output_;
};

/// A command on a terminal of its own, as a person at the keyboard has it.
class Terminal {
public:
    explicit Terminal(const Command& command, unsigned short columns = 80);
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    /// Waits until the text has been shown; false if the command ends without it, and after some
    /// minutes.
    bool waitFor(std::string_view text);
    bool type(std::string_view keys) const;
    /// Whether the terminal shows what is typed.
    bool echoes() const;
    pid_t pid() const { return pid_; }
    /// Waits for the command's end; its status is that of Finished.
    int wait();
    const std::string& shown() const { return shown_; }

private:
    bool readMore();

    pid_t pid_ = -1;
    int keyboard_ = -1;
    std::string shown_;
};

/// Runs a command to its end.
Finished run(const Command& command);

/// A port of 127.0.0.1 that was free a moment ago; another at each call, and one that a profile
/// can keep in its 16 bits with a sign.
int freePort();

} // namespace quillmark::test
