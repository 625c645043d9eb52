#pragma once

#include "ui/results/ResultDisplays.h"

#include <QTreeView>

#include <array>
#include <functional>
#include <utility>
#include <vector>

namespace quillmark {

/// The list on show: copies its selected rows, tells what a cut cell holds, and says in words why
/// it is empty. The width of the first of two columns is remembered for each display; the last
/// column takes the rest.
class ResultsTree : public QTreeView {
    Q_OBJECT

public:
    explicit ResultsTree(QWidget* parent = nullptr);

    /// Gives what tells why there are no rows; asked whenever the view is painted without any.
    void setEmptyText(std::function<QString()> text) { emptyText_ = std::move(text); }
    /// No display is on show: what happens to the columns is not the user's doing.
    void leaveDisplay() { display_ = NoDisplay; }
    /// The model holds the display of that index now.
    void enterDisplay(std::size_t display);
    /// Widths of first columns in pixels, one for each display; 0 for a half of the view.
    std::vector<int> columnWidths() const { return {widths_.begin(), widths_.end()}; }
    void setColumnWidths(const std::vector<int>& widths);

signals:
    /// The row was double-clicked, or Enter was pressed on it.
    void viewAsked(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    static constexpr std::size_t NoDisplay = ResultDisplays.size();

    void showWholeText(QPoint position, QPoint screenPosition);
    void keepWidth(int column, int width);
    void applyWidth();

    std::function<QString()> emptyText_ = [] { return QString(); };
    std::array<int, ResultDisplays.size()> widths_{};
    std::size_t display_ = NoDisplay;
    bool applying_ = false;
};

} // namespace quillmark
