#pragma once

#include "ui/results/ResultsView.h"

#include <QAbstractTableModel>
#include <QString>

#include <optional>
#include <string_view>

namespace quillmark {

/// The results view as a table of texts. The bytes of a cell are decoded only when it is asked for.
/// The display role cuts very long texts, the edit role has them whole; the tool tip role has what
/// was probably meant, as plain text.
class ResultsModel : public QAbstractTableModel {
    Q_OBJECT

public:
    ResultsModel(Workspace& workspace, Messages& messages, Progress& progress);

    /// Rebuilds the table, which is empty meanwhile. Throws a Failure if a message cannot be
    /// logged; the table is complete even then.
    void ShowResults(const ResultsSelection& selected);
    /// Removes all rows and columns.
    void clear();

    const ResultsView& view() const { return view_; }
    /// The next row (0-based) that holds a text in any letter case, from row `from` on, in either
    /// direction and around the end. `from` may be one beyond either end.
    std::optional<int> find(const QString& text, int from, bool forward) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    void publish();
    QString cell(int row, int column) const;
    bool rowHolds(int row, const QString& text) const;
    bool rowHolds(int row, std::string_view text) const;

    ResultsView view_;
    int rows_ = 0; ///< What the widgets were told; it holds while the view is being built.
    int columns_ = 0;
};

} // namespace quillmark
