#include "command/terminal/TerminalTrust.h"

#include "command/terminal/Terminal.h"
#include "ui/HostTrustText.h"

#include <sstream>
#include <string>

namespace quillmark {

bool TerminalTrust::trusts(const HostIdentity& identity) {
    std::istringstream lines(hostTrustText(identity));
    for (std::string line; std::getline(lines, line);) {
        complain(line);
    }
    const std::string sha256 = identity.printed(identity.sha256);
    complain(identity.keyChanged()
                 ? "ask the host's owner before you go on; \"ssh-keygen -R\" forgets the old key"
                 : "if the host's owner confirms that SHA-256, check again with --trust " + sha256);
    return false;
}

} // namespace quillmark
