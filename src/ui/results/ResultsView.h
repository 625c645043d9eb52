#pragma once

#include "run/Messages.h"
#include "store/FileCategory.h"
#include "store/ListSorting.h"
#include "store/Progress.h"
#include "ui/Workspace.h"
#include "ui/results/ItemActions.h"
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
/// filtered and sorted. After a check with the web rules pairs also have columns for the line and
/// the reason, notes stand among the invalid references, and no list is truncated. Rows are indices
/// and copy nothing: clear() the view before the results are cleared.
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
    /// The title of a column, with 0 <= column < columnCount().
    std::string_view header(int column) const;
    /// A cell, with 0 <= row < rowCount() and 0 <= column < columnCount(). Empty if the results
    /// were cleared in the meantime.
    std::string text(int row, int column) const;
    /// "Did you mean team.html?"; empty where nothing is suggested.
    std::string suggestion(int row) const;
    /// What can be done with a row.
    ItemTargets targets(int row) const;
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
    void showSite(const ResultDisplay& display);
    void addSiteRows(const ResultDisplay& display, int count, const LineOf& line);
    SiteRow siteRow(int row) const;
    std::string findingsCaption() const;
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
    const SiteRows* siteRows_ = nullptr; ///< Of the display on show, if it has rows of its own.
    std::array<Column, 4> columns_;
    int columnCount_ = 0;
    std::vector<int> rows_;
};

} // namespace quillmark
