#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class frmThinking;
}

namespace quillmark {

/// The progress window. It never takes the keyboard. Where the desktop lets a user close it, it is
/// away until it is opened again, and the run goes on.
class frmThinking : public QWidget {
    Q_OBJECT

public:
    explicit frmThinking(QWidget* owner);
    ~frmThinking() override;
    frmThinking(const frmThinking&) = delete;
    frmThinking& operator=(const frmThinking&) = delete;

    /// Shows the window under that caption, in the middle of its owner and with an empty bar unless
    /// it is on show already.
    void open(const QString& caption);
    /// Fills the bar up to a number of steps, of which Steps are the whole of it.
    void setSteps(int steps);

    static constexpr int Steps = 1000;

private:
    std::unique_ptr<Ui::frmThinking> ui_;
};

} // namespace quillmark
