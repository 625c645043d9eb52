#include "command/Commands.h"

int main(int argc, char* argv[]) {
    using namespace quillmark;
    const auto parsed = parseOptions(argc, argv);
    if (parsed.exitStatus) {
        return *parsed.exitStatus;
    }
    return parsed.options.action == Action::Check ? runCheck(parsed.options)
                                                  : runProfileCommand(parsed.options);
}
