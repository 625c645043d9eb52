#include "windows/results/ResultsModel.h"

#include "windows/shared/Text.h"

#include <QScopeGuard>

#include <algorithm>

namespace quillmark {

ResultsModel::ResultsModel(Workspace& workspace, Messages& messages, Progress& progress)
    : view_(workspace, messages, progress) {}

void ResultsModel::ShowResults(const ResultsSelection& selected) {
    clear();
    const auto complete = qScopeGuard([this] { publish(); });
    view_.ShowResults(selected);
}

void ResultsModel::clear() {
    view_.clear();
    publish();
}

void ResultsModel::publish() {
    beginResetModel();
    rows_ = view_.rowCount();
    columns_ = view_.columnCount();
    endResetModel();
}

namespace {

bool isAscii(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

} // namespace

std::optional<int> ResultsModel::find(const QString& text, int from, bool forward) const {
    const std::string ascii = isAscii(text) ? text.toLower().toStdString() : std::string();
    for (int passed = 0; passed < rows_; ++passed) {
        const int row = (from + (forward ? passed : -passed) + 2 * rows_) % rows_;
        if (ascii.empty() ? rowHolds(row, text) : rowHolds(row, ascii)) {
            return row;
        }
    }
    return std::nullopt;
}

bool ResultsModel::rowHolds(int row, const QString& text) const {
    for (int column = 0; column < columns_; ++column) {
        if (cell(row, column).contains(text, Qt::CaseInsensitive)) {
            return true;
        }
    }
    return false;
}

/// The same for an ASCII text in small letters. ASCII has the same bytes in every encoding of a
/// name, so a list of a million rows need not be decoded for each letter typed.
bool ResultsModel::rowHolds(int row, std::string_view text) const {
    const auto equal = [](char c, char small) {
        return c == small || (c >= 'A' && c <= 'Z' && c + ('a' - 'A') == small);
    };
    for (int column = 0; column < columns_; ++column) {
        const std::string bytes = view_.text(row, column);
        if (std::search(bytes.begin(), bytes.end(), text.begin(), text.end(), equal) !=
            bytes.end()) {
            return true;
        }
    }
    return false;
}

QString ResultsModel::cell(int row, int column) const {
    return shown(view_.text(row, column));
}

int ResultsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int ResultsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

QVariant ResultsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return shownBriefly(view_.text(index.row(), index.column()));
    case Qt::EditRole:
        return cell(index.row(), index.column());
    case Qt::ToolTipRole:
        return shownBriefly(view_.suggestion(index.row()));
    default:
        return {};
    }
}

QVariant ResultsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= columns_) {
        return {};
    }
    return shown(view_.header(section));
}

} // namespace quillmark
