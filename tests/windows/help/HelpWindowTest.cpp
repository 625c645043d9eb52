#include "support/TempFolder.h"
#include "windows/help/frmHelp.h"
#include "windows/shared/Theme.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QTest>
#include <QTextBrowser>
#include <QToolButton>
#include <QWindow>

#include <memory>
#include <string>
#include <vector>

namespace quillmark::test {

namespace {

class RecordingShell : public Shell {
public:
    void open(std::string_view target) override { opened.emplace_back(target); }
    std::vector<std::string> opened;
};

QString fileText(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Every first group that matches in the text.
QStringList allMatches(const QString& text, const QString& pattern) {
    QStringList found;
    auto match = QRegularExpression(pattern).globalMatch(text);
    while (match.hasNext()) {
        found += match.next().captured(1);
    }
    return found;
}

} // namespace

class HelpWindowTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        folder_ = std::make_unique<TempFolder>();
        folder_->write("contents", "index.html Start here\nboats.html Boats\nriver.html River\n");
        folder_->write("index.html", "<p>Read of <a href=\"river.html\">Locks</a></p>");
        folder_->write("boats.html", "<p>An <b>Eight</b> and a quad</p>");
        folder_->write("river.html", "<p>An eight passes. <a href=\"http://a.example/b?c\">Outside"
                                     "</a></p>");
        open(folder_->path());
    }
    void cleanup() {
        window_.reset();
        folder_.reset();
        applyTheme(*qApp, ThemeChoice::Light);
    }

    void thePagesOfTheHelpAreComplete() {
        const QString folder = QUILLMARK_HELP;
        QStringList listed;
        for (const HelpPage& page : readHelpPages(QUILLMARK_HELP)) {
            listed += page.file;
        }
        QCOMPARE(listed.size(), fileText(folder + "/contents").count('\n'));
        listed.sort();
        QCOMPARE(QDir(folder).entryList({"*.html"}, QDir::Files, QDir::Name), listed);
    }

    void theLinksOfTheHelpLeadSomewhere() {
        int checked = 0;
        for (const HelpPage& page : readHelpPages(QUILLMARK_HELP)) {
            const QString html = fileText(QString(QUILLMARK_HELP) + '/' + page.file);
            for (const QString& link :
                 allMatches(html, "<(?:a|link rel=\"stylesheet\") href=\"([^\"]*)\"")) {
                const QString file = link.section('#', 0, 0);
                const QString target =
                    file.isEmpty() ? html : fileText(QString(QUILLMARK_HELP) + '/' + file);
                const QString place = link.section('#', 1);
                const bool there = place.isEmpty() || target.contains("name=\"" + place + '"');
                QVERIFY2(!target.isEmpty() && there, qPrintable(page.file + ": " + link));
                ++checked;
            }
        }
        QVERIFY(checked > 60);
    }

    void theFootOfEachPageFollowsTheContents() {
        const std::vector<HelpPage> pages = readHelpPages(QUILLMARK_HELP);
        for (std::size_t i = 0; i + 1 < pages.size(); ++i) {
            QVERIFY2(pages[i].text.contains("Next: " + pages[i + 1].title),
                     qPrintable(pages[i].file));
            QVERIFY2(pages[i + 1].text.contains("Back: " + pages[i].title),
                     qPrintable(pages[i + 1].file));
        }
    }

    void theSearchNarrowsTheContents_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("count");
        QTest::newRow("nothing typed") << ""
                                       << "Start here, Boats, River"
                                       << "3 pages";
        QTest::newRow("a word, whatever its case") << "eIGHT"
                                                   << "Boats, River"
                                                   << "2 of 3 pages";
        QTest::newRow("all words, in any order") << " quad  eight "
                                                 << "Boats"
                                                 << "1 of 3 pages";
        QTest::newRow("a word of the title") << "here"
                                             << "Start here"
                                             << "1 of 3 pages";
        QTest::newRow("a tag is no word") << "href"
                                          << ""
                                          << "0 of 3 pages";
    }
    void theSearchNarrowsTheContents() {
        QFETCH(QString, typed);
        QTest::keyClicks(control<QLineEdit>("txtSearch"), typed);
        QStringList left;
        auto* contents = control<QListWidget>("lstContents");
        for (int row = 0; row < contents->count(); ++row) {
            if (!contents->item(row)->isHidden()) {
                left += contents->item(row)->text();
            }
        }
        QTEST(left.join(", "), "shown");
        QTEST(control<QLabel>("lblFound")->text(), "count");
    }

    void theSearchOpensAndMarksWhatItFinds() {
        QTest::keyClicks(control<QLineEdit>("txtSearch"), "quad");
        QTest::keyClick(control<QLineEdit>("txtSearch"), Qt::Key_Return);
        QCOMPARE(page(), "boats.html");
        QCOMPARE(text()->extraSelections().size(), 1);
        QCOMPARE(text()->extraSelections().first().cursor.selectedText(), "quad");
    }

    void pagesAreTurned() {
        QVERIFY(!control<QToolButton>("cmdBack")->isEnabled());
        clickText("Locks");
        QCOMPARE(page(), "river.html");
        QCOMPARE(control<QListWidget>("lstContents")->currentItem()->text(), "River");
        control<QListWidget>("lstContents")->setFocus();
        QTest::keyClick(control<QListWidget>("lstContents"), Qt::Key_Up);
        QCOMPARE(page(), "boats.html");
        press("cmdBack");
        QCOMPARE(page(), "river.html");
        press("cmdForward");
        QCOMPARE(page(), "boats.html");
        press("cmdHome");
        QCOMPARE(page(), "index.html");
    }

    void aLinkThatLeadsOutGoesToTheBrowser() {
        window_->showPage("river.html");
        clickText("Outside");
        QCOMPARE(shell_.opened, std::vector<std::string>{"http://a.example/b?c"});
        QCOMPARE(page(), "river.html");
    }

    void aMissingFolderIsToldInPlainWords() {
        open(folder_->path() / "no <such> folder");
        QVERIFY(text()->toPlainText().contains("The help is not here"));
        QVERIFY(text()->toPlainText().contains("no <such> folder"));
        applyTheme(*qApp, ThemeChoice::Dark);
        QTRY_COMPARE(colorOf("The help"), darkPalette().color(QPalette::Link));
    }

    void keysFindAndClose() {
        QVERIFY(QTest::qWaitForWindowActive(window_.get()));
        QTest::keyClick(window_.get(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(control<QLineEdit>("txtSearch")->hasFocus());
        QTest::keyClick(window_.get(), Qt::Key_Escape);
        QVERIFY(!window_->isVisible());
    }

    void linksFollowThePalette() {
        applyTheme(*qApp, ThemeChoice::Dark);
        QTRY_COMPARE(colorOf("Locks"), darkPalette().color(QPalette::Link));
        applyTheme(*qApp, ThemeChoice::Light);
        QTRY_COMPARE(colorOf("Locks"), lightPalette().color(QPalette::Link));
    }

    /// The profile and options dialogs open the help while they wait for an answer.
    void theHelpCanBeReadWhileADialogAsks() {
        for (const bool openBefore : {true, false}) {
            window_->setVisible(openBefore);
            {
                QDialog dialog;
                dialog.setModal(true);
                dialog.show();
                QVERIFY(QTest::qWaitForWindowExposed(&dialog));
                window_->showPage("river.html");
                pressOnScreen("cmdHome");
                QCOMPARE(page(), "index.html");
            }
            QVERIFY(window_->isVisible());
            window_->showPage("river.html");
            pressOnScreen("cmdHome");
            QCOMPARE(page(), "index.html");
        }
    }

private:
    void open(const std::filesystem::path& folder) {
        window_ = std::make_unique<frmHelp>(folder, shell_, nullptr);
        window_->showPage("index.html");
        QVERIFY(QTest::qWaitForWindowExposed(window_.get()));
    }
    template <typename Control> Control* control(const char* name) const {
        return window_->findChild<Control*>(name);
    }
    QTextBrowser* text() const { return control<QTextBrowser>("HelpText"); }
    QString page() const { return text()->source().fileName(); }
    void press(const char* button) const {
        QTest::mouseClick(control<QToolButton>(button), Qt::LeftButton);
    }
    /// As the window system does it, which lets no click through to a window that has to wait.
    void pressOnScreen(const char* name) const {
        const auto* button = control<QToolButton>(name);
        QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {},
                          button->mapTo(window_.get(), button->rect().center()));
    }
    QColor colorOf(const QString& word) const {
        return text()->document()->find(word).charFormat().foreground().color();
    }
    void clickText(const QString& word) const {
        QTextCursor start = text()->document()->find(word);
        start.setPosition(start.selectionStart() + 1);
        QTest::mouseClick(text()->viewport(), Qt::LeftButton, {},
                          text()->cursorRect(start).center());
    }

    std::unique_ptr<TempFolder> folder_;
    RecordingShell shell_;
    std::unique_ptr<frmHelp> window_;
};

} // namespace quillmark::test

QTEST_MAIN(quillmark::test::HelpWindowTest)
#include "HelpWindowTest.moc"
