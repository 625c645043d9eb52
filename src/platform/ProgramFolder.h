#pragma once

#include "settings/SettingsFiles.h"

#include <filesystem>

namespace quillmark {

/// The settings files on this machine's disk. Refuses a name that would lead out of the folder with
/// pathNotFound(), and one with a zero byte with a diskFailure().
class ProgramFolder : public SettingsFiles {
public:
    /// The largest file that is read, in bytes: far beyond any settings file, and little memory if
    /// the file is something else.
    static constexpr std::size_t MaximumFileSize = std::size_t{16} * 1024 * 1024;

    /// `folder` is the program's own folder in "\" form. Deletes what killed programs left
    /// half-written there.
    explicit ProgramFolder(std::string_view folder);

    /// The full name of a file in the folder, in "\" form, as messages to the user show it.
    std::string programFile(std::string_view name) const;

    /// Also throws a Failure for what is not a plain file or is larger than MaximumFileSize.
    std::string read(std::string_view name) override;
    void replace(std::string_view name, std::string_view bytes, FileAccess access) override;
    /// Throws pathNotFound() if there is no such folder, or another Failure.
    std::vector<std::string> names(std::string_view extension) override;
    void remove(std::string_view name) override;

private:
    std::filesystem::path checkedPath(std::string_view name) const;

    std::string folder_;
};

} // namespace quillmark
