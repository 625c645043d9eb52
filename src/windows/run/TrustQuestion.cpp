#include "windows/run/TrustQuestion.h"

#include "ui/HostTrustText.h"
#include "windows/shared/MessageBoxes.h"
#include "windows/shared/Text.h"

namespace quillmark {

bool asksToTrust(QWidget* owner, const HostIdentity& identity) {
    const QString text = shownBriefly(hostTrustText(identity));
    if (identity.keyChanged()) {
        tellError(owner, text);
        return false;
    }
    return ask(owner, text + "\nTrust exactly this one for this profile from now on?",
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

} // namespace quillmark
