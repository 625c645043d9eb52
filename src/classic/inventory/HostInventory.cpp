#include "classic/inventory/HostInventory.h"

#include "base/Failure.h"
#include "base/Numbers.h"
#include "base/Paths.h"

namespace quillmark {

void HostInventory::GetDirectory() {
    const RunState& state = context_.state;
    if (state.abort) {
        return;
    }
    try {
        context_.outside.messages.post("Getting Directory For ", state.currentDirectory);
        if (state.localMode) {
            listLocalFolder();
        } else {
            listHostDirectory();
        }
    } catch (const Failure& failure) {
        sounds_.failure();
        // What a host said is posted already, in its own words; the disk posts nothing.
        if (state.localMode) {
            context_.outside.messages.post("Unable to list ", state.currentDirectory, " (",
                                           failure.description(), ")");
        }
    }
}

void HostInventory::listLocalFolder() {
    FolderListing listing =
        context_.outside.disk.list(ToBackSlashes(context_.state.currentDirectory));
    leaveOutNamesWithBackslash(listing.folders);
    leaveOutNamesWithBackslash(listing.files);
    addFolders(listing);
    addFiles(listing);
}

void HostInventory::leaveOutNamesWithBackslash(std::vector<std::string>& names) {
    std::erase_if(names, [this](const std::string& name) {
        const bool isPath = name.find('\\') != std::string::npos;
        if (isPath) {
            context_.outside.messages.post("Left out ", context_.state.currentDirectory, name,
                                           " because of the \\ in its name");
        }
        return isPath;
    });
}

/// Whether the path stays out of the inventory because it is too long, which is told of the first
/// one. Once a list is full, the rest of the listing is still read; one without end must not fill
/// the memory, so a path beyond MostBeyondFull stays out too.
bool HostInventory::leavesOut(std::string_view path) {
    if (path.size() <= LongestPath) {
        beyondFull_ += context_.state.abort ? path.size() : 0;
        return beyondFull_ > MostBeyondFull;
    }
    if (!toldOfLongPaths_) {
        toldOfLongPaths_ = true;
        context_.outside.messages.post("Left out what has a path longer than 4,096 bytes, in ",
                                       context_.state.currentDirectory);
    }
    return true;
}

void HostInventory::addFolders(const FolderListing& listing) {
    const std::string folder = ToBackSlashes(context_.state.currentDirectory);
    for (const std::string& name : listing.folders) {
        if (context_.state.abort) {
            return;
        }
        const std::string path = WithTrailingBackslash(folder) + name;
        addDirectoryPath(ToForwardSlashes(WithTrailingBackslash(path)));
        context_.outside.events.DoEvents();
    }
}

void HostInventory::addFiles(const FolderListing& listing) {
    for (const std::string& name : listing.files) {
        addFile(name, 0);
        context_.outside.events.DoEvents();
    }
}

void HostInventory::listHostDirectory() {
    const std::string& directory = context_.state.currentDirectory;
    const auto item = [this](std::string_view line) { FtpXCtl1_DirItem(line); };
    if (!directory.empty()) {
        context_.outside.ftp.list(directory, item);
        return;
    }
    context_.outside.messages.post("Using CWD");
    context_.outside.ftp.listWorkingDirectory(item);
}

void HostInventory::FtpXCtl1_DirItem(std::string_view line) {
    if (line.size() < 3 || line.front() == '.') {
        return;
    }
    // Hosts differ in the columns before the name: it is what follows the last blank.
    const std::string_view fields = line.substr(2);
    const std::string_view name = fields.substr(fields.rfind(' ') + 1);
    if (name == "." || name == "..") {
        return;
    }
    switch (line.front()) {
    case 'd':
        addDirectory(name);
        return;
    case 'l': // Links are not part of the inventory.
        return;
    default:
        addFile(name, sizeInLine(line));
    }
}

void HostInventory::addDirectory(std::string_view name) {
    std::string path = context_.state.currentDirectory;
    path += name;
    if (!name.ends_with('/')) {
        path += '/';
    }
    addDirectoryPath(path);
}

void HostInventory::addDirectoryPath(std::string_view path) {
    if (!leavesOut(path)) {
        limit_.AddWithLimit(context_.lists.DirectoryList, "Directory List", path);
    }
}

void HostInventory::addFile(std::string_view name, std::int32_t size) {
    std::string path = context_.state.currentDirectory;
    path += name;
    if (context_.state.localMode) {
        path = ToForwardSlashes(path);
    }
    if (leavesOut(path)) {
        return;
    }
    context_.lists.FileList.Append(path);
    context_.lists.FileSizes.Append(path + zeroPadded(size, SizeDigits));
    limit_.apply(context_.lists.FileList, "File List");
}

std::int32_t HostInventory::sizeInLine(std::string_view line) const {
    const Profile& profile = context_.settings.profile;
    // Sizes are not known without a sound range of columns.
    if (profile.START_COL < 1 || profile.END_COL <= profile.START_COL) {
        return 0;
    }
    const auto start = static_cast<std::size_t>(profile.START_COL - 1);
    if (start >= line.size()) {
        return 0;
    }
    const auto width = static_cast<std::size_t>(profile.END_COL - profile.START_COL);
    return toInt32Held(leadingNumber(line.substr(start, width)));
}

} // namespace quillmark
