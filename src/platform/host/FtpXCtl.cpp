#include "platform/host/FtpXCtl.h"

#include "platform/NativePath.h"
#include "platform/disk/AlternatingFile.h"
#include "platform/host/HostFailures.h"
#include "platform/host/HostRequest.h"
#include "platform/host/ListingLines.h"

#include <algorithm>

#include <unistd.h>

namespace quillmark {

namespace {

using Kind = HostOutcome::Kind;

constexpr std::chrono::milliseconds Slice{25};

constexpr auto TakesAll = [](std::string_view /*bytes*/, bool /*again*/) { return true; };

bool wasRefused(const HostOutcome& outcome) {
    return outcome.kind == Kind::Refused || outcome.kind == Kind::Broken;
}

/// Whether the text can be part of one command: a line break would begin another one.
bool isSendable(std::string_view text) {
    return text.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
}

void requireSendable(std::string_view text) {
    if (!isSendable(text)) {
        throw unsendableText();
    }
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

// A wrong password must not be tried several times: the other connections wait for the first one.
void FtpXCtl::logIn(const FtpLogin& login) {
    for (const std::string& text : {login.host, login.userName, login.password, login.account}) {
        requireSendable(text);
    }
    if (login.passiveDisabled && isTls(login.encryption)) {
        throw activeOverTls();
    }
    HostOutcome outcome = open(login);
    if (outcome.refused && trust_.trusts(*outcome.refused) && !outcome.refused->keyChanged()) {
        FtpLogin trusting = login;
        trusting.trusted = outcome.refused->sha256;
        outcome = open(trusting);
    }
    connected_ = outcome.kind == Kind::Done;
    if (!connected_ && outcome.kind != Kind::Ended) {
        postReason(outcome.refused ? outcome.refused->reason : outcome.reason);
    }
    while (connected_ && std::ssize(connections_) < login_.connections) {
        connections_.push_back(std::make_unique<HostConnection>(*tasks_, login_, timeouts_));
    }
}

HostOutcome FtpXCtl::open(const FtpLogin& login) {
    connections_.clear();
    login_ = login;
    tasks_.emplace(timeouts_);
    connections_.push_back(std::make_unique<HostConnection>(*tasks_, login_, timeouts_));
    return converse({Operation::LogIn}, TakesAll);
}

void FtpXCtl::disconnect() {
    connected_ = false;
    const auto goodbyes = tasks_ ? tasks_->askGoodbyes() : std::vector<HostTasks::Handle>();
    try {
        for (const HostTasks::Handle& goodbye : goodbyes) {
            if (follow(*goodbye, TakesAll).kind == Kind::Ended) {
                break;
            }
        }
    } catch (const Failure&) {
        // The goodbye cannot be traced on a full disk; the connection is closed all the same.
    }
    connections_.clear();
}

// With one connection nothing is done ahead.
void FtpXCtl::expect(Operation kind, std::string_view path) {
    if (connected_ && login_.connections > 1 && !state_.stopped && isSendable(path)) {
        tasks_->expect({kind, std::string(path)});
    }
}

void FtpXCtl::list(std::string_view directory, const DirItem& item) {
    if (!isSendable(directory)) {
        postReason(unsendableText().description());
        throw unsendableText();
    }
    const HostOutcome outcome = transferListing(Operation::List, directory, item);
    if (wasRefused(outcome)) {
        postReason(outcome.reason);
        throw refusedByHost(outcome.reason);
    }
}

bool FtpXCtl::listFacts(std::string_view directory, const DirItem& item) {
    return login_.encryption != Encryption::Sftp && isSendable(directory) &&
           transferListing(Operation::ListFacts, directory, item).kind == Kind::Done;
}

HostOutcome FtpXCtl::transferListing(Operation kind, std::string_view directory,
                                     const DirItem& item) {
    ListingLines lines(item);
    off_t size = 0;
    const auto take = [&](std::string_view bytes, bool again) {
        if (again) {
            lines.restart();
            size = 0;
        }
        lines.take(bytes);
        size += std::ssize(bytes);
        return size <= LargestTransfer;
    };
    HostOutcome outcome = perform({kind, std::string(directory)}, take);
    if (size > LargestTransfer) {
        return {Kind::Refused, "The listing of " + std::string(directory) + " is larger than 64 MB",
                true};
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
    AlternatingFile page(nativePath(localFile).string());
    bool isRefused = false;
    const bool isKept = page.replace([&](const FileDescriptor& to) {
        const std::optional<off_t> size = transferPage(remoteFile, to);
        isRefused = !size;
        return size;
    });
    if (!isKept && !isRefused) {
        throwLastError(pathNotFound());
    }
    return isKept;
}

/// The size of the page, or nothing if it is not to be had.
std::optional<off_t> FtpXCtl::transferPage(std::string_view remoteFile, const FileDescriptor& to) {
    off_t size = 0;
    const auto take = [&](std::string_view bytes, bool again) {
        size = again ? 0 : size;
        if ((again && ::ftruncate(to.number(), 0) != 0) || !writeAt(to, bytes, size)) {
            throwLastError();
        }
        size += std::ssize(bytes);
        return size <= LargestTransfer;
    };
    const HostOutcome outcome = perform({Operation::Retrieve, std::string(remoteFile)}, take);
    if (size > LargestTransfer) {
        postReason(std::string(remoteFile) + " is larger than 64 MB");
    }
    return outcome.kind == Kind::Done ? std::optional(size) : std::nullopt;
}

void FtpXCtl::command(Operation kind, std::string_view path) {
    requireSendable(path);
    const HostOutcome outcome = perform({kind, std::string(path)}, TakesAll);
    if (wasRefused(outcome)) {
        throw refusedByHost(outcome.reason);
    }
    if (outcome.kind == Kind::Ended) {
        throw stoppedByUser();
    }
}

// Once a connection cannot be restored, later operations do not try again: each of them would wait
// for the host in vain.
HostOutcome FtpXCtl::perform(const HostOperation& operation, const Taker& take) {
    if (!connected_) {
        throw hostConnectionLost("not connected");
    }
    HostOutcome outcome = converse(operation, take);
    if (outcome.kind == Kind::Lost) {
        connected_ = outcome.loggedIn;
        postReason(outcome.reason);
        throw hostConnectionLost(outcome.reason);
    }
    return outcome;
}

HostOutcome FtpXCtl::converse(const HostOperation& operation, const Taker& take) {
    events_.DoEvents();
    return state_.stopped ? HostOutcome{Kind::Ended, {}, true}
                          : follow(*tasks_->ask(operation), take);
}

HostOutcome FtpXCtl::follow(HostTask& task, const Taker& take) {
    int attempt = 1;
    do {
        const HostNews news = tasks_->waitForNews(task, Slice);
        tell(news);
        const bool again = news.attempt > attempt;
        attempt = std::max(attempt, news.attempt);
        if ((again || !news.bytes.empty()) && !take(news.bytes, again)) {
            break;
        }
        if (news.outcome) {
            return *news.outcome;
        }
        events_.DoEvents();
    } while (!state_.stopped);
    return {Kind::Ended, {}, true};
}

void FtpXCtl::tell(const HostNews& news) {
    for (const std::string& line : news.trace) {
        trace_.Trace(line);
    }
    for (const std::string& note : news.notes) {
        postReason(note);
    }
}

} // namespace quillmark
