#pragma once

#include "settings/SettingKeys.h"
#include "settings/Settings.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace quillmark {

/// A setting that is refused; what() tells the user why.
class SettingError : public std::invalid_argument {
public:
    using std::invalid_argument::invalid_argument;
};

/// Sets one value by its key in the settings files ("MAX_LEVELS"). A number is a whole one; a list
/// is given as its items, separated by ",". Throws SettingError for an unknown key, for a value
/// that does not fit, and for the password, which does not belong on a command line.
void setByKey(Settings& settings, std::string_view key, std::string_view value);

/// The value as setByKey() takes it; the password is shown as "(stored)" or nothing.
std::string valueText(const Settings& settings, const SettingKey& setting);

} // namespace quillmark
