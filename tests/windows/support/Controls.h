#pragma once

#include "windows/support/WindowTest.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>
#include <utility>

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

/// Acts on the next modal window for which `fits` holds, once, as soon as it is on show.
class WhenModal : public QObject {
public:
    WhenModal(std::function<bool(QWidget&)> fits, std::function<void(QWidget&)> act)
        : fits_(std::move(fits)), act_(std::move(act)) {
        connect(&timer_, &QTimer::timeout, this, &WhenModal::look);
        timer_.start(5);
    }

    bool acted() const { return acted_; }

private:
    void look() {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr || !modal->isVisible() || !fits_(*modal)) {
            return;
        }
        timer_.stop();
        acted_ = true;
        act_(*modal);
    }

    std::function<bool(QWidget&)> fits_;
    std::function<void(QWidget&)> act_;
    QTimer timer_;
    bool acted_ = false;
};

/// Waits for the dialog with that object name and hands it over.
inline std::function<bool(QWidget&)> named(const QString& name) {
    return [name](QWidget& window) { return window.objectName() == name; };
}

/// Presses the button of the next message box and keeps what the box said.
class Answer : public WhenModal {
public:
    explicit Answer(
        QMessageBox::StandardButton button,
        const std::function<void(QMessageBox&)>& look = [](QMessageBox&) {})
        : WhenModal([](QWidget& w) { return qobject_cast<QMessageBox*>(&w) != nullptr; },
                    [this, button, look](QWidget& window) {
                        auto& box = dynamic_cast<QMessageBox&>(window);
                        text_ = box.text();
                        look(box);
                        QTest::mouseClick(box.button(button), Qt::LeftButton);
                    }) {}

    const QString& text() const { return text_; }

private:
    QString text_;
};

/// Answers a question with Yes, and keeps what the error says that follows.
struct YesAndError {
    Answer yes{QMessageBox::Yes};
    QString error;
    WhenModal ok{[this](QWidget&) { return yes.acted(); },
                 [this](QWidget& box) {
                     error = dynamic_cast<QMessageBox&>(box).text();
                     box.close();
                 }};
};

} // namespace quillmark::test

// Qt's own limit of five seconds is too short for a busy machine.
#undef QTRY_VERIFY
#undef QTRY_COMPARE
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, quillmark::test::Patience)
#define QTRY_COMPARE(actual, expected)                                                             \
    QTRY_COMPARE_WITH_TIMEOUT(actual, expected, quillmark::test::Patience)
