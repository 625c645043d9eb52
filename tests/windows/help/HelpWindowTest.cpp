#include "windows/help/frmHelp.h"
#include "windows/shared/Theme.h"
#include "windows/support/TestContext.h"

#include <QColor>
#include <QDialog>
#include <QListWidget>
#include <QPalette>
#include <QTextBrowser>
#include <QTextCursor>

namespace quillmark::test {

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

    void theHelpListsAllItsPages() {
        QStringList listed;
        for (const HelpPage& page : readHelpPages(QUILLMARK_HELP)) {
            QVERIFY2(page.text.startsWith(page.title), qPrintable(page.file));
            listed += page.file;
        }
        QVERIFY(listed.contains("index.html") && listed.contains("classic-reading.html"));
        listed.sort();
        QCOMPARE(QDir(QUILLMARK_HELP).entryList({"*.html"}, QDir::Files, QDir::Name), listed);
    }

    void theSearchNarrowsTheContents() {
        const std::array<std::array<QString, 3>, 5> rows = {
            {{"", "Start here, Boats, River", "3 pages"},
             {"eIGHT", "-, Boats, River", "2 of 3 pages"},
             {" quad  eight ", "-, Boats, -", "1 of 3 pages"},
             {"here", "Start here, -, -", "1 of 3 pages"}, // A word of the title.
             {"href", "-, -, -", "0 of 3 pages"}}};        // A tag is no word.
        const auto& contents = control<QListWidget>("lstContents");
        for (const auto& [typed, shown, count] : rows) {
            auto& search = control<QLineEdit>("txtSearch");
            search.clear();
            QTest::keyClicks(&search, typed);
            QStringList left;
            for (int row = 0; row < contents.count(); ++row) {
                left += contents.item(row)->isHidden() ? "-" : contents.item(row)->text();
            }
            QCOMPARE(left.join(", "), shown);
            QCOMPARE(control<QLabel>("lblFound").text(), count);
        }
    }

    void theSearchOpensAndMarksWhatItFinds() {
        QVERIFY(QTest::qWaitForWindowActive(window_.get(), Patience));
        QTest::keyClick(window_.get(), Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(window_->focusWidget(), "quad");
        QTest::keyClick(window_->focusWidget(), Qt::Key_Return);
        QCOMPARE(page(), "boats.html");
        QCOMPARE(text().extraSelections().size(), 1);
        QCOMPARE(text().extraSelections().first().cursor.selectedText(), "quad");
    }

    void pagesAreTurned() {
        auto& contents = control<QListWidget>("lstContents");
        QVERIFY(!control("cmdBack").isEnabled());
        clickText("Locks");
        QCOMPARE(page(), "river.html");
        QCOMPARE(contents.currentItem()->text(), "River");
        QTest::keyClick(&contents, Qt::Key_Up);
        QCOMPARE(page(), "boats.html");
        for (const auto& [button, file] :
             {std::pair("cmdBack", "river.html"), std::pair("cmdForward", "boats.html"),
              std::pair("cmdHome", "index.html")}) {
            press(button);
            QCOMPARE(page(), file);
        }
        clickText("Locks");
        clickText("Outside");
        QCOMPARE(shell_.opened, Lines{"http://a.example/b?c"});
        QCOMPARE(page(), "river.html");
    }

    void pagesFollowThePaletteAndAMissingFolderIsTold() {
        applyTheme(*qApp, ThemeChoice::Dark);
        QTRY_COMPARE(colorOf("Locks"), darkPalette().color(QPalette::Link));
        open(folder_->path() / "no <such> folder");
        QVERIFY(text().toPlainText().contains("no <such> folder"));
        applyTheme(*qApp, ThemeChoice::Light);
        QTRY_COMPARE(colorOf("The help is not here"), lightPalette().color(QPalette::Link));
    }

    /// The profile and options dialogs open the help while they wait for an answer.
    void theHelpCanBeReadWhileADialogAsks() {
        const auto readable = [this] {
            window_->showPage("river.html");
            press("cmdHome");
            return window_->isVisible() && page() == "index.html";
        };
        for (const bool openBefore : {true, false}) {
            window_->setVisible(openBefore);
            {
                QDialog dialog;
                dialog.setModal(true);
                dialog.show();
                QVERIFY(QTest::qWaitForWindowExposed(&dialog, Patience));
                QVERIFY(readable());
            }
            QVERIFY(window_->isVisible() && readable());
        }
    }

private:
    void open(const std::filesystem::path& folder) {
        window_ = std::make_unique<frmHelp>(folder, shell_, nullptr);
        window_->showPage("index.html");
        QVERIFY(QTest::qWaitForWindowExposed(window_.get(), Patience));
    }
    template <typename Control = QWidget> Control& control(const char* name) const {
        return child<Control>(*window_, name);
    }
    QTextBrowser& text() const { return control<QTextBrowser>("HelpText"); }
    QString page() const { return text().source().fileName(); }
    /// As the window system does it, which lets no click through to a window that has to wait.
    void press(const char* name) const {
        const QWidget& button = control(name);
        QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {},
                          button.mapTo(window_.get(), button.rect().center()));
    }
    QColor colorOf(const QString& word) const {
        return text().document()->find(word).charFormat().foreground().color();
    }
    void clickText(const QString& word) const {
        QTextCursor start = text().document()->find(word);
        start.setPosition(start.selectionStart() + 1);
        QTest::mouseClick(text().viewport(), Qt::LeftButton, {}, text().cursorRect(start).center());
    }

    std::unique_ptr<TempFolder> folder_;
    RecordingShell shell_;
    std::unique_ptr<frmHelp> window_;
};

} // namespace quillmark::test

QUILLMARK_WINDOW_TEST(HelpWindowTest)
#include "HelpWindowTest.moc"
