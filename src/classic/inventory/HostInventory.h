#pragma once

#include "run/ListLimit.h"
#include "run/RunContext.h"
#include "run/RunSounds.h"

#include <cstdint>
#include <string_view>

namespace quillmark {

/// Lists directories, one a call, into DirectoryList, FileList and FileSizes.
class HostInventory {
public:
    HostInventory(RunContext& context, ListLimit& limit, RunSounds& sounds)
        : context_(context), limit_(limit), sounds_(sounds) {}

    /// Lists the run's current directory; nothing once the run is being aborted. A directory that
    /// cannot be listed keeps what was found of it, and the run goes on.
    void GetDirectory();

    /// Takes one line of a host's long listing, as the host sent it, for the current directory.
    void FtpXCtl1_DirItem(std::string_view line);

private:
    void listLocalFolder();
    void listHostDirectory();
    void addFolders(const FolderListing& listing);
    void addFiles(const FolderListing& listing);
    void addDirectory(std::string_view name);
    void addFile(std::string_view name, std::int32_t size);
    std::int32_t sizeInLine(std::string_view line) const;

    RunContext& context_;
    ListLimit& limit_;
    RunSounds& sounds_;
};

} // namespace quillmark
