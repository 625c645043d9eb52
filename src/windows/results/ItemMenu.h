#pragma once

#include "ui/results/ItemActions.h"
#include "windows/results/ItemCommands.h"

#include <QMenu>

#include <array>

namespace quillmark {

/// The context menu of a row, `mnuRightClick`: a group of view, delete and move for each column,
/// and the page in an editor if a line is known. It shows only what can be done. A line at the top
/// tells when that is nothing, or when the commands act on one of several selected rows.
class ItemMenu : public QMenu {
    Q_OBJECT

public:
    /// Both outlive the menu.
    ItemMenu(ItemCommands& commands, QWidget* parent);

    /// Offers what can be done with the targets of the current row, with its corner at a point of
    /// the screen. `selectedRows` is the number of rows selected.
    void open(const ItemTargets& targets, qsizetype selectedRows, QPoint position);

private:
    void perform(std::size_t command);
    void setCaption(std::size_t command);
    void setNotice(qsizetype selectedRows);

    ItemCommands& commands_;
    ItemTargets targets_;
    QAction* notice_;
    QAction* edit_;
    std::array<QAction*, 6> actions_{};
};

} // namespace quillmark
