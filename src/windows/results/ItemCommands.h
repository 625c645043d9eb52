#pragma once

#include "windows/outside/WindowContext.h"
#include "windows/results/HostWork.h"

#include <QWidget>

#include <string_view>

namespace quillmark {

/// What can be done with a target of a row. Lists and view stay as they are: a file that is gone
/// stays listed until the next run.
class ItemCommands {
public:
    /// `owner` is the window of the questions.
    ItemCommands(WindowContext context, HostWork hostWork, QWidget* owner);

    /// Opens a web address, or a local file with its program.
    void View(std::string_view target);
    /// Asks, then deletes the file, on the host in Remote Mode. What fails is told in a box.
    void Delete(std::string_view target);
    /// Asks where to, then moves the local file. Ends without a word when the user cancels or the
    /// file cannot be moved.
    void Move(std::string_view target);

private:
    bool confirmed(std::string_view target);
    void deleteFromHost(std::string_view target);
    void moveToChosenPlace(std::string_view target);

    WindowContext context_;
    HostWork hostWork_;
    QWidget* owner_;
};

} // namespace quillmark
