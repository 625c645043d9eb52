#pragma once

#include "store/CappedList.h"

#include <QAbstractListModel>

namespace quillmark {

/// A model of the newest messages or lines of the trace, read from their list without a copy. The
/// display role cuts very long lines, the edit role has them whole.
class NewestLines : public QAbstractListModel {
    Q_OBJECT

public:
    explicit NewestLines(const CappedList& lines) : lines_(lines) {}

    /// Shows what has changed since the last call. Rows stay where they are and only their texts
    /// move, so that a full list scrolls by without flickering.
    void refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    const CappedList& lines_;
    int rows_ = 0;
};

} // namespace quillmark
