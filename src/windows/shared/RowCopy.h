#pragma once

#include <QAbstractItemView>

namespace quillmark {

/// Copies the selected rows of a view to the clipboard, in the view's order: the texts of the edit
/// role, with tabs between columns and line ends between rows. Without a selection the clipboard
/// stays as it is.
void copySelectedRows(const QAbstractItemView& view);

/// Makes Ctrl+C copy the selected rows of the view.
void copyByKey(QAbstractItemView& view);

} // namespace quillmark
