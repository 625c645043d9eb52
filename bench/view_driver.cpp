// Times how long the results view takes to show 31,000 rows, from the choice of the entry to the
// painted rows, with the progress window: view_driver [-platform offscreen] [PAGE]
// With a page, a check of its site with the web rules gives the rows.

#include "base/Paths.h"
#include "check/CheckRun.h"
#include "desktop/Program.h"
#include "findings/ListProjection.h"
#include "settings/DefaultSettings.h"
#include "windows/results/DisplayFrame.h"
#include "windows/run/ThinkingWindow.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

using namespace quillmark;

constexpr int Runs = 9;

class NoMessages : public Messages {
public:
    void MessageHandler(bool /*debug*/, std::string_view /*text*/) override {}
    bool wantsDebug() const override { return false; }
};

class NoDesktop : public Shell, public FileDialogs, public ReportPrinter {
public:
    void open(std::string_view /*target*/) override {}
    bool startsProgram(std::string_view /*target*/) const override { return false; }
    bool hasEditor() const override { return false; }
    void edit(std::string_view /*file*/, std::uint32_t /*line*/) override {}
    std::optional<std::filesystem::path> saveFile(QWidget* /*owner*/,
                                                  const SaveQuestion& /*question*/) override {
        return {};
    }
    std::optional<std::filesystem::path> openPage(QWidget* /*owner*/) override { return {}; }
    std::optional<std::filesystem::path> openKeyFile(QWidget* /*owner*/) override { return {}; }
    bool available() const override { return false; }
    void print(const QStringList& /*lines*/) override {}
};

class NoEvents : public EventLoop {
public:
    void DoEvents() override {}
};

class NoTrust : public HostTrust {
public:
    bool trusts(const HostIdentity& /*identity*/) override { return false; }
};

void fill(ResultLists& lists) {
    for (int i = 0; i < ResultList::Maximum - 1; ++i) {
        const int folder = i * 7919 % 500;
        const std::string file = "/www/folder" + std::to_string(folder) + "/page" +
                                 std::to_string(i * 7919 % ResultList::Maximum) + ".html";
        lists.FileList.Append(file);
        lists.ReferenceList.Append(file);
        lists.ReferenceListFrom.Append("/www/index.html");
    }
}

class NoListener : public RunListener {
public:
    void InitializeThinking(std::string_view /*title*/) override {}
    void UpdateThinking(int /*current*/, int /*total*/) override {}
    void RemoveThinking() override {}
};

void check(const char* page, Workspace& workspace, Messages& messages, EventLoop& events,
           DiskAdapter& disk, FtpXCtl& ftp) {
    NoListener listener;
    SiteDisk site;
    Inet inet(events, workspace.run);
    Outside outside{messages, disk, ftp, inet, listener, events, site};
    SetDefaultSettings(workspace.settings);
    workspace.settings.profile.START_PATH = ToBackSlashes(page);
    workspace.settings.profile.RULES = Rules::Web;
    CheckRun(workspace.lists, workspace.site, workspace.run, workspace.settings, outside,
             "\\nowhere")
        .start();
    QElapsedTimer clock;
    clock.start();
    projectLists(workspace.site, workspace.lists);
    std::printf("%zu files, %zu references; lists filled in %.1f ms\n", workspace.site.files.size(),
                workspace.site.references.size(), static_cast<double>(clock.nsecsElapsed()) / 1e6);
}

double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times.at(times.size() / 2);
}

/// Milliseconds from the choice to the painted view.
double timeToShow(DisplayFrame& frame, const char* display, const char* sort) {
    frame.findChild<QComboBox*>("cmbDisplay")->setCurrentText(display);
    frame.findChild<QComboBox*>("cmbSort")->setCurrentText(sort);
    std::vector<double> times;
    for (int i = 0; i < Runs; ++i) {
        QElapsedTimer clock;
        clock.start();
        frame.ShowResults();
        frame.findChild<QAbstractItemView*>("ListView1")->viewport()->repaint();
        times.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
        QCoreApplication::processEvents();
    }
    return median(times);
}

/// Milliseconds until the list is known not to hold a text.
double timeToFind(DisplayFrame& frame) {
    frame.findChild<QWidget*>("findBar")->show();
    auto* text = frame.findChild<QLineEdit*>("txtFind");
    std::vector<double> times;
    for (int i = 0; i < Runs; ++i) {
        QElapsedTimer clock;
        clock.start();
        text->setText("in no row" + QString::number(i));
        times.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
    return median(times);
}

} // namespace

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    Workspace workspace;
    NoMessages messages;
    NoDesktop desktop;
    NoEvents events;
    ThinkingWindow progress;
    ProgramFolder files("\\nowhere");
    DiskAdapter disk;
    HostTrace trace(workspace.trace);
    NoTrust trust;
    FtpXCtl ftp(messages, events, workspace.run, trace, trust, {});
    if (const QStringList arguments = QApplication::arguments(); arguments.size() > 1) {
        check(arguments.at(1).toLocal8Bit().constData(), workspace, messages, events, disk, ftp);
    } else {
        fill(workspace.lists);
    }
    DisplayFrame frame(
        {workspace, files, messages, progress, disk, ftp, desktop, desktop, desktop, "/nowhere"},
        [](const std::function<void()>& work) { work(); });
    progress.setOwner(&frame);
    frame.resize(900, 500);
    frame.show();
    frame.enableSelectors({});
    QCoreApplication::processEvents();
    for (const char* display : {"Host File List", "Host File References"}) {
        for (const char* sort : {"None", "Name", "Path"}) {
            std::printf("%-22s %-5s %7.1f ms\n", display, sort, timeToShow(frame, display, sort));
        }
    }
    std::printf("%-28s %7.1f ms\n", "Find in the last", timeToFind(frame));
}
