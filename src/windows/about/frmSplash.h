#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class frmSplash;
}

namespace quillmark {

/// The window that greets while the program starts. Modeless, in its own colours.
class frmSplash : public QWidget {
    Q_OBJECT
public:
    explicit frmSplash(QWidget* parent = nullptr);
    ~frmSplash() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::unique_ptr<Ui::frmSplash> ui_;
};

} // namespace quillmark
