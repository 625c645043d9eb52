#include "windows/about/frmSplash.h"

#include "base/Version.h"
#include "ui_frmSplash.h"
#include "windows/shared/Text.h"
#include "windows/shared/ThemedIcon.h"

#include <QLinearGradient>
#include <QPainter>

namespace quillmark {

namespace {

constexpr int SplashEmblem = 112;
constexpr QRgb TopColor = 0x164e52;
constexpr QRgb BottomColor = 0x0c2f35;
constexpr QRgb LineColor = 0x2dd4bf;
constexpr int LineHeight = 4;

} // namespace

frmSplash::frmSplash(QWidget* parent)
    : QWidget(parent, Qt::SplashScreen), ui_(std::make_unique<Ui::frmSplash>()) {
    ui_->setupUi(this);
    ui_->imgEmblem->setPixmap(
        applicationIcon().pixmap(QSize(SplashEmblem, SplashEmblem), devicePixelRatio()));
    ui_->lblTitle->setText(shown(ApplicationTitle));
    ui_->lblVersion->setText("Version " + shown(ApplicationVersion));
}

frmSplash::~frmSplash() = default;

void frmSplash::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QLinearGradient evening(0, 0, width(), height());
    evening.setColorAt(0, QColor(TopColor));
    evening.setColorAt(1, QColor(BottomColor));
    painter.fillRect(rect(), evening);
    // The emblem once more, faint, and too large for the window to show its edges.
    painter.setOpacity(0.07);
    const int large = width() + width() / 2;
    applicationIcon().paint(&painter, QRect(-width() / 8, (height() - large) / 2, large, large));
    painter.setOpacity(1);
    painter.fillRect(0, height() - LineHeight, width(), LineHeight, QColor(LineColor));
}

} // namespace quillmark
