#pragma once

#include "run/Messages.h"
#include "store/FileCategory.h"
#include "store/ListSorting.h"
#include "store/Progress.h"
#include "ui/Workspace.h"
#include "ui/results/ResultDisplays.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// What the three selectors say.
struct ResultsSelection {
    std::size_t display = 0; ///< Index of ResultDisplays.
    std::optional<FileCategory> category = FileCategory::All;
    SortOrder order = SortOrder::None;
};

/// The results of the last run as the window shows them: one list, or a pair as two columns,
/// filtered and sorted. Rows are indexes into the lists and copy nothing: clear() the view before
/// the lists are cleared.
class ResultsView {
public:
    ResultsView(Workspace& workspace, Messages& messages, Progress& progress)
        : workspace_(workspace), messages_(messages), progress_(progress) {}

    /// Rebuilds the view, which has no rows until it is complete. Truncates a list that is too
    /// long, with a message, and leaves the abort flag alone. Throws a Failure if that message
    /// cannot be logged; the view is complete then.
    void ShowResults(const ResultsSelection& selected);
    /// Removes the headers, rows and caption.
    void clear();

    int rowCount() const { return static_cast<int>(rows_.size()); }
    int columnCount() const { return columnCount_; }
    std::string_view header(int column) const;
    /// A cell, with 0 <= row < rowCount() and 0 <= column < columnCount(). Empty if the lists
    /// were cleared in the meantime.
    std::string_view text(int row, int column) const;
    /// "Unused Host Files (2 Files In 1,234 Bytes)"; empty without a view.
    std::string caption() const;

private:
    struct Column {
        const ResultList* list = nullptr;
        std::string_view header;
    };

    void BuildList(const ResultList& source, std::string_view header, bool masked);
    void BuildListPair(const ResultList& source, const ResultList& from, std::string_view header);
    void BuildSortedList(const ResultList& source, std::string_view header, bool masked);
    void BuildSortedListPair(const ResultList& source, const ResultList& from,
                             std::string_view header);
    void build(const ResultDisplay& display);
    void buildSorted(const ResultDisplay& display);
    void addColumn(const ResultList& list, std::string_view header);
    void addRows(const ResultList& source, bool masked, const ResultList* sortedIndexes);
    std::vector<int> rowsOf(const ResultList& source, bool masked, const ResultList* sortedIndexes);
    bool belongs(std::string_view line) const;

    Workspace& workspace_;
    Messages& messages_;
    Progress& progress_;
    ResultsSelection selected_;
    const ResultDisplay* display_ = nullptr;
    std::array<Column, 2> columns_;
    int columnCount_ = 0;
    std::vector<int> rows_;
};

} // namespace quillmark
