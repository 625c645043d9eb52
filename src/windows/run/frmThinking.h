#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class frmThinking;
}

namespace quillmark {

/// The progress window. It never takes the focus. If the desktop lets the user close it, it stays
/// away until the next open(), and the run goes on.
class frmThinking : public QWidget {
    Q_OBJECT

public:
    explicit frmThinking(QWidget* owner);
    ~frmThinking() override;
    frmThinking(const frmThinking&) = delete;
    frmThinking& operator=(const frmThinking&) = delete;

    /// Shows the window with that caption. Unless it is on show already, its bar is empty and its
    /// place the middle of its owner.
    void open(const QString& caption);
    /// Fills the bar up to a number of steps, 0 to Steps.
    void setSteps(int steps);

    static constexpr int Steps = 1000;

private:
    std::unique_ptr<Ui::frmThinking> ui_;
};

} // namespace quillmark
