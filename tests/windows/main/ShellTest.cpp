#include "base/Failure.h"
#include "base/Paths.h"
#include "desktop/DesktopShell.h"
#include "support/TempFolder.h"
#include "windows/support/Controls.h"

#include <vector>

namespace quillmark::test {

namespace fs = std::filesystem;

class ShellTest : public QObject {
    Q_OBJECT

private slots:
    void knowsWhatTheDesktopWouldRun() {
        struct Row {
            const char* name;
            std::string content;
            bool marked; ///< Executable, by its permissions.
            bool program;
        };
        const std::string html = "<html><body>";
        const std::string starter = "[Desktop Entry]\nType=Application\nExec=true\n";
        const std::string script = "#!/bin/sh\n";
        const std::vector<Row> rows = {
            {"index.html", html, false, false},     {"marked.html", html, true, false},
            {"style.css", "a {}", true, false},     {"logo.gif", "GIF89a", true, false},
            {"menu.js", "var a;", false, false},    {"notes.txt", "hello", false, false},
            {"a file", "hello", false, false},      {"menu.desktop", starter, false, true},
            {"MENU.DESKTOP", starter, false, true}, {"page.html.desktop", starter, false, true},
            {"setup.exe", "MZ", false, true},       {"tool.jar", "PK", false, true},
            {"install.sh", script, false, true},    {"without-extension", script, false, true},
            {"marked.txt", "hello", true, true},    {"marked.js", "var a;", true, true},
            {"marked", "hello", true, true}};
        for (const Row& row : rows) {
            const fs::path file = folder_.write(row.name, row.content);
            if (row.marked) {
                fs::permissions(file, fs::perms::owner_exec, fs::perm_options::add);
            }
            QVERIFY2(startsProgram(file) == row.program, row.name);
        }
        fs::create_symlink(folder_.path() / "menu.desktop", folder_.path() / "link.html");
        QVERIFY(startsProgram(folder_.path() / "link.html"));
        QVERIFY(!startsProgram(folder_.path()));
        QVERIFY(!startsProgram(folder_.path() / "gone.desktop"));
        QVERIFY(!DesktopShell().startsProgram("http://a.example/setup.exe"));
    }

    void namesTheFileThatIsNotThere() {
        const std::string gone = (folder_.path() / "gone.html").string();
        try {
            DesktopShell().open(ToBackSlashes(gone));
            QFAIL("opened what is not there");
        } catch (const Failure& failure) {
            QCOMPARE(failure.description(), "File not found: " + gone);
        }
    }

    void tellsAnEditorTheLine() {
        const fs::path page = folder_.write("a page.html", "");
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", folder_.path().c_str());
        QVERIFY(!DesktopShell().hasEditor());
        const std::string told = (folder_.path() / "told").string();
        fs::permissions(folder_.write("gedit", "#!/bin/sh\nprintf '%s|' \"$@\" > '" + told +
                                                   ".part'\n/bin/mv '" + told + ".part' '" + told +
                                                   "'\n"),
                        fs::perms::owner_exec, fs::perm_options::add);
        QVERIFY(DesktopShell().hasEditor());
        DesktopShell().edit(ToBackSlashes(page.string()), 12);
        QTRY_VERIFY(fs::exists(told));
        QCOMPARE(folder_.read("told"), "+12|" + page.string() + "|");
        qputenv("PATH", path);
    }

private:
    static bool startsProgram(const fs::path& file) {
        return DesktopShell().startsProgram(ToBackSlashes(file.string()));
    }

    TempFolder folder_;
};

} // namespace quillmark::test

QUILLMARK_WINDOW_TEST(ShellTest)
#include "ShellTest.moc"
