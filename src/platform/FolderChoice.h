#pragma once

#include <filesystem>
#include <optional>

namespace quillmark {

/// Chooses the program's own folder and makes it if it is missing: the one asked for, or else the
/// one that QUILLMARK_FOLDER names, or else the executable's if it can be written and is not named
/// "bin", or else the user's data folder (XDG base directories: ~/.local/share/quillmark). Returns
/// an absolute path in the machine's own form. Throws a Failure if the folder cannot be made or
/// written.
std::filesystem::path chooseProgramFolder(const std::optional<std::filesystem::path>& asked);

/// Whether files can be created in the folder.
bool canBeWritten(const std::filesystem::path& folder);

} // namespace quillmark
