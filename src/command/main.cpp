#include "command/Commands.h"

#include <csignal>
#include <cstdio>
#include <exception>

// Only a machine out of memory gets here, and there may be no room for more than this.
int main(int argc, char* argv[]) try {
    using namespace quillmark;
    // If the reader of our output goes away, writing fails, with a message and an exit status.
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
