#pragma once

#include "windows/help/HelpPages.h"
#include "windows/outside/Desktop.h"

#include <QDialog>
#include <QUrl>

#include <filesystem>
#include <memory>
#include <vector>

namespace Ui {
class frmHelp;
}

namespace quillmark {

/// The online help: its contents with a search, and the page on show. Modeless; it can be used even
/// while a modal window is open.
class frmHelp : public QDialog {
    Q_OBJECT
public:
    /// `helpFolder` holds the pages, in the machine's own form. If it holds none, the window says
    /// so. `shell`, which outlives the window, opens links that lead out of the help.
    frmHelp(const std::filesystem::path& helpFolder, Shell& shell, QWidget* parent);
    ~frmHelp() override;

    /// Opens a page, "profiles.html", and brings the window to the front.
    void showPage(const QString& page);

private:
    void prepareButtons();
    void connectControls();
    void connectKeys();
    void fillContents();
    void apologize();
    void filterContents();
    void openSelected();
    void openFirstFound();
    void selectShown(const QUrl& source);
    void openLink(const QUrl& link);
    void bringToFront();
    QUrl address(const QString& page) const;

    std::unique_ptr<Ui::frmHelp> ui_;
    QString folder_;
    Shell& shell_;
    std::vector<HelpPage> pages_;
};

} // namespace quillmark
