#pragma once

#include "ui/results/ResultDisplays.h"

#include <QTreeView>

#include <array>
#include <functional>
#include <utility>
#include <vector>

namespace quillmark {

/// The list on show. Copies its selected rows, shows the whole text of a cut cell and what the row
/// suggests in a tool tip, and says why it is empty. Remembers the widths of the first two columns
/// for each display; the last column takes the rest.
class ResultsTree : public QTreeView {
    Q_OBJECT

public:
    explicit ResultsTree(QWidget* parent = nullptr);

    /// Sets the function that says why there are no rows. It is called for each painting of an
    /// empty view.
    void setEmptyText(std::function<QString()> text) { emptyText_ = std::move(text); }
    QString emptyText() const { return emptyText_(); }
    /// No display is on show: until the next one is, column widths are nobody's choice.
    void leaveDisplay() { display_ = NoDisplay; }
    /// The model holds the display of that index now.
    void enterDisplay(std::size_t display);
    /// Widths in pixels: of the first column in each display, then of the second one in each; 0 for
    /// the usual width.
    std::vector<int> columnWidths() const { return {widths_.begin(), widths_.end()}; }
    void setColumnWidths(const std::vector<int>& widths);
    /// Selects the current row, or the first one, unless rows are selected.
    void selectRow();

signals:
    /// The cell was double-clicked, or Enter was pressed on it.
    void viewAsked(const QModelIndex& cell);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// The left and right keys go to the neighbouring cell, for Enter to act on.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    static constexpr std::size_t NoDisplay = ResultDisplays.size();

    void showTip(QPoint position, QPoint screenPosition);
    void keepWidth(int column, int width);
    void applyWidths();
    void applyWidth(int column, int usual, int most);

    std::function<QString()> emptyText_ = [] { return QString(); };
    std::array<int, 2 * ResultDisplays.size()> widths_{};
    std::size_t display_ = NoDisplay;
    bool applying_ = false;
};

} // namespace quillmark
