#pragma once

#include "base/Failure.h"
#include "engine/outside/FtpComponent.h"
#include "engine/outside/UrlFetcher.h"

namespace quillmark {

/// A program without host access: a Remote Mode run ends as "Unable to connect".
class NoHost : public FtpComponent, public UrlFetcher {
public:
    void connect(const FtpLogin& /*login*/) override {}
    bool connected() const override { return false; }
    void disconnect() override {}
    void list(std::string_view /*directory*/, const DirItem& /*item*/) override {}
    void listWorkingDirectory(const DirItem& /*item*/) override {}
    bool retrieve(std::string_view /*remoteFile*/, std::string_view /*localFile*/) override {
        return false;
    }
    void deleteFile(std::string_view /*remoteFile*/) override {}
    void removeDirectory(std::string_view /*directory*/) override {}
    void expect(std::vector<std::string> /*urls*/) override {}
    std::string OpenURL(std::string_view /*url*/) override { throw pathNotFound(); }
};

} // namespace quillmark
