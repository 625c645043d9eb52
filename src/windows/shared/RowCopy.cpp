#include "windows/shared/RowCopy.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>

namespace quillmark {

namespace {

QString rowText(const QAbstractItemModel& model, int row) {
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column) {
        cells += model.index(row, column).data(Qt::EditRole).toString();
    }
    return cells.join('\t');
}

} // namespace

void copySelectedRows(const QAbstractItemView& view) {
    QModelIndexList rows = view.selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QStringList lines;
    for (const QModelIndex& row : rows) {
        lines += rowText(*view.model(), row.row());
    }
    if (!lines.empty()) {
        QGuiApplication::clipboard()->setText(lines.join('\n'));
    }
}

void copyByKey(QAbstractItemView& view) {
    auto* copy = new QAction("&Copy", &view);
    copy->setShortcuts(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(copy, &QAction::triggered, &view, [&view] { copySelectedRows(view); });
    view.addAction(copy);
}

} // namespace quillmark
