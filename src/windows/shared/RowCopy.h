#pragma once

#include <QAbstractItemView>

namespace quillmark {

/// Puts the selected rows of a view on the clipboard, in the view's order: the texts of the edit
/// role, columns separated by a tab, rows by line ends. Without a selection the clipboard stays as
/// it is.
void copySelectedRows(const QAbstractItemView& view);

/// Makes Ctrl+C copy the selected rows of the view.
void copyByKey(QAbstractItemView& view);

} // namespace quillmark
