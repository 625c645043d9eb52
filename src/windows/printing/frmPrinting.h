#pragma once

#include <QTimer>
#include <QWidget>

#include <memory>

namespace Ui {
class frmPrinting;
}

namespace quillmark {

/// The notice that a report is being printed. It has no buttons; the window below it takes no input
/// meanwhile.
class frmPrinting : public QWidget {
    Q_OBJECT

public:
    explicit frmPrinting(QWidget* owner);
    ~frmPrinting() override;
    frmPrinting(const frmPrinting&) = delete;
    frmPrinting& operator=(const frmPrinting&) = delete;

signals:
    /// Sent once, when the notice is on the screen, or the desktop has not brought it there in a
    /// while.
    void seen();

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void tellSeen();

    QTimer waiting_;
    bool told_ = false;
    std::unique_ptr<Ui::frmPrinting> ui_;
};

} // namespace quillmark
