#pragma once

#include "platform/ftp/FtpDialogue.h"
#include "platform/ftp/connection/FtpTimeouts.h"
#include "platform/ftp/connection/FtpTrace.h"
#include "run/EventLoop.h"
#include "run/FtpComponent.h"
#include "run/HostTrust.h"
#include "run/Messages.h"
#include "run/RunState.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace quillmark {

/// The FTP component. A connection that is lost during an operation is made anew once,
/// and the operation begun again. Messages of its own begin with "Host: ": why a login failed, why
/// a directory could not be listed, a page that is too large, a connection lost for good.
class FtpXCtl : public FtpComponent {
public:
    /// A page with more bytes is given up.
    static constexpr std::size_t LargestPage = std::size_t{64} * 1024 * 1024;

    /// The references must outlive the component; `state` tells when the run is being aborted.
    FtpXCtl(Messages& messages, EventLoop& events, const RunState& state, FtpTrace& trace,
            HostTrust& trust, const FtpTimeouts& timeouts);

    void connect(const FtpLogin& login) override;
    bool connected() const override { return connected_; }
    void disconnect() override;

    void list(std::string_view directory, const DirItem& item) override;
    void listWorkingDirectory(const DirItem& item) override;
    bool listFacts(std::string_view /*directory*/, const DirItem& /*item*/) override {
        return false;
    }
    bool retrieve(std::string_view remoteFile, std::string_view localFile) override;
    void deleteFile(std::string_view remoteFile) override;
    void removeDirectory(std::string_view directory) override;

private:
    void logIn(const FtpLogin& login);
    void transferListing(std::string_view directory, const DirItem& item);
    void command(std::string_view verb, std::string_view path);
    FtpOutcome perform(const std::function<FtpOutcome()>& operation,
                       const std::function<void()>& restart);
    void postReason(const std::string& reason) { messages_.post("Host: ", reason); }

    Messages& messages_;
    FtpDialogue dialogue_;
    bool connected_ = false;
};

} // namespace quillmark
