#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class FindBar;
}

namespace quillmark {

/// Where a search begins, seen from the current row.
enum class FindStep { Here, Next, Previous };

/// The line below the list in which the user types what to find.
class FindBar : public QWidget {
    Q_OBJECT

public:
    explicit FindBar(QWidget* parent = nullptr);
    ~FindBar() override;
    FindBar(const FindBar&) = delete;
    FindBar& operator=(const FindBar&) = delete;

    /// Shows the bar, its text ready to be typed over.
    void open();
    /// Asks for the text again, from the next row or the one before.
    void step(FindStep step);
    /// Tells whether the last search found anything.
    void showFound(bool found);

signals:
    /// A text, never empty, is to be found.
    void findAsked(const QString& text, quillmark::FindStep step);
    void closeAsked();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::unique_ptr<Ui::FindBar> ui_;
};

} // namespace quillmark
