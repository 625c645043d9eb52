#pragma once

#include "settings/Profile.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// The index page of a folder: the first of `indexNames` that is there. Any other path comes back
/// as it is.
std::filesystem::path startPageOf(const std::filesystem::path& fileOrFolder,
                                  const std::vector<std::string>& indexNames);

/// The START_PATH ("\" form, absolute) of a start file that the user names in the machine's own
/// form. Throws a Failure that says what to name instead if no check can begin there.
std::string startPathOf(const std::filesystem::path& file);

/// The SITE_ROOT of a folder that the user names in the machine's own form. Throws a Failure if
/// there is no such folder.
std::string siteRootOf(const std::filesystem::path& folder);

/// Throws a Failure that says what to name instead if no check can begin at a local start path ("\"
/// form, in any spelling): there is no such file, or requireListedStartFile() refuses it.
void requireStartFile(std::string_view startPath, Rules rules);

/// Throws a Failure if a local start path leads to a file that the inventory of the classic rules
/// leaves out, a symbolic link or a hidden file: the check would end as aborted, with nothing
/// found. The web rules take both. A path that is not there passes, since the run itself reports
/// it.
void requireListedStartFile(std::string_view startPath, Rules rules);

/// Throws a Failure if a profile logs in by a key file that cannot be read.
void requireKeyFile(const Profile& profile);

} // namespace quillmark
