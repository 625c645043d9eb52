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

/// The width left to the last column, however wide the first one was made in a larger window.
constexpr int LeastLastColumn = 120;

/// Rows with a little space between them, so that eyes can follow them.
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
    applyWidths();
}

void ResultsTree::setColumnWidths(const std::vector<int>& widths) {
    for (std::size_t i = 0; i < std::min(widths.size(), widths_.size()); ++i) {
        widths_.at(i) = std::max(widths[i], 0);
    }
    applyWidths();
}

void ResultsTree::keepWidth(int column, int width) {
    // The last column takes what is left, and the one for the line fits its text.
    if (!applying_ && display_ != NoDisplay && column < std::min(header()->count() - 1, 2)) {
        widths_.at(display_ + static_cast<std::size_t>(column) * ResultDisplays.size()) = width;
    }
}

void ResultsTree::applyWidths() {
    const int columns = header()->count();
    if (display_ == NoDisplay || columns < 2) {
        return;
    }
    applying_ = true;
    const int all = viewport()->width();
    if (columns == 2) {
        applyWidth(0, all / 2, all - LeastLastColumn);
    } else {
        const int line = fontMetrics().horizontalAdvance("Line 100000");
        const int least = columns == 3 ? line : line + LeastLastColumn;
        const int usual = columns == 3 ? (all - line) / 2 : (all - line) / 3;
        applyWidth(0, usual, all - least - LeastLastColumn);
        applyWidth(1, usual, all - least - header()->sectionSize(0));
        if (columns > 3) {
            header()->resizeSection(2, line);
        }
    }
    applying_ = false;
}

void ResultsTree::applyWidth(int column, int usual, int most) {
    const int kept =
        widths_.at(display_ + static_cast<std::size_t>(column) * ResultDisplays.size());
    header()->resizeSection(
        column, std::min(kept == 0 ? usual : kept, std::max(most, header()->minimumSectionSize())));
}

void ResultsTree::selectRow() {
    if (!selectionModel()->hasSelection()) {
        const QModelIndex current = currentIndex();
        setCurrentIndex(current.isValid() ? current : model()->index(0, 0));
    }
}

void ResultsTree::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    // A click selects its own row; a key needs one to start from.
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
    applyWidths();
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
    showTip(help->pos(), help->globalPos());
    return true;
}

void ResultsTree::showTip(QPoint position, QPoint screenPosition) {
    const QModelIndex index = indexAt(position);
    QStringList tip;
    if (index.isValid() && sizeHintForIndex(index).width() > visualRect(index).width()) {
        tip += index.data().toString();
    }
    if (const QString suggestion = index.data(Qt::ToolTipRole).toString(); !suggestion.isEmpty()) {
        tip += suggestion;
    }
    // An empty text hides the tip of the row before.
    QToolTip::showText(screenPosition, plainToolTip(tip.join('\n')), viewport(), visualRect(index));
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
