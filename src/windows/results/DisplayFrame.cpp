#include "windows/results/DisplayFrame.h"

#include "ui_DisplayFrame.h"
#include "windows/shared/MessageBoxes.h"
#include "windows/shared/Text.h"

#include <QAction>
#include <QKeyEvent>

#include <optional>
#include <utility>

namespace quillmark {

DisplayFrame::DisplayFrame(const WindowContext& context, HostWork hostWork, QWidget* parent)
    : QWidget(parent), context_(context),
      model_(context.workspace, context.messages, context.progress),
      ui_(std::make_unique<Ui::DisplayFrame>()),
      commands_(
          context,
          [this, hostWork = std::move(hostWork)](const std::function<void()>& work) {
              hostWork(work);
              focusResults();
          },
          this),
      menu_(commands_, this) {
    ui_->setupUi(this);
    ui_->findBar->hide();
    ui_->ListView1->setModel(&model_);
    ui_->ListView1->setEmptyText([this] { return emptyText(); });
    addEntries();
    connectSelectors();
    connectRows();
    connectFinding();
}

DisplayFrame::~DisplayFrame() = default;

void DisplayFrame::addEntries() {
    for (const ResultDisplay& display : ResultDisplays) {
        ui_->cmbDisplay->addItem(shown(display.entry));
    }
    for (const std::string_view entry : FileCategoryNames) {
        ui_->cmbMask->addItem(shown(entry));
    }
    for (const std::string_view entry : SortOrderNames) {
        ui_->cmbSort->addItem(shown(entry));
    }
}

void DisplayFrame::connectSelectors() {
    // "activated" comes even if the same entry is chosen again: after an aborted run that is how
    // its list is asked for.
    for (QComboBox* selector : {ui_->cmbDisplay, ui_->cmbMask, ui_->cmbSort}) {
        connect(selector, &QComboBox::activated, this, &DisplayFrame::ShowResults);
    }
}

void DisplayFrame::connectRows() {
    connect(ui_->ListView1, &QWidget::customContextMenuRequested, this, &DisplayFrame::openMenu);
    connect(ui_->ListView1, &ResultsTree::viewAsked, this, &DisplayFrame::view);
}

void DisplayFrame::connectFinding() {
    const auto addKey = [this](QKeySequence::StandardKey key, const std::function<void()>& action) {
        auto* keyed = new QAction(this);
        keyed->setShortcuts(key);
        connect(keyed, &QAction::triggered, this, action);
        addAction(keyed);
    };
    addKey(QKeySequence::Find, [this] { ui_->findBar->open(); });
    addKey(QKeySequence::FindNext, [this] { findAgain(FindStep::Next); });
    addKey(QKeySequence::FindPrevious, [this] { findAgain(FindStep::Previous); });
    connect(ui_->findBar, &FindBar::findAsked, this, &DisplayFrame::find);
    connect(ui_->findBar, &FindBar::closeAsked, this, &DisplayFrame::closeFindBar);
}

void DisplayFrame::enterNoResults() {
    ui_->ListView1->leaveDisplay();
    model_.clear();
    ui_->Frame2->setTitle(QString());
    setSelectorsEnabled(false);
    enter(Showing::Nothing);
}

void DisplayFrame::enableSelectors(const QString& unchosen) {
    unchosen_ = unchosen;
    setSelectorsEnabled(true);
    if (showing_ == Showing::Nothing) {
        enter(Showing::Unchosen);
    }
}

void DisplayFrame::focusResults() {
    ui_->ListView1->setFocus();
    ui_->ListView1->selectRow(); // A window behind others gets no focus event.
}

void DisplayFrame::setSelectorsEnabled(bool enabled) {
    ui_->cmbDisplay->setEnabled(enabled);
    ui_->cmbMask->setEnabled(enabled);
    ui_->cmbSort->setEnabled(enabled);
}

void DisplayFrame::enter(Showing showing) {
    showing_ = showing;
    ui_->ListView1->viewport()->update();
}

QString DisplayFrame::emptyText() const {
    switch (showing_) {
    case Showing::Nothing:
        // A run begins with a message: without one, there has been no run.
        return context_.workspace.lists.Message.Count() == 0
                   ? "Press Start to check a site"
                   : "The results appear here when the check ends";
    case Showing::Unchosen:
        return unchosen_;
    case Showing::Building:
        return {};
    case Showing::List:
        return "This list is empty";
    }
    return {};
}

/// Building a list lets events run. Whatever the user chooses meanwhile is built next, and a run
/// that begins meanwhile takes the lists away.
void DisplayFrame::ShowResults() {
    again_ = true;
    if (showing_ == Showing::Building) {
        return;
    }
    while (again_) {
        again_ = false;
        build();
    }
}

void DisplayFrame::build() {
    const ResultsSelection selected = selection();
    enter(Showing::Building);
    ui_->ListView1->leaveDisplay();
    ui_->findBar->showFound(true);
    guarded(this, [&] { model_.ShowResults(selected); });
    if (showing_ != Showing::Building) {
        model_.clear();
        return;
    }
    ui_->ListView1->enterDisplay(selected.display);
    ui_->Frame2->setTitle(shown(model_.view().caption()));
    enter(Showing::List);
    if (ui_->ListView1->hasFocus()) {
        ui_->ListView1->selectRow();
    }
}

ResultsSelection DisplayFrame::selection() const {
    return {static_cast<std::size_t>(ui_->cmbDisplay->currentIndex()),
            static_cast<FileCategory>(ui_->cmbMask->currentIndex()),
            static_cast<SortOrder>(ui_->cmbSort->currentIndex())};
}

void DisplayFrame::openMenu(QPoint position) {
    const QModelIndex current = ui_->ListView1->currentIndex();
    menu_.open(current.isValid() ? model_.view().targets(current.row()) : ItemTargets(),
               ui_->ListView1->selectionModel()->selectedRows().size(),
               ui_->ListView1->viewport()->mapToGlobal(position));
}

void DisplayFrame::view(const QModelIndex& cell) {
    // All columns but the first tell about the page.
    const std::size_t column = cell.column() == 0 ? 0 : 1;
    const std::string target = model_.view().targets(cell.row()).at(column).view;
    if (!target.empty()) {
        commands_.View(target);
    }
}

void DisplayFrame::find(const QString& text, FindStep step) {
    const QModelIndex current = ui_->ListView1->currentIndex();
    const int here = current.isValid() ? current.row() : 0;
    const int from = step == FindStep::Here || !current.isValid() ? here
                     : step == FindStep::Next                     ? here + 1
                                                                  : here - 1;
    const std::optional<int> row = model_.find(text, from, step != FindStep::Previous);
    ui_->findBar->showFound(row.has_value());
    if (row) {
        ui_->ListView1->setCurrentIndex(model_.index(*row, 0));
    }
}

void DisplayFrame::findAgain(FindStep step) {
    if (ui_->findBar->isHidden()) {
        ui_->findBar->open();
    }
    ui_->findBar->step(step);
}

void DisplayFrame::closeFindBar() {
    ui_->findBar->hide();
    ui_->ListView1->setFocus();
}

void DisplayFrame::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && ui_->findBar->isVisible()) {
        closeFindBar();
    } else {
        QWidget::keyPressEvent(event);
    }
}

std::vector<int> DisplayFrame::columnWidths() const {
    return ui_->ListView1->columnWidths();
}

void DisplayFrame::setColumnWidths(const std::vector<int>& widths) {
    ui_->ListView1->setColumnWidths(widths);
}

} // namespace quillmark
