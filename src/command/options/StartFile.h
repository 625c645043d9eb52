#pragma once

#include <stdexcept>
#include <string>

namespace quillmark {

/// Why a check cannot begin, in words that tell the user what to do about it.
class CannotStart : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The START_PATH ("\" form, absolute) of a start file that the user names in the machine's own
/// form. Throws CannotStart if there is no such file.
std::string startPathOf(const std::string& file);

/// The SITE_ROOT of a folder that the user names in the machine's own form. Throws CannotStart if
/// there is no such folder.
std::string siteRootOf(const std::string& folder);

/// Throws CannotStart if a Local Mode start path ("\" form) leads to no file, in any spelling.
void requireStartFile(const std::string& startPath);

} // namespace quillmark
