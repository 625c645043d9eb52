#include "windows/run/TrustQuestion.h"

#include "ui/HostTrustText.h"
#include "windows/shared/MessageBoxes.h"
#include "windows/shared/Text.h"

namespace quillmark {

namespace {

/// The text with the fingerprint of a certificate broken into two lines: one line would not fit a
/// small screen.
QString wrapped(const HostIdentity& identity, QString text) {
    constexpr qsizetype HalfOfFingerprint = 48;
    for (const auto& hash : {std::optional(identity.sha256), identity.knownSha256}) {
        if (hash && identity.kind == HostIdentity::Kind::Certificate) {
            const QString line = shown(identity.printed(*hash));
            text.replace(line, QString(line).insert(HalfOfFingerprint, '\n'));
        }
    }
    return text;
}

} // namespace

bool asksToTrust(QWidget* owner, const HostIdentity& identity) {
    const QString text = wrapped(identity, shownBriefly(hostTrustText(identity)));
    if (identity.keyChanged()) {
        tellError(owner, text);
        return false;
    }
    return ask(owner, text + "\nTrust exactly this one for this profile from now on?",
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

} // namespace quillmark
