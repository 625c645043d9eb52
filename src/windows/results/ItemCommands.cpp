#include "windows/results/ItemCommands.h"

#include "base/Failure.h"
#include "base/Paths.h"
#include "check/HostDelete.h"
#include "windows/shared/MessageBoxes.h"
#include "windows/shared/Text.h"

#include <exception>
#include <optional>
#include <utility>

namespace quillmark {

ItemCommands::ItemCommands(WindowContext context, HostWork hostWork, QWidget* owner)
    : context_(std::move(context)), hostWork_(std::move(hostWork)), owner_(owner) {}

void ItemCommands::View(std::string_view target) {
    guarded(owner_, [&] {
        if (!context_.shell.startsProgram(target) || mayStart(target)) {
            context_.shell.open(target);
        }
    });
}

bool ItemCommands::mayStart(std::string_view target) {
    return ask(owner_,
               shownBriefly(target) + "\nis a program, or may start one. Do you want to run it?",
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

void ItemCommands::Edit(const ItemTarget& page) {
    guarded(owner_, [&] { context_.shell.edit(page.view, page.line); });
}

void ItemCommands::Delete(std::string_view target) {
    guarded(owner_, [&] {
        if (!confirmed(target)) {
            return;
        }
        if (context_.workspace.run.localMode) {
            deleteLocalFile(context_.disk, target);
        } else {
            deleteFromHost(target);
        }
    });
}

bool ItemCommands::confirmed(std::string_view target) {
    return ask(owner_, "Delete " + shownBriefly(target) + "?", QMessageBox::Yes | QMessageBox::No,
               QMessageBox::No) == QMessageBox::Yes;
}

void ItemCommands::deleteFromHost(std::string_view target) {
    // The failure is told only after the work: its message box must not open while Stop is on.
    std::optional<Failure> failure;
    hostWork_([&] {
        try {
            deleteOnHost(context_.ftp, context_.messages, context_.workspace.settings.profile,
                         target);
        } catch (const Failure& refused) {
            failure = refused;
        }
    });
    if (failure) {
        throw Failure(*failure);
    }
}

void ItemCommands::Move(std::string_view target) {
    try {
        moveToChosenPlace(target);
    } catch (const std::exception&) {
        // The file is where it was. That no message says it was moved tells the user.
        return;
    }
}

void ItemCommands::moveToChosenPlace(std::string_view target) {
    const std::filesystem::path source = ToForwardSlashes(target);
    SaveQuestion question{"Select Move Location", source, {}, {"All Files (*.*)"}};
    question.proposed.make_preferred();
    const auto chosen = context_.dialogs.saveFile(owner_, question);
    if (!chosen) {
        return;
    }
    context_.disk.moveFile(target, *chosen);
    context_.messages.post("File ", target, " Moved To ", chosen->string());
}

} // namespace quillmark
