#pragma once

#include "windows/support/Controls.h"

#include <functional>
#include <utility>

namespace quillmark::test {

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
