#include "command/CheckCommand.h"
#include "command/start/Options.h"

int main(int argc, char* argv[]) {
    const auto parsed = quillmark::parseOptions(argc, argv);
    return parsed.exitStatus ? *parsed.exitStatus : quillmark::runCheck(parsed.options);
}
