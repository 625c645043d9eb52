#pragma once

#include "settings/Settings.h"

namespace quillmark {

/// Sets every option, and the profile's listing columns and port, to its built-in value, and
/// appends the built-in items to the eight lists that have some. It does not clear those lists:
/// after a second call each item is there twice, as users know it from the reset of an old file.
void SetDefaultSettings(Settings& settings);

/// The values of a new profile. Its IGNORE_VALUE is a value of the Configuration, 0 in a new one.
Profile newProfile();

} // namespace quillmark
