#pragma once

#include "platform/host/FtpXCtl.h"
#include "support/RunFakes.h"

namespace quillmark::test {

struct RecordedTrace : FtpTrace {
    Lines texts;
    bool diskIsFull = false;
    void Trace(std::string_view text) override {
        if (diskIsFull) {
            throw diskFull();
        }
        texts.emplace_back(text);
    }
    long count(std::string_view text) const { return std::count(texts.begin(), texts.end(), text); }
};

inline void setLogin(Profile& profile, const FtpLogin& login) {
    profile.HOST_NAME = login.host;
    profile.HOST_PORT = login.port;
    profile.USER_NAME = login.userName;
    profile.USER_PASSWORD = login.password;
}

/// A component with everything that it talks to, and a folder for the pages.
struct Client {
    explicit Client(const FtpTimeouts& timeouts = {})
        : ftp(messages, events, state, trace, trust, timeouts) {}

    /// The lines that came, which stay in `lines` when the listing fails.
    const Lines& list(std::string_view directory) {
        lines.clear();
        ftp.list(directory, [this](std::string_view line) { lines.emplace_back(line); });
        return lines;
    }
    bool retrieve(std::string_view file) {
        return ftp.retrieve(file, (folder.path() / "page").string());
    }
    std::string page() const { return folder.read("page"); }
    bool folderIsEmpty() const { return std::filesystem::is_empty(folder.path()); }

    RunState state;
    RecordingMessages messages;
    RecordedTrace trace;
    ScriptedTrust trust;
    HookedEvents events;
    TempFolder folder;
    Lines lines;
    FtpXCtl ftp;
};

} // namespace quillmark::test
