#pragma once

#include "desktop/Program.h"
#include "windows/support/TestContext.h"

#include <memory>

namespace quillmark::test {

/// The whole program on a folder of its own; what a person, a speaker or another program would
/// answer is scripted.
struct TestProgram {
    /// `configuration` is what Quillmark.ini holds; nothing: there is none.
    explicit TestProgram(const std::string& configuration = {}) {
        if (!configuration.empty()) {
            folder.write("Quillmark.ini", configuration);
        }
        start();
    }
    /// Starts it (again), on the same folder.
    void start() {
        program.reset();
        program = std::make_unique<Program>(
            folder.path(), QUILLMARK_HELP,
            DesktopParts{shell, dialogs, printer,
                         [this](std::string_view name) { soundsPlayed.emplace_back(name); }},
            [this](std::string_view text) { boxes.emplace_back(text); });
        window().show();
    }
    frmMain& window() const { return program->window(); }
    template <typename Control = QWidget> Control& control(const char* name) const {
        return child<Control>(window(), name);
    }
    QStringList messages() const { return rowsOf(control<QAbstractItemView>("Message")); }
    /// Presses Start and does something with the profile dialog, which is closed afterwards.
    void inProfileDialog(const std::function<void(QWidget&)>& act) const {
        const WhenModal dialog(named("frmProfile"), [&act](QWidget& profile) {
            act(profile);
            profile.close();
        });
        press(window(), "cmdStart");
        QVERIFY(dialog.acted());
    }

    TempFolder folder;
    RecordingShell shell;
    ScriptedFileDialogs dialogs;
    RecordingPrinter printer;
    Lines soundsPlayed;
    Lines boxes;
    std::unique_ptr<Program> program;
};

} // namespace quillmark::test
