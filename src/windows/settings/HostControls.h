#pragma once

#include "ui/profile/ProfileFields.h"

namespace Ui {
class frmProfile;
}

namespace quillmark {

/// The controls of the profile dialog that tell how the host is reached, and what the choice of an
/// encryption changes among them.
class HostControls {
public:
    explicit HostControls(Ui::frmProfile& ui) : ui_(ui) {}

    /// To be called once, when the controls are there.
    void setUp();

    /// Puts the fields into the controls that are no text boxes.
    void display(const ProfileFields& fields);
    /// Reads them back.
    void take(ProfileFields& fields) const;
    /// Lets captions, notes and what can be entered follow the fields.
    void follow(const ProfileFields& fields);
    /// Proposes the usual port of the encryption that was just chosen, unless somebody entered
    /// another one than that of the encryption before.
    void proposePort();

private:
    Encryption chosen() const;

    Ui::frmProfile& ui_;
    Encryption proposedFor_ = Encryption::None;
};

} // namespace quillmark
