#pragma once

#include "ui/TraceLog.h"
#include "windows/outside/WindowContext.h"
#include "windows/shared/NewestLines.h"

#include <QMainWindow>

#include <memory>

namespace Ui {
class frmDebug;
}

namespace quillmark {

/// The host trace: the conversation with the host and the messages of the run, with the newest line
/// selected and in sight. A run can open it without taking the focus from the main window; closing
/// it hides it.
class frmDebug : public QMainWindow {
    Q_OBJECT

public:
    frmDebug(const WindowContext& context, QWidget* parent);
    ~frmDebug() override;
    frmDebug(const frmDebug&) = delete;
    frmDebug& operator=(const frmDebug&) = delete;

    /// Shows the trace as it is now; to be called when it has changed. Costs next to nothing while
    /// the window is hidden.
    void refresh();

    /// Whether the trace may be saved; not while a run adds to it.
    void setSaveEnabled(bool enabled);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void save();

    FileDialogs& dialogs_;
    TraceSave saver_;
    NewestLines lines_;
    std::unique_ptr<Ui::frmDebug> ui_;
};

} // namespace quillmark
