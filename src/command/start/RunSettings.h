#pragma once

#include "command/options/Options.h"
#include "settings/Settings.h"
#include "settings/SettingsFiles.h"

#include <string>

namespace quillmark {

/// Fills the settings of a check, each over the one before: defaults, configuration file, profile
/// or start file, command line. Throws CannotStart or SettingError if there is nothing to check
/// with them; the configuration file is left as it was then.
void readSettings(const Options& options, Settings& settings, SettingsFiles& files);

/// Takes the host options and --set from the command line.
void applyOptions(const Options& options, Settings& settings);

/// Loads a profile, and tells the user if only a part of it could be read. Throws CannotStart, with
/// the names there are, if there is none of that name.
void loadNamedProfile(const std::string& name, Settings& settings, SettingsFiles& files);

} // namespace quillmark
