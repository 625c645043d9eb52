#include "windows/settings/frmConfig2.h"
#include "windows/support/TestContext.h"

#include <QSignalSpy>

namespace quillmark::test {

class OptionsDialogTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        all_ = std::make_unique<TestContext>();
        all_->workspace.settings.configuration.SOUND = 2;
        dialog_ = std::make_unique<frmConfig2>(all_->context, nullptr);
        dialog_->show();
    }
    void cleanup() {
        dialog_.reset();
        all_.reset();
    }

    void okWritesWhatIsShown() {
        QVERIFY(box("chkSound").isChecked() && !box("chkDebug").isChecked());
        QTest::mouseClick(&box("chkTraceWindow"), Qt::LeftButton, {}, QPoint(8, 8));
        QTest::keyClicks(&child<QLineEdit>(*dialog_, "txtFileMasks"), "class,.dot");
        press(*dialog_, "cmdOk");
        QVERIFY(!dialog_->isVisible());
        const Configuration& configuration = all_->workspace.settings.configuration;
        QCOMPARE(configuration.SOUND, std::int16_t{1});
        QCOMPARE(configuration.IGNORECASE, std::int16_t{1});
        const std::string file = all_->folder.read("Quillmark.ini");
        for (const char* lines : {"#TRACE_WINDOW=1\r\n", "#IGNORECASE=0\r\n",
                                  "#FILEMASKS=2\r\n#MASK=CLASS\r\n#MASK=.DOT\r\n"}) {
            QVERIFY2(file.find(lines) != std::string::npos, lines);
        }
    }

    void onlyASuccessfulOkSaves() {
        const std::int16_t& debug = all_->workspace.settings.configuration.DEBUG;
        const QSignalSpy help(dialog_.get(), &frmConfig2::helpRequested);
        child<QAction>(*dialog_, "mnuHelp").trigger();
        QCOMPARE(help.count(), 1);
        box("chkDebug").setChecked(true);
        press(*dialog_, "cmdCancel");
        QVERIFY(!dialog_->isVisible());
        QCOMPARE(debug, std::int16_t{0});
        QVERIFY(!std::filesystem::exists(all_->folder.path() / "Quillmark.ini"));
        std::filesystem::create_directory(all_->folder.path() / "Quillmark.ini");
        dialog_->show();
        const Answer told(QMessageBox::Ok);
        press(*dialog_, "cmdOk");
        QVERIFY(told.text().startsWith("An error has occurred: "));
        QVERIFY(dialog_->isVisible());
        QCOMPARE(debug, std::int16_t{1});
    }

private:
    QCheckBox& box(const char* name) const { return child<QCheckBox>(*dialog_, name); }
    std::unique_ptr<TestContext> all_;
    std::unique_ptr<frmConfig2> dialog_;
};

} // namespace quillmark::test

QUILLMARK_WINDOW_TEST(OptionsDialogTest)
#include "OptionsDialogTest.moc"
