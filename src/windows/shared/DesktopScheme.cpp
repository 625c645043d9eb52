#include "windows/shared/DesktopScheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QFile>
#include <QtGlobal>

namespace quillmark {

namespace {

constexpr int PatienceMilliseconds = 100;
constexpr uint PrefersDark = 1;

/// Looked for first: to ask for a bus that is not there may start one.
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

} // namespace

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

} // namespace quillmark
