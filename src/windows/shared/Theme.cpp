#include "windows/shared/Theme.h"

#include "windows/shared/OutlinedStyle.h"

#include <QColor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QFile>
#include <QStyle>
#include <QStyleFactory>
#include <QtGlobal>

#include <initializer_list>
#include <memory>

namespace quillmark {

namespace {

constexpr int PatienceMilliseconds = 100;
constexpr uint PrefersDark = 1;

struct RoleColor {
    QPalette::ColorRole role;
    QRgb color;
};

QPalette paletteOf(std::initializer_list<RoleColor> all,
                   std::initializer_list<RoleColor> disabled) {
    QPalette palette;
    for (const RoleColor& entry : all) {
        palette.setColor(entry.role, QColor(entry.color));
    }
    for (const RoleColor& entry : disabled) {
        palette.setColor(QPalette::Disabled, entry.role, QColor(entry.color));
    }
    return palette;
}

/// If the desktop has no colours for programs, Qt takes those of its Fusion style.
bool desktopGivesColors(QApplication& application) {
    application.setPalette(QPalette());
    const std::unique_ptr<QStyle> fusion(QStyleFactory::create("Fusion"));
    return QApplication::palette() != fusion->standardPalette();
}

/// Asking for a bus that is not there may start one, so it is looked for first.
bool sessionBusIsThere() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
}

/// The answer is a variant in a variant.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

/// Whether the desktop's settings ask programs for dark colours. Asks the settings service over the
/// session bus, if it is already running, and waits a tenth of a second at most: no bus, no service
/// or no answer means no.
bool desktopPrefersDark() {
    if (!sessionBusIsThere()) {
        return false;
    }
    QDBusMessage question = QDBusMessage::createMethodCall(
        "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
        "org.freedesktop.portal.Settings", "Read");
    question << QString("org.freedesktop.appearance") << QString("color-scheme");
    question.setAutoStartService(false);
    const QDBusMessage answer =
        QDBusConnection::sessionBus().call(question, QDBus::Block, PatienceMilliseconds);
    return answer.type() == QDBusMessage::ReplyMessage &&
           unwrapped(answer.arguments().value(0)).toUInt() == PrefersDark;
}

} // namespace

QPalette lightPalette() {
    return paletteOf({{QPalette::Window, 0xf3f4f6},
                      {QPalette::WindowText, 0x1f2933},
                      {QPalette::Base, 0xffffff},
                      {QPalette::AlternateBase, 0xf6f7f9},
                      {QPalette::Text, 0x1f2933},
                      {QPalette::Button, 0xf9fafb},
                      {QPalette::ButtonText, 0x1f2933},
                      {QPalette::BrightText, 0xffffff},
                      {QPalette::Light, 0xffffff},
                      {QPalette::Midlight, 0xe8eaee},
                      {QPalette::Mid, 0xc4cad2},
                      {QPalette::Dark, 0x7f8995},
                      {QPalette::Shadow, 0x69727d},
                      {QPalette::Highlight, 0x0f766e},
                      {QPalette::HighlightedText, 0xffffff},
                      {QPalette::Link, 0x0b6b63},
                      {QPalette::LinkVisited, 0x5b4b8a},
                      {QPalette::ToolTipBase, 0x26313c},
                      {QPalette::ToolTipText, 0xf3f5f7},
                      {QPalette::PlaceholderText, 0x66707b}},
                     {{QPalette::WindowText, 0x838c97},
                      {QPalette::Text, 0x838c97},
                      {QPalette::ButtonText, 0x838c97},
                      {QPalette::Base, 0xf6f7f9},
                      {QPalette::Highlight, 0xc4cad2},
                      {QPalette::HighlightedText, 0x4b5560},
                      {QPalette::Link, 0x838c97},
                      {QPalette::LinkVisited, 0x838c97},
                      {QPalette::PlaceholderText, 0x838c97},
                      {QPalette::Dark, 0xb4bbc4}});
}

QPalette darkPalette() {
    return paletteOf({{QPalette::Window, 0x2c3137},
                      {QPalette::WindowText, 0xe6e8eb},
                      {QPalette::Base, 0x15181b},
                      {QPalette::AlternateBase, 0x1b1f23},
                      {QPalette::Text, 0xe6e8eb},
                      {QPalette::Button, 0x3b424b},
                      {QPalette::ButtonText, 0xe6e8eb},
                      {QPalette::BrightText, 0xffffff},
                      {QPalette::Light, 0x5d6671},
                      {QPalette::Midlight, 0x4a525c},
                      {QPalette::Mid, 0x363c44},
                      {QPalette::Dark, 0x87919e},
                      {QPalette::Shadow, 0x08090a},
                      {QPalette::Highlight, 0x127a70},
                      {QPalette::HighlightedText, 0xffffff},
                      {QPalette::Link, 0x5fd3c6},
                      {QPalette::LinkVisited, 0xc3aef2},
                      {QPalette::ToolTipBase, 0x48515b},
                      {QPalette::ToolTipText, 0xf1f3f5},
                      {QPalette::PlaceholderText, 0x929ba6}},
                     {{QPalette::WindowText, 0xa4aeba},
                      {QPalette::Text, 0xa4aeba},
                      {QPalette::ButtonText, 0xa4aeba},
                      {QPalette::Base, 0x24292e},
                      {QPalette::Highlight, 0x3c434b},
                      {QPalette::HighlightedText, 0xaab2bc},
                      {QPalette::Link, 0xa4aeba},
                      {QPalette::LinkVisited, 0xa4aeba},
                      {QPalette::PlaceholderText, 0xa4aeba},
                      {QPalette::Dark, 0x5d6671}});
}

void applyTheme(QApplication& application, ThemeChoice choice) {
    if (choice == ThemeChoice::System && desktopGivesColors(application)) {
        return;
    }
    const bool dark =
        choice == ThemeChoice::Dark || (choice == ThemeChoice::System && desktopPrefersDark());
    // The application takes ownership of the style.
    QApplication::setStyle(std::make_unique<OutlinedStyle>().release());
    application.setPalette(dark ? darkPalette() : lightPalette());
}

} // namespace quillmark
