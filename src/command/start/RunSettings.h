#pragma once

#include "command/options/Options.h"
#include "settings/Settings.h"
#include "settings/SettingsFiles.h"

#include <string>

namespace quillmark {

/// Fills the settings of a check, each over the one before: defaults, configuration file, profile
/// or start file, command line. Throws CannotStart or SettingError, and leaves the configuration
/// file as it was, if there is nothing to check with them.
void readSettings(const Options& options, Settings& settings, SettingsFiles& files);

/// Applies the options that stand for settings, then --set. Throws CannotStart or SettingError for
/// a value that does not fit.
void applyOptions(const Options& options, Settings& settings);

/// Loads a profile, and tells the user if only part of it could be read. Throws CannotStart, with
/// the names of all profiles, if there is none of that name.
void loadNamedProfile(const std::string& name, Settings& settings, SettingsFiles& files);

} // namespace quillmark
