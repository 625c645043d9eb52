#pragma once

#include "settings/Settings.h"
#include "settings/SettingsFiles.h"

#include <functional>
#include <string_view>

namespace quillmark {

/// The file that keeps the Configuration between two runs of the program.
inline constexpr std::string_view ConfigurationFileName = "Quillmark.ini";

/// Loads the file over the current values. A file that is missing, cut short or otherwise not to be
/// read to its end is silently written anew, from the values that were read and those that were
/// there; one that does not begin as ours does is announced in the message box and reset to the
/// default settings. Throws a Failure when that writing fails.
void ReadConfigurations(Settings& settings, SettingsFiles& files,
                        const std::function<void(std::string_view)>& messageBox);

/// Writes the whole file from the current values, of which the list of the user-defined masks is
/// rebuilt from their text first. Throws a Failure when it cannot be written.
void SaveConfigurations(Settings& settings, SettingsFiles& files);

} // namespace quillmark
