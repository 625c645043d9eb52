#pragma once

#include "ui/results/ResultsView.h"

#include <QAbstractTableModel>
#include <QString>

#include <optional>

namespace quillmark {

/// The results view as a table of texts; a cell's bytes are decoded when it is asked for.
class ResultsModel : public QAbstractTableModel {
    Q_OBJECT

public:
    ResultsModel(Workspace& workspace, Messages& messages, Progress& progress);

    /// Rebuilds the table; it is empty while that lasts. Throws a Failure, the table complete, when
    /// a message cannot be logged.
    void ShowResults(const ResultsSelection& selected);
    /// Takes all rows and columns away.
    void clear();

    const ResultsView& view() const { return view_; }
    /// The row in which a text comes next, without regard to case, from row `from` on in either
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

    ResultsView view_;
    int rows_ = 0; ///< What the widgets were told, also while the view is being built.
    int columns_ = 0;
};

} // namespace quillmark
