#include "windows/shared/NewestLines.h"

#include "windows/shared/Text.h"

namespace quillmark {

void NewestLines::refresh() {
    const int count = lines_.Count();
    if (count < rows_) {
        beginRemoveRows({}, count, rows_ - 1);
        rows_ = count;
        endRemoveRows();
    }
    const int kept = rows_;
    if (count > rows_) {
        beginInsertRows({}, rows_, count - 1);
        rows_ = count;
        endInsertRows();
    }
    if (kept > 0) {
        emit dataChanged(index(0), index(kept - 1), {Qt::DisplayRole});
    }
}

int NewestLines::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

QVariant NewestLines::data(const QModelIndex& index, int role) const {
    // Between two refreshes the list may have been cleared.
    const bool there = index.isValid() && index.row() < lines_.Count();
    const bool asText = role == Qt::DisplayRole || role == Qt::ToolTipRole;
    return there && asText ? shown(lines_.Line(index.row())) : QVariant();
}

} // namespace quillmark
