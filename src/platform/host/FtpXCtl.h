#pragma once

#include "platform/FileDescriptor.h"
#include "platform/host/FtpTimeouts.h"
#include "platform/host/HostConnection.h"
#include "platform/host/HostTasks.h"
#include "run/EventLoop.h"
#include "run/FtpComponent.h"
#include "run/FtpTrace.h"
#include "run/Messages.h"
#include "run/RunState.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// The FTP component: the operations of the run, in its order, over as many connections as the
/// login allows. It lets events run while it waits, and ends what it does as soon as Stop is
/// pressed. A connection that is lost during an operation is made anew once, and the operation
/// begun again. Messages of its own begin with "Host: ": why a login failed, why a directory could
/// not be listed, a page or a listing that is too large, a connection lost for good, or a further
/// one that the host refused.
class FtpXCtl : public FtpComponent {
public:
    /// A page or a listing with more bytes is given up.
    static constexpr off_t LargestTransfer = off_t{64} * 1024 * 1024;

    /// The references must outlive the component; `state` tells when Stop was pressed.
    FtpXCtl(Messages& messages, EventLoop& events, const RunState& state, FtpTrace& trace,
            HostTrust& trust, const FtpTimeouts& timeouts);

    void connect(const FtpLogin& login) override;
    bool connected() const override { return connected_; }
    void disconnect() override;

    void expectListing(std::string_view path) override { expect(Operation::List, path); }
    void expectFile(std::string_view path) override { expect(Operation::Retrieve, path); }
    void list(std::string_view directory, const DirItem& item) override;
    void listWorkingDirectory(const DirItem& item) override { list({}, item); }
    bool listFacts(std::string_view directory, const DirItem& item) override;
    bool retrieve(std::string_view remoteFile, std::string_view localFile) override;
    void deleteFile(std::string_view path) override { command(Operation::Delete, path); }
    void removeDirectory(std::string_view path) override {
        command(Operation::RemoveDirectory, path);
    }

private:
    using Operation = HostOperation::Kind;
    /// Takes the next bytes of a transfer, which may begin with the first one again; false ends it.
    /// What it throws passes through.
    using Taker = std::function<bool(std::string_view bytes, bool again)>;

    void logIn(const FtpLogin& login);
    HostOutcome open(const FtpLogin& login);
    void expect(Operation kind, std::string_view path);
    HostOutcome transferListing(Operation kind, std::string_view directory, const DirItem& item);
    std::optional<off_t> transferPage(std::string_view remoteFile, const FileDescriptor& to);
    void command(Operation kind, std::string_view path);
    HostOutcome perform(const HostOperation& operation, const Taker& take);
    HostOutcome converse(const HostOperation& operation, const Taker& take);
    HostOutcome follow(HostTask& task, const Taker& take);
    void tell(const HostNews& news);
    void postReason(const std::string& reason) { messages_.post("Host: ", reason); }

    Messages& messages_;
    EventLoop& events_;
    const RunState& state_;
    FtpTrace& trace_;
    HostTrust& trust_;
    FtpTimeouts timeouts_;
    FtpLogin login_;
    std::optional<HostTasks> tasks_; ///< Of the connections; outlives them.
    std::vector<std::unique_ptr<HostConnection>> connections_;
    bool connected_ = false;
};

} // namespace quillmark
