#include "check/HostDelete.h"

#include "base/Failure.h"

namespace quillmark {

namespace {

/// The lists write a directory with "/" at its end.
void deletePath(FtpComponent& ftp, std::string_view path) {
    if (path.ends_with('/')) {
        ftp.removeDirectory(path);
    } else {
        ftp.deleteFile(path);
    }
}

} // namespace

void deleteOnHost(FtpComponent& ftp, Messages& messages, const Profile& profile,
                  std::string_view path) {
    messages.post("Attempting to delete file ", path);
    FtpLogin login = loginOf(profile);
    login.connections = 1; // One command; further logins would only cost the host.
    ftp.connect(login);
    if (!ftp.connected()) {
        messages.post("Unable to connect");
        return;
    }
    try {
        deletePath(ftp, path);
    } catch (const Failure&) {
        ftp.disconnect();
        throw;
    }
    ftp.disconnect();
    messages.post("Delete completed");
}

} // namespace quillmark
