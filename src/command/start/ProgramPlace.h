#pragma once

#include "command/options/Options.h"
#include "platform/FolderLock.h"
#include "platform/ProgramFolder.h"

#include <filesystem>
#include <optional>

namespace quillmark {

/// The program's own folder.
class ProgramPlace {
public:
    /// Throws CannotStart when the folder cannot be used.
    explicit ProgramPlace(const Options& options);

    /// Makes the folder's working copy ours alone for as long as this lives. Throws CannotStart
    /// when another check uses it.
    void claim();

    const std::filesystem::path& folder() const { return folder_; }
    ProgramFolder& files() { return files_; }

private:
    std::filesystem::path folder_;
    ProgramFolder files_;
    std::optional<FolderLock> lock_;
};

} // namespace quillmark
