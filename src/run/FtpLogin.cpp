#include "run/FtpLogin.h"

#include <cstdlib>

namespace quillmark {

std::string keyFileOf(const Profile& profile) {
    const char* const home = std::getenv("HOME");
    const bool isInHome = profile.KEY_FILE.starts_with("~/") && home != nullptr;
    return isInHome ? home + profile.KEY_FILE.substr(1) : profile.KEY_FILE;
}

FtpLogin loginOf(const Profile& profile) {
    FtpLogin login;
    login.passiveDisabled = profile.DISABLE_PASV == 1;
    login.host = profile.HOST_NAME;
    login.port = profile.HOST_PORT;
    login.userName = profile.USER_NAME;
    login.account = profile.ACCOUNT_NAME;
    login.encryption = profile.ENCRYPTION;
    login.connections = profile.CONNECTIONS;
    login.trusted = fingerprintIn(profile.TRUSTED);
    // The password opens the key file then, and must not reach the host.
    if (profile.logsInByKeyFile()) {
        login.keyFile = keyFileOf(profile);
        login.keyPassphrase = profile.USER_PASSWORD;
    } else {
        login.password = profile.USER_PASSWORD;
    }
    return login;
}

} // namespace quillmark
