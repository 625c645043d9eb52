#include "windows/main/frmMain.h"

#include "base/Paths.h"
#include "base/UpperCase.h"
#include "base/Version.h"
#include "settings/ProfileFile.h"
#include "store/FileCategory.h"
#include "ui/ReadingWarnings.h"
#include "ui_frmMain.h"
#include "windows/about/frmAbout.h"
#include "windows/run/TrustQuestion.h"
#include "windows/settings/frmConfig2.h"
#include "windows/settings/frmProfile.h"
#include "windows/shared/MessageBoxes.h"
#include "windows/shared/RowCopy.h"
#include "windows/shared/Text.h"
#include "windows/shared/ThemedIcon.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QScopeGuard>
#include <QStyle>
#include <QUrl>

#include <optional>
#include <utility>

namespace quillmark {

namespace {

/// The start path ("\" form) of a drag that holds one local page; nothing for any other drag. Pages
/// are told by their extension; `pageExtensions` are in upper case.
std::optional<std::string> droppedPage(const QMimeData& data, const ResultList& pageExtensions) {
    const QList<QUrl> urls = data.urls();
    if (urls.size() != 1 || !urls.first().isLocalFile()) {
        return std::nullopt;
    }
    const QFileInfo file(urls.first().toLocalFile());
    const std::string extension = upperCase(file.suffix().toStdString());
    if (!file.isFile() || !ListContains(pageExtensions, extension)) {
        return std::nullopt;
    }
    return ToBackSlashes(QFile::encodeName(file.absoluteFilePath()).toStdString());
}

} // namespace

frmMain::frmMain(const WindowContext& context, RunCommands& run, std::filesystem::path helpFolder)
    : context_(context), run_(run), helpFolder_(std::move(helpFolder)),
      places_(context.programFolder), reports_(context, this),
      messages_(context.workspace.lists.Message), messagesShown_([this] { showMessages(); }),
      traceShown_([this] {
          if (trace_) {
              trace_->refresh();
          }
      }),
      workEnded_([this] { closeIfAsked(); }), dropEnded_([this] { chooseProfile(dropped_); }),
      ui_(std::make_unique<Ui::frmMain>()) {
    ui_->setupUi(this);
    ui_->Message->setModel(&messages_);
    copyByKey(*ui_->Message);
    setIcons();
    addResults();
    connectCommands();
    connectHelp();
    enterNoResults();
    restorePlaces();
}

frmMain::~frmMain() = default;

void frmMain::addResults() {
    results_ = std::make_unique<DisplayFrame>(
        context_, [this](const std::function<void()>& hostWork) { work(hostWork); });
    ui_->splitter->insertWidget(0, results_.get());
    ui_->splitter->setStretchFactor(0, 3);
    ui_->splitter->setStretchFactor(1, 1);
    setTabOrder(ui_->cmdCloseNotice, results_.get());
    setTabOrder(results_.get(), ui_->Message);
}

void frmMain::connectCommands() {
    connect(ui_->cmdStart, &QPushButton::clicked, this, [this] { chooseProfile(); });
    connect(ui_->cmdStop, &QPushButton::clicked, this, &frmMain::stop);
    const auto save = [this] { reports_.Save(); };
    const auto print = [this] { reports_.Print(); };
    connect(ui_->cmdSave, &QPushButton::clicked, this, save);
    connect(ui_->mnuSave, &QAction::triggered, this, save);
    connect(ui_->cmdPrint, &QPushButton::clicked, this, print);
    connect(ui_->mnuPrint, &QAction::triggered, this, print);
    connect(ui_->mnuSavePage, &QAction::triggered, this, [this] { reports_.SaveAsPage(); });
    connect(ui_->mnuShowPage, &QAction::triggered, this, [this] { reports_.ShowAsPage(); });
    connect(ui_->cmdOptions, &QPushButton::clicked, this, &frmMain::editOptions);
    connect(ui_->mnuOptions, &QAction::triggered, this, &frmMain::editOptions);
    connect(ui_->cmdWebRules, &QPushButton::clicked, this, &frmMain::checkAgainWithWebRules);
    connect(ui_->cmdCloseNotice, &QToolButton::clicked, ui_->noticeBar, &QWidget::hide);
    connect(ui_->mnuExit, &QAction::triggered, this, &QWidget::close);
}

void frmMain::connectHelp() {
    connect(ui_->mnuContents, &QAction::triggered, this, [this] { showHelp("index.html"); });
    connect(ui_->mnuWebSite, &QAction::triggered, this, &frmMain::askForDocumentation);
    connect(ui_->mnuAbout, &QAction::triggered, this, &frmMain::showAbout);
}

void frmMain::setIcons() {
    setWindowIcon(themedIcon("quillmark"));
    ui_->cmdStart->setIcon(themedIcon("start"));
    ui_->cmdStop->setIcon(themedIcon("stop"));
    ui_->cmdSave->setIcon(themedIcon("save"));
    ui_->cmdPrint->setIcon(themedIcon("print"));
    ui_->cmdOptions->setIcon(themedIcon("options"));
    ui_->cmdHelp->setIcon(themedIcon("help"));
    ui_->cmdCloseNotice->setIcon(themedIcon("close"));
    const int size = style()->pixelMetric(QStyle::PM_LargeIconSize);
    ui_->imgNotice->setPixmap(
        style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(QSize(size, size)));
}

void frmMain::enterNoResults() {
    ui_->noticeBar->hide();
    ui_->cmdStop->setEnabled(false);
    setReportsEnabled(false);
    results_->enterNoResults();
}

void frmMain::restorePlaces() {
    places_.restore(*this);
    ui_->splitter->restoreState(places_.state(ui_->splitter->objectName()));
    results_->setColumnWidths(places_.widths());
}

void frmMain::keepPlaces() {
    places_.keep(*this);
    places_.keepState(ui_->splitter->objectName(), ui_->splitter->saveState());
    places_.keepWidths(results_->columnWidths());
    if (trace_) {
        places_.keep(*trace_);
    }
    if (help_) {
        places_.keep(*help_);
    }
}

void frmMain::chooseProfile(std::string_view startPath) {
    frmProfile dialog(
        context_, currentProfile_, [this] { run_.requireStartFile(); }, this);
    connect(&dialog, &frmProfile::helpRequested, this, [this] { showHelp("profiles.html"); });
    if (!startPath.empty()) {
        dialog.proposeStartPath(startPath);
    }
    dialog.exec();
    if (dialog.started() && !context_.workspace.settings.profile.START_PATH.empty()) {
        check();
    }
}

void frmMain::check() {
    guarded(this, [this] { run_.start(); });
    closeIfAsked();
}

// As a browser and most servers see the site: by the web rules, with capital letters told apart.
// The settings come back after the check: the button promises that profile and options stay.
void frmMain::checkAgainWithWebRules() {
    Settings& settings = context_.workspace.settings;
    Rules& rules = settings.profile.RULES;
    std::int16_t& ignoreCase = settings.configuration.IGNORECASE;
    const auto unchanged = qScopeGuard([&, oldRules = rules, oldIgnoreCase = ignoreCase] {
        rules = oldRules;
        ignoreCase = oldIgnoreCase;
    });
    rules = Rules::Web;
    ignoreCase = 0;
    guarded(this, [this] {
        run_.requireStartFile();
        check();
    });
}

void frmMain::stop() {
    stopped_ = true;
    guarded(this, [this] { run_.stop(); });
}

void frmMain::editOptions() {
    frmConfig2 dialog(context_, this);
    connect(&dialog, &frmConfig2::helpRequested, this, [this] { showHelp("options.html"); });
    dialog.exec();
}

void frmMain::askForDocumentation() {
    // Nothing waits for the answer: a check may be running behind the question.
    auto* question = new QMessageBox(QMessageBox::Question, shown(ApplicationTitle),
                                     "Open the Quillmark Documentation page in your browser?",
                                     QMessageBox::Yes | QMessageBox::No, this);
    question->setAttribute(Qt::WA_DeleteOnClose);
    connect(question, &QMessageBox::finished, this, [this](int answer) {
        if (answer == QMessageBox::Yes) {
            const std::string page = (helpFolder_ / "index.html").string();
            guarded(this, [&] { context_.shell.open(ToBackSlashes(page)); });
        }
    });
    question->open();
}

void frmMain::showAbout() {
    auto* about = findChild<frmAbout*>();
    if (about == nullptr) {
        about = new frmAbout(this);
        about->setAttribute(Qt::WA_DeleteOnClose);
    }
    about->show();
    about->activateWindow();
}

void frmMain::showHelp(const QString& page) {
    if (!help_) {
        help_ = std::make_unique<frmHelp>(helpFolder_, context_.shell, nullptr);
        help_->setWindowIcon(windowIcon());
        places_.restore(*help_);
    }
    help_->showPage(page);
}

void frmMain::messagesPosted() {
    messagesShown_.ask();
    traceShown_.ask();
}

void frmMain::showMessages() {
    messages_.refresh();
    ui_->Message->scrollToBottom();
}

/// Made when it is first needed: most checks never trace.
frmDebug& frmMain::traceWindow() {
    if (!trace_) {
        trace_ = std::make_unique<frmDebug>(context_, this);
        places_.restore(*trace_);
    }
    return *trace_;
}

void frmMain::setReportsEnabled(bool enabled) {
    ui_->cmdSave->setEnabled(enabled);
    ui_->cmdPrint->setEnabled(enabled);
    ui_->mnuFile->setEnabled(enabled);
    // The shortcuts of commands would work even in a disabled menu.
    ui_->mnuSave->setEnabled(enabled);
    ui_->mnuPrint->setEnabled(enabled);
}

void frmMain::setWorking(bool working) {
    working_ = working;
    // The focus goes to what can be done next, unless the user has moved it elsewhere meanwhile. It
    // leaves Stop before that is disabled: Qt would pass it on to any other control.
    const bool toResults = !working && focusWidget() == ui_->cmdStop;
    if (toResults) {
        results_->focusResults();
    }
    ui_->cmdStop->setEnabled(working);
    if (working) {
        ui_->cmdStop->setFocus();
    }
    ui_->cmdStart->setEnabled(!working);
    ui_->cmdOptions->setEnabled(!working);
    ui_->mnuOptions->setEnabled(!working);
    setReportsEnabled(!working);
    if (trace_) {
        trace_->setSaveEnabled(!working);
    }
}

void frmMain::enterRunState() {
    stopped_ = false;
    reports_.keepSettings();
    setWorking(true);
    results_->enterNoResults();
    ui_->noticeBar->hide();
    ui_->lblOnShow->setWholeText("Checking " + siteName());
    context_.workspace.trace.Clear();
    traceShown_.ask();
    setWindowTitle(shown(ApplicationTitle) + " checking...");
}

void frmMain::leaveRunState() {
    results_->enableSelectors(endOfRun() + ". Choose a list to see what was found until then");
    setWorking(false);
    ui_->lblOnShow->setWholeText("Results of " + siteName());
    showNotice();
    setWindowTitle(shown(ApplicationTitle));
}

void frmMain::showNotice() {
    const Workspace& workspace = context_.workspace;
    QStringList notice;
    for (const std::string& warning :
         readingWarnings(workspace.run.reading, workspace.lists.GetFileList.Count())) {
        notice += shown(warning);
    }
    const bool web = workspace.site.filled;
    if (web && workspace.settings.configuration.IGNORECASE == 1) {
        notice +=
            "Names that differ in capital letters only were taken for equal, since Ignore Case "
            "is ticked in the options. Most web servers tell them apart.";
    }
    ui_->cmdWebRules->setText(web ? "&Check Again With Letter Case"
                                  : "&Check Again With Web Rules");
    ui_->lblNotice->setText(notice.join('\n'));
    ui_->noticeBar->setVisible(!notice.isEmpty());
}

/// The name of the profile; a check without one is known by its start page.
QString frmMain::siteName() const {
    const std::string& start = context_.workspace.settings.profile.START_PATH;
    return shown(currentProfile_.empty() ? ToForwardSlashes(start) : currentProfile_);
}

QString frmMain::endOfRun() const {
    return stopped_ ? "The check was stopped" : "The check ended early, as the messages say";
}

void frmMain::showTraceWindow() {
    traceWindow().setSaveEnabled(false);
    traceWindow().show();
}

void frmMain::ShowResults() {
    results_->ShowResults();
}

bool frmMain::trustsHost(const HostIdentity& identity) {
    const bool trusted = asksToTrust(this, identity);
    if (trusted) {
        guarded(this, [&] {
            TrustHost(context_.workspace.settings, context_.files, currentProfile_,
                      identity.printed(identity.sha256));
        });
    }
    return trusted;
}

/// Keeps the window usable, and everything that could disturb the work disabled, however it ends.
void frmMain::work(const std::function<void()>& work) {
    setWorking(true);
    results_->setEnabled(false);
    const auto end = [this](void*) {
        results_->setEnabled(true);
        setWorking(false);
        context_.workspace.run.abort = false;
        context_.workspace.run.stopped = false;
        workEnded_.ask();
    };
    const std::unique_ptr<void, decltype(end)> working(this, end);
    work();
}

void frmMain::closeIfAsked() {
    if (closeAsked_) {
        close();
    }
}

void frmMain::closeEvent(QCloseEvent* event) {
    // A check works with this window: it has to end before the window may go.
    if (working_) {
        event->ignore();
        if (!std::exchange(closeAsked_, true)) {
            stop();
        }
        return;
    }
    keepPlaces();
    trace_.reset();
    help_.reset();
    event->accept();
    QApplication::quit();
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    const ResultList& pages = context_.workspace.settings.configuration.lstCheckHTML;
    if (!working_ && droppedPage(*event->mimeData(), pages)) {
        event->acceptProposedAction();
    }
}

void frmMain::dropEvent(QDropEvent* event) {
    const ResultList& pages = context_.workspace.settings.configuration.lstCheckHTML;
    if (const auto page = droppedPage(*event->mimeData(), pages)) {
        event->acceptProposedAction();
        // Only after the drop: the program that the page comes from waits for its end.
        dropped_ = *page;
        dropEnded_.ask();
    }
}

} // namespace quillmark
