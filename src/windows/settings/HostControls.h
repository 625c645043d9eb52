#pragma once

#include "ui/profile/ProfileFields.h"

namespace Ui {
class frmProfile;
}

namespace quillmark {

/// The controls of the profile dialog that say how to reach the host, and what the choice of an
/// encryption changes in them.
class HostControls {
public:
    explicit HostControls(Ui::frmProfile& ui) : ui_(ui) {}

    /// To be called once, when the controls have been made.
    void setUp();

    /// Puts the fields into the controls that are no text boxes.
    void display(const ProfileFields& fields);
    /// Reads them back.
    void take(ProfileFields& fields) const;
    /// Makes captions, tool tips and the controls on show fit the fields.
    void follow(const ProfileFields& fields);
    /// Enters the usual port of the encryption that was just chosen, unless the user had entered
    /// another port than the usual one.
    void proposePort();

private:
    Encryption chosen() const;

    Ui::frmProfile& ui_;
    Encryption proposedFor_ = Encryption::None;
};

} // namespace quillmark
