#include "run/FtpLogin.h"

namespace quillmark {

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
        login.keyFile = profile.KEY_FILE;
        login.keyPassphrase = profile.USER_PASSWORD;
    } else {
        login.password = profile.USER_PASSWORD;
    }
    return login;
}

} // namespace quillmark
