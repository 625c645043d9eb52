#include "support/Lists.h"
#include "support/RunFakes.h"
#include "windows/results/DisplayFrame.h"
#include "windows/support/Answers.h"
#include "windows/support/TestContext.h"

#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTreeView>

#include <filesystem>
#include <memory>
#include <utility>

namespace quillmark::test {

namespace fs = std::filesystem;

namespace {

/// A host that refuses every deletion.
class RefusingHost : public FolderHost {
public:
    void removeDirectory(std::string_view directory) override {
        throw Failure(1099, "No " + std::string(directory));
    }
};

/// Lets something happen while a list is being built, as the real indicator does.
class HookedProgress : public QuietProgress {
public:
    void UpdateThinking(int /*current*/, int /*total*/) override {
        std::exchange(hook, [] {})();
    }
    std::function<void()> hook = [] {};
};

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
    template <typename Kind> Kind& the(const char* name) { return *frame.findChild<Kind*>(name); }
    QTreeView& view() { return the<QTreeView>("ListView1"); }
    QString caption() { return the<QGroupBox>("Frame2").title(); }
    void choose(const char* selector, int entry) {
        QTest::keyClick(&the<QComboBox>(selector), Qt::Key_Home);
        for (int i = 0; i < entry; ++i) {
            QTest::keyClick(&the<QComboBox>(selector), Qt::Key_Down);
        }
    }
    /// The file names of the rows' first column.
    QString rows() {
        QStringList names;
        for (int row = 0; row < view().model()->rowCount(); ++row) {
            names += view().model()->index(row, 0).data().toString().section('/', -1);
        }
        return names.join(' ');
    }
    QPoint middleOf(int row) { return view().visualRect(view().model()->index(row, 0)).center(); }
    /// Presses the right button, as the window system tells of it.
    void rightClick(int row) {
        const QPoint inWindow = view().viewport()->mapTo(&frame, middleOf(row));
        QTest::mouseClick(frame.windowHandle(), Qt::RightButton, {}, inWindow);
    }
    QMenu& menu() { return the<QMenu>("mnuRightClick"); }
    /// What the menu of a row offers; "?" behind what is wrongly enabled or not.
    QStringList captionsOf(int row) {
        rightClick(row);
        QStringList texts;
        for (const QAction* action : menu().actions()) {
            texts += action->text() + (action->isEnabled() == action->text().isEmpty() ? "?" : "");
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
    Lines messages() const { return linesOf(all.workspace.lists.Message); }

    TestContext all;
    RefusingHost refusing;
    HookedProgress progress;
    WindowContext context{all.workspace, all.files,   all.messages,     progress,
                          all.disk,      refusing,    all.mover,        all.shell,
                          all.dialogs,   all.printer, all.folder.path()};
    int hostWorks = 0;
    DisplayFrame frame{context, [this](const std::function<void()>& work) {
                           ++hostWorks;
                           work();
                       }};
};

} // namespace

class ResultsTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        bench_ = std::make_unique<Bench>();
        QVERIFY(QTest::qWaitForWindowActive(&bench_->frame));
    }
    void cleanup() { bench_.reset(); }

    void rowsFollowTheSelectorsAndTheRun() {
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
        bench_->choose("cmbMask", 1);
        QCOMPARE(bench_->rows(), "b.html \u00E9.html");
        QCOMPARE(bench_->caption(), "Host File Listing (2 Files)");
        bench_->choose("cmbMask", 0);
        QCOMPARE(bench_->rows(), "A.TXT a&b.gif b.html \u00E9.html");
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

    void theMenuNamesItsTargets() {
        QCOMPARE(bench_->captionsOf(0), QStringList(6, QString()));
        bench_->choose("cmbDisplay", 1);
        const QString file = QString::fromStdString(bench_->backslashed("a&&b.gif"));
        QCOMPARE(bench_->captionsOf(1),
                 QStringList({"View " + file, "Delete " + file, "", "", "Move " + file, ""}));
        bench_->all.workspace.lists.UnusedList.Append(std::string(900, 'w'));
        bench_->choose("cmbDisplay", 3);
        bench_->rightClick(0);
        QVERIFY(bench_->menu().width() < bench_->frame.screen()->size().width());
        QCOMPARE(bench_->the<QAction>("mnuViewURL1").toolTip(), "View " + QString(900, 'w'));
        bench_->menu().close();
        bench_->all.workspace.run.localMode = false;
        bench_->all.workspace.run.baseUrl = "http://my.site";
        bench_->choose("cmbDisplay", 2);
        QCOMPARE(bench_->captionsOf(1),
                 QStringList({"View http://my.site/x/two.gif", "Delete /x/two.gif",
                              "View http://else.where/", "", "", ""}));
        bench_->press("mnuViewURL2", 1);
        QCOMPARE(bench_->all.shell.opened, std::vector<std::string>{"http://else.where/"});
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
        for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
            const Answer answer(button);
            bench_->press("mnuDeleteFile1", 1);
            QCOMPARE(answer.text().toStdString(), "Delete " + bench_->backslashed("a&b.gif") + "?");
            QCOMPARE(fs::exists(file), button == QMessageBox::No);
        }
        QCOMPARE(bench_->rows(), "b.html a&b.gif \u00E9.html A.TXT");
        QVERIFY(bench_->messages().empty());
    }

    /// A folder stays on the disk, and on a host that refuses.
    void tellsWhatIsNotDeleted() {
        const fs::path inside = bench_->all.folder.write("site/img/x.gif", "x");
        bench_->frame.ShowResults();
        for (const bool local : {true, false}) {
            bench_->all.workspace.run.localMode = local;
            QString told;
            const Answer yes(QMessageBox::Yes);
            const WhenModal error([&yes](QWidget&) { return yes.acted(); },
                                  [&told](QWidget& box) {
                                      told = dynamic_cast<QMessageBox&>(box).text();
                                      box.close();
                                  });
            bench_->press("mnuDeleteFile1", 0);
            const QString reason = local ? "File not found" : "No /";
            QVERIFY2(told.startsWith("An error has occurred: " + reason), qPrintable(told));
            QVERIFY(fs::exists(inside));
            QCOMPARE(bench_->hostWorks, local ? 0 : 1);
            QVERIFY(!bench_->refusing.connected());
        }
    }

    void movesToTheChosenPlaceOrNowhere() {
        const fs::path source = bench_->all.folder.write("site/b.html", "moved");
        const fs::path target = bench_->all.folder.write("other/b.html", "older");
        bench_->all.dialogs.answers = {std::nullopt, source, target};
        bench_->choose("cmbDisplay", 1);
        for (int i = 0; i < 3; ++i) {
            QVERIFY(fs::exists(source) && bench_->messages().empty());
            QCOMPARE(bench_->all.folder.read("other/b.html"), "older");
            bench_->press("mnuMoveFile1", 0);
        }
        QCOMPARE(bench_->messages(),
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

QTEST_MAIN(quillmark::test::ResultsTest)
#include "ResultsTest.moc"
