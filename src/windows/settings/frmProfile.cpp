#include "windows/settings/frmProfile.h"

#include "base/Failure.h"
#include "base/Paths.h"
#include "settings/ProfileFile.h"
#include "ui/profile/StartPage.h"
#include "ui_frmProfile.h"
#include "windows/shared/MessageBoxes.h"
#include "windows/shared/Text.h"

#include <utility>

namespace quillmark {

frmProfile::frmProfile(const WindowContext& context, std::string& currentProfileName,
                       std::function<void()> requireStartFile, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmProfile>()), context_(context),
      currentProfileName_(currentProfileName), requireStartFile_(std::move(requireStartFile)),
      host_(*ui_) {
    ui_->setupUi(this);
    host_.setUp();
    // Notes come and go while the user types: they keep their room, so that nothing jumps.
    QSizePolicy keepsRoom = ui_->lblEdited->sizePolicy();
    keepsRoom.setRetainSizeWhenHidden(true);
    ui_->lblEdited->setSizePolicy(keepsRoom);
    ui_->lblNote->setMinimumHeight(2 * ui_->lblNote->fontMetrics().lineSpacing());
    bindFields();
    connectControls();
    openCurrentProfile();
}

frmProfile::~frmProfile() = default;

void frmProfile::bindFields() {
    texts_ = {{BytesEdit(ui_->HostName), &ProfileFields::hostName},
              {BytesEdit(ui_->UserName), &ProfileFields::userName},
              {BytesEdit(ui_->StartPath), &ProfileFields::startPath},
              {BytesEdit(ui_->Account), &ProfileFields::account},
              {BytesEdit(ui_->Password), &ProfileFields::password},
              {BytesEdit(ui_->HostAlias), &ProfileFields::hostAlias},
              {BytesEdit(ui_->SiteUrl), &ProfileFields::siteUrl},
              {BytesEdit(ui_->SiteRoot), &ProfileFields::siteRoot},
              {BytesEdit(ui_->KeyFile), &ProfileFields::keyFile},
              {BytesEdit(ui_->txtDepth), &ProfileFields::depth},
              {BytesEdit(ui_->txtStartColumn), &ProfileFields::startColumn},
              {BytesEdit(ui_->txtEndColumn), &ProfileFields::endColumn},
              {BytesEdit(ui_->txtHostPort), &ProfileFields::hostPort}};
    flags_ = {{ui_->chkGetStats, &ProfileFields::getStats},
              {ui_->chkCheckDupes, &ProfileFields::checkDupes},
              {ui_->chkIgnoreTopics, &ProfileFields::ignoreTopics},
              {ui_->chkIgnore_CGI, &ProfileFields::ignoreCgi},
              {ui_->chkCheck_URL, &ProfileFields::checkUrl},
              {ui_->chkIgnoreValue, &ProfileFields::ignoreValue},
              {ui_->chkDisablePASV, &ProfileFields::disablePasv},
              {ui_->chkUpperLevels, &ProfileFields::upperLevels},
              {ui_->chkRootLevel, &ProfileFields::rootLevel}};
    for (QCheckBox* const box :
         {ui_->chkUpperLevels, ui_->chkRootLevel, ui_->chkIgnoreTopics, ui_->chkIgnoreValue}) {
        classicFlags_.push_back({box, box->toolTip()});
    }
}

void frmProfile::connectControls() {
    connect(ui_->cmboProfiles, &ProfileList::entered, this, &frmProfile::rememberDraft);
    connect(ui_->cmboProfiles, &ProfileList::nameTyped, this, &frmProfile::LoadProfile);
    connect(ui_->cmboProfiles, &ProfileList::nameChosen, this, &frmProfile::chooseName);
    connect(ui_->cmboProfiles, &QComboBox::editTextChanged, this, &frmProfile::nameChanged);
    for (const Text& text : texts_) {
        connect(text.control.edit(), &QLineEdit::textChanged, this, &frmProfile::fieldsChanged);
    }
    for (const Flag& flag : flags_) {
        connect(flag.control, &QCheckBox::toggled, this, &frmProfile::fieldsChanged);
    }
    connect(ui_->cmbRules, &QComboBox::currentIndexChanged, this, &frmProfile::fieldsChanged);
    connect(ui_->cmbEncryption, &QComboBox::currentIndexChanged, this, [this] {
        if (!displaying_) {
            host_.proposePort();
            fieldsChanged();
        }
    });
    connect(ui_->spnConnections, &QSpinBox::valueChanged, this, &frmProfile::fieldsChanged);
    connect(ui_->cmdForget, &QPushButton::clicked, this, &frmProfile::forgetTrusted);
    connect(ui_->cmdKeyFile, &QPushButton::clicked, this, &frmProfile::chooseKeyFile);
    connect(ui_->startPathNote, &StartPathNote::localPageTaken, this, &frmProfile::setStartPath);
    connect(ui_->cmdStart, &QPushButton::clicked, this, &frmProfile::start);
    connect(ui_->cmdNew, &QPushButton::clicked, this, &frmProfile::startNew);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &frmProfile::SaveProfile);
    connect(ui_->cmdDelete, &QPushButton::clicked, this, &frmProfile::deleteProfile);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->cmdBrowse, &QPushButton::clicked, this, &frmProfile::browse);
    connect(ui_->mnuHelp, &QAction::triggered, this, &frmProfile::helpRequested);
}

void frmProfile::openCurrentProfile() {
    guarded(this, [this] { ListProfiles(currentProfileName_); });
    LoadProfile();
    rememberDraft();
}

void frmProfile::proposeStartPath(std::string_view startPath) {
    ProfileFields proposed = ClearFields();
    proposed.startPath = startPath;
    proposed.rules = rulesFor(proposed);
    showNewProfile(proposed);
}

Rules frmProfile::rulesFor(const ProfileFields& fields) const {
    return hasBareLineFeeds(context_.disk, fields.startPath) ? Rules::Web : fields.rules;
}

ProfileFields frmProfile::fields() const {
    ProfileFields fields = displayed_;
    for (const Text& text : texts_) {
        fields.*text.field = text.control.bytes();
    }
    for (const Flag& flag : flags_) {
        fields.*flag.field = flag.control->isChecked();
    }
    // The selector lists the rules in the order of their type.
    fields.rules = static_cast<Rules>(ui_->cmbRules->currentIndex());
    host_.take(fields);
    return fields;
}

void frmProfile::display(const ProfileFields& fields) {
    displaying_ = true;
    displayed_ = fields;
    for (Text& text : texts_) {
        text.control.show(fields.*text.field);
    }
    for (const Flag& flag : flags_) {
        flag.control->setChecked(fields.*flag.field);
    }
    ui_->cmbRules->setCurrentIndex(static_cast<int>(fields.rules));
    host_.display(fields);
    displaying_ = false;
    fieldsChanged();
}

void frmProfile::fieldsChanged() {
    if (displaying_) {
        return;
    }
    const ProfileFields shownFields = fields();
    const bool edited =
        hasUnsavedChanges(ui_->cmboProfiles->name(), shownFields, context_.workspace.settings);
    ui_->lblEdited->setVisible(edited);
    ui_->startPathNote->tellOf(shownFields);
    showRules(shownFields.rules);
    host_.follow(shownFields);
    ui_->lblNote->setText(note(shownFields));
    ui_->cmdStart->setEnabled(!shownFields.startPath.empty());
}

void frmProfile::showRules(Rules rules) {
    const bool web = rules == Rules::Web;
    ui_->lblRules->setText(web ? "Sees what a browser sees."
                               : "Takes every line of a page literally.");
    ui_->siteForm->setRowVisible(ui_->siteRow, web);
    for (const ClassicFlag& flag : classicFlags_) {
        flag.control->setEnabled(!web);
        flag.control->setToolTip(web ? "Only the classic rules know this setting" : flag.toolTip);
    }
}

/// Without a name there is nothing to save under, and only a listed profile can be deleted.
void frmProfile::nameChanged() {
    ui_->cmdSave->setEnabled(!ui_->cmboProfiles->currentText().isEmpty());
    ui_->cmdDelete->setEnabled(ui_->cmboProfiles->isListed());
    fieldsChanged();
}

QString frmProfile::note(const ProfileFields& fields) const {
    for (const auto& [box, caption] :
         {std::pair(ui_->txtDepth, "Max Directory Depth"), std::pair(ui_->txtHostPort, "Host Port"),
          std::pair(ui_->txtStartColumn, "File Size Start Column"),
          std::pair(ui_->txtEndColumn, "File Size End Column")}) {
        if (!box->accessibleDescription().isEmpty()) {
            return caption + (": " + box->accessibleDescription()) + ".";
        }
    }
    return holdsComma(fields) ? "A text holds a comma: when the profile is read again, it ends "
                                "there, and the rest moves into the next field."
                              : QString();
}

/// Fields that no file holds come back after the user has looked at other profiles by their names.
void frmProfile::rememberDraft() {
    draft_.reset();
    if (!ui_->cmboProfiles->isListed() && fields() != ClearFields()) {
        draft_ = fields();
    }
}

/// Yes: nothing is left to save. No: the changes are to be dropped. Cancel, or a save that failed:
/// whatever was to come does not.
QMessageBox::StandardButton frmProfile::CheckForChanges() {
    if (!hasUnsavedChanges(ui_->cmboProfiles->name(), fields(), context_.workspace.settings)) {
        return QMessageBox::Yes;
    }
    const auto answer = ask(this, "Save changes to " + ui_->cmboProfiles->currentText() + "?",
                            QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                            QMessageBox::Cancel, QMessageBox::Yes);
    return answer == QMessageBox::Yes && !SaveProfile() ? QMessageBox::Cancel : answer;
}

void frmProfile::LoadProfile() {
    Settings& settings = context_.workspace.settings;
    const bool loaded = quillmark::LoadProfile(settings, context_.files, ui_->cmboProfiles->name());
    const bool ofNoFile = !loaded && !ui_->cmboProfiles->isListed();
    display(ofNoFile && draft_ ? *draft_ : ShowFields(settings));
}

void frmProfile::showNewProfile(const ProfileFields& fields) {
    ui_->cmboProfiles->setName({});
    nameChanged();
    display(fields);
    rememberDraft();
    ui_->cmboProfiles->setFocus();
}

bool frmProfile::SaveProfile() {
    const std::string name = ui_->cmboProfiles->name();
    try {
        Settings edited = context_.workspace.settings;
        StoreFields(fields(), edited); // Into a copy: a save that fails changes no settings.
        quillmark::SaveProfile(edited, context_.files, name);
        StoreFields(fields(), context_.workspace.settings);
        ListProfiles(name);
        display(ShowFields(context_.workspace.settings));
        rememberDraft();
        return true;
    } catch (const Failure& failure) {
        tellFailure(failure.description());
        return false;
    }
}

void frmProfile::ListProfiles(std::string_view shownName) {
    ui_->cmboProfiles->setNames(quillmark::ListProfiles(context_.files));
    ui_->cmboProfiles->setName(shownName);
    nameChanged();
}

void frmProfile::chooseName() {
    draft_.reset();
    LoadProfile();
}

void frmProfile::startNew() {
    if (CheckForChanges() != QMessageBox::Cancel) {
        showNewProfile(ClearFields());
    }
}

void frmProfile::deleteProfile() {
    const auto answer = ask(this, "Delete the profile " + ui_->cmboProfiles->currentText() + "?",
                            QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes) {
        return;
    }
    try {
        const std::string name = ui_->cmboProfiles->name();
        context_.files.remove(profileFileName(name));
        if (name == currentProfileName_) {
            currentProfileName_.clear(); // The next dialog must not look for it.
        }
        ListProfiles({});
        showNewProfile(ClearFields());
    } catch (const Failure& failure) {
        tellFailure(failure.description());
        guarded(this, [this] { ListProfiles(ui_->cmboProfiles->name()); });
    }
}

void frmProfile::start() {
    guarded(this, [this] {
        if (CheckForChanges() == QMessageBox::Cancel) {
            return;
        }
        if (ui_->cmboProfiles->name().empty()) {
            StoreFields(fields(), context_.workspace.settings);
        }
        if (!canBegin()) {
            return;
        }
        currentProfileName_ = ui_->cmboProfiles->name();
        started_ = true;
        accept();
    });
}

/// Says why not here, where the user can mend it, and not after the dialog has gone.
bool frmProfile::canBegin() {
    try {
        requireStartFile_();
        return true;
    } catch (const Failure& failure) {
        tellError(this, shown(failure.description()));
        ui_->StartPath->setFocus();
        return false;
    }
}

void frmProfile::browse() {
    if (const auto page = context_.dialogs.openPage(this)) {
        setStartPath(ToBackSlashes(std::filesystem::absolute(*page).string()));
    }
}

void frmProfile::chooseKeyFile() {
    if (const auto file = context_.dialogs.openKeyFile(this)) {
        ProfileFields chosen = fields();
        chosen.keyFile = file->string();
        display(chosen);
    }
}

/// Takes effect with the next save, as any other change of the fields does.
void frmProfile::forgetTrusted() {
    ProfileFields chosen = fields();
    chosen.trusted.clear();
    display(chosen);
}

void frmProfile::setStartPath(const std::string& startPath) {
    ProfileFields chosen = fields();
    chosen.startPath = startPath;
    if (!ui_->cmboProfiles->isListed()) { // A saved profile keeps the rules it was saved with.
        chosen.rules = rulesFor(chosen);
    }
    display(chosen);
    ui_->StartPath->setFocus();
}

void frmProfile::tellFailure(const std::string& description) {
    const std::string folder = ToBackSlashes(context_.programFolder.string());
    const std::string file =
        WithTrailingBackslash(folder) + profileFileName(ui_->cmboProfiles->name());
    tellError(this, "Error: " + shown(description) + " (" + shown(file) + ")");
}

} // namespace quillmark
