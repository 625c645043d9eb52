#include "windows/main/MessageModel.h"

#include "windows/shared/Text.h"

namespace quillmark {

void MessageModel::refresh() {
    beginResetModel();
    rows_ = messages_.Count();
    endResetModel();
}

int MessageModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

QVariant MessageModel::data(const QModelIndex& index, int role) const {
    // Between two refreshes the list may have been cleared.
    const bool there = index.isValid() && index.row() < messages_.Count();
    if (!there || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return {};
    }
    return shown(messages_.Line(index.row()));
}

} // namespace quillmark
