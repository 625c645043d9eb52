#include "ui/results/ItemActions.h"
#include "windows/results/DisplayFrame.h"
#include "windows/results/ResultsTree.h"
#include "windows/support/TestContext.h"

#include <new>
#include <stdexcept>

namespace quillmark::test {

namespace fs = std::filesystem;

/// The frame over a small local site.
struct Bench {
    Bench() {
        ResultLists& lists = all.workspace.lists;
        all.workspace.run.localMode = true;
        lists.DirectoryList.Append(site("img/"));
        for (const char* name : {"b.html", "a&b.gif", "\xE9.html", "A.TXT"}) {
            lists.FileList.Append(site(name));
        }
        for (const auto& [file, from] : {std::pair("/x/one.html", "(base file)"),
                                         std::pair("/x/two.gif", "http://else.where/")}) {
            lists.ReferenceList.Append(file);
            lists.ReferenceListFrom.Append(from);
        }
        frame.resize(700, 400);
        frame.show();
        frame.activateWindow();
    }

    std::string site(const std::string& name) const {
        return (all.folder.path() / "site" / name).string();
    }
    std::string backslashed(const std::string& name) const { return ToBackSlashes(site(name)); }
    template <typename Kind> Kind& the(const char* name) { return child<Kind>(frame, name); }
    QTreeView& view() { return the<QTreeView>("ListView1"); }
    QString caption() { return the<QGroupBox>("Frame2").title(); }
    void choose(const char* selector, int entry) { test::choose(the<QComboBox>(selector), entry); }
    /// The file names of the rows' first column.
    QString rows() {
        return rowsOf(view()).replaceInStrings(QRegularExpression(".*/"), "").join(' ');
    }
    QPoint middleOf(int row, int column = 0) {
        return view().visualRect(view().model()->index(row, column)).center();
    }
    QString tipOf(int row) {
        QHelpEvent event(QEvent::ToolTip, middleOf(row), view().viewport()->mapToGlobal(QPoint()));
        QApplication::sendEvent(view().viewport(), &event);
        return QToolTip::text();
    }
    /// Presses the right button, as the window system tells of it.
    void rightClick(int row) {
        const QPoint inWindow = view().viewport()->mapTo(&frame, middleOf(row));
        QTest::mouseClick(frame.windowHandle(), Qt::RightButton, {}, inWindow);
    }
    QMenu& menu() { return the<QMenu>("mnuRightClick"); }
    /// What is in sight in the menu of a row; "|" between two groups.
    QStringList captionsOf(int row) {
        rightClick(row);
        QStringList texts;
        for (QAction* action : menu().actions()) {
            if (!menu().actionGeometry(action).isEmpty()) {
                texts += action->isSeparator() ? "|" : action->text();
            }
        }
        menu().close();
        return texts;
    }
    /// Chooses a command of a row's menu with the mouse.
    void press(const char* command, int row) {
        rightClick(row);
        QTest::mouseClick(&menu(), Qt::LeftButton, {},
                          menu().actionGeometry(&the<QAction>(command)).center());
    }

    TestContext all;
    int hostWorks = 0;
    DisplayFrame frame{all.context, [this](const std::function<void()>& work) {
                           ++hostWorks;
                           work();
                       }};
};

class ResultsTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        bench_ = std::make_unique<Bench>();
        QVERIFY(QTest::qWaitForWindowActive(&bench_->frame, Patience));
    }
    void cleanup() { bench_.reset(); }

    void rowsFollowTheSelectorsAndTheRun() {
        bench_->frame.enterNoResults();
        QCOMPARE(bench_->caption(), "");
        QVERIFY(!bench_->the<QComboBox>("cmbSort").isEnabled());
        bench_->frame.enableSelectors("Stopped");
        QCOMPARE(bench_->rows(), "");
        QCOMPARE(bench_->the<ResultsTree>("ListView1").emptyText(), "Stopped");
        // The entry on show, chosen again.
        auto& display = bench_->the<QComboBox>("cmbDisplay");
        QTest::mouseClick(&display, Qt::LeftButton);
        QTest::keyClick(display.view(), Qt::Key_Return);
        QCOMPARE(bench_->caption(), "Host Directory Listing (1 Entries)");
        bench_->choose("cmbDisplay", 1);
        QCOMPARE(bench_->rows(), "b.html a&b.gif \u00E9.html A.TXT");
        bench_->choose("cmbSort", 1);
        bench_->choose("cmbMask", 1);
        QCOMPARE(bench_->rows(), "b.html \u00E9.html");
        QCOMPARE(bench_->caption(), "Host File Listing (2 Files)");
        bench_->choose("cmbMask", 0);
        QCOMPARE(bench_->rows(), "A.TXT a&b.gif b.html \u00E9.html");
        bench_->frame.enterNoResults();
        QCOMPARE(bench_->view().model()->columnCount(), 0);
    }

    void theLastChoiceWinsWhileAListIsBuilt() {
        int built = 0;
        bench_->all.progress.onTitle = [this, &built](std::string_view /*title*/) {
            if (++built == 1) {
                bench_->choose("cmbDisplay", 2);
            } else if (built == 3) {
                bench_->frame.enterNoResults();
            }
        };
        bench_->choose("cmbDisplay", 1);
        QCOMPARE(bench_->caption(), "Host References (2 Files)");
        QCOMPARE(built, 2);
        bench_->choose("cmbDisplay", 1);
        QCOMPARE(bench_->caption() + bench_->rows(), "");
    }

    void keepsOneWidthForEachDisplay() {
        bench_->frame.setColumnWidths({0, 0, 123});
        bench_->choose("cmbDisplay", 2);
        QCOMPARE(bench_->view().columnWidth(0), 123);
        bench_->choose("cmbDisplay", 4);
        QCOMPARE(bench_->view().columnWidth(0), bench_->view().viewport()->width() / 2);
        bench_->view().setColumnWidth(0, 222);
        bench_->choose("cmbDisplay", 1);
        QCOMPARE(bench_->frame.columnWidths(),
                 (std::vector<int>{0, 0, 123, 0, 222, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    }

    void findsAndCopies() {
        bench_->choose("cmbDisplay", 2);
        QTest::keyClick(&bench_->view(), Qt::Key_F, Qt::ControlModifier);
        auto& text = bench_->the<QLineEdit>("txtFind");
        const auto current = [this] { return bench_->view().currentIndex().row(); };
        QTest::keyClicks(&text, "ELSE.");
        QCOMPARE(current(), 1);
        text.clear();
        QTest::keyClicks(&text, "/x/");
        QCOMPARE(current(), 1);
        QTest::keyClick(&text, Qt::Key_Return);
        QCOMPARE(current(), 0);
        QTest::keyClick(&text, Qt::Key_F3, Qt::ShiftModifier);
        QCOMPARE(current(), 1);
        QTest::keyClicks(&text, "y");
        QCOMPARE(bench_->the<QLabel>("lblFound").text(), "No match");
        QTest::keyClick(&text, Qt::Key_Escape);
        QVERIFY(!text.isVisible() && bench_->view().hasFocus());
        bench_->view().selectAll();
        QTest::keyClick(&bench_->view(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 "/x/one.html\t(base file)\n/x/two.gif\thttp://else.where/");
    }

    void showsTheEndsOfALongTextAndCopiesTheWhole() {
        const std::string whole = "A" + std::string(1 << 20, '\xE4') + "Z";
        bench_->all.workspace.lists.UnusedList.Append(whole);
        bench_->choose("cmbDisplay", 3);
        const QString text = bench_->view().model()->index(0, 0).data().toString();
        QVERIFY(text.startsWith("A\u00E4") && text.endsWith("\u00E4Z") && text.size() < 5000);
        bench_->frame.focusResults();
        QTest::keyClick(&bench_->view(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text().size(), qsizetype(whole.size()));
    }

    void theMenuNamesItsTargets() {
        QCOMPARE(bench_->captionsOf(0), QStringList("No row is selected"));
        for (const char* command : {"mnuViewURL1", "mnuDeleteFile1", "mnuMoveFile1", "mnuViewURL2",
                                    "mnuDeleteFile2", "mnuMoveFile2"}) {
            QCOMPARE(bench_->the<QAction>(command).text(), "");
        }
        bench_->choose("cmbDisplay", 1);
        const QString file = QString::fromStdString(bench_->backslashed("a&&b.gif"));
        QCOMPARE(bench_->captionsOf(1),
                 QStringList({"View " + file, "Delete " + file, "Move " + file}));
        bench_->view().selectAll();
        QCOMPARE(bench_->captionsOf(1).first(2),
                 QStringList({"Of the 4 selected rows, this one:", "|"}));
        bench_->all.workspace.run.localMode = false;
        bench_->all.workspace.run.baseUrl = "http://my.site";
        bench_->choose("cmbDisplay", 2);
        QCOMPARE(bench_->captionsOf(1),
                 QStringList({"View http://my.site/x/two.gif", "Delete /x/two.gif", "|",
                              "View http://else.where/"}));
        bench_->press("mnuViewURL2", 1);
        QCOMPARE(bench_->all.shell.opened, Lines{"http://else.where/"});
    }

    void doubleClickAndEnterViewTheCell() {
        bench_->choose("cmbDisplay", 2);
        for (const int column : {0, 1}) {
            const QPoint cell = bench_->middleOf(1, column);
            QTest::mouseClick(bench_->view().viewport(), Qt::LeftButton, {}, cell);
            QTest::mouseDClick(bench_->view().viewport(), Qt::LeftButton, {}, cell);
        }
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Left, Qt::Key_Right}) {
            QTest::keyClick(&bench_->view(), key);
            QTest::keyClick(&bench_->view(), Qt::Key_Return);
        }
        QCOMPARE(bench_->all.shell.opened, (Lines{"\\x\\two.gif", "http://else.where/",
                                                  "(base file)", "\\x\\one.html", "(base file)"}));
    }

    void aRowReachedByKeysIsSelected() {
        bench_->choose("cmbDisplay", 1);
        QVERIFY(!bench_->view().selectionModel()->hasSelection());
        bench_->the<QComboBox>("cmbSort").setFocus();
        QTest::keyClick(&bench_->the<QComboBox>("cmbSort"), Qt::Key_Tab);
        QVERIFY(bench_->view().hasFocus());
        QCOMPARE(bench_->view().selectionModel()->selectedRows(),
                 {bench_->view().model()->index(0, 0)});
    }

    void startsAProgramOnlyWhenTheUserSaysSo() {
        const std::string program = bench_->backslashed("a&b.gif");
        bench_->all.shell.program = program;
        bench_->choose("cmbDisplay", 1);
        for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
            QString preset;
            const Answer answer(button, [&preset](const QMessageBox& box) {
                preset = box.defaultButton()->text();
            });
            bench_->press("mnuViewURL1", 1);
            QVERIFY(answer.text().startsWith(QString::fromStdString(program) + "\n"));
            QCOMPARE(preset, "&No");
            QCOMPARE(bench_->all.shell.opened.size(), button == QMessageBox::Yes ? 1U : 0U);
        }
    }

    void noExceptionGoesThroughTheEventLoop() {
        const std::vector<std::pair<std::function<void()>, QString>> failures = {
            {[] { throw fileNotFound("/x"); }, "File not found: /x"},
            {[] { throw std::bad_alloc(); }, "Out of memory"},
            {[] { throw std::length_error("too long"); }, "too long"}};
        bench_->choose("cmbDisplay", 1);
        for (const auto& [failing, told] : failures) {
            bench_->all.shell.failing = failing;
            const Answer answer(QMessageBox::Ok);
            bench_->press("mnuViewURL1", 1);
            QCOMPARE(answer.text(), "An error has occurred: " + told);
        }
    }

    void longNamesAndWhatLooksLikeMarkUpShowInToolTips() {
        const QString name = QString("<img src=x.gif>").repeated(40);
        bench_->all.workspace.lists.UnusedList.Append(name.toStdString());
        bench_->choose("cmbDisplay", 3);
        bench_->rightClick(0);
        QVERIFY(bench_->menu().width() < bench_->frame.screen()->size().width());
        const QString ofMenu = bench_->the<QAction>("mnuViewURL1").toolTip();
        bench_->menu().close();
        for (const QString& tip : {bench_->tipOf(0), ofMenu}) {
            QVERIFY2(tip.contains(name.toHtmlEscaped()) && !tip.contains("<img"), qPrintable(tip));
        }
    }

    void deletesOnlyWhatIsConfirmed() {
        const fs::path file = bench_->all.folder.write("site/a&b.gif", "x");
        bench_->choose("cmbDisplay", 1);
        for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
            const Answer answer(button);
            bench_->press("mnuDeleteFile1", 1);
            QCOMPARE(answer.text().toStdString(), "Delete " + bench_->backslashed("a&b.gif") + "?");
            QCOMPARE(fs::exists(file), button == QMessageBox::No);
        }
        QCOMPARE(bench_->rows(), "b.html a&b.gif \u00E9.html A.TXT");
        QVERIFY(bench_->all.messages.normals.empty());
    }

    /// A folder stays on the disk, and on a host that refuses.
    void tellsWhatIsNotDeleted() {
        const fs::path inside = bench_->all.folder.write("site/img/x.gif", "x");
        bench_->all.host.lostAt = bench_->site("img/");
        bench_->frame.ShowResults();
        for (const bool local : {true, false}) {
            bench_->all.workspace.run.localMode = local;
            const YesAndError told;
            bench_->press("mnuDeleteFile1", 0);
            const QString reason = local ? "File not found: /" : "Connection lost";
            QVERIFY2(told.error.startsWith("An error has occurred: " + reason),
                     qPrintable(told.error));
            QVERIFY(fs::exists(inside));
            QCOMPARE(bench_->hostWorks, local ? 0 : 1);
            QVERIFY(!bench_->all.host.connected());
        }
    }

    void movesToTheChosenPlaceOrNowhere() {
        const fs::path source = bench_->all.folder.write("site/b.html", "moved");
        const fs::path target = bench_->all.folder.write("other/b.html", "older");
        bench_->all.dialogs.answers = {std::nullopt, source, target};
        bench_->choose("cmbDisplay", 1);
        for (int i = 0; i < 3; ++i) {
            QVERIFY(fs::exists(source) && bench_->all.messages.normals.empty());
            QCOMPARE(bench_->all.folder.read("other/b.html"), "older");
            bench_->press("mnuMoveFile1", 0);
        }
        QCOMPARE(bench_->all.messages.normals,
                 Lines{"File " + bench_->backslashed("b.html") + " Moved To " + target.string()});
        QVERIFY(!fs::exists(source));
        QCOMPARE(bench_->all.folder.read("other/b.html"), "moved");
        QCOMPARE(bench_->all.dialogs.asked.front().title, "Select Move Location");
        QCOMPARE(bench_->all.dialogs.asked.front().proposed, source);
    }

private:
    std::unique_ptr<Bench> bench_;
};

} // namespace quillmark::test

QUILLMARK_WINDOW_TEST(ResultsTest)
#include "ResultsTest.moc"
