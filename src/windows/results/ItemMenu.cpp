#include "windows/results/ItemMenu.h"

#include "windows/shared/Text.h"

#include <QScreen>

#include <algorithm>
#include <string>

namespace quillmark {

namespace {

struct Command {
    const char* name;
    const char* verb;
    std::string ItemTarget::*target;
    std::size_t column;
    void (ItemCommands::*action)(std::string_view target);
};

constexpr std::array<Command, 6> Commands = {{
    {"mnuViewURL1", "View", &ItemTarget::view, 0, &ItemCommands::View},
    {"mnuDeleteFile1", "Delete", &ItemTarget::deletion, 0, &ItemCommands::Delete},
    {"mnuMoveFile1", "Move", &ItemTarget::move, 0, &ItemCommands::Move},
    {"mnuViewURL2", "View", &ItemTarget::view, 1, &ItemCommands::View},
    {"mnuDeleteFile2", "Delete", &ItemTarget::deletion, 1, &ItemCommands::Delete},
    {"mnuMoveFile2", "Move", &ItemTarget::move, 1, &ItemCommands::Move},
}};

} // namespace

ItemMenu::ItemMenu(ItemCommands& commands, QWidget* parent)
    : QMenu("RightClick", parent), commands_(commands), notice_(addAction(QString())),
      edit_(new QAction(this)) {
    setObjectName("mnuRightClick");
    setToolTipsVisible(true);
    notice_->setObjectName("mnuNotice");
    notice_->setEnabled(false);
    addSeparator();
    for (std::size_t i = 0; i < Commands.size(); ++i) {
        if (i > 0 && Commands.at(i).column != Commands.at(i - 1).column) {
            addSeparator();
        }
        actions_.at(i) = addAction(QString());
        actions_.at(i)->setObjectName(Commands.at(i).name);
        connect(actions_.at(i), &QAction::triggered, this, [this, i] { perform(i); });
    }
    edit_->setObjectName("mnuEdit2");
    addAction(edit_);
    connect(edit_, &QAction::triggered, this, [this] { commands_.Edit(targets_[1]); });
}

void ItemMenu::open(const ItemTargets& targets, qsizetype selectedRows, QPoint position) {
    targets_ = targets;
    for (std::size_t i = 0; i < Commands.size(); ++i) {
        setCaption(i);
    }
    edit_->setText(QString("Edit at Line %1").arg(targets_[1].line));
    edit_->setVisible(targets_[1].line > 0 && commands_.canEdit());
    setNotice(selectedRows);
    popup(position);
}

void ItemMenu::setCaption(std::size_t command) {
    const Command& what = Commands.at(command);
    const QString caption =
        shownBriefly(itemCaption(what.verb, targets_.at(what.column).*what.target));
    // No menu may be wider than the screen; the tool tip has the whole.
    const QString fitting = fontMetrics().elidedText(caption, Qt::ElideMiddle,
                                                     screen()->availableSize().width() * 2 / 3);
    QAction& action = *actions_.at(command);
    action.setText(plainCaption(fitting));
    action.setToolTip(fitting == caption ? QString() : plainToolTip(caption));
    action.setVisible(!caption.isEmpty());
}

void ItemMenu::setNotice(qsizetype selectedRows) {
    const bool idle = std::none_of(actions_.begin(), actions_.end(),
                                   [](const QAction* command) { return command->isVisible(); });
    notice_->setText(idle ? "No row is selected"
                          : QString("Of the %1 selected rows, this one:").arg(selectedRows));
    notice_->setVisible(idle || selectedRows > 1);
}

void ItemMenu::perform(std::size_t command) {
    const Command& what = Commands.at(command);
    const std::string target = targets_.at(what.column).*what.target;
    (commands_.*what.action)(target);
}

} // namespace quillmark
