#pragma once

#include "settings/Settings.h"
#include "settings/SettingsFiles.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// The file that holds the profile of this name.
std::string profileFileName(std::string_view name);

/// The names of all profiles, in ascending byte order. Throws a Failure if the program's folder
/// cannot be listed.
std::vector<std::string> ListProfiles(SettingsFiles& files);

/// Reads a profile into settings.profile, and its IGNORE_VALUE into the configuration. Returns
/// whether the whole file was read. If it is missing or damaged, the fields that were not reached
/// keep their values.
bool LoadProfile(Settings& settings, SettingsFiles& files, std::string_view name);

/// Writes a profile's file, which only its owner can read. Does nothing without a name. A comma in
/// a text is saved as it stands, but moves every later field when the file is loaded. Throws a
/// Failure if the file cannot be written.
void SaveProfile(const Settings& settings, SettingsFiles& files, std::string_view name);

/// Trusts the certificate or key with this fingerprint from now on: in the current profile, and in
/// the file of the profile of that name, where it changes nothing else. Throws a Failure if the
/// file cannot be written.
void TrustHost(Settings& settings, SettingsFiles& files, std::string_view name,
               std::string_view fingerprint);

} // namespace quillmark
