#pragma once

#include "command/start/Options.h"
#include "platform/FolderLock.h"
#include "platform/ProgramFolder.h"

#include <filesystem>

namespace quillmark {

/// The program's own folder, ours alone for as long as this lives. Throws CannotStart when it
/// cannot be used or another check uses it.
class ProgramPlace {
public:
    explicit ProgramPlace(const Options& options);

    const std::filesystem::path& folder() const { return folder_; }
    ProgramFolder& files() { return files_; }

private:
    std::filesystem::path folder_;
    FolderLock lock_;
    ProgramFolder files_;
};

} // namespace quillmark
