#include "integration/ftp/EncryptedServers.h"
#include "integration/ftp/Servers.h"
#include "settings/ConfigurationFile.h"
#include "settings/ProfileFile.h"
#include "windows/results/ResultsTree.h"
#include "windows/shared/ElidedLabel.h"
#include "windows/support/Answers.h"
#include "windows/support/TestProgram.h"
#include "windows/support/WindowTest.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

namespace quillmark::test {

namespace {

/// Saves the profile "Host" of the server, and the options that matter here.
void prepare(TestProgram& program, const FtpLogin& login, const std::string& startPath) {
    Settings settings;
    SetDefaultSettings(settings);
    settings.configuration.TRACE_WINDOW = 1;
    settings.configuration.IGNORECASE = 1;
    settings.profile.HOST_NAME = login.host;
    settings.profile.HOST_PORT = login.port;
    settings.profile.ENCRYPTION = login.encryption;
    settings.profile.USER_NAME = login.userName;
    settings.profile.USER_PASSWORD = login.password;
    settings.profile.START_PATH = startPath;
    ProgramFolder files(ToBackSlashes(program.folder.path().string()));
    SaveConfigurations(settings, files);
    SaveProfile(settings, files, "Host");
    program.start();
}

/// Presses Start, chooses the profile and presses Start there. Returns at the run's end.
void check(TestProgram& program) {
    const WhenModal dialog(named("frmProfile"), [](QWidget& profile) {
        auto& profiles = child<QComboBox>(profile, "cmboProfiles");
        profiles.lineEdit()->selectAll();
        QTest::keyClicks(profiles.lineEdit(), "Host");
        QTest::mouseClick(&child<QPushButton>(profile, "cmdStart"), Qt::LeftButton);
    });
    QTest::mouseClick(&program.control<QPushButton>("cmdStart"), Qt::LeftButton);
}

QStringList linesOf(QWidget& window, const char* list) {
    QStringList lines;
    const QAbstractItemModel& model = *child<QAbstractItemView>(window, list).model();
    for (int i = 0; i < model.rowCount(); ++i) {
        lines << model.index(i, 0).data().toString();
    }
    return lines;
}

/// Does something once a run has posted the text; without a text, once a run has begun.
class WhenPosted : public QObject {
public:
    WhenPosted(TestProgram& program, const QString& text, const std::function<void()>& act) {
        connect(&timer_, &QTimer::timeout, this, [this, &program, text, act] {
            const bool running = program.control<QPushButton>("cmdStop").isEnabled();
            const bool posted = linesOf(program.window(), "Message").contains(text);
            if (running && (text.isEmpty() || posted)) {
                timer_.stop();
                act();
            }
        });
        timer_.start(1);
    }

private:
    QTimer timer_;
};

/// What the run had still to say after Stop, up to and without its end.
QStringList saidAfterStop(TestProgram& program) {
    QStringList lines = linesOf(program.window(), "Message");
    const qsizetype stop = lines.indexOf("Stopping Quillmark...Please Wait");
    const bool aborted = !lines.isEmpty() && lines.takeLast() == "Quillmark Aborted";
    return stop >= 0 && aborted ? lines.mid(stop + 1) : QStringList("not stopped");
}

} // namespace

class RunningTest : public QObject {
    Q_OBJECT

private slots:
    void checksAHostAndTracesIt() {
        const RealServer server("vsftpd");
        TestProgram program;
        prepare(program, server.login(), std::string(QUILLMARK_EXAMPLE) + "/index.html");
        check(program);
        QTRY_VERIFY(linesOf(program.window(), "Message").contains("Quillmark Finished"));
        QCOMPARE(program.control<QGroupBox>("Frame2").title(),
                 "Host Directory Listing (7 Entries)");
        auto& trace = child<QWidget>(program.window(), "frmDebug");
        QVERIFY(trace.isVisible());
        QTRY_VERIFY(linesOf(trace, "DebugList").contains("Quillmark : Quillmark Finished"));
        QVERIFY(linesOf(trace, "DebugList").size() <= 52);
    }

    void asksOnceWhomToTrust() {
        const EncryptedServer server("ProFTPD");
        TestProgram program;
        TempFolder site;
        prepare(program, server.login(), site.write("index.html", "").string());
        const auto disturb = [&program](QMessageBox& /*box*/) {
            auto& stop = program.control<QPushButton>("cmdStop");
            QVERIFY(stop.isEnabled());
            // To the window, as the desktop sends it: a question keeps it from there.
            QTest::mouseClick(program.window().windowHandle(), Qt::LeftButton, {},
                              stop.mapTo(&program.window(), stop.rect().center()));
        };
        const QString shown = QString::fromStdString(server.fingerprint()).left(47);
        for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
            const bool yes = answer == QMessageBox::Yes;
            const Answer question(answer, disturb);
            check(program);
            QVERIFY2(question.text().contains(shown), qPrintable(question.text()));
            const QString end = yes ? "Quillmark Finished" : "Quillmark Aborted";
            QTRY_VERIFY(linesOf(program.window(), "Message").contains(end));
            const QStringList messages = linesOf(program.window(), "Message");
            QCOMPARE(messages.contains("Unable to connect"), !yes);
            QVERIFY(!messages.contains("Stopping Quillmark...Please Wait"));
            QCOMPARE(program.folder.read("Host.pro").find("#TRUSTED=" + server.fingerprint()) !=
                         std::string::npos,
                     yes);
        }
        const Answer none(QMessageBox::No);
        check(program);
        QTRY_VERIFY(linesOf(program.window(), "Message").contains("Quillmark Finished"));
        QVERIFY(!none.acted());
    }

    void stopsAStalledHostAtOnce() {
        const FaultServer server("stalled-listing");
        TestProgram program;
        prepare(program, server.login(), "/index.html");
        // The listing is what stalls; before it, an abort has words of its own.
        const WhenPosted stop(program, "Getting Directory For /", [&program] {
            QVERIFY(!program.control<QPushButton>("cmdStart").isEnabled());
            QCOMPARE(program.window().windowTitle(), "Quillmark checking...");
            QCOMPARE(program.window().focusWidget()->objectName(), "cmdStop");
            QCOMPARE(program.control<ElidedLabel>("lblOnShow").text(), "Checking Host");
            QTest::mouseClick(&program.control<QPushButton>("cmdStop"), Qt::LeftButton);
        });
        check(program);
        // A deaf run would tell of the host's silence first.
        QTRY_COMPARE(saidAfterStop(program), QStringList());
        QCOMPARE(program.control<ResultsTree>("ListView1").emptyText(),
                 "The check was stopped. Choose a list to see what was found until then");
        QVERIFY(program.control<QPushButton>("cmdStart").isEnabled());
        QVERIFY(program.control<QPushButton>("cmdSave").isEnabled());
        program.control<QAction>("mnuShowPage").trigger();
        QCOMPARE(program.shell.opened.size(), 1U);
        const std::string page = program.folder.read("Quillmark-results.html");
        QVERIFY(page.find("\"finished\":0") != std::string::npos);
    }

    void endsTheRunWhenTheWindowIsClosed() {
        const FaultServer server("stalled-listing");
        TestProgram program;
        prepare(program, server.login(), "/index.html");
        bool stayed = false;
        const WhenPosted close(program, "Checking For /index.html", [&] {
            program.window().close();
            stayed = program.window().isVisible();
        });
        check(program);
        QVERIFY(stayed);
        QVERIFY(!program.window().isVisible());
    }

    void staysAliveInALocalRun() {
        TestProgram program;
        TempFolder site;
        std::string page;
        for (int i = 0; i < 50; ++i) {
            page.append("<a href=\"page").append(std::to_string(i * 12)).append(".html\">\r\n");
        }
        for (int i = 0; i < 600; ++i) {
            site.write("page" + std::to_string(i) + ".html", page + "\r\n");
        }
        prepare(program, {}, ToBackSlashes(site.path().string()) + "\\page0.html");
        int turns = 0;
        QTimer beat;
        connect(&beat, &QTimer::timeout, this,
                [&] { turns += program.control<QPushButton>("cmdStop").isEnabled() ? 1 : 0; });
        beat.start(0);
        check(program);
        QVERIFY2(turns > 3, qPrintable(QString::number(turns)));
    }

    void stopsALocalRun() {
        TestProgram program;
        TempFolder site;
        std::string links;
        for (int i = 0; i < 3000; ++i) {
            const std::string name = "page" + std::to_string(i) + ".html";
            site.write(name, "<a href=\"index.html\">\r\n\r\n");
            links += "<a href=\"" + name + "\">\r\n";
        }
        site.write("index.html", links + "\r\n");
        prepare(program, {}, ToBackSlashes(site.path().string()) + "\\index.html");
        const WhenPosted stop(program, {}, [&program] {
            QTest::mouseClick(&program.control<QPushButton>("cmdStop"), Qt::LeftButton);
        });
        check(program);
        QTRY_VERIFY(saidAfterStop(program).size() < 10);
    }
};

} // namespace quillmark::test

QUILLMARK_WINDOW_TEST(RunningTest)
#include "RunningTest.moc"
