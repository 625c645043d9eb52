#pragma once

#include "store/CappedList.h"

#include <QAbstractListModel>

namespace quillmark {

/// The message list as a view shows it.
class MessageModel : public QAbstractListModel {
    Q_OBJECT

public:
    explicit MessageModel(const CappedList& messages) : messages_(messages) {}

    /// The list has changed since the last call.
    void refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    const CappedList& messages_;
    int rows_ = 0;
};

} // namespace quillmark
