#include "windows/results/ItemMenu.h"

#include "windows/shared/Text.h"

#include <QScreen>

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
    {"mnuViewURL2", "View", &ItemTarget::view, 1, &ItemCommands::View},
    {"mnuDeleteFile2", "Delete", &ItemTarget::deletion, 1, &ItemCommands::Delete},
    {"mnuMoveFile1", "Move", &ItemTarget::move, 0, &ItemCommands::Move},
    {"mnuMoveFile2", "Move", &ItemTarget::move, 1, &ItemCommands::Move},
}};

} // namespace

ItemMenu::ItemMenu(ItemCommands& commands, QWidget* parent)
    : QMenu("RightClick", parent), commands_(commands) {
    setObjectName("mnuRightClick");
    setToolTipsVisible(true);
    for (std::size_t i = 0; i < Commands.size(); ++i) {
        actions_.at(i) = addAction(QString());
        actions_.at(i)->setObjectName(Commands.at(i).name);
        connect(actions_.at(i), &QAction::triggered, this, [this, i] { perform(i); });
    }
}

void ItemMenu::open(const ItemTargets& targets, QPoint position) {
    targets_ = targets;
    for (std::size_t i = 0; i < Commands.size(); ++i) {
        setCaption(i);
    }
    popup(position);
}

void ItemMenu::setCaption(std::size_t command) {
    const Command& what = Commands.at(command);
    const QString caption = shown(itemCaption(what.verb, targets_.at(what.column).*what.target));
    // No menu may be wider than the screen; the tool tip has the whole.
    const QString fitting = fontMetrics().elidedText(caption, Qt::ElideMiddle,
                                                     screen()->availableSize().width() * 2 / 3);
    QAction& action = *actions_.at(command);
    action.setText(plainCaption(fitting));
    action.setToolTip(fitting == caption ? QString() : caption);
    action.setEnabled(!caption.isEmpty());
}

void ItemMenu::perform(std::size_t command) {
    const Command& what = Commands.at(command);
    const std::string target = targets_.at(what.column).*what.target;
    (commands_.*what.action)(target);
}

} // namespace quillmark
