#pragma once

#include "platform/FileDescriptor.h"

#include <functional>
#include <optional>
#include <string>

#include <sys/types.h>

namespace quillmark {

/// A file that is written anew for every page and is whole at any moment, even after the program
/// was killed. Two files take turns: one has the name, the next content goes to the spare one
/// beside it (the name followed by ".part"), and then they are swapped. That spares the disk from
/// deleting and creating a file for every page. Anything else that has one of the names, such as a
/// link or a pipe, is deleted and never followed.
class AlternatingFile {
public:
    /// `file` is in the machine's own form; nothing is created yet.
    explicit AlternatingFile(std::string file);
    /// Deletes the spare file; the other one stays.
    ~AlternatingFile();
    AlternatingFile(const AlternatingFile&) = delete;
    AlternatingFile& operator=(const AlternatingFile&) = delete;

    /// Gives the file new content: `write` fills the spare file from offset 0 on and returns its
    /// new length in bytes, or nullopt if it failed. Returns false if `write` failed, which leaves
    /// the file as it was, or if the disk refused a step. Throws a Failure if something else has
    /// the name and cannot be deleted.
    bool replace(const std::function<std::optional<off_t>(const FileDescriptor& to)>& write);
    /// Deletes the file if there is one. Throws a Failure if the disk refuses that.
    void remove();

private:
    /// A file that we made, and how to recognise it.
    struct Made {
        FileDescriptor descriptor{-1};
        dev_t device = 0;
        ino_t inode = 0;
        off_t length = 0;
    };

    static bool isAt(const std::string& path, const Made& made);
    bool openSpare();
    bool exchange();

    std::string file_;
    std::string spareFile_;
    Made current_; ///< The file that has the name now.
    Made spare_;
};

} // namespace quillmark
