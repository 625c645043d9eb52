#pragma once

#include "ui/profile/ProfileFields.h"
#include "windows/outside/WindowContext.h"
#include "windows/settings/BytesEdit.h"
#include "windows/settings/HostControls.h"

#include <QCheckBox>
#include <QDialog>
#include <QMessageBox>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Ui {
class frmProfile;
}

namespace quillmark {

/// The dialog in which a profile is picked, edited and saved, and from which a check run is
/// started. It edits the current profile of the workspace in place.
///
/// Start is the default button, so that a name and Enter start a check. Nothing is lost by that:
/// the dialog first asks about unsaved changes. If they are not saved, the check uses the values
/// last loaded or saved; without a name to save them under, it uses what the dialog shows. A save
/// that fails counts as Cancel.
///
/// Without a start path there is nothing to check: Start is off, and the note below the path says
/// what is missing. If no check can begin with the start file, Start says why and leaves the dialog
/// open.
///
/// Fields that were filled in before the profile had a name stay while the name is typed: a name
/// without a file shows these fields, or the current profile if none were filled in.
class frmProfile : public QDialog {
    Q_OBJECT
public:
    /// Shows the profile `currentProfileName`; Start stores the name of the profile to check there.
    /// `requireStartFile` throws a Failure if no check can begin with the current profile.
    frmProfile(const WindowContext& context, std::string& currentProfileName,
               std::function<void()> requireStartFile, QWidget* parent);
    ~frmProfile() override;

    /// Whether the dialog was closed by Start.
    bool started() const { return started_; }
    /// Shows a new profile with this start path (in "\" form), as for a page that was dropped.
    void proposeStartPath(std::string_view startPath);

signals:
    void helpRequested();

private:
    struct Text {
        BytesEdit control;
        std::string ProfileFields::*field;
    };
    /// A check box that only the classic rules know.
    struct ClassicFlag {
        QCheckBox* control;
        QString toolTip; ///< While it is on.
    };
    struct Flag {
        QCheckBox* control;
        bool ProfileFields::*field;
    };

    void bindFields();
    void connectControls();
    void openCurrentProfile();

    /// The web rules if the classic rules could hardly read the start page; else those of the
    /// fields.
    Rules rulesFor(const ProfileFields& fields) const;
    ProfileFields fields() const;
    void display(const ProfileFields& fields);
    void fieldsChanged();
    void showRules(Rules rules);
    void nameChanged();
    /// What a save would turn the fields into, if that is not what they show: one thing at a time.
    QString note(const ProfileFields& fields) const;
    void rememberDraft();

    QMessageBox::StandardButton CheckForChanges();
    void LoadProfile();
    void showNewProfile(const ProfileFields& fields);
    /// Whether the profile is on the disk now.
    bool SaveProfile();
    void ListProfiles(std::string_view shownName);
    void chooseName();
    void startNew();
    void deleteProfile();
    void start();
    bool canBegin();
    void browse();
    void chooseKeyFile();
    void forgetTrusted();
    void setStartPath(const std::string& startPath);
    void tellFailure(const std::string& description);

    std::unique_ptr<Ui::frmProfile> ui_;
    const WindowContext& context_;
    std::string& currentProfileName_;
    std::function<void()> requireStartFile_;
    HostControls host_;
    std::vector<Text> texts_;
    std::vector<Flag> flags_;
    std::vector<ClassicFlag> classicFlags_;
    std::optional<ProfileFields> draft_; ///< Fields that belong to no file yet.
    ProfileFields displayed_;            ///< As last shown, including those without a control.
    bool displaying_ = false;            ///< The dialog changes the fields, not the user.
    bool started_ = false;
};

} // namespace quillmark
