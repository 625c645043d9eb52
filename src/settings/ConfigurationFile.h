#pragma once

#include "settings/Settings.h"
#include "settings/SettingsFiles.h"

#include <functional>
#include <string_view>

namespace quillmark {

/// The file that keeps the Configuration between two runs of the program.
inline constexpr std::string_view ConfigurationFileName = "Quillmark.ini";

/// Loads the file over the current values and writes nothing. False if the file is missing, cut
/// short or cannot be read to its end, or if its first line is not ours. In the last case the
/// settings are reset, and `messageBox` gets a text for the user.
bool LoadConfigurations(Settings& settings, SettingsFiles& files,
                        const std::function<void(std::string_view)>& messageBox);

/// Loads the file over the current values. If it is missing, cut short or cannot be read to its
/// end, writes it anew without a word, with what was read and the current values of the rest. If
/// its first line is not ours, says so in the message box and resets it to the defaults. Throws a
/// Failure if the file cannot be written.
void ReadConfigurations(Settings& settings, SettingsFiles& files,
                        const std::function<void(std::string_view)>& messageBox);

/// Writes the whole file from the current values, after rebuilding the list of the user-defined
/// masks from their text. Throws a Failure if the file cannot be written.
void SaveConfigurations(Settings& settings, SettingsFiles& files);

} // namespace quillmark
