#include "integration/ftp/EncryptedServers.h"
#include "integration/ftp/Servers.h"
#include "settings/ConfigurationFile.h"
#include "settings/ProfileFile.h"
#include "windows/results/ResultsTree.h"
#include "windows/shared/ElidedLabel.h"
#include "windows/support/TestProgram.h"

#include <QSet>

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
void check(const TestProgram& program) {
    program.inProfileDialog([](QWidget& profile) {
        auto& profiles = child<QComboBox>(profile, "cmboProfiles");
        profiles.lineEdit()->selectAll();
        QTest::keyClicks(profiles.lineEdit(), "Host");
        press(profile, "cmdStart");
    });
}

/// Does something once a run has posted the text.
class WhenPosted : public QObject {
public:
    WhenPosted(const TestProgram& program, const QString& text, const std::function<void()>& act) {
        connect(&timer_, &QTimer::timeout, this, [this, &program, text, act] {
            const bool running = program.control("cmdStop").isEnabled();
            if (running && program.messages().contains(text)) {
                timer_.stop();
                act();
            }
        });
        timer_.start(1);
    }

private:
    QTimer timer_;
};

/// How many messages the run still had after Stop, without its end; -1 if nothing stopped it.
qsizetype saidAfterStop(const TestProgram& program) {
    const QStringList messages = program.messages();
    const qsizetype stop = messages.indexOf("Stopping Quillmark...Please Wait");
    const bool aborted = stop >= 0 && messages.last() == "Quillmark Aborted";
    return aborted ? messages.size() - stop - 2 : -1;
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
        QTRY_VERIFY(program.messages().contains("Quillmark Finished"));
        QCOMPARE(program.control<QGroupBox>("Frame2").title(),
                 "Host Directory Listing (7 Entries)");
        QVERIFY(program.control("frmDebug").isVisible());
        const auto& trace = program.control<QAbstractItemView>("DebugList");
        QTRY_VERIFY(rowsOf(trace).contains("Quillmark : Quillmark Finished"));
        QVERIFY(rowsOf(trace).size() <= 52);
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
            QTRY_VERIFY(program.messages().contains(end));
            QCOMPARE(program.messages().contains("Unable to connect"), !yes);
            QVERIFY(!program.messages().contains("Stopping Quillmark...Please Wait"));
            QCOMPARE(program.folder.read("Host.pro").find("#TRUSTED=" + server.fingerprint()) !=
                         std::string::npos,
                     yes);
        }
        const Answer none(QMessageBox::No);
        check(program);
        QTRY_VERIFY(program.messages().contains("Quillmark Finished"));
        QVERIFY(!none.acted());
    }

    void stopsAStalledHostAtOnce() {
        const FaultServer server("stalled-listing");
        TestProgram program;
        prepare(program, server.login(), "/index.html");
        // The listing is what stalls; before it, an abort has words of its own.
        const WhenPosted stop(program, "Getting Directory For /", [&program] {
            QVERIFY(!program.control("cmdStart").isEnabled());
            QCOMPARE(program.window().windowTitle(), "Quillmark checking...");
            QCOMPARE(program.window().focusWidget()->objectName(), "cmdStop");
            QCOMPARE(program.control<ElidedLabel>("lblOnShow").text(), "Checking Host");
            press(program.window(), "cmdStop");
        });
        check(program);
        // A deaf run would tell of the host's silence first.
        QTRY_COMPARE(saidAfterStop(program), 0);
        QCOMPARE(program.control<ResultsTree>("ListView1").emptyText(),
                 "The check was stopped. Choose a list to see what was found until then");
        QVERIFY(program.control("cmdStart").isEnabled());
        QVERIFY(program.control("cmdSave").isEnabled());
        program.control<QAction>("mnuShowPage").trigger();
        QCOMPARE(program.shell.opened.size(), 1U);
        const std::string page = program.folder.read("Quillmark-results.html");
        QVERIFY(page.find("\"finished\":0") != std::string::npos);
        QVERIFY(page.find("127.0.0.1") != std::string::npos); // The host of the checked profile.
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

    void staysAliveInALocalRunAndStops() {
        TestProgram program;
        const TempFolder site;
        std::string links;
        for (int i = 0; i < 3000; ++i) {
            const std::string name = "page" + std::to_string(i) + ".html";
            site.write(name, "<a href=\"index.html\">\r\n\r\n");
            links += "<a href=\"" + name + "\">\r\n";
        }
        const auto start = site.write("index.html", links + "\r\n");
        prepare(program, {}, ToBackSlashes(start.string()));
        QSet<QString> seen; // Each turn of the event loop shows another newest message.
        QTimer beat;
        connect(&beat, &QTimer::timeout, this, [&] {
            if (seen.size() < 4) {
                seen += program.messages().value(program.messages().size() - 1);
            } else {
                beat.stop();
                press(program.window(), "cmdStop");
            }
        });
        beat.start(0);
        check(program);
        QTRY_VERIFY(program.messages().contains("Quillmark Aborted"));
        const qsizetype said = saidAfterStop(program);
        QVERIFY2(said >= 0 && said < 10, qPrintable(QString::number(said)));
    }
};

} // namespace quillmark::test

QUILLMARK_WINDOW_TEST(RunningTest)
#include "RunningTest.moc"
