#pragma once

#include <filesystem>
#include <optional>

namespace quillmark {

/// The program's own folder, created when it is missing: the one asked for, else that of the
/// environment variable QUILLMARK_FOLDER, else the executable's when it can be written, else the
/// user's data folder (XDG base directories: ~/.local/share/quillmark). An absolute
/// path in the machine's own form. Throws a Failure when it cannot be created or written.
std::filesystem::path chooseProgramFolder(const std::optional<std::filesystem::path>& asked);

/// Whether files can be created in the folder.
bool canBeWritten(const std::filesystem::path& folder);

} // namespace quillmark
