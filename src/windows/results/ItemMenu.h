#pragma once

#include "ui/results/ItemActions.h"
#include "windows/results/ItemCommands.h"

#include <QMenu>

#include <array>

namespace quillmark {

/// The context menu of a row, `mnuRightClick`: view, delete and move, for each of its columns.
class ItemMenu : public QMenu {
    Q_OBJECT

public:
    /// Both outlive the menu.
    ItemMenu(ItemCommands& commands, QWidget* parent);

    /// Offers what can be done with the targets, with its corner at a point of the screen.
    void open(const ItemTargets& targets, QPoint position);

private:
    void perform(std::size_t command);
    void setCaption(std::size_t command);

    ItemCommands& commands_;
    ItemTargets targets_;
    std::array<QAction*, 6> actions_{};
};

} // namespace quillmark
