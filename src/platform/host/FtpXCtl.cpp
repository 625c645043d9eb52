#include "platform/host/FtpXCtl.h"

#include "platform/host/HostFailures.h"
#include "platform/host/HostRequest.h"
#include "platform/host/ListingLines.h"
#include "platform/host/PageFile.h"

namespace quillmark {

namespace {

using Kind = HostOutcome::Kind;
using Operation = HostOperation::Kind;

bool wasRefused(const HostOutcome& outcome) {
    return outcome.kind == Kind::Refused || outcome.kind == Kind::Broken;
}

void requireSendable(std::string_view text) {
    if (!isSendable(text)) {
        throw unsendableText();
    }
}

std::string tooLarge(std::string_view what) {
    return std::string(what).append(" is larger than 64 MB");
}

} // namespace

FtpXCtl::FtpXCtl(Messages& messages, EventLoop& events, const RunState& state, FtpTrace& trace,
                 HostTrust& trust, const FtpTimeouts& timeouts)
    : messages_(messages), events_(events), state_(state), trace_(trace), trust_(trust),
      timeouts_(timeouts) {}

void FtpXCtl::connect(const FtpLogin& login) {
    connected_ = false;
    try {
        logIn(login);
    } catch (const Failure& failure) {
        postReason(failure.description());
    }
}

void FtpXCtl::logIn(const FtpLogin& login) {
    for (const std::string& text : {login.host, login.userName, login.password, login.account}) {
        requireSendable(text);
    }
    if (login.passiveDisabled && isTls(login.encryption)) {
        throw activeOverTls();
    }
    HostOutcome outcome = converse(login);
    if (outcome.refused && trust_.trusts(*outcome.refused) && !outcome.refused->keyChanged()) {
        FtpLogin trusting = login;
        trusting.trusted = outcome.refused->sha256;
        outcome = converse(trusting);
    }
    connected_ = outcome.kind == Kind::Done;
    if (!connected_ && outcome.kind != Kind::Ended) {
        postReason(outcome.refused ? outcome.refused->reason : outcome.reason);
    }
}

HostOutcome FtpXCtl::converse(const FtpLogin& login) {
    conversation_.reset();
    conversation_ =
        std::make_unique<HostConversation>(messages_, events_, state_, trace_, timeouts_, login);
    return conversation_->perform({Operation::LogIn, {}});
}

void FtpXCtl::disconnect() {
    connected_ = false;
    try {
        if (conversation_) {
            conversation_->sayGoodbye();
        }
    } catch (const Failure&) {
        // The goodbye cannot be traced on a full disk; the connection is closed all the same.
    }
    conversation_.reset();
}

void FtpXCtl::expectListing(std::string_view directory) {
    expect(Operation::List, directory);
}

void FtpXCtl::expectFile(std::string_view remoteFile) {
    expect(Operation::Retrieve, remoteFile);
}

void FtpXCtl::expect(Operation kind, std::string_view path) {
    if (connected_ && isSendable(path)) {
        conversation_->expect({kind, std::string(path)});
    }
}

void FtpXCtl::list(std::string_view directory, const DirItem& item) {
    if (!isSendable(directory)) {
        postReason(unsendableText().description());
        throw unsendableText();
    }
    requireListed(transferListing(Operation::List, directory, item));
}

void FtpXCtl::listWorkingDirectory(const DirItem& item) {
    requireListed(transferListing(Operation::List, {}, item));
}

bool FtpXCtl::listFacts(std::string_view directory, const DirItem& item) {
    return isSendable(directory) &&
           transferListing(Operation::ListFacts, directory, item).kind == Kind::Done;
}

void FtpXCtl::requireListed(const HostOutcome& outcome) {
    if (wasRefused(outcome)) {
        postReason(outcome.reason);
        throw refusedByHost(outcome.reason);
    }
}

HostOutcome FtpXCtl::transferListing(Operation kind, std::string_view directory,
                                     const DirItem& item) {
    ListingLines lines(item);
    std::size_t size = 0;
    const auto take = [&](std::string_view bytes) {
        size += bytes.size();
        lines.take(bytes);
        return size <= LargestTransfer;
    };
    const auto restart = [&] {
        size = 0;
        lines.restart();
    };
    HostOutcome outcome = perform({kind, std::string(directory)}, take, restart);
    if (size > LargestTransfer) {
        return {Kind::Refused, tooLarge("The listing of " + std::string(directory)), false, true};
    }
    if (outcome.kind == Kind::Done) {
        lines.finish();
    }
    return outcome;
}

bool FtpXCtl::retrieve(std::string_view remoteFile, std::string_view localFile) {
    if (!isSendable(remoteFile)) {
        return false;
    }
    PageFile page(localFile);
    const auto take = [&page](std::string_view bytes) {
        page.append(bytes);
        return page.size() <= LargestTransfer;
    };
    const HostOutcome outcome =
        perform({Operation::Retrieve, std::string(remoteFile)}, take, [&page] { page.restart(); });
    if (page.size() > LargestTransfer) {
        postReason(tooLarge(remoteFile));
    }
    if (outcome.kind != Kind::Done) {
        return false;
    }
    page.keep();
    return true;
}

void FtpXCtl::deleteFile(std::string_view remoteFile) {
    command(Operation::Delete, remoteFile);
}

void FtpXCtl::removeDirectory(std::string_view directory) {
    command(Operation::RemoveDirectory, directory);
}

void FtpXCtl::command(Operation kind, std::string_view path) {
    requireSendable(path);
    const auto take = [](std::string_view /*bytes*/) { return true; };
    const HostOutcome outcome = perform({kind, std::string(path)}, take, [] {});
    if (wasRefused(outcome)) {
        throw refusedByHost(outcome.reason);
    }
    if (outcome.kind == Kind::Ended) {
        throw stoppedByUser();
    }
}

// Once a connection cannot be restored, later operations do not try again: each of them would wait
// for the host in vain.
HostOutcome FtpXCtl::perform(const HostOperation& operation, const HostConversation::Taker& take,
                             const std::function<void()>& restart) {
    if (!connected_) {
        throw hostConnectionLost("not connected");
    }
    HostOutcome outcome = conversation_->perform(operation, take, restart);
    if (outcome.kind == Kind::Lost) {
        connected_ = outcome.loggedIn;
        postReason(outcome.reason);
        throw hostConnectionLost(outcome.reason);
    }
    return outcome;
}

} // namespace quillmark
