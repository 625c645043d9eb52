#pragma once

#include "windows/support/WindowTest.h"

#include <QtTest>
#include <QtWidgets>

namespace quillmark::test {

/// How many milliseconds a test waits for what must come: a busy machine may take its time.
inline constexpr int Patience = 120'000;

/// A control by its name. Its absence ends the test that asks.
template <typename Control = QWidget> Control& child(const QObject& window, const char* name) {
    auto* control = window.findChild<Control*>(name);
    if (control == nullptr) {
        qFatal("no control %s", name);
    }
    return *control;
}

inline void press(const QWidget& window, const char* button) {
    QTest::mouseClick(&child<QAbstractButton>(window, button), Qt::LeftButton);
}

/// Chooses an entry of a selector with the keys.
inline void choose(QComboBox& selector, int entry) {
    QTest::keyClick(&selector, Qt::Key_Home);
    for (int i = 0; i < entry; ++i) {
        QTest::keyClick(&selector, Qt::Key_Down);
    }
}

/// What the first column of a list shows.
inline QStringList rowsOf(const QAbstractItemView& list) {
    QStringList rows;
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        rows += list.model()->index(row, 0).data().toString();
    }
    return rows;
}

/// Keeps a picture of a window that passes too quickly for the tour of the windows, in the folder
/// that QUILLMARK_PICTURES names, for a person to look at.
inline void keepPicture(QWidget& window, const QString& name) {
    const QString folder = qEnvironmentVariable("QUILLMARK_PICTURES");
    if (!folder.isEmpty()) {
        QDir().mkpath(folder);
        window.grab().save(folder + "/" + name + ".png");
    }
}

} // namespace quillmark::test

// Qt's own limit of five seconds is too short for a busy machine.
#undef QTRY_VERIFY
#undef QTRY_COMPARE
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, quillmark::test::Patience)
#define QTRY_COMPARE(actual, expected)                                                             \
    QTRY_COMPARE_WITH_TIMEOUT(actual, expected, quillmark::test::Patience)
