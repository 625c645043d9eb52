#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmark {

/// The outcome of following a reference's leading "../" groups.
struct UpperLevels {
    static constexpr std::int16_t Resolved = -1;
    static constexpr std::int16_t NotAllowed = 0;

    std::string path;
    std::int16_t code = NotAllowed;
};

/// Resolves a reference that begins with "../" against a directory ("/" form, ending in "/"). A
/// climb past the directory's first "/" is allowed only with `followUpperLevels`, and stops at the
/// root. Throws invalidProcedureCall() for a reference that has fewer than two characters behind
/// "../".
UpperLevels ResolveUpperLevels(std::string_view reference, std::string_view currentDirectory,
                               bool followUpperLevels);

} // namespace quillmark
