#pragma once

#include "command/options/Options.h"
#include "platform/FolderLock.h"
#include "platform/ProgramFolder.h"

#include <filesystem>
#include <optional>

namespace quillmark {

/// The program's own folder, as the command line chooses it.
class ProgramPlace {
public:
    /// Chooses the folder, and makes it if it is missing. Throws CannotStart if it cannot be used.
    explicit ProgramPlace(const Options& options);

    /// Keeps other checks out of the folder for as long as this object lives. Throws CannotStart if
    /// one is using it.
    void claim();

    const std::filesystem::path& folder() const { return folder_; }
    ProgramFolder& files() { return files_; }

private:
    std::filesystem::path folder_;
    ProgramFolder files_;
    std::optional<FolderLock> lock_;
};

} // namespace quillmark
