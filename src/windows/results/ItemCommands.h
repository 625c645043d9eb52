#pragma once

#include "ui/results/ItemActions.h"
#include "windows/outside/WindowContext.h"

#include <QWidget>

#include <functional>
#include <string_view>

namespace quillmark {

/// Runs work that talks to the host: the window stays alive meanwhile, and nothing else can be
/// started. The work must not throw.
using HostWork = std::function<void(const std::function<void()>& work)>;

/// The commands for a target of a row. They do not change the lists: a deleted file stays listed
/// until the next run.
class ItemCommands {
public:
    /// Questions and message boxes open over `owner`.
    ItemCommands(WindowContext context, HostWork hostWork, QWidget* owner);

    /// Opens a web address, or a local file with its program. Asks first if that may run the file
    /// instead of showing it.
    void View(std::string_view target);
    /// Whether there is an editor for Edit().
    bool canEdit() const { return context_.shell.hasEditor(); }
    /// Opens the page of a row in an editor, at the line of its reference.
    void Edit(const ItemTarget& page);
    /// Asks, then deletes the file: on the host in Remote Mode, else on the disk. A message box
    /// says what went wrong.
    void Delete(std::string_view target);
    /// Asks where to, then moves the local file. Ends without a word when the user cancels or the
    /// file cannot be moved.
    void Move(std::string_view target);

private:
    bool mayStart(std::string_view target);
    bool confirmed(std::string_view target);
    void deleteFromHost(std::string_view target);
    void moveToChosenPlace(std::string_view target);

    WindowContext context_;
    HostWork hostWork_;
    QWidget* owner_;
};

} // namespace quillmark
