#pragma once

#include "settings/Encryption.h"
#include "settings/Rules.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quillmark {

/// The most connections that a host is asked for at a time.
inline constexpr std::int16_t MostConnections = 16;

/// The settings of one web site. Flags hold 0 or 1 and are on when they equal 1, CHECK_DUPES when
/// it is not 0. IGNORE_VALUE, which a profile file holds too, is a value of the Configuration.
struct Profile {
    std::string HOST_NAME; ///< Name or address of the FTP server.
    std::string USER_NAME;
    std::string START_PATH; ///< The start file; with a "\" it is a local one.
    std::string ACCOUNT_NAME;
    std::string USER_PASSWORD; ///< In clear; stored scrambled.
    std::int16_t GET_STATS = 0;
    std::int16_t CHECK_DUPES = 0;
    std::int16_t IGNORE_TOPICS = 0;
    std::int16_t IGNORE_CGI = 0;
    std::int16_t CHECK_URL = 0;
    std::int16_t MAX_LEVELS = 0; ///< Depth to which directories are listed; 0 is all.
    std::int16_t START_COL = 0;  ///< 1-based column at which the size begins in a listing line.
    std::int16_t END_COL = 0;    ///< The column behind the size.
    std::int16_t HOST_PORT = 0;
    std::int16_t DISABLE_PASV = 0;
    std::int16_t UPPER_LEVELS = 0; ///< Follow "../" references above the start.
    std::int16_t ROOT_LEVEL = 0;   ///< Allow references that begin with "/".
    std::string HOST_ALIAS;        ///< The site's web host name in absolute references.

    // The file has a line for each of these only where the value differs from the one here.
    Rules RULES = Rules::Classic;
    std::string SITE_URL;  ///< The site's own address on the web: "https://www.example.org/docs/".
    std::string SITE_ROOT; ///< The top of the site, a folder in the form of START_PATH; empty: the
                           ///< start file's folder.
    Encryption ENCRYPTION = Encryption::None;
    std::int16_t CONNECTIONS = 4; ///< To the host at a time, 1 to MostConnections.
    std::string TRUSTED;  ///< The fingerprint of a certificate or key that the user trusts although
                          ///< nobody vouches for it.
    std::string KEY_FILE; ///< The private key of an SFTP login, a path in the machine's own form.
                          ///< USER_PASSWORD is its passphrase then.
    /// Lines "#KEY=value" whose keys are unknown here. They are kept for the version of Quillmark
    /// that wrote them.
    std::vector<std::string> otherLines;

    /// Whether a key file opens the host, so that the password belongs to that file.
    bool logsInByKeyFile() const { return ENCRYPTION == Encryption::Sftp && !KEY_FILE.empty(); }

    bool operator==(const Profile&) const = default;
};

} // namespace quillmark
