#pragma once

#include <QAction>
#include <QLineEdit>

namespace quillmark {

/// A box for a number. It marks itself while its text is not the number that would be saved; its
/// accessible description then tells why.
class NumberEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit NumberEdit(QWidget* parent = nullptr);

private:
    void look();

    QAction* mark_;
};

} // namespace quillmark
