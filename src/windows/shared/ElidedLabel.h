#pragma once

#include <QLabel>

namespace quillmark {

/// One line of plain text that takes the width it is given: a longer text is cut in the middle, and
/// a tool tip has the whole.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    void setWholeText(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void cut();

    QString whole_;
};

} // namespace quillmark
