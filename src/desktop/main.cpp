#include "base/Failure.h"
#include "base/Version.h"
#include "desktop/CommandLine.h"
#include "desktop/DefaultPrinter.h"
#include "desktop/DesktopFileDialogs.h"
#include "desktop/DesktopShell.h"
#include "desktop/Program.h"
#include "desktop/WavePlayer.h"
#include "platform/FolderChoice.h"
#include "windows/about/frmSplash.h"
#include "windows/shared/MessageBoxes.h"
#include "windows/shared/Text.h"

#include <QApplication>
#include <QFile>

#include <chrono>
#include <exception>
#include <filesystem>
#include <thread>

namespace quillmark {

namespace {

constexpr std::chrono::seconds SplashTime{1};
constexpr int CannotStart = 2;

/// Shows the splash window for its time, even if there is nothing to wait for.
void showSplash(frmSplash& splash) {
    const auto end = std::chrono::steady_clock::now() + SplashTime;
    splash.show();
    WindowEvents().waitUntilSeen(splash);
    std::this_thread::sleep_until(end);
}

/// Where the files that come with the program are: "share/quillmark" beside the folder of the
/// executable.
std::filesystem::path installedFiles() {
    const std::filesystem::path programs =
        QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
    return programs.parent_path() / "share" / "quillmark";
}

int runProgram(const std::filesystem::path& folder, const CommandLine& line) {
    frmSplash splash;
    showSplash(splash);
    const std::filesystem::path installed = installedFiles();
    DesktopShell shell;
    DesktopFileDialogs dialogs;
    DefaultPrinter printer;
    WavePlayer sounds(folder, installed / "sounds");
    Program program(
        folder, installed / "help",
        {shell, dialogs, printer, [&sounds](std::string_view name) { sounds.play(name); }},
        [&splash](std::string_view text) {
            splash.close();
            tell(nullptr, shown(text));
        });
    program.window().show();
    splash.close();
    if (!line.startPath.empty()) {
        // The dialog is modal and must not open before the event loop runs.
        QMetaObject::invokeMethod(
            &program.window(), [&] { program.window().chooseProfile(line.startPath); },
            Qt::QueuedConnection);
    }
    return QApplication::exec();
}

int Main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(shown(ApplicationTitle));
    QApplication::setApplicationVersion(shown(ApplicationVersion));
    // The main window ends the program; closing a message box before it must not.
    QApplication::setQuitOnLastWindowClosed(false);
    const CommandLine line = readCommandLine(application);
    applyTheme(application, line.theme);
    try {
        return runProgram(chooseProgramFolder(std::nullopt), line);
    } catch (const std::exception& error) {
        tell(nullptr, "Quillmark cannot start: " + shown(error.what()));
        return CannotStart;
    }
}

} // namespace

} // namespace quillmark

int main(int argc, char* argv[]) {
    return quillmark::Main(argc, argv);
}
