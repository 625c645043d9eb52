#pragma once

#include "ui/profile/ProfileFields.h"

#include <string>
#include <string_view>

namespace quillmark {

/// Where the site of a profile lies. Its start path alone decides: one with a "\" is a path on this
/// computer, any other is a path on the web host.
enum class SitePlace { Nowhere, ThisComputer, WebHost };

/// `startPath` as the user typed it; an empty one leads Nowhere.
SitePlace sitePlace(std::string_view startPath);

/// A sentence about where the site of these fields lies, or about what is missing to find it.
std::string placeNote(const ProfileFields& fields);

/// Tells what a save makes of the text in a number box, if that is not the number a person reads
/// there: `"abc" is no whole number and is saved as 0`. Empty for a whole number of 16 bits.
std::string numberNote(std::string_view text);

} // namespace quillmark
