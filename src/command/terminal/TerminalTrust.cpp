#include "command/terminal/TerminalTrust.h"

#include "command/terminal/Terminal.h"
#include "ui/HostTrustText.h"

#include <sstream>
#include <string>

namespace quillmark {

bool TerminalTrust::trusts(const HostIdentity& identity) {
    std::istringstream lines(hostTrustText(identity));
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty()) {
            complain(line);
        }
    }
    if (!identity.keyChanged()) {
        complain("If they are the same, check again with: --trust " +
                 identity.printed(identity.sha256));
    }
    return false;
}

} // namespace quillmark
