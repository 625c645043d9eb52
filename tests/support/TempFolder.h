#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace quillmark::test {

/// A folder of a test's own, gone with it.
class TempFolder {
public:
    TempFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "quillmark-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        path_ = name;
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    /// Writes a file, with the folders it needs, and returns its path.
    std::filesystem::path write(const std::filesystem::path& name, std::string_view bytes) const {
        std::filesystem::path file = path_ / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }
    std::string read(const std::filesystem::path& name) const {
        std::ostringstream bytes;
        bytes << std::ifstream(path_ / name, std::ios::binary).rdbuf();
        return std::move(bytes).str();
    }

private:
    std::filesystem::path path_;
};

} // namespace quillmark::test
