#pragma once

#include "report/CheckReport.h"

#include <map>
#include <string>
#include <string_view>
#include <tuple>

namespace quillmark {

/// The findings that a user knows of and lives with for now, by page (from the top of the site),
/// reference and kind, each with its count. Lines do not matter, since edits move them.
struct Baseline {
    /// What makes two findings the same one.
    struct Key {
        std::string page;
        std::string reference;
        std::string kind;

        friend bool operator<(const Key& a, const Key& b) {
            return std::tie(a.page, a.reference, a.kind) < std::tie(b.page, b.reference, b.kind);
        }
    };
    std::map<Key, std::size_t> counts;
};

/// Reads the bytes of a baseline file. Throws a Failure that says what is wrong with them.
Baseline parseBaseline(std::string_view json);

/// The baseline of all findings of a check.
Baseline baselineOf(const SiteResults& site);

/// The bytes of a baseline's file: JSON, one finding per line, sorted so that two versions compare
/// well. Bytes that are not UTF-8 become U+FFFD.
std::string baselineText(const Baseline& baseline);

/// Marks the findings of the report that the baseline has. Of several alike, the first ones are
/// known, as many as the baseline counts.
void applyBaseline(const Baseline& baseline, CheckReport& report);

} // namespace quillmark
