#pragma once

#include "desktop/Program.h"
#include "support/TempFolder.h"
#include "windows/support/TestContext.h"

#include <QComboBox>
#include <QTest>

#include <memory>
#include <string>
#include <vector>

namespace quillmark::test {

/// A control by its name. Its absence fails the test that asks.
template <typename Control> Control& child(QWidget& window, const char* name) {
    auto* control = window.findChild<Control*>(name);
    if (control == nullptr) {
        qFatal("no control %s", name);
    }
    return *control;
}

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
    template <typename Control> Control& control(const char* name) const {
        return child<Control>(window(), name);
    }

    TempFolder folder;
    RecordingShell shell;
    ScriptedFileDialogs dialogs;
    RecordingPrinter printer;
    std::vector<std::string> soundsPlayed;
    std::vector<std::string> boxes;
    std::unique_ptr<Program> program;
};

/// Chooses an entry of a selector with the keys.
inline void choose(const TestProgram& program, const char* selector, const QString& entry) {
    auto& box = program.control<QComboBox>(selector);
    QTest::keyClick(&box, Qt::Key_Home);
    for (int i = 0; i < box.findText(entry); ++i) {
        QTest::keyClick(&box, Qt::Key_Down);
    }
}

} // namespace quillmark::test
