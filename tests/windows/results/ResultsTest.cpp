#include "windows/results/Bench.h"
#include "windows/support/Answers.h"

#include <QClipboard>
#include <QLabel>
#include <QLineEdit>

#include <filesystem>
#include <memory>

namespace quillmark::test {

namespace fs = std::filesystem;

class ResultsTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        bench_ = std::make_unique<Bench>();
        QVERIFY(QTest::qWaitForWindowActive(&bench_->frame));
    }
    void cleanup() { bench_.reset(); }

    void rowsFollowTheSelectorsAndTheRun() {
        QCOMPARE(bench_->caption(), "Display List");
        bench_->frame.enterNoResults();
        QCOMPARE(bench_->caption(), "");
        QVERIFY(!bench_->the<QComboBox>("cmbSort").isEnabled());
        bench_->frame.enableSelectors();
        QCOMPARE(bench_->rows(), "");
        // The entry on show, chosen again.
        auto& display = bench_->the<QComboBox>("cmbDisplay");
        QTest::mouseClick(&display, Qt::LeftButton);
        QTest::keyClick(display.view(), Qt::Key_Return);
        QCOMPARE(bench_->caption(), "Host Directory Listing (1 Entries)");
        bench_->choose("cmbDisplay", 1);
        QCOMPARE(bench_->rows(), "b.html a&b.gif \u00E9.html A.TXT");
        bench_->choose("cmbSort", 1);
        QCOMPARE(bench_->rows(), "A.TXT a&b.gif b.html \u00E9.html");
        bench_->choose("cmbMask", 1);
        QCOMPARE(bench_->rows(), "b.html \u00E9.html");
        QCOMPARE(bench_->caption(), "Host File Listing (2 Files)");
        bench_->frame.enterNoResults();
        QCOMPARE(bench_->view().model()->columnCount(), 0);
    }

    void theLastChoiceWinsWhileAListIsBuilt() {
        bench_->progress.hook = [this] { bench_->choose("cmbDisplay", 2); };
        bench_->choose("cmbDisplay", 1);
        QCOMPARE(bench_->caption(), "Host References (2 Files)");
        bench_->progress.hook = [this] { bench_->frame.enterNoResults(); };
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
        QCOMPARE(bench_->frame.columnWidths(), (std::vector<int>{0, 0, 123, 0, 222, 0, 0}));
    }

    void findsAndCopies() {
        bench_->choose("cmbDisplay", 2);
        QTest::keyClick(&bench_->view(), Qt::Key_F, Qt::ControlModifier);
        auto& text = bench_->the<QLineEdit>("txtFind");
        QVERIFY(text.isVisible());
        const auto current = [this] { return bench_->view().currentIndex().row(); };
        QTest::keyClicks(&text, "ELSE.");
        QCOMPARE(current(), 1);
        text.clear();
        QTest::keyClicks(&text, "/x/");
        QCOMPARE(current(), 1);
        QTest::keyClick(&text, Qt::Key_Return);
        QCOMPARE(current(), 0);
        QTest::keyClick(&text, Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(current(), 1);
        QTest::keyClick(&text, Qt::Key_F3);
        QCOMPARE(current(), 0);
        QTest::keyClicks(&text, "y");
        QCOMPARE(bench_->the<QLabel>("lblFound").text(), "No match");
        QTest::keyClick(&text, Qt::Key_Escape);
        QVERIFY(!text.isVisible() && bench_->view().hasFocus());
        bench_->view().selectAll();
        QTest::keyClick(&bench_->view(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 "/x/one.html\t(base file)\n/x/two.gif\thttp://else.where/");
    }

    void theMenuNamesItsTargets() {
        bench_->rightClick({50, 50});
        QCOMPARE(bench_->captions(), QStringList(6, QString()));
        bench_->menu().close();
        bench_->choose("cmbDisplay", 1);
        bench_->rightClick(bench_->middleOf(1));
        const QString file = QString::fromStdString(bench_->backslashed("a&&b.gif"));
        QCOMPARE(bench_->captions(),
                 QStringList({"View " + file, "Delete " + file, "", "", "Move " + file, ""}));
        bench_->menu().close();
        bench_->all.workspace.run.localMode = false;
        bench_->all.workspace.run.baseUrl = "http://my.site";
        bench_->choose("cmbDisplay", 2);
        bench_->rightClick(bench_->middleOf(1));
        QCOMPARE(bench_->captions(),
                 QStringList({"View http://my.site/x/two.gif", "Delete /x/two.gif",
                              "View http://else.where/", "", "", ""}));
        bench_->press("mnuViewURL2");
        QCOMPARE(bench_->all.shell.opened, std::vector<std::string>{"http://else.where/"});
    }

    void aLongCaptionFitsTheScreen() {
        bench_->all.workspace.lists.UnusedList.Append(std::string(900, 'w'));
        bench_->choose("cmbDisplay", 3);
        bench_->rightClick(bench_->middleOf(0));
        QVERIFY(bench_->menu().width() < bench_->frame.screen()->size().width());
        QCOMPARE(bench_->the<QAction>("mnuViewURL1").toolTip(), "View " + QString(900, 'w'));
    }

    void doubleClickAndEnterView() {
        bench_->choose("cmbDisplay", 1);
        QTest::mouseClick(bench_->view().viewport(), Qt::LeftButton, {}, bench_->middleOf(3));
        QTest::mouseDClick(bench_->view().viewport(), Qt::LeftButton, {}, bench_->middleOf(3));
        QTest::keyClick(&bench_->view(), Qt::Key_Up);
        QTest::keyClick(&bench_->view(), Qt::Key_Return);
        QCOMPARE(bench_->all.shell.opened,
                 (std::vector<std::string>{bench_->backslashed("A.TXT"),
                                           bench_->backslashed("\xE9.html")}));
    }

    void deletesOnlyWhatIsConfirmed() {
        const fs::path file = bench_->all.folder.write("site/a&b.gif", "x");
        bench_->choose("cmbDisplay", 1);
        bench_->rightClick(bench_->middleOf(1));
        Answer no(QMessageBox::No);
        bench_->press("mnuDeleteFile1");
        QCOMPARE(no.text(),
                 "Delete " + QString::fromStdString(bench_->backslashed("a&b.gif")) + "?");
        QVERIFY(fs::exists(file));
        bench_->rightClick(bench_->middleOf(1));
        Answer yes(QMessageBox::Yes);
        bench_->press("mnuDeleteFile1");
        QVERIFY(yes.acted() && !fs::exists(file));
        QCOMPARE(bench_->rows(), "b.html a&b.gif \u00E9.html A.TXT");
        QVERIFY(bench_->lastMessage().empty());
    }

    void tellsThatAFolderStays() { expectRefusal(true, "File not found"); }
    void tellsWhatTheHostRefuses() { expectRefusal(false, "No /"); }

    void movesToTheChosenPlaceOrNowhere() {
        const fs::path source = bench_->all.folder.write("site/b.html", "moved");
        const fs::path target = bench_->all.folder.write("other/b.html", "older");
        bench_->all.dialogs.answers = {std::nullopt, source, target};
        bench_->choose("cmbDisplay", 1);
        const auto move = [this] {
            bench_->rightClick(bench_->middleOf(0));
            bench_->press("mnuMoveFile1");
        };
        move();
        move();
        QVERIFY(bench_->lastMessage().empty());
        QVERIFY(fs::exists(source));
        move();
        QCOMPARE(bench_->lastMessage(),
                 "File " + bench_->backslashed("b.html") + " Moved To " + target.string());
        QVERIFY(!fs::exists(source));
        QCOMPARE(bench_->all.folder.read("other/b.html"), "moved");
        const SaveQuestion& asked = bench_->all.dialogs.asked.front();
        QCOMPARE(asked.title, "Select Move Location");
        QCOMPARE(asked.filters, QStringList{"All Files (*.*)"});
        QCOMPARE(asked.proposed, source);
    }

private:
    /// Confirms the deletion of the folder's row.
    void expectRefusal(bool local, const QString& reason) {
        const fs::path inside = bench_->all.folder.write("site/img/x.gif", "x");
        bench_->all.workspace.run.localMode = local;
        bench_->frame.ShowResults();
        bench_->rightClick(bench_->middleOf(0));
        const Answer yes(QMessageBox::Yes);
        QString told;
        const WhenModal ok(
            [](QWidget& window) {
                const auto* box = qobject_cast<QMessageBox*>(&window);
                return box != nullptr && box->standardButtons() == QMessageBox::Ok;
            },
            [&](QWidget& window) {
                told = dynamic_cast<QMessageBox&>(window).text();
                window.close();
            });
        bench_->press("mnuDeleteFile1");
        QVERIFY2(told.startsWith("An error has occurred: " + reason), qPrintable(told));
        QVERIFY(fs::exists(inside));
        QCOMPARE(bench_->hostWorks, local ? 0 : 1);
        QVERIFY(!bench_->refusing.connected());
    }

    std::unique_ptr<Bench> bench_;
};

} // namespace quillmark::test

QTEST_MAIN(quillmark::test::ResultsTest)
#include "ResultsTest.moc"
