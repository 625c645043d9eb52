#include "base/Failure.h"
#include "windows/printing/ReportCommands.h"
#include "windows/printing/ReportPages.h"
#include "windows/printing/frmPrinting.h"
#include "windows/support/Answers.h"
#include "windows/support/Pictures.h"
#include "windows/support/TestContext.h"

#include <QLabel>
#include <QPdfWriter>
#include <QProcess>

#include <array>

namespace quillmark::test {

class PrintingTest : public QObject {
    Q_OBJECT

private slots:
    void pagesLoseNothing();
    void pagesNeedADevice();
    void tabsReachToTheNextColumn();
    void reportIsSaved();
    void unsavedReportsEndWithoutAWord();
    void reportIsPrinted();
    void failedPrintsAreTold();
};

namespace {

/// A printer that looks at the windows while it prints.
class WatchingPrinter : public ReportPrinter {
public:
    bool available() const override { return true; }
    void print(const QStringList& lines) override {
        printed = lines;
        const QList<frmPrinting*> notices = owner.findChildren<frmPrinting*>();
        noticed = notices.size() == 1 && notices.first()->isVisible()
                      ? notices.first()->findChild<QLabel*>()->text()
                      : QString();
        keepPicture(*notices.first(), "printing");
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
QStringList printedPages(const QStringList& lines, QPageSize::PageSizeId size) {
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
        SetDefaultSettings(parts.workspace.settings);
        parts.workspace.settings.configuration.SAVE_FILE = 1;
        parts.workspace.lists.FileList.Append("/www/\xE4.html");
    }

    QStringList messages() const {
        QStringList texts;
        const CappedList& list = parts.workspace.lists.Message;
        for (int i = 0; i < list.Count(); ++i) {
            texts += QString::fromStdString(std::string(list.Line(i)));
        }
        return texts;
    }
    QString pathOf(const char* name) const {
        return QString::fromStdString((parts.folder.path() / name).string());
    }

    TestContext parts;
    WatchingPrinter watching;
    WindowContext watched{parts.workspace, parts.files, parts.messages,     parts.progress,
                          parts.disk,      parts.ftp,   parts.mover,        parts.shell,
                          parts.dialogs,   watching,    parts.folder.path()};
};

} // namespace

void PrintingTest::pagesLoseNothing() {
    QString wide;
    for (int i = 0; i < 60; ++i) {
        wide += QString("%1 ").arg(i, 5, 10, QChar('#'));
    }
    QStringList lines{"first", "", "", "  indented", wide, "a\tb"};
    for (int i = 0; i < 200; ++i) {
        lines += QString("line %1").arg(i);
    }
    const QStringList pages = printedPages(lines, QPageSize::A4);
    const QStringList first = pages.value(0).split('\n');
    QCOMPARE(first.indexOf(QRegularExpression(" *indented")) - first.indexOf("first"), 3);
    const QString all = pages.join('\n');
    QString packed = all;
    packed.remove(QRegularExpression("\\s"));
    QVERIFY2(packed.contains(QString(wide).remove(' ')), qPrintable(all));
    QVERIFY2(all.contains("\na       b\n"), qPrintable(all));
    for (int i = 0; i < 200; ++i) {
        QVERIFY2(all.contains(QString("line %1\n").arg(i)), qPrintable(all));
    }
    QVERIFY(pages.size() > 3);
    QVERIFY(printedPages(lines, QPageSize::A6).size() > 2 * pages.size());
}

void PrintingTest::pagesNeedADevice() {
    QPdfWriter nowhere("/no/such/folder/pages.pdf");
    QVERIFY_EXCEPTION_THROWN(ReportPages pages(nowhere), Failure);
}

void PrintingTest::tabsReachToTheNextColumn() {
    struct TabRow {
        const char* name;
        QString text;
        QString expanded;
    };
    const std::array<TabRow, 4> rows = {{{"at the start", "\ta", "        a"},
                                         {"behind seven", "1234567\ta", "1234567 a"},
                                         {"behind eight", "12345678\ta", "12345678        a"},
                                         {"two", "1\t\ta", "1               a"}}};
    for (const TabRow& row : rows) {
        QVERIFY2(withoutTabs(row.text) == row.expanded, row.name);
    }
}

void PrintingTest::reportIsSaved() {
    CommandBench bench;
    bench.parts.dialogs.answers = {bench.parts.folder.path() / "my report.txt"};
    ReportCommands(bench.parts.context, nullptr).Save();
    QVERIFY(bench.parts.folder.read("my report.txt").find("/www/\xE4.html\r\n") !=
            std::string::npos);
    QCOMPARE(bench.messages(), QStringList("File " + bench.pathOf("my report.txt") + " Written"));
    const SaveQuestion& question = bench.parts.dialogs.asked.front();
    QCOMPARE(question.proposed.string(), std::string("Quillmark"));
    QCOMPARE(question.extension, QString("txt"));
    QCOMPARE(question.filters, QStringList({"Text Files (*.txt)", "All Files (*.*)"}));
}

void PrintingTest::unsavedReportsEndWithoutAWord() {
    CommandBench bench;
    bench.parts.dialogs.answers = {std::nullopt, bench.parts.folder.path() / "missing" / "r.txt",
                                   "/dev/full"};
    for (int i = 0; i < 3; ++i) {
        ReportCommands(bench.parts.context, nullptr).Save();
    }
    QCOMPARE(bench.parts.dialogs.asked.size(), 3U);
    QCOMPARE(bench.messages(), QStringList());
}

void PrintingTest::reportIsPrinted() {
    CommandBench bench;
    bench.parts.folder.write("Quillmark.tmp", "an older report" + std::string(9999, '.'));
    ReportCommands commands(bench.watched, &bench.watching.owner);
    commands.Print();
    QTRY_COMPARE(bench.messages(), QStringList("Printing Completed"));
    QCOMPARE(bench.watching.noticed, QString("Printing...Please Wait"));
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(bench.watching.printed.value(0), QString("Quillmark Version 3.5.0"));
    QVERIFY(bench.watching.printed.contains(QString("/www/") + QChar(0xE4) + ".html"));
    QCOMPARE(bench.watching.printed.join("\r\n").size() + 2,
             qsizetype(bench.parts.folder.read("Quillmark.tmp").size()));
    commands.Print();
    QTRY_COMPARE(bench.messages().size(), 2);
}

void PrintingTest::failedPrintsAreTold() {
    CommandBench bench;
    const auto said = [](const WindowContext& context, QWidget* owner) {
        const Answer answer(QMessageBox::Ok);
        ReportCommands commands(context, owner);
        commands.Print();
        return QTest::qWaitFor([&answer] { return answer.acted(); }) ? answer.text() : QString();
    };
    bench.parts.printer.there = false;
    QCOMPARE(said(bench.parts.context, nullptr),
             "There is no default printer. The report is in " + bench.pathOf("Quillmark.tmp"));
    QVERIFY(!bench.parts.folder.read("Quillmark.tmp").empty());
    bench.watching.refuses = true;
    QWidget& owner = bench.watching.owner;
    QCOMPARE(said(bench.watched, &owner), QString("An error has occurred: Printer error"));
    std::filesystem::remove(bench.parts.folder.path() / "Quillmark.tmp");
    std::filesystem::create_directory(bench.parts.folder.path() / "Quillmark.tmp");
    QVERIFY(said(bench.watched, &owner).startsWith("An error has occurred: Disk failure"));
    QCOMPARE(bench.messages(), QStringList());
}

} // namespace quillmark::test

QTEST_MAIN(quillmark::test::PrintingTest)
#include "PrintingTest.moc"
