#pragma once

#include "run/HostTrust.h"
#include "windows/help/frmHelp.h"
#include "windows/main/WindowPlaces.h"
#include "windows/outside/WindowContext.h"
#include "windows/printing/ReportCommands.h"
#include "windows/results/DisplayFrame.h"
#include "windows/run/frmDebug.h"
#include "windows/shared/Later.h"
#include "windows/shared/NewestLines.h"

#include <QMainWindow>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace Ui {
class frmMain;
}

namespace quillmark {

/// A check, as the buttons of the main window drive it.
class RunCommands {
public:
    virtual ~RunCommands() = default;

    /// Throws a Failure if no check can begin with the current profile, because of its start file
    /// or its site's address. The description says what to do instead.
    virtual void requireStartFile() = 0;
    /// Performs a check with the current profile, whose start path is not empty, and returns when
    /// it has ended. Throws a Failure if it cannot begin.
    virtual void start() = 0;
    /// Asks the check to end: it does so the next time it looks at the abort flag.
    virtual void stop() = 0;
};

/// The main window: starts and stops checks, shows their messages and results, and opens all other
/// windows. While a check runs, or something is deleted on the host, it stays alive, but nothing
/// that would disturb the work can be pressed; closing it then ends the work first.
class frmMain : public QMainWindow {
    Q_OBJECT

public:
    /// `helpFolder` is where the help pages are, in the machine's own form.
    frmMain(const WindowContext& context, RunCommands& run, std::filesystem::path helpFolder);
    ~frmMain() override;
    frmMain(const frmMain&) = delete;
    frmMain& operator=(const frmMain&) = delete;

    /// Opens the profile dialog, and starts a check if the user asks for one there. A start path
    /// ("\" form) that is not empty is proposed in a new profile.
    void chooseProfile(std::string_view startPath = {});

    /// New messages were posted.
    void messagesPosted();
    /// The conversation with the host went on.
    void conversationTraced() { traceShown_.ask(); }

    /// Disables what must not be touched during a run and empties the results view and the trace.
    void enterRunState();
    /// Reverses enterRunState(), but for the results view.
    void leaveRunState();
    /// Opens the trace window without taking the focus.
    void showTraceWindow();
    /// Shows the list that the selectors choose.
    void ShowResults();
    /// Asks whether to trust a host. The current profile and its file remember a Yes.
    bool trustsHost(const HostIdentity& identity);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void addResults();
    void connectCommands();
    void connectHelp();
    void setIcons();
    void enterNoResults();
    void restorePlaces();
    void keepPlaces();

    void setWorking(bool working);
    void setReportsEnabled(bool enabled);
    void check();
    void checkAgainWithWebRules();
    void showNotice();
    QString siteName() const;
    QString endOfRun() const;
    void work(const std::function<void()>& work);
    void closeIfAsked();
    void stop();
    void editOptions();
    void askForDocumentation();
    void showAbout();
    void showHelp(const QString& page);
    void showMessages();
    frmDebug& traceWindow();

    WindowContext context_;
    RunCommands& run_;
    std::filesystem::path helpFolder_;
    WindowPlaces places_;
    ReportCommands reports_;
    NewestLines messages_;
    Later messagesShown_;
    Later traceShown_;
    Later workEnded_;
    Later dropEnded_;
    std::unique_ptr<Ui::frmMain> ui_;
    std::unique_ptr<DisplayFrame> results_;
    std::unique_ptr<frmDebug> trace_;
    std::unique_ptr<frmHelp> help_;
    std::string currentProfile_;
    std::string dropped_; ///< The start path of the page that was dropped last.
    bool working_ = false;
    bool stopped_ = false; ///< The user ended the latest run.
    bool closeAsked_ = false;
};

} // namespace quillmark
