#include "ui/results/ResultsView.h"

#include "base/Numbers.h"
#include "base/PathParser.h"
#include "base/UpperCase.h"
#include "run/ListLimit.h"
#include "ui/Thousands.h"

#include <algorithm>

namespace quillmark {

namespace {

/// The progress indicator of a fill, which closes however the fill ends.
class BuildingList {
public:
    explicit BuildingList(Progress& progress) : progress_(progress) {
        progress_.InitializeThinking("Building List");
    }
    BuildingList(const BuildingList&) = delete;
    BuildingList& operator=(const BuildingList&) = delete;
    ~BuildingList() { progress_.RemoveThinking(); }

private:
    Progress& progress_;
};

/// A cell: the reference, its page, the line, the reason.
std::string siteText(const SiteRow& row, int column) {
    switch (column) {
    case 0:
        return std::string(row.reference);
    case 1:
        return std::string(row.from);
    case 2:
        return row.line == 0 ? std::string() : std::to_string(row.line);
    default:
        return (row.note ? "Note: " : "") + row.why;
    }
}

} // namespace

void ResultsView::ShowResults(const ResultsSelection& selected) {
    clear();
    selected_ = selected;
    display_ = &ResultDisplays.at(selected.display);
    if (workspace_.site.filled) {
        showSite(*display_);
    } else if (display_->sorted && selected.order != SortOrder::None) {
        buildSorted(*display_);
    } else {
        build(*display_);
    }
}

void ResultsView::clear() {
    display_ = nullptr;
    siteRows_ = nullptr;
    columnCount_ = 0;
    rows_.clear();
}

std::string_view ResultsView::header(int column) const {
    return columns_.at(static_cast<std::size_t>(column)).header;
}

std::string ResultsView::text(int row, int column) const {
    if (siteRows_ != nullptr) {
        return siteText(siteRow(row), column);
    }
    // The next run may have cleared the list behind these rows.
    const ResultList& list = *columns_.at(static_cast<std::size_t>(column)).list;
    const int line = rows_[static_cast<std::size_t>(row)];
    return std::string(line < list.Count() ? list.Line(line) : std::string_view());
}

SiteRow ResultsView::siteRow(int row) const {
    const auto index = static_cast<std::size_t>(rows_[static_cast<std::size_t>(row)]);
    return index < siteRows_->count(workspace_.site) ? siteRows_->row(workspace_.site, index)
                                                     : SiteRow();
}

std::string ResultsView::suggestion(int row) const {
    const std::string_view meant =
        siteRows_ == nullptr ? std::string_view() : siteRow(row).suggestion;
    return meant.empty() ? std::string() : "Did you mean " + std::string(meant) + "?";
}

ItemTargets ResultsView::targets(int row) const {
    if (siteRows_ != nullptr) {
        return siteTargets(workspace_.run, siteRow(row));
    }
    return columnCount_ > 1 ? itemTargets(workspace_.run, text(row, 0), text(row, 1))
                            : itemTargets(workspace_.run, text(row, 0), std::nullopt);
}

std::string ResultsView::caption() const {
    if (display_ == nullptr) {
        return {};
    }
    if (siteRows_ == &FindingRows) {
        return findingsCaption();
    }
    std::string caption(display_->title);
    caption.append(std::to_string(rows_.size())).append(display_->unit);
    if (display_->total != nullptr && workspace_.settings.profile.GET_STATS == 1 &&
        workspace_.run.statisticsComplete) {
        const double total = workspace_.run.*display_->total;
        caption.append(" In ").append(groupedThousands(total, userThousandsSeparator()));
        caption.append(" Bytes");
    }
    return caption.append(")");
}

/// "Invalid References (12 Errors, 3 Notes)".
std::string ResultsView::findingsCaption() const {
    int notes = 0;
    for (int row = 0; row < rowCount(); ++row) {
        notes += siteRow(row).note ? 1 : 0;
    }
    const int errors = rowCount() - notes;
    return std::string(display_->title) + std::to_string(errors) +
           (errors == 1 ? " Error, " : " Errors, ") + std::to_string(notes) +
           (notes == 1 ? " Note)" : " Notes)");
}

/// Fills the view after a check with the web rules, whose findings tell more than the lists.
void ResultsView::showSite(const ResultDisplay& display) {
    const ResultList& source = workspace_.lists.*display.source;
    siteRows_ = display.site;
    addColumn(source, display.headers[0]);
    if (siteRows_ != nullptr) {
        addColumn(source, display.headers[1]);
        addColumn(source, "Line");
    }
    if (display.reasons) {
        addColumn(source, "Why");
    }
    const SiteResults& site = workspace_.site;
    addSiteRows(display,
                siteRows_ == nullptr ? source.Count() : static_cast<int>(siteRows_->count(site)),
                [this, &site, &source](int line) {
                    return siteRows_ == nullptr
                               ? source.Line(line)
                               : siteRows_->reference(site, static_cast<std::size_t>(line));
                });
}

void ResultsView::addSiteRows(const ResultDisplay& display, int count, const LineOf& line) {
    std::vector<int> order;
    if (display.sorted && selected_.order != SortOrder::None) {
        progress_.InitializeThinking("Sorting");
        order = sortedLines(count, line, selected_.order);
        progress_.RemoveThinking();
    }
    const bool all = !display.masked || selected_.category == FileCategory::All;
    const BuildingList building(progress_);
    rows_.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        progress_.UpdateThinking(i, count);
        const int index = order.empty() ? i : order[static_cast<std::size_t>(i)];
        if (all || belongs(line(index))) {
            rows_.push_back(index);
        }
    }
}

void ResultsView::build(const ResultDisplay& display) {
    const ResultList& source = workspace_.lists.*display.source;
    if (display.from == nullptr) {
        BuildList(source, display.headers[0], display.masked);
    } else {
        BuildListPair(source, workspace_.lists.*display.from, display.headers[0]);
    }
}

void ResultsView::buildSorted(const ResultDisplay& display) {
    const ResultList& source = workspace_.lists.*display.source;
    if (display.from == nullptr) {
        BuildSortedList(source, display.headers[0], display.masked);
    } else {
        BuildSortedListPair(source, workspace_.lists.*display.from, display.headers[0]);
    }
}

void ResultsView::BuildList(const ResultList& source, std::string_view header, bool masked) {
    addColumn(source, header);
    addRows(source, masked, nullptr);
}

void ResultsView::BuildListPair(const ResultList& source, const ResultList& from,
                                std::string_view header) {
    addColumn(source, header);
    addColumn(from, display_->headers[1]);
    addRows(source, true, nullptr);
}

void ResultsView::BuildSortedList(const ResultList& source, std::string_view header, bool masked) {
    addColumn(source, header);
    BuildSortKeys(source, selected_.order, workspace_.lists, progress_);
    addRows(source, masked, &workspace_.lists.TempListCount);
}

void ResultsView::BuildSortedListPair(const ResultList& source, const ResultList& from,
                                      std::string_view header) {
    addColumn(source, header);
    addColumn(from, display_->headers[1]);
    BuildSortKeys(source, selected_.order, workspace_.lists, progress_);
    addRows(source, true, &workspace_.lists.TempListCount);
}

void ResultsView::addColumn(const ResultList& list, std::string_view header) {
    columns_.at(static_cast<std::size_t>(columnCount_)) = {&list, header};
    ++columnCount_;
}

void ResultsView::addRows(const ResultList& source, bool masked, const ResultList* sortedIndexes) {
    const BuildingList building(progress_);
    rows_ = rowsOf(source, masked, sortedIndexes);
    // The sort keys have served: they would only take memory.
    workspace_.lists.TempList.Clear();
    workspace_.lists.TempListCount.Clear();
    if (source.Count() >= ResultList::Maximum) {
        ListLimit(messages_, workspace_.run).ListMaximumReached("Results List");
    }
}

std::vector<int> ResultsView::rowsOf(const ResultList& source, bool masked,
                                     const ResultList* sortedIndexes) {
    std::vector<int> rows;
    const int count = std::min(source.Count(), ResultList::Maximum);
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        progress_.UpdateThinking(i, count);
        const int line =
            sortedIndexes == nullptr ? i : static_cast<int>(leadingNumber(sortedIndexes->Line(i)));
        const std::string_view text = source.Line(line);
        if (!text.empty() && (!masked || belongs(text))) {
            rows.push_back(line);
        }
    }
    return rows;
}

bool ResultsView::belongs(std::string_view line) const {
    return subCheckMask(upperCase(PathParser(line).FileName()), selected_.category,
                        workspace_.settings.configuration.masks);
}

} // namespace quillmark
