#pragma once

#include <QAbstractItemView>

namespace quillmark {

/// Puts the selected rows of a view on the clipboard, in the view's order: columns separated by a
/// tab, rows by line ends. Without a selection the clipboard stays as it is.
void copySelectedRows(const QAbstractItemView& view);

/// Has Ctrl+C in the view do so.
void copyByKey(QAbstractItemView& view);

} // namespace quillmark
