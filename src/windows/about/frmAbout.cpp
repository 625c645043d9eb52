#include "windows/about/frmAbout.h"

#include "base/Version.h"
#include "ui_frmAbout.h"
#include "windows/shared/Text.h"
#include "windows/shared/ThemedIcon.h"

namespace quillmark {

namespace {

constexpr int EmblemSize = 72;

} // namespace

frmAbout::frmAbout(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::frmAbout>()) {
    ui_->setupUi(this);
    ui_->imgEmblem->setPixmap(
        applicationIcon().pixmap(QSize(EmblemSize, EmblemSize), devicePixelRatio()));
    ui_->lblTitle->setText(shown(ApplicationTitle));
    ui_->lblVersion->setText("Version " + shown(ApplicationVersion));
    connect(ui_->cmdOk, &QPushButton::clicked, this, &frmAbout::close);
}

frmAbout::~frmAbout() = default;

} // namespace quillmark
