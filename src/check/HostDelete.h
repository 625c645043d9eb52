#pragma once

#include "run/FtpComponent.h"
#include "run/Messages.h"
#include "settings/Profile.h"

#include <string_view>

namespace quillmark {

/// Deletes a file of the profile's host, or removes a directory (its path ends in "/"), over a
/// connection of its own. Without a connection it posts "Unable to connect" and does nothing.
/// Throws a Failure if the host refuses; the connection is closed then.
void deleteOnHost(FtpComponent& ftp, Messages& messages, const Profile& profile,
                  std::string_view path);

} // namespace quillmark
