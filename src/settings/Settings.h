#pragma once

#include "settings/Configuration.h"
#include "settings/Profile.h"

namespace quillmark {

/// All that the user can set: the program-wide options and the current profile.
struct Settings {
    Configuration configuration;
    Profile profile;
};

} // namespace quillmark
