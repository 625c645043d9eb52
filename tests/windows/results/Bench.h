#pragma once

#include "support/RunFakes.h"
#include "windows/results/DisplayFrame.h"
#include "windows/support/TestContext.h"

#include <QComboBox>
#include <QGroupBox>
#include <QTest>
#include <QTreeView>

#include <utility>

namespace quillmark::test {

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
        lists.ReferenceList.Append("/x/one.html");
        lists.ReferenceListFrom.Append("(base file)");
        lists.ReferenceList.Append("/x/two.gif");
        lists.ReferenceListFrom.Append("http://else.where/");
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
    void rightClick(QPoint position) {
        const QPoint inWindow = view().viewport()->mapTo(&frame, position);
        QTest::mouseClick(frame.windowHandle(), Qt::RightButton, {}, inWindow);
    }
    QMenu& menu() { return the<QMenu>("mnuRightClick"); }
    QStringList captions() {
        QStringList texts;
        for (const QAction* action : menu().actions()) {
            texts += action->text() + (action->isEnabled() == action->text().isEmpty() ? "?" : "");
        }
        return texts;
    }
    /// Chooses a command of the open menu with the mouse.
    void press(const char* command) {
        QTest::mouseClick(&menu(), Qt::LeftButton, {},
                          menu().actionGeometry(&the<QAction>(command)).center());
    }
    std::string lastMessage() const {
        const CappedList& posted = all.workspace.lists.Message;
        return posted.Count() == 0 ? "" : std::string(posted.Line(posted.Count() - 1));
    }

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

} // namespace quillmark::test
