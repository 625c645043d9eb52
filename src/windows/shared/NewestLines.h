#pragma once

#include "store/CappedList.h"

#include <QAbstractListModel>

namespace quillmark {

/// A list of the newest lines, the messages or the trace, as a view shows it: without a copy. The
/// edit role has the whole of a line that is shown briefly.
class NewestLines : public QAbstractListModel {
    Q_OBJECT

public:
    explicit NewestLines(const CappedList& lines) : lines_(lines) {}

    /// Takes over what has changed since the last call. The rows stay where they are and only their
    /// texts move, so that a full list goes by without flickering.
    void refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    const CappedList& lines_;
    int rows_ = 0;
};

} // namespace quillmark
