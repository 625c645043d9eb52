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
    // The list may have been cleared since the last refresh().
    const bool there = index.isValid() && index.row() < lines_.Count();
    if (!there) {
        return {};
    }
    const std::string_view line = lines_.Line(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return shownBriefly(line);
    case Qt::ToolTipRole:
        return plainToolTip(shownBriefly(line));
    case Qt::EditRole:
        return shown(line);
    default:
        return {};
    }
}

} // namespace quillmark
