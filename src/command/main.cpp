#include "command/Commands.h"

#include <csignal>
#include <cstdio>
#include <exception>

// What escapes the commands is a machine out of memory: there may be no room for more than this.
int main(int argc, char* argv[]) try {
    using namespace quillmark;
    // A reader that went away is an error of writing, with a message and a status of its own.
    std::signal(SIGPIPE, SIG_IGN);
    const auto parsed = parseOptions(argc, argv);
    if (parsed.exitStatus) {
        return *parsed.exitStatus;
    }
    return parsed.options.action == Action::Check ? runCheck(parsed.options)
                                                  : runProfileCommand(parsed.options);
} catch (const std::exception& error) {
    std::fputs(error.what(), stderr);
    std::fputs("\n", stderr);
    return quillmark::NotFinished;
}
