#include "ui/HostTrustText.h"

namespace quillmark {

namespace {

std::string certificateText(const HostIdentity& identity) {
    std::string names;
    for (const std::string& name : identity.names) {
        names += (names.empty() ? "" : ", ") + name;
    }
    return "The certificate of " + identity.host + " is refused: " + identity.reason + ".\n" +
           "  made out for  " + (names.empty() ? "nobody" : names) + "\n" + "  valid from    " +
           identity.validFrom + "\n" + "  valid until   " + identity.validUntil + "\n";
}

std::string keyText(const HostIdentity& identity) {
    return identity.keyChanged()
               ? "The key of " + identity.host + " has changed. Somebody may be listening in.\n"
               : "The key of " + identity.host + " is not known: " + identity.reason + ".\n";
}

} // namespace

std::string hostTrustText(const HostIdentity& identity) {
    std::string text =
        identity.kind == HostIdentity::Kind::Key ? keyText(identity) : certificateText(identity);
    text += "  SHA-256       " + identity.printed(identity.sha256) + "\n";
    if (identity.knownSha256) {
        text += "  known so far  " + identity.printed(*identity.knownSha256) + "\n";
    }
    return text;
}

} // namespace quillmark
