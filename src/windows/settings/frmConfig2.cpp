#include "windows/settings/frmConfig2.h"

#include "settings/ConfigurationFile.h"
#include "ui_frmConfig2.h"
#include "windows/shared/MessageBoxes.h"

namespace quillmark {

frmConfig2::frmConfig2(const WindowContext& context, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmConfig2>()), context_(context) {
    ui_->setupUi(this);
    bindOptions();
    connect(ui_->cmdOk, &QPushButton::clicked, this, &frmConfig2::save);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->mnuHelp, &QAction::triggered, this, &frmConfig2::helpRequested);
    showOptions();
}

frmConfig2::~frmConfig2() = default;

void frmConfig2::bindOptions() {
    masks_.emplace(ui_->txtFileMasks);
    flags_ = {{ui_->chkTraceWindow, &Configuration::TRACE_WINDOW},
              {ui_->chkVersioneer, &Configuration::CHECK_VERSION},
              {ui_->chkSaveDirectory, &Configuration::SAVE_DIRECTORY},
              {ui_->chkSaveFile, &Configuration::SAVE_FILE},
              {ui_->chkSaveMessages, &Configuration::SAVE_MESSAGES},
              {ui_->chkSaveReferences, &Configuration::SAVE_REFERENCES},
              {ui_->chkSaveUnused, &Configuration::SAVE_UNUSED},
              {ui_->chkSaveInvalid, &Configuration::SAVE_INVALID},
              {ui_->chkSaveIgnored, &Configuration::SAVE_IGNORED},
              {ui_->chkSaveDuplicate, &Configuration::SAVE_DUPLICATE},
              {ui_->chkSound, &Configuration::SOUND},
              {ui_->chkCase, &Configuration::IGNORECASE},
              {ui_->chkLogFile, &Configuration::LOG_FILE},
              {ui_->chkDebug, &Configuration::DEBUG}};
}

void frmConfig2::showOptions() {
    const Configuration& configuration = context_.workspace.settings.configuration;
    for (const Flag& flag : flags_) {
        flag.control->setChecked(configuration.*flag.field == 1);
    }
    ui_->chkSound->setChecked(configuration.SOUND != 0); // Any value but 0 turns sounds on.
    masks_->show(configuration.fileMasksText);
}

void frmConfig2::storeOptions() {
    Configuration& configuration = context_.workspace.settings.configuration;
    configuration.fileMasksText = masks_->bytes();
    for (const Flag& flag : flags_) {
        configuration.*flag.field = flag.control->isChecked() ? 1 : 0;
    }
}

void frmConfig2::save() {
    guarded(this, [this] {
        storeOptions();
        SaveConfigurations(context_.workspace.settings, context_.files);
        accept();
    });
}

} // namespace quillmark
