#pragma once

#include "settings/Settings.h"

namespace quillmark {

/// Sets every option, and the profile's listing columns and port, to its built-in value and appends
/// the built-in items to the eight lists that have some. It does not clear those lists: a second
/// call leaves each item in them twice, which is what a user finds after the reset of an old file.
void SetDefaultSettings(Settings& settings);

/// What the fields of a profile begin with. Its IGNORE_VALUE, which is a value of the
/// Configuration, is 0, as in a new Configuration.
Profile newProfile();

} // namespace quillmark
