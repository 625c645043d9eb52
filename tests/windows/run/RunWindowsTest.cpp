#include "windows/run/ThinkingWindow.h"
#include "windows/run/TrustQuestion.h"
#include "windows/run/frmDebug.h"
#include "windows/shared/Text.h"
#include "windows/support/TestContext.h"

#include <QClipboard>
#include <QListView>
#include <QProgressBar>

namespace quillmark::test {

namespace {

/// Without a display every window that opens becomes the active one; a window manager leaves the
/// keyboard where it is.
bool takesNoKeyboard(const QWidget& window) {
    return window.testAttribute(Qt::WA_ShowWithoutActivating) && !window.isModal();
}

/// A main window with the trace window over it.
struct TraceBench {
    TraceBench() { window.show(); }
    void trace(std::string_view text) {
        parts.workspace.trace.Trace(text);
        window.refresh();
    }

    TestContext parts;
    QWidget main;
    frmDebug window{parts.context, &main};
    QListView& list = child<QListView>(window, "DebugList");
    QAction& save = child<QAction>(window, "mnuSaveTrace");
};

} // namespace

/// The windows that a run opens beside the main window.
class RunWindowsTest : public QObject {
    Q_OBJECT

private slots:
    void asksWhetherToTrustAHost() {
        HostIdentity identity;
        identity.names = {"<b>host</b>"};
        identity.validUntil = "Jan 31 12:00:00 2030 GMT";
        identity.sha256[31] = 0xAB;
        for (const bool yes : {true, false}) {
            const Answer answer(yes ? QMessageBox::Yes : QMessageBox::No, [](QMessageBox& box) {
                QCOMPARE(box.textFormat(), Qt::PlainText);
                QCOMPARE(box.defaultButton(), box.button(QMessageBox::No));
                keepPicture(box, "trust-certificate");
            });
            QCOMPARE(asksToTrust(nullptr, identity), yes);
            for (const char* part :
                 {"<b>host</b>", "Jan 31 12:00:00 2030 GMT", "\n00:00:", ":00:AB\n"}) {
                QVERIFY2(answer.text().contains(part), part);
            }
        }
    }

    void tellsOfAKeyThatChanged() {
        HostIdentity identity;
        identity.kind = HostIdentity::Kind::Key;
        identity.knownSha256 = Sha256{1};
        const Answer answer(QMessageBox::Ok, [](QMessageBox& box) {
            QCOMPARE(box.standardButtons(), QMessageBox::Ok);
            keepPicture(box, "trust-changed-key");
        });
        QVERIFY(!asksToTrust(nullptr, identity));
        for (const Sha256& key : {identity.sha256, *identity.knownSha256}) {
            QVERIFY(answer.text().contains(shown(keyFingerprint(key))));
        }
    }

    void traceShowsItsNewestLine() {
        TraceBench bench;
        QVERIFY(takesNoKeyboard(bench.window));
        for (int i = 0; i < 60; ++i) {
            bench.trace("line " + std::to_string(i));
        }
        const QModelIndex current = bench.list.currentIndex();
        QCOMPARE(bench.list.selectionModel()->selectedRows(), {current});
        QCOMPARE(current.data(), QString("line 59"));
        QVERIFY(bench.list.viewport()->rect().contains(bench.list.visualRect(current)));
        bench.parts.workspace.trace.Clear();
        bench.list.viewport()->repaint();
        bench.trace("a\r\nb \xE9\r\n");
        QCOMPARE(rowsOf(bench.list), QStringList({"a", QString("b ") + QChar(0xE9)}));
        bench.window.hide();
        bench.trace("c");
        bench.window.show();
        QCOMPARE(bench.list.currentIndex().data(), QString("c"));
    }

    void traceIsCopiedAndClosedByKeys() {
        TraceBench bench;
        bench.trace("a\r\nb\r\n");
        bench.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&bench.window, Patience));
        bench.list.setFocus();
        QTest::keyClick(&bench.list, Qt::Key_Up, Qt::ShiftModifier);
        QTest::keyClick(&bench.list, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("a\nb"));
        QTest::keyClick(&bench.list, Qt::Key_Escape);
        QVERIFY(!bench.window.isVisible());
    }

    void traceSaveGoesThroughTheDialog() {
        TraceBench bench;
        bench.parts.dialogs.answers = {bench.parts.folder.path() / "t.txt", std::nullopt};
        bench.window.setSaveEnabled(false);
        bench.save.trigger();
        QVERIFY(bench.parts.dialogs.asked.empty());
        bench.window.setSaveEnabled(true);
        bench.save.trigger();
        bench.save.trigger();
        QCOMPARE(bench.parts.folder.read("t.txt"), std::string("Quillmark Version 3.5.0\r\n"));
        const QString unable = "Unable to save trace window";
        QCOMPARE(rowsOf(bench.list), QStringList({unable, unable}));
        QCOMPARE(bench.parts.dialogs.asked.front().proposed.string(), "trace");
        QCOMPARE(bench.parts.dialogs.asked.front().extension, "txt");
    }

    void progressIsShownOverItsOwner() {
        QWidget main;
        main.setGeometry(100, 100, 600, 400);
        main.show();
        ThinkingWindow progress;
        progress.setOwner(&main);
        progress.InitializeThinking("Checking References");
        auto& window = *main.findChild<frmThinking*>();
        const auto& bar = *window.findChild<QProgressBar*>("ProgressBar1");
        const auto full = [&bar] { return bar.value() * 100.0 / bar.maximum(); };
        QVERIFY(window.isVisible() && takesNoKeyboard(window));
        QVERIFY(window.windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
        const QPoint aside = window.frameGeometry().center() - main.frameGeometry().center();
        QVERIFY(aside.manhattanLength() < 40);
        QCOMPARE(window.windowTitle(), QString("Checking References...PleaseWait"));
        progress.UpdateThinking(1, 3);
        QCOMPARE(full(), 33.3);
        progress.InitializeThinking("Checking for CGI Files");
        progress.UpdateThinking(30999, 31000);
        QCOMPARE(full(), 99.9);
        progress.RemoveThinking();
        QVERIFY(!window.isVisible());
        progress.InitializeThinking("Checking Unused Files");
        QVERIFY(window.isVisible());
        progress.UpdateThinking(2, 31000 * 20);
        QCOMPARE(full(), 0.0);
    }

    void progressNeedsAnOwner() {
        ThinkingWindow progress;
        const auto runPass = [&progress] {
            progress.InitializeThinking("Checking References");
            progress.UpdateThinking(1, 2);
            progress.RemoveThinking();
        };
        runPass();
        {
            QWidget main;
            progress.setOwner(&main);
            runPass();
        }
        runPass();
        QVERIFY(QApplication::topLevelWidgets().isEmpty());
    }
};

} // namespace quillmark::test

QUILLMARK_WINDOW_TEST(RunWindowsTest)
#include "RunWindowsTest.moc"
