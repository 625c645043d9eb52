#include "windows/settings/HostControls.h"

#include "ui_frmProfile.h"
#include "windows/shared/Text.h"

namespace quillmark {

void HostControls::setUp() {
    ui_.spnConnections->setMaximum(MostConnections);
}

Encryption HostControls::chosen() const {
    // The selector lists them in the order of their type.
    return static_cast<Encryption>(ui_.cmbEncryption->currentIndex());
}

void HostControls::display(const ProfileFields& fields) {
    proposedFor_ = fields.encryption;
    ui_.cmbEncryption->setCurrentIndex(static_cast<int>(fields.encryption));
    ui_.spnConnections->setValue(fields.connections);
}

void HostControls::take(ProfileFields& fields) const {
    fields.encryption = chosen();
    fields.connections = static_cast<std::int16_t>(ui_.spnConnections->value());
}

void HostControls::follow(const ProfileFields& fields) {
    const bool sftp = fields.encryption == Encryption::Sftp;
    const bool byKeyFile = sftp && !fields.keyFile.empty();
    const QString port = QString::number(usualPort(fields.encryption));
    ui_.lblHostPort->setText("Host Po&rt (" + port + "):");
    ui_.cmdForget->setVisible(fields.encryption != Encryption::None && !fields.trusted.empty());
    ui_.cmdForget->setToolTip("This profile trusts the host that shows\n" + shown(fields.trusted) +
                              "\nForget it, and be asked again");
    ui_.lblPassword->setText(byKeyFile ? "Key Pass&word" : "Pass&word");
    ui_.hostForm->setRowVisible(ui_.Account, !sftp);
    ui_.hostForm->setRowVisible(ui_.keyRow, sftp);
    ui_.chkDisablePASV->setEnabled(!sftp);
}

void HostControls::proposePort() {
    if (ui_.txtHostPort->text() == QString::number(usualPort(proposedFor_))) {
        ui_.txtHostPort->setText(QString::number(usualPort(chosen())));
    }
    proposedFor_ = chosen();
}

} // namespace quillmark
