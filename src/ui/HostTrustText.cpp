#include "ui/HostTrustText.h"

#include "base/Printable.h"

#include <algorithm>

namespace quillmark {

namespace {

constexpr std::size_t MostNames = 10;
constexpr std::size_t LongestName = 255;

/// The names come from a host that nobody trusts yet: they must neither look like lines of ours nor
/// push those out of sight.
std::string joined(const std::vector<std::string>& names) {
    std::string text = names.empty() ? "nobody" : "";
    for (std::size_t i = 0; i < std::min(names.size(), MostNames); ++i) {
        text += (i == 0 ? "" : ", ") + printable(names[i], LongestName);
    }
    if (names.size() > MostNames) {
        text += " and " + std::to_string(names.size() - MostNames) + " more";
    }
    return text;
}

std::string certificateText(const HostIdentity& identity) {
    return "The certificate of " + identity.host + " is refused: " + identity.reason +
           ".\n\nMade out for: " + joined(identity.names) + "\nValid: " + identity.validFrom +
           " to " + identity.validUntil + "\n";
}

std::string keyText(const HostIdentity& identity) {
    return "The key of " + identity.host +
           (identity.keyChanged() ? " has changed.\n" : " is not known.\n");
}

/// Hosts often get a new certificate, but seldom a new key.
std::string advice(const HostIdentity& identity) {
    return identity.keyChanged()
               ? "Somebody else may answer in the host's place: no password was sent. Ask those "
                 "who run the host. If the new key is theirs, remove the old one from known_hosts, "
                 "or "
                 "forget it in the profile.\n"
               : "Compare the SHA-256 with the one that those who run the host tell you. Another "
                 "one means that somebody else may answer in its place.\n";
}

} // namespace

std::string hostTrustText(const HostIdentity& identity) {
    const bool key = identity.kind == HostIdentity::Kind::Key;
    std::string text = key ? keyText(identity) : certificateText(identity);
    text += "\nIt shows the SHA-256\n" + identity.printed(identity.sha256) + "\n";
    if (identity.knownSha256) {
        text += "It was known by\n" + identity.printed(*identity.knownSha256) + "\n";
    }
    return text + "\n" + advice(identity);
}

} // namespace quillmark
