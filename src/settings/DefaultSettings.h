#pragma once

#include "settings/Settings.h"

namespace quillmark {

/// Sets every option, and the profile's listing columns and port, to its built-in value, and
/// appends the built-in items to the eight lists that have some. It does not clear those lists:
/// after a second call each item is there twice, which is what users see when an old file is reset.
void SetDefaultSettings(Settings& settings);

/// The values of a new profile. IGNORE_VALUE is not one of them: it belongs to the Configuration,
/// where it is 0 at first.
Profile newProfile();

} // namespace quillmark
