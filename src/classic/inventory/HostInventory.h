#pragma once

#include "run/ListLimit.h"
#include "run/RunContext.h"
#include "run/RunSounds.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// Lists directories, one per call, into DirectoryList, FileList and FileSizes.
class HostInventory {
public:
    HostInventory(RunContext& context, ListLimit& limit, RunSounds& sounds)
        : context_(context), limit_(limit), sounds_(sounds) {}

    /// The most bytes of a path. Longer ones are left out, with one message per run: no file system
    /// takes them, and a host's folder that contains itself leads to ever longer ones.
    static constexpr std::size_t LongestPath = 4096;
    /// The bytes of all paths that a listing may add after it has filled a list.
    static constexpr std::size_t MostBeyondFull = std::size_t{8} * 1024 * 1024;

    /// Lists the run's current directory; does nothing once the run is being aborted. If a
    /// directory cannot be listed to its end, what was found stays and the run goes on. A local
    /// name with a "\" in it is left out, with a message: in a list it would read as a path, and
    /// "x\..\.." as one that leads out of the site.
    void GetDirectory();

    /// Takes one line of a host's long listing, as the host sent it, for the current directory.
    void FtpXCtl1_DirItem(std::string_view line);

private:
    void leaveOutNamesWithBackslash(std::vector<std::string>& names);
    bool leavesOut(std::string_view path);
    void listLocalFolder();
    void listHostDirectory();
    void addFolders(const FolderListing& listing);
    void addFiles(const FolderListing& listing);
    void addDirectory(std::string_view name);
    void addDirectoryPath(std::string_view path);
    void addFile(std::string_view name, std::int32_t size);
    std::int32_t sizeInLine(std::string_view line) const;

    RunContext& context_;
    ListLimit& limit_;
    RunSounds& sounds_;
    bool toldOfLongPaths_ = false;
    std::size_t beyondFull_ = 0;
};

} // namespace quillmark
