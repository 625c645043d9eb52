#pragma once

#include <QLabel>

namespace quillmark {

/// One line of plain text that fits any width: a longer text is cut in the middle, and the tool tip
/// has it whole.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    /// Sets the text, of which the label shows as much as fits.
    void setWholeText(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void cut();

    QString whole_;
};

} // namespace quillmark
