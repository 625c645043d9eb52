#pragma once

#include "base/Failure.h"
#include "run/LocalDisk.h"
#include "run/RunState.h"
#include "ui/results/SiteRows.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

/// What the commands in one column of a row work on; empty if a command is not offered. Deletion
/// and move targets are in "\" form in Local Mode and host paths otherwise.
struct ItemTarget {
    std::string view;
    std::string deletion;
    std::string move;
    std::uint32_t line = 0; ///< 1-based, of the local file to be viewed, for an editor; or 0.
};

/// The targets of a row's two columns.
using ItemTargets = std::array<ItemTarget, 2>;

/// The targets of a row from its texts; `second` is nullopt if the view has one column. A second
/// text that is a web address can only be viewed: there is no file to delete.
ItemTargets itemTargets(const RunState& run, std::string_view first,
                        std::optional<std::string_view> second);

/// The same for a row of a check with the web rules: the file that the reference leads to, or the
/// web address that it is, and the page that makes it.
ItemTargets siteTargets(const RunState& run, const SiteRow& row);

/// "View /www/a.html": a command's caption, empty for an empty target.
std::string itemCaption(std::string_view verb, std::string_view target);

/// 53, with the path of the file that the user asked for.
Failure fileNotFound(const std::string& path);

/// Deletes a file of the local disk ("\" form) if it is there. Throws 53 with its name for a
/// folder, which is left alone, and another Failure if the file cannot be deleted.
void deleteLocalFile(LocalDisk& disk, std::string_view target);

} // namespace quillmark
