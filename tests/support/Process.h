#pragma once

#include "support/TempFolder.h"

#include <filesystem>
#include <map>
#include <string>
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

/// Runs a command to its end.
Finished run(const Command& command);

/// A port of 127.0.0.1 that was free a moment ago; another at each call, and one that a profile
/// can keep in its 16 bits with a sign.
int freePort();

/// Waits until somebody listens on the port of 127.0.0.1; false after ten seconds.
bool waitForPort(int port);

} // namespace quillmark::test
