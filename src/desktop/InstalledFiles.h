#pragma once

#include <filesystem>

namespace quillmark {

/// Where the files that come with the program are: "share/quillmark" beside the folder of the
/// executable, in the machine's own form.
std::filesystem::path installedFiles();

} // namespace quillmark
