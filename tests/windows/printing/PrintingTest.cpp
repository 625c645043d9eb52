#include "windows/printing/ReportCommands.h"
#include "windows/printing/ReportPages.h"
#include "windows/printing/frmPrinting.h"
#include "windows/shared/Text.h"
#include "windows/support/TestContext.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QProcess>
#include <QRegularExpression>

namespace quillmark::test {

namespace {

/// The pages that the lines fill, as text.
QStringList printedPages(const QStringList& lines, QPageSize::PageSizeId size) {
    const TempFolder folder;
    const QString file = shown((folder.path() / "pages.pdf").string());
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

} // namespace

/// Everything that the commands need, with one found file to report.
struct CommandBench : TestContext {
    CommandBench() {
        workspace.settings.configuration.SAVE_FILE = 1;
        workspace.lists.FileList.Append("/www/\xE4.html");
    }
    std::filesystem::path pathOf(const char* name) const { return folder.path() / name; }

    QWidget owner;
    ReportCommands commands{context, &owner};
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
        bench.dialogs.answers = {bench.pathOf("my report.txt"), std::nullopt,
                                 bench.pathOf("missing") / "r.txt", "/dev/full"};
        bench.commands.Save();
        const std::string report = bench.folder.read("my report.txt");
        QVERIFY(report.find("/www/\xE4.html\r\n") != std::string::npos);
        const Lines written{"File " + bench.pathOf("my report.txt").string() + " Written"};
        QCOMPARE(bench.messages.normals, written);
        QCOMPARE(bench.dialogs.asked.front().proposed.string(), "Quillmark");
        QCOMPARE(bench.dialogs.asked.front().extension, "txt");
        for (int i = 0; i < 3; ++i) { // What is not saved ends without a word.
            bench.commands.Save();
        }
        QVERIFY(bench.dialogs.answers.empty());
        QCOMPARE(bench.messages.normals, written);
    }

    void pageIsSavedAndShown() {
        CommandBench bench;
        const auto chosen = bench.pathOf("my page.html");
        bench.dialogs.answers = {chosen};
        bench.workspace.settings.profile.START_PATH = "\\www\\index.html";
        bench.commands.keepSettings();
        bench.workspace.settings.profile.START_PATH = "\\elsewhere\\index.html";
        bench.commands.SaveAsPage();
        QCOMPARE(bench.messages.normals, Lines{"File " + chosen.string() + " Written"});
        const std::string page = bench.folder.read("my page.html");
        QVERIFY(page.find("\"top\":\"/www/\"") != std::string::npos);
        QVERIFY(page.find("\\\\xE4.html") != std::string::npos);
        bench.commands.ShowAsPage();
        QCOMPARE(bench.shell.opened,
                 Lines{ToBackSlashes(bench.pathOf("Quillmark-results.html").string())});
        QVERIFY(bench.folder.read("Quillmark-results.html").ends_with("</html>\n"));
    }

    void failedPagesAreTold() {
        CommandBench bench;
        bench.dialogs.answers = {"/dev/full"};
        std::filesystem::create_directory(bench.pathOf("Quillmark-results.html"));
        const Answer full(QMessageBox::Ok);
        bench.commands.SaveAsPage();
        QCOMPARE(full.text(), QString("An error has occurred: Disk full"));
        const Answer folder(QMessageBox::Ok);
        bench.commands.ShowAsPage();
        QVERIFY(folder.text().startsWith("An error has occurred: "));
        QVERIFY(bench.shell.opened.empty());
        QVERIFY(bench.messages.normals.empty());
    }

    void reportIsPrinted() {
        CommandBench bench;
        bench.folder.write("Quillmark.tmp", "an older report" + std::string(9999, '.'));
        QString noticed;
        bench.printer.whilePrinting = [&] {
            auto& notice = *bench.owner.findChild<frmPrinting*>();
            noticed = notice.isVisible() ? notice.findChild<QLabel*>()->text() : QString();
            keepPicture(notice, "printing");
        };
        bench.commands.Print();
        QTRY_COMPARE(bench.messages.normals, Lines{"Printing Completed"});
        QCOMPARE(noticed, QString("Printing...Please Wait"));
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        const QStringList& printed = bench.printer.printed.front();
        QCOMPARE(printed.value(0), QString("Quillmark Version 3.5.0"));
        QVERIFY(printed.contains(QString("/www/") + QChar(0xE4) + ".html"));
        QCOMPARE(printed.join("\r\n").size() + 2,
                 qsizetype(bench.folder.read("Quillmark.tmp").size()));
        bench.commands.Print();
        QTRY_COMPARE(bench.messages.normals.size(), 2U);
    }

    void failedPrintsAreTold() {
        CommandBench bench;
        const auto said = [&bench] {
            const Answer answer(QMessageBox::Ok);
            bench.commands.Print();
            static_cast<void>(QTest::qWaitFor([&answer] { return answer.acted(); }, Patience));
            return answer.text();
        };
        const auto report = bench.pathOf("Quillmark.tmp");
        bench.printer.there = false;
        QCOMPARE(said().toStdString(),
                 "There is no default printer. The report is in " + report.string());
        QVERIFY(!bench.folder.read("Quillmark.tmp").empty());
        bench.printer.there = true;
        bench.printer.whilePrinting = [] { throw printerError(); };
        QCOMPARE(said(), QString("An error has occurred: Printer error"));
        std::filesystem::remove(report);
        std::filesystem::create_directory(report);
        QVERIFY(said().startsWith("An error has occurred: Disk failure"));
        QVERIFY(bench.messages.normals.empty());
    }
};

} // namespace quillmark::test

QUILLMARK_WINDOW_TEST(PrintingTest)
#include "PrintingTest.moc"
