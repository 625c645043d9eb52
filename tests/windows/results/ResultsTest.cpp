#include "ui/results/ItemActions.h"
#include "windows/results/DisplayFrame.h"
#include "windows/results/ResultsTree.h"
#include "windows/support/TestContext.h"

#include <QClipboard>
#include <QHelpEvent>
#include <QMenu>
#include <QRegularExpression>
#include <QToolTip>
#include <QTreeView>

#include <new>
#include <stdexcept>

namespace quillmark::test {

namespace fs = std::filesystem;

class ResultsTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        all_ = std::make_unique<TestContext>();
        ResultLists& lists = all_->workspace.lists;
        all_->workspace.run.localMode = true;
        lists.DirectoryList.Append(site("img/"));
        for (const char* name : {"b.html", "a&b.gif", "\xE9.html", "A.TXT"}) {
            lists.FileList.Append(site(name));
        }
        for (const auto& [file, from] : {std::pair("/x/one.html", "(base file)"),
                                         std::pair("/x/two.gif", "http://else.where/")}) {
            lists.ReferenceList.Append(file);
            lists.ReferenceListFrom.Append(from);
        }
        hostWorks_ = 0;
        frame_ = std::make_unique<DisplayFrame>(all_->context,
                                                [this](const std::function<void()>& work) {
                                                    ++hostWorks_;
                                                    work();
                                                });
        frame_->resize(700, 400);
        frame_->show();
        frame_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(frame_.get(), Patience));
    }
    void cleanup() { frame_.reset(); }

    void rowsFollowTheSelectorsAndTheRun() {
        frame_->enterNoResults();
        QCOMPARE(caption(), "");
        QVERIFY(!the<QComboBox>("cmbSort").isEnabled());
        frame_->enableSelectors("Stopped");
        QCOMPARE(rows(), "");
        QCOMPARE(the<ResultsTree>("ListView1").emptyText(), "Stopped");
        // The entry on show, chosen again.
        auto& display = the<QComboBox>("cmbDisplay");
        QTest::mouseClick(&display, Qt::LeftButton);
        QTest::keyClick(display.view(), Qt::Key_Return);
        QCOMPARE(caption(), "Host Directory Listing (1 Entries)");
        choose("cmbDisplay", 1);
        QCOMPARE(rows(), "b.html a&b.gif \u00E9.html A.TXT");
        choose("cmbSort", 1);
        choose("cmbMask", 1);
        QCOMPARE(rows(), "b.html \u00E9.html");
        QCOMPARE(caption(), "Host File Listing (2 Files)");
        choose("cmbMask", 0);
        QCOMPARE(rows(), "A.TXT a&b.gif b.html \u00E9.html");
        frame_->enterNoResults();
        QCOMPARE(view().model()->columnCount(), 0);
    }

    void theLastChoiceWinsWhileAListIsBuilt() {
        int built = 0;
        all_->progress.onTitle = [this, &built](std::string_view /*title*/) {
            if (++built == 1) {
                choose("cmbDisplay", 2);
            } else if (built == 3) {
                frame_->enterNoResults();
            }
        };
        choose("cmbDisplay", 1);
        QCOMPARE(caption(), "Host References (2 Files)");
        QCOMPARE(built, 2);
        choose("cmbDisplay", 1);
        QCOMPARE(caption() + rows(), "");
    }

    void keepsOneWidthForEachDisplay() {
        frame_->setColumnWidths({0, 0, 123});
        choose("cmbDisplay", 2);
        QCOMPARE(view().columnWidth(0), 123);
        choose("cmbDisplay", 4);
        QCOMPARE(view().columnWidth(0), view().viewport()->width() / 2);
        view().setColumnWidth(0, 222);
        choose("cmbDisplay", 1);
        QCOMPARE(frame_->columnWidths(),
                 (std::vector<int>{0, 0, 123, 0, 222, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    }

    void findsAndCopies() {
        all_->workspace.lists.ReferenceList.Append("/x/three.gif");
        all_->workspace.lists.ReferenceListFrom.Append("/x/one.html");
        choose("cmbDisplay", 2);
        QTest::keyClick(&view(), Qt::Key_F, Qt::ControlModifier);
        auto& text = the<QLineEdit>("txtFind");
        const auto current = [this] { return view().currentIndex().row(); };
        QTest::keyClicks(&text, "ELSE.");
        QCOMPARE(current(), 1);
        text.clear();
        QTest::keyClicks(&text, "one");
        QCOMPARE(current(), 2);
        QTest::keyClick(&text, Qt::Key_Return);
        QCOMPARE(current(), 0);
        for (const int found : {2, 0}) {
            QTest::keyClick(&text, Qt::Key_F3, Qt::ShiftModifier);
            QCOMPARE(current(), found);
        }
        QTest::keyClicks(&text, "y");
        QCOMPARE(the<QLabel>("lblFound").text(), "No match");
        QTest::keyClick(&text, Qt::Key_Escape);
        QVERIFY(!text.isVisible() && view().hasFocus());
        view().selectAll();
        QTest::keyClick(&view(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(
            QGuiApplication::clipboard()->text(),
            "/x/one.html\t(base file)\n/x/two.gif\thttp://else.where/\n/x/three.gif\t/x/one.html");
    }

    void showsTheEndsOfALongTextAndCopiesTheWhole() {
        const std::string whole = "A" + std::string(1 << 20, '\xE4') + "Z";
        all_->workspace.lists.UnusedList.Append(whole);
        choose("cmbDisplay", 3);
        const QString text = view().model()->index(0, 0).data().toString();
        QVERIFY(text.startsWith("A\u00E4") && text.endsWith("\u00E4Z") && text.size() < 5000);
        frame_->focusResults();
        QTest::keyClick(&view(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text().size(), qsizetype(whole.size()));
    }

    void theMenuNamesItsTargets() {
        QCOMPARE(captionsOf(0), QStringList("No row is selected"));
        for (const char* command : {"mnuViewURL1", "mnuDeleteFile1", "mnuMoveFile1", "mnuViewURL2",
                                    "mnuDeleteFile2", "mnuMoveFile2"}) {
            QCOMPARE(the<QAction>(command).text(), "");
        }
        choose("cmbDisplay", 1);
        const QString file = QString::fromStdString(backslashed("a&&b.gif"));
        QCOMPARE(captionsOf(1), QStringList({"View " + file, "Delete " + file, "Move " + file}));
        view().selectAll();
        QCOMPARE(captionsOf(1).first(2), QStringList({"Of the 4 selected rows, this one:", "|"}));
        all_->workspace.run.localMode = false;
        all_->workspace.run.baseUrl = "http://my.site";
        choose("cmbDisplay", 2);
        QCOMPARE(captionsOf(1), QStringList({"View http://my.site/x/two.gif", "Delete /x/two.gif",
                                             "|", "View http://else.where/"}));
        chooseCommand("mnuViewURL2", 1);
        QCOMPARE(all_->shell.opened, Lines{"http://else.where/"});
    }

    void doubleClickAndEnterViewTheCell() {
        choose("cmbDisplay", 2);
        for (const int column : {0, 1}) {
            const QPoint cell = middleOf(1, column);
            QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, cell);
            QTest::mouseDClick(view().viewport(), Qt::LeftButton, {}, cell);
        }
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Left, Qt::Key_Right}) {
            QTest::keyClick(&view(), key);
            QTest::keyClick(&view(), Qt::Key_Return);
        }
        QCOMPARE(all_->shell.opened, (Lines{"\\x\\two.gif", "http://else.where/", "(base file)",
                                            "\\x\\one.html", "(base file)"}));
    }

    void aRowReachedByKeysIsSelected() {
        choose("cmbDisplay", 1);
        QVERIFY(!view().selectionModel()->hasSelection());
        the<QComboBox>("cmbSort").setFocus();
        QTest::keyClick(&the<QComboBox>("cmbSort"), Qt::Key_Tab);
        QVERIFY(view().hasFocus());
        QCOMPARE(view().selectionModel()->selectedRows(), {view().model()->index(0, 0)});
    }

    void startsAProgramOnlyWhenTheUserSaysSo() {
        const std::string program = backslashed("a&b.gif");
        all_->shell.program = program;
        choose("cmbDisplay", 1);
        for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
            QString preset;
            const Answer answer(button, [&preset](const QMessageBox& box) {
                preset = box.defaultButton()->text();
            });
            chooseCommand("mnuViewURL1", 1);
            QVERIFY(answer.text().startsWith(QString::fromStdString(program) + "\n"));
            QCOMPARE(preset, "&No");
            QCOMPARE(all_->shell.opened.size(), button == QMessageBox::Yes ? 1U : 0U);
        }
    }

    void noExceptionGoesThroughTheEventLoop() {
        const std::vector<std::pair<std::function<void()>, QString>> failures = {
            {[] { throw fileNotFound("/x"); }, "File not found: /x"},
            {[] { throw std::bad_alloc(); }, "Out of memory"},
            {[] { throw std::length_error("too long"); }, "too long"}};
        choose("cmbDisplay", 1);
        for (const auto& [failing, told] : failures) {
            all_->shell.failing = failing;
            const Answer answer(QMessageBox::Ok);
            chooseCommand("mnuViewURL1", 1);
            QCOMPARE(answer.text(), "An error has occurred: " + told);
        }
    }

    void longNamesAndWhatLooksLikeMarkUpShowInToolTips() {
        const QString name = QString("<img src=x.gif>").repeated(40);
        all_->workspace.lists.UnusedList.Append(name.toStdString());
        choose("cmbDisplay", 3);
        rightClick(0);
        QVERIFY(menu().width() < frame_->screen()->size().width());
        const QString ofMenu = the<QAction>("mnuViewURL1").toolTip();
        menu().close();
        for (const QString& tip : {tipOf(0), ofMenu}) {
            QVERIFY2(tip.contains(name.toHtmlEscaped()) && !tip.contains("<img"), qPrintable(tip));
        }
    }

    void deletesOnlyWhatIsConfirmed() {
        const fs::path file = all_->folder.write("site/a&b.gif", "x");
        choose("cmbDisplay", 1);
        for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
            const Answer answer(button);
            chooseCommand("mnuDeleteFile1", 1);
            QCOMPARE(answer.text().toStdString(), "Delete " + backslashed("a&b.gif") + "?");
            QCOMPARE(fs::exists(file), button == QMessageBox::No);
        }
        QCOMPARE(rows(), "b.html a&b.gif \u00E9.html A.TXT");
        QVERIFY(all_->messages.normals.empty());
    }

    /// A folder stays on the disk, and on a host that refuses.
    void tellsWhatIsNotDeleted() {
        const fs::path inside = all_->folder.write("site/img/x.gif", "x");
        all_->host.lostAt = site("img/");
        frame_->ShowResults();
        for (const bool local : {true, false}) {
            all_->workspace.run.localMode = local;
            const YesAndError told;
            chooseCommand("mnuDeleteFile1", 0);
            const QString reason = local ? "File not found: /" : "Connection lost";
            QVERIFY2(told.error.startsWith("An error has occurred: " + reason),
                     qPrintable(told.error));
            QVERIFY(fs::exists(inside));
            QCOMPARE(hostWorks_, local ? 0 : 1);
            QVERIFY(!all_->host.connected());
        }
    }

    void movesToTheChosenPlaceOrNowhere() {
        const fs::path source = all_->folder.write("site/b.html", "moved");
        const fs::path target = all_->folder.write("other/b.html", "older");
        all_->dialogs.answers = {std::nullopt, source, target};
        choose("cmbDisplay", 1);
        for (int i = 0; i < 3; ++i) {
            QVERIFY(fs::exists(source) && all_->messages.normals.empty());
            QCOMPARE(all_->folder.read("other/b.html"), "older");
            chooseCommand("mnuMoveFile1", 0);
        }
        QCOMPARE(all_->messages.normals,
                 Lines{"File " + backslashed("b.html") + " Moved To " + target.string()});
        QVERIFY(!fs::exists(source));
        QCOMPARE(all_->folder.read("other/b.html"), "moved");
        QCOMPARE(all_->dialogs.asked.front().title, "Select Move Location");
        QCOMPARE(all_->dialogs.asked.front().proposed, source);
    }

private:
    std::string site(const std::string& name) const {
        return (all_->folder.path() / "site" / name).string();
    }
    std::string backslashed(const std::string& name) const { return ToBackSlashes(site(name)); }
    template <typename Kind> Kind& the(const char* name) { return child<Kind>(*frame_, name); }
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
        const QPoint inWindow = view().viewport()->mapTo(frame_.get(), middleOf(row));
        QTest::mouseClick(frame_->windowHandle(), Qt::RightButton, {}, inWindow);
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
    void chooseCommand(const char* command, int row) {
        rightClick(row);
        QTest::mouseClick(&menu(), Qt::LeftButton, {},
                          menu().actionGeometry(&the<QAction>(command)).center());
    }

    std::unique_ptr<TestContext> all_;
    std::unique_ptr<DisplayFrame> frame_; ///< Over a small local site.
    int hostWorks_ = 0;
};

} // namespace quillmark::test

QUILLMARK_WINDOW_TEST(ResultsTest)
#include "ResultsTest.moc"
