#pragma once

#include "report/CheckReport.h"

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <tuple>

namespace quillmark {

/// Findings that a user knows of and lives with for now: by page (from the top of the site),
/// reference and kind, with their count. Lines do not matter.
struct Baseline {
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

/// The baseline of all findings of a check, and its file: JSON, a finding a line, sorted so that
/// versions compare well. Bytes that are not UTF-8 become U+FFFD.
Baseline baselineOf(const SiteResults& site);
std::string baselineText(const Baseline& baseline);

/// Marks the findings that the baseline has. Of several alike the first ones are known, as many as
/// it has.
void applyBaseline(const Baseline& baseline, CheckReport& report);

} // namespace quillmark
