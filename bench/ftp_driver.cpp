#include "platform/host/FtpXCtl.h"

#include "base/Failure.h"

#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace quillmark;

class PrintedMessages : public Messages {
public:
    void MessageHandler(bool /*debug*/, std::string_view text) override {
        std::cerr << text << '\n';
    }
    bool wantsDebug() const override { return false; }
};

class NoEvents : public EventLoop {
public:
    void DoEvents() override {}
};

class AnyTrust : public HostTrust {
public:
    bool trusts(const HostIdentity& /*identity*/) override { return true; }
};

class PrintedTrace : public FtpTrace {
public:
    explicit PrintedTrace(bool shown) : shown_(shown) {}
    void Trace(std::string_view text) override {
        if (shown_) {
            std::cout << text << '\n';
        }
    }

private:
    bool shown_;
};

/// Lists a directory and everything below it; names hold no blanks here.
void find(FtpXCtl& ftp, const std::string& start, std::vector<std::string>& files) {
    std::vector<std::string> directories{start};
    for (std::size_t i = 0; i < directories.size(); ++i) {
        const std::string directory = directories[i];
        ftp.list(directory, [&](std::string_view line) {
            const std::string name(line.substr(line.rfind(' ') + 1));
            const std::string path = directory + name;
            if (name == "." || name == "..") {
                return;
            }
            if (line.starts_with('d')) {
                directories.push_back(path + "/");
                ftp.expectListing(directories.back());
            } else {
                files.push_back(path);
            }
        });
    }
}

int work(const std::vector<std::string>& words, std::int16_t port) {
    const RunState state;
    PrintedMessages messages;
    NoEvents events;
    PrintedTrace trace(std::getenv("FTP_DRIVER_TRACE") != nullptr);
    AnyTrust trust;
    FtpXCtl ftp(messages, events, state, trace, trust, timeoutsFromEnvironment());
    FtpLogin login;
    login.host = words[1];
    login.port = port;
    login.userName = words[3];
    login.password = words[4];
    if (const char* const connections = std::getenv("FTP_DRIVER_CONNECTIONS")) {
        login.connections = std::atoi(connections);
    }
    if (const char* const key = std::getenv("FTP_DRIVER_KEY")) {
        login.encryption = Encryption::Sftp;
        login.keyFile = key;
    }
    ftp.connect(login);
    std::vector<std::string> files;
    if (words[0] == "find") {
        find(ftp, words[5], files);
        std::cout << files.size() << " files\n";
    } else {
        for (std::string file; std::getline(std::cin, file);) {
            files.push_back(file);
            ftp.expectFile(file);
        }
        for (const std::string& file : files) {
            if (!ftp.retrieve(file, words[5])) {
                return EXIT_FAILURE;
            }
        }
    }
    ftp.disconnect();
    return EXIT_SUCCESS;
}

} // namespace

/// ftp_driver find HOST PORT USER PASSWORD DIRECTORY: lists everything below the directory.
/// ftp_driver get HOST PORT USER PASSWORD LOCAL: retrieves the files named on standard input.
/// FTP_DRIVER_CONNECTIONS names the connections (1), FTP_DRIVER_KEY a key file for SFTP.
int main(int count, char** arguments) {
    const std::vector<std::string> words(arguments + 1, arguments + count);
    try {
        return words.size() == 6 ? work(words, static_cast<std::int16_t>(std::stoi(words[2])))
                                 : EXIT_FAILURE;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return EXIT_FAILURE;
    }
}
