#pragma once

#include "platform/host/FtpTimeouts.h"
#include "platform/host/FtpTrace.h"
#include "platform/host/HostConversation.h"
#include "run/EventLoop.h"
#include "run/FtpComponent.h"
#include "run/HostTrust.h"
#include "run/Messages.h"
#include "run/RunState.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace quillmark {

/// The FTP component. A connection that is lost during an operation is made anew once,
/// and the operation begun again. Messages of its own begin with "Host: ": why a login failed, why
/// a directory could not be listed, a page or a listing that is too large, a connection lost for
/// good, or a further one that the host refused.
class FtpXCtl : public FtpComponent {
public:
    /// A page or a listing with more bytes is given up.
    static constexpr std::size_t LargestTransfer = std::size_t{64} * 1024 * 1024;

    /// The references must outlive the component; `state` tells when Stop was pressed.
    FtpXCtl(Messages& messages, EventLoop& events, const RunState& state, FtpTrace& trace,
            HostTrust& trust, const FtpTimeouts& timeouts);

    void connect(const FtpLogin& login) override;
    bool connected() const override { return connected_; }
    void disconnect() override;

    void expectListing(std::string_view directory) override;
    void expectFile(std::string_view remoteFile) override;
    void list(std::string_view directory, const DirItem& item) override;
    void listWorkingDirectory(const DirItem& item) override;
    bool listFacts(std::string_view directory, const DirItem& item) override;
    bool retrieve(std::string_view remoteFile, std::string_view localFile) override;
    void deleteFile(std::string_view remoteFile) override;
    void removeDirectory(std::string_view directory) override;

private:
    void logIn(const FtpLogin& login);
    HostOutcome converse(const FtpLogin& login);
    void expect(HostOperation::Kind kind, std::string_view path);
    HostOutcome transferListing(HostOperation::Kind kind, std::string_view directory,
                                const DirItem& item);
    void requireListed(const HostOutcome& outcome);
    void command(HostOperation::Kind kind, std::string_view path);
    HostOutcome perform(const HostOperation& operation, const HostConversation::Taker& take,
                        const std::function<void()>& restart);
    void postReason(const std::string& reason) { messages_.post("Host: ", reason); }

    Messages& messages_;
    EventLoop& events_;
    const RunState& state_;
    FtpTrace& trace_;
    HostTrust& trust_;
    FtpTimeouts timeouts_;
    std::unique_ptr<HostConversation> conversation_;
    bool connected_ = false;
};

} // namespace quillmark
