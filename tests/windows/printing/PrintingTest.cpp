#include "base/Failure.h"
#include "support/Lists.h"
#include "windows/printing/ReportCommands.h"
#include "windows/printing/ReportPages.h"
#include "windows/printing/frmPrinting.h"
#include "windows/support/Answers.h"
#include "windows/support/Pictures.h"
#include "windows/support/TestContext.h"
#include "windows/support/WindowTest.h"

#include <QLabel>
#include <QPdfWriter>
#include <QProcess>

namespace quillmark::test {

/// A printer that looks at the windows while it prints.
class WatchingPrinter : public ReportPrinter {
public:
    bool available() const override { return true; }
    void print(const QStringList& lines) override {
        printed = lines;
        auto& notice = *owner.findChild<frmPrinting*>();
        noticed = notice.isVisible() ? notice.findChild<QLabel*>()->text() : QString();
        keepPicture(notice, "printing");
        if (refuses) {
            throw printerError();
        }
    }

    QWidget owner;
    QStringList printed;
    QString noticed;
    bool refuses = false;
};

/// The pages that the lines fill, as text.
static QStringList printedPages(const QStringList& lines, QPageSize::PageSizeId size) {
    const TempFolder folder;
    const QString file = QString::fromStdString((folder.path() / "pages.pdf").string());
    {
        QPdfWriter writer(file);
        writer.setPageSize(QPageSize(size));
        writer.setPageMargins(QMarginsF(20, 30, 20, 30), QPageLayout::Millimeter);
        ReportPages(writer).print(lines);
    }
    QProcess reader;
    reader.start("pdftotext", {"-layout", file, "-"});
    return reader.waitForFinished() ? QString::fromUtf8(reader.readAllStandardOutput()).split('\f')
                                    : QStringList();
}

/// Everything that a command needs, with one found file to report.
struct CommandBench {
    CommandBench() {
        parts.workspace.settings.configuration.SAVE_FILE = 1;
        parts.workspace.lists.FileList.Append("/www/\xE4.html");
    }

    Lines messages() const { return linesOf(parts.workspace.lists.Message); }
    std::string pathOf(const char* name) const { return (parts.folder.path() / name).string(); }

    TestContext parts;
    WatchingPrinter watching;
    WindowContext watched{parts.workspace, parts.files,        parts.messages, parts.progress,
                          parts.disk,      parts.ftp,          parts.shell,    parts.dialogs,
                          watching,        parts.folder.path()};
};

class PrintingTest : public QObject {
    Q_OBJECT

private slots:
    void pagesLoseNothing() {
        QString wide;
        for (int i = 0; i < 60; ++i) {
            wide += QString("%1 ").arg(i, 5, 10, QChar('#'));
        }
        QStringList lines{"first", "", "", "  indented", wide, "a\tb", "12345678\t\tb"};
        QStringList expected{"\na       b\n", "\n12345678                b\n"};
        for (int i = 0; i < 200; ++i) {
            lines += QString("line %1").arg(i);
            expected += lines.last() + '\n';
        }
        const QStringList pages = printedPages(lines, QPageSize::A4);
        const QStringList first = pages.value(0).split('\n');
        QCOMPARE(first.indexOf(QRegularExpression(" *indented")) - first.indexOf("first"), 3);
        const QString all = pages.join('\n');
        const QString packed = QString(all).remove(QRegularExpression("\\s"));
        QVERIFY2(packed.contains(QString(wide).remove(' ')), qPrintable(all));
        for (const QString& text : expected) {
            QVERIFY2(all.contains(text), qPrintable(text + " is not in " + all));
        }
        QVERIFY(pages.size() > 3);
        QVERIFY(printedPages(lines, QPageSize::A6).size() > 2 * pages.size());
        QPdfWriter nowhere("/no/such/folder/pages.pdf");
        QVERIFY_EXCEPTION_THROWN(ReportPages(nowhere).print({}), Failure);
    }

    void reportIsSaved() {
        CommandBench bench;
        bench.parts.dialogs.answers = {bench.parts.folder.path() / "my report.txt", std::nullopt,
                                       bench.parts.folder.path() / "missing" / "r.txt",
                                       "/dev/full"};
        const auto save = [&bench] { ReportCommands(bench.parts.context, nullptr).Save(); };
        save();
        const std::string report = bench.parts.folder.read("my report.txt");
        QVERIFY(report.find("/www/\xE4.html\r\n") != std::string::npos);
        const Lines written{"File " + bench.pathOf("my report.txt") + " Written"};
        QCOMPARE(bench.messages(), written);
        QCOMPARE(bench.parts.dialogs.asked.front().proposed.string(), "Quillmark");
        QCOMPARE(bench.parts.dialogs.asked.front().extension, "txt");
        for (int i = 0; i < 3; ++i) { // What is not saved ends without a word.
            save();
        }
        QVERIFY(bench.parts.dialogs.answers.empty());
        QCOMPARE(bench.messages(), written);
    }

    void pageIsSavedAndShown() {
        CommandBench bench;
        bench.parts.dialogs.answers = {bench.parts.folder.path() / "my page.html"};
        ReportCommands commands(bench.parts.context, nullptr);
        bench.parts.workspace.settings.profile.START_PATH = "\\www\\index.html";
        commands.keepSettings();
        bench.parts.workspace.settings.profile.START_PATH = "\\elsewhere\\index.html";
        commands.SaveAsPage();
        QCOMPARE(bench.messages(), Lines{"File " + bench.pathOf("my page.html") + " Written"});
        const std::string page = bench.parts.folder.read("my page.html");
        QVERIFY(page.find("\"top\":\"/www/\"") != std::string::npos);
        QVERIFY(page.find("\\\\xE4.html") != std::string::npos);
        commands.ShowAsPage();
        QCOMPARE(bench.parts.shell.opened,
                 Lines{ToBackSlashes(bench.pathOf("Quillmark-results.html"))});
        QVERIFY(bench.parts.folder.read("Quillmark-results.html").ends_with("</html>\n"));
    }

    void failedPagesAreTold() {
        CommandBench bench;
        bench.parts.dialogs.answers = {"/dev/full"};
        std::filesystem::create_directory(bench.parts.folder.path() / "Quillmark-results.html");
        ReportCommands commands(bench.parts.context, nullptr);
        const Answer full(QMessageBox::Ok);
        commands.SaveAsPage();
        QCOMPARE(full.text(), QString("An error has occurred: Disk full"));
        const Answer folder(QMessageBox::Ok);
        commands.ShowAsPage();
        QVERIFY(folder.text().startsWith("An error has occurred: "));
        QVERIFY(bench.parts.shell.opened.empty());
        QVERIFY(bench.messages().empty());
    }

    void reportIsPrinted() {
        CommandBench bench;
        bench.parts.folder.write("Quillmark.tmp", "an older report" + std::string(9999, '.'));
        ReportCommands commands(bench.watched, &bench.watching.owner);
        commands.Print();
        QTRY_COMPARE(bench.messages(), Lines{"Printing Completed"});
        QCOMPARE(bench.watching.noticed, QString("Printing...Please Wait"));
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QCOMPARE(bench.watching.printed.value(0), QString("Quillmark Version 3.5.0"));
        QVERIFY(bench.watching.printed.contains(QString("/www/") + QChar(0xE4) + ".html"));
        QCOMPARE(bench.watching.printed.join("\r\n").size() + 2,
                 qsizetype(bench.parts.folder.read("Quillmark.tmp").size()));
        commands.Print();
        QTRY_COMPARE(bench.messages().size(), 2U);
    }

    void failedPrintsAreTold() {
        CommandBench bench;
        const auto said = [&bench](const WindowContext& context) {
            const Answer answer(QMessageBox::Ok);
            ReportCommands commands(context, &bench.watching.owner);
            commands.Print();
            static_cast<void>(QTest::qWaitFor([&answer] { return answer.acted(); }, Patience));
            return answer.text();
        };
        bench.parts.printer.there = false;
        QCOMPARE(said(bench.parts.context).toStdString(),
                 "There is no default printer. The report is in " + bench.pathOf("Quillmark.tmp"));
        QVERIFY(!bench.parts.folder.read("Quillmark.tmp").empty());
        bench.watching.refuses = true;
        QCOMPARE(said(bench.watched), QString("An error has occurred: Printer error"));
        std::filesystem::remove(bench.parts.folder.path() / "Quillmark.tmp");
        std::filesystem::create_directory(bench.parts.folder.path() / "Quillmark.tmp");
        QVERIFY(said(bench.watched).startsWith("An error has occurred: Disk failure"));
        QVERIFY(bench.messages().empty());
    }
};

} // namespace quillmark::test

QUILLMARK_WINDOW_TEST(PrintingTest)
#include "PrintingTest.moc"
