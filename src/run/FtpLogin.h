#pragma once

#include "settings/Fingerprint.h"
#include "settings/Profile.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quillmark {

/// What it takes to log in at a web host.
struct FtpLogin {
    bool passiveDisabled = false;
    std::string host;
    std::int16_t port = 21;
    std::string userName;
    std::string password;
    std::string account = {};
    Encryption encryption = Encryption::None;
    int connections = 1;                ///< At most this many at a time.
    std::optional<Sha256> trusted = {}; ///< The certificate or key that the user trusts.
    std::string keyFile = {}; ///< Of SSH, in the machine's own form; empty: agent or password.
    std::string keyPassphrase = {};
};

/// Where the key file of a profile is; "~/" stands for the user's home folder.
std::string keyFileOf(const Profile& profile);

/// The login of a profile. With a key file the profile's password is the passphrase of that file,
/// and is never sent.
FtpLogin loginOf(const Profile& profile);

} // namespace quillmark
