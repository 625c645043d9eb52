#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// Who may read a settings file.
enum class FileAccess { Everyone, OwnerOnly };

/// The settings files in the program's own folder, each a plain file name there.
class SettingsFiles {
public:
    virtual ~SettingsFiles() = default;

    /// The bytes of the file. Throws fileNotFound() or another Failure when it cannot be read.
    virtual std::string read(std::string_view name) = 0;
    /// Replaces the file in one step: whatever happens, it holds the old bytes or the new ones.
    /// Throws a Failure when it cannot be written.
    virtual void replace(std::string_view name, std::string_view bytes, FileAccess access) = 0;
    /// The names of the files that end in the extension (".pro"), in ascending byte order.
    virtual std::vector<std::string> names(std::string_view extension) = 0;
    /// Deletes the file. Throws fileNotFound() or another Failure when that is not possible.
    virtual void remove(std::string_view name) = 0;
};

} // namespace quillmark
