#include "settings/ConfigurationFile.h"
#include "windows/settings/frmConfig2.h"
#include "windows/support/Answers.h"
#include "windows/support/TestContext.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QSignalSpy>

namespace quillmark::test {

class OptionsDialogTest : public QObject {
    Q_OBJECT
private slots:
    void okWritesWhatIsShown();
    void cancelLeavesEverything();
    void aFailedSaveKeepsTheDialogOpen();

private:
    static void press(QDialog& dialog, const char* button) {
        QTest::mouseClick(dialog.findChild<QPushButton*>(button), Qt::LeftButton);
    }
};

void OptionsDialogTest::okWritesWhatIsShown() {
    TestContext all;
    Configuration& configuration = all.workspace.settings.configuration;
    configuration.SOUND = 2;
    frmConfig2 dialog(all.context, nullptr);
    dialog.show();
    QVERIFY(dialog.findChild<QCheckBox*>("chkSound")->isChecked());
    QVERIFY(!dialog.findChild<QCheckBox*>("chkDebug")->isChecked());
    QTest::mouseClick(dialog.findChild<QCheckBox*>("chkTraceWindow"), Qt::LeftButton,
                      Qt::NoModifier, QPoint(8, 8));
    QTest::keyClicks(dialog.findChild<QLineEdit*>("txtFileMasks"), "class,.dot");
    press(dialog, "cmdOk");
    QVERIFY(!dialog.isVisible());
    QCOMPARE(configuration.TRACE_WINDOW, std::int16_t{1});
    QCOMPARE(configuration.SOUND, std::int16_t{1});
    QCOMPARE(configuration.IGNORECASE, std::int16_t{1});
    QCOMPARE(configuration.fileMasksText, "class,.dot");
    const std::string file = all.folder.read("Quillmark.ini");
    QVERIFY(file.find("#TRACE_WINDOW=1\r\n") != std::string::npos);
    QVERIFY(file.find("#FILEMASKS=2\r\n#MASK=CLASS\r\n#MASK=.DOT\r\n") != std::string::npos);
    QVERIFY(file.ends_with("#IGNORECASE=0\r\n"));
}

void OptionsDialogTest::cancelLeavesEverything() {
    TestContext all;
    frmConfig2 dialog(all.context, nullptr);
    dialog.show();
    QSignalSpy help(&dialog, &frmConfig2::helpRequested);
    dialog.findChild<QAction*>("mnuHelp")->trigger();
    QCOMPARE(help.count(), 1);
    dialog.findChild<QCheckBox*>("chkDebug")->setChecked(true);
    press(dialog, "cmdCancel");
    QVERIFY(!dialog.isVisible());
    QCOMPARE(all.workspace.settings.configuration.DEBUG, std::int16_t{0});
    QVERIFY(!std::filesystem::exists(all.folder.path() / "Quillmark.ini"));
}

void OptionsDialogTest::aFailedSaveKeepsTheDialogOpen() {
    TestContext all;
    std::filesystem::create_directory(all.folder.path() / "Quillmark.ini");
    frmConfig2 dialog(all.context, nullptr);
    dialog.show();
    dialog.findChild<QCheckBox*>("chkDebug")->setChecked(true);
    Answer told(QMessageBox::Ok);
    press(dialog, "cmdOk");
    QVERIFY(told.text().startsWith("An error has occurred: "));
    QVERIFY(dialog.isVisible());
    QCOMPARE(all.workspace.settings.configuration.DEBUG, std::int16_t{1});
}

} // namespace quillmark::test

QTEST_MAIN(quillmark::test::OptionsDialogTest)
#include "OptionsDialogTest.moc"
