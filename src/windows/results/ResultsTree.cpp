#include "windows/results/ResultsTree.h"

#include "windows/shared/RowCopy.h"
#include "windows/shared/Text.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QToolTip>

#include <algorithm>

namespace quillmark {

namespace {

/// What is left of the last column however wide the first one was made in a larger window.
constexpr int LeastLastColumn = 120;

/// Rows with a little air, for eyes that go along them.
class AiryRows : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 5);
    }
};

} // namespace

ResultsTree::ResultsTree(QWidget* parent) : QTreeView(parent) {
    copyByKey(*this);
    setItemDelegate(new AiryRows(this));
    connect(header(), &QHeaderView::sectionResized, this,
            [this](int column, int /*before*/, int width) { keepWidth(column, width); });
    connect(this, &QTreeView::doubleClicked, this,
            [this](const QModelIndex& index) { emit viewAsked(index); });
}

void ResultsTree::enterDisplay(std::size_t display) {
    display_ = display;
    applyWidth();
}

void ResultsTree::setColumnWidths(const std::vector<int>& widths) {
    for (std::size_t i = 0; i < std::min(widths.size(), widths_.size()); ++i) {
        widths_.at(i) = std::max(widths[i], 0);
    }
    applyWidth();
}

void ResultsTree::keepWidth(int column, int width) {
    if (!applying_ && display_ != NoDisplay && column == 0 && header()->count() > 1) {
        widths_.at(display_) = width;
    }
}

void ResultsTree::applyWidth() {
    if (display_ == NoDisplay || header()->count() < 2) {
        return;
    }
    const int all = viewport()->width();
    const int kept = widths_.at(display_);
    const int most = std::max(all - LeastLastColumn, header()->minimumSectionSize());
    applying_ = true;
    header()->resizeSection(0, kept == 0 ? all / 2 : std::min(kept, most));
    applying_ = false;
}

void ResultsTree::selectRow() {
    if (!selectionModel()->hasSelection()) {
        const QModelIndex current = currentIndex();
        setCurrentIndex(current.isValid() ? current : model()->index(0, 0));
    }
}

void ResultsTree::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    const bool byKey = event->reason() == Qt::TabFocusReason ||
                       event->reason() == Qt::BacktabFocusReason ||
                       event->reason() == Qt::OtherFocusReason;
    if (byKey) {
        selectRow();
    }
}

QModelIndex ResultsTree::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const QModelIndex current = currentIndex();
    const int step = action == MoveLeft ? -1 : action == MoveRight ? 1 : 0;
    const QModelIndex beside = current.siblingAtColumn(current.column() + step);
    return step != 0 && beside.isValid() ? beside : QTreeView::moveCursor(action, modifiers);
}

void ResultsTree::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    applyWidth();
}

void ResultsTree::keyPressEvent(QKeyEvent* event) {
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
        currentIndex().isValid()) {
        emit viewAsked(currentIndex());
    } else {
        QTreeView::keyPressEvent(event);
    }
}

bool ResultsTree::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QTreeView::viewportEvent(event);
    }
    const auto* help = dynamic_cast<QHelpEvent*>(event);
    showWholeText(help->pos(), help->globalPos());
    return true;
}

void ResultsTree::showWholeText(QPoint position, QPoint screenPosition) {
    const QModelIndex index = indexAt(position);
    if (!index.isValid() || sizeHintForIndex(index).width() <= visualRect(index).width()) {
        QToolTip::hideText();
        return;
    }
    QToolTip::showText(screenPosition, plainToolTip(index.data().toString()), viewport(),
                       visualRect(index));
}

void ResultsTree::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (model() == nullptr || model()->rowCount() > 0) {
        return;
    }
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    constexpr int Margin = 24;
    painter.drawText(viewport()->rect().adjusted(Margin, 0, -Margin, 0),
                     Qt::AlignCenter | Qt::TextWordWrap, emptyText());
}

} // namespace quillmark
