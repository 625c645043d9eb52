#pragma once

#include "ui/results/ResultsView.h"
#include "windows/outside/WindowContext.h"
#include "windows/results/FindBar.h"
#include "windows/results/ItemCommands.h"
#include "windows/results/ItemMenu.h"
#include "windows/results/ResultsModel.h"

#include <QWidget>

#include <memory>
#include <vector>

namespace Ui {
class DisplayFrame;
}

namespace quillmark {

/// The results of the last run: the list on show in its frame, the selectors that choose it, and
/// what can be done with a row.
class DisplayFrame : public QWidget {
    Q_OBJECT

public:
    DisplayFrame(const WindowContext& context, HostWork hostWork, QWidget* parent = nullptr);
    ~DisplayFrame() override;
    DisplayFrame(const DisplayFrame&) = delete;
    DisplayFrame& operator=(const DisplayFrame&) = delete;

    /// Takes rows, headers and caption away, and disables the selectors.
    void enterNoResults();
    /// Enables the selectors. If the run has left no list on show, `unchosen` is shown in its
    /// place.
    void enableSelectors(const QString& unchosen);
    /// Gives the list the keyboard focus.
    void focusResults();
    /// Rebuilds the list from the three selectors.
    void ShowResults();

    /// The width of the first column in each display, in pixels; 0 for the usual one.
    std::vector<int> columnWidths() const;
    void setColumnWidths(const std::vector<int>& widths);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// What the list shows, or why it is empty.
    enum class Showing { Nothing, Unchosen, Building, List };

    void addEntries();
    void connectSelectors();
    void connectRows();
    void connectFinding();
    void setSelectorsEnabled(bool enabled);
    void enter(Showing showing);
    QString emptyText() const;
    ResultsSelection selection() const;
    void build();

    void openMenu(QPoint position);
    void view(const QModelIndex& cell);
    void find(const QString& text, FindStep step);
    void findAgain(FindStep step);
    void closeFindBar();

    WindowContext context_;
    ResultsModel model_;
    std::unique_ptr<Ui::DisplayFrame> ui_;
    ItemCommands commands_;
    ItemMenu menu_;
    Showing showing_ = Showing::Nothing;
    QString unchosen_;
    bool again_ = false; ///< A selector was used while the list was being built.
};

} // namespace quillmark
