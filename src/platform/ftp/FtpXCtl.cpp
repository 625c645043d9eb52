#include "platform/ftp/FtpXCtl.h"

#include "platform/ftp/ListingLines.h"
#include "platform/ftp/PageFile.h"
#include "platform/ftp/connection/FtpFailures.h"

namespace quillmark {

namespace {

using Kind = FtpOutcome::Kind;

bool wasRefused(const FtpOutcome& outcome) {
    return outcome.kind == Kind::Refused || outcome.kind == Kind::Broken;
}

/// Nothing may go in the clear where somebody chose to encrypt.
Failure cannotEncrypt() {
    return {1099, "encrypted connections are not ready yet"};
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
                 HostTrust& /*trust*/, const FtpTimeouts& timeouts)
    : messages_(messages), dialogue_(events, state, trace, timeouts) {}

void FtpXCtl::connect(const FtpLogin& login) {
    connected_ = false;
    try {
        logIn(login);
    } catch (const Failure& failure) {
        postReason(failure.description());
    }
}

void FtpXCtl::logIn(const FtpLogin& login) {
    if (login.encryption != Encryption::None) {
        throw cannotEncrypt();
    }
    for (const std::string& text : {login.host, login.userName, login.password, login.account}) {
        requireSendable(text);
    }
    dialogue_.setLogin(login);
    const FtpOutcome outcome = dialogue_.logIn();
    connected_ = outcome.kind == Kind::Done;
    if (!connected_ && outcome.kind != Kind::Ended) {
        postReason(outcome.reason);
    }
}

void FtpXCtl::disconnect() {
    connected_ = false;
    try {
        dialogue_.close();
    } catch (const Failure&) {
        // The goodbye cannot be traced on a full disk; the connection is closed all the same.
    }
}

void FtpXCtl::list(std::string_view directory, const DirItem& item) {
    if (!isSendable(directory)) {
        postReason(unsendableText().description());
        throw unsendableText();
    }
    transferListing(directory, item);
}

void FtpXCtl::listWorkingDirectory(const DirItem& item) {
    transferListing({}, item);
}

void FtpXCtl::transferListing(std::string_view directory, const DirItem& item) {
    ListingLines lines(item);
    const auto take = [&lines](std::string_view bytes) {
        lines.take(bytes);
        return true;
    };
    const FtpOutcome outcome =
        perform([&] { return dialogue_.list(directory, take); }, [&lines] { lines.restart(); });
    if (wasRefused(outcome)) {
        postReason(outcome.reason);
        throw refusedByHost(outcome.reason);
    }
    if (outcome.kind == Kind::Done) {
        lines.finish();
    }
}

bool FtpXCtl::retrieve(std::string_view remoteFile, std::string_view localFile) {
    if (!isSendable(remoteFile)) {
        return false;
    }
    PageFile page(localFile);
    const auto take = [&page](std::string_view bytes) {
        page.append(bytes);
        return page.size() <= LargestPage;
    };
    const FtpOutcome outcome =
        perform([&] { return dialogue_.retrieve(remoteFile, take); }, [&page] { page.restart(); });
    if (page.size() > LargestPage) {
        messages_.post("Host: ", remoteFile, " is larger than 64 MB");
    }
    if (outcome.kind != Kind::Done) {
        return false;
    }
    page.keep();
    return true;
}

void FtpXCtl::deleteFile(std::string_view remoteFile) {
    command("DELE ", remoteFile);
}

void FtpXCtl::removeDirectory(std::string_view directory) {
    command("RMD ", directory);
}

void FtpXCtl::command(std::string_view verb, std::string_view path) {
    requireSendable(path);
    const std::string text = std::string(verb).append(path);
    const FtpOutcome outcome = perform([&] { return dialogue_.command(text); }, [] {});
    if (wasRefused(outcome)) {
        throw refusedByHost(outcome.reason);
    }
    if (outcome.kind == Kind::Ended) {
        throw stoppedByUser();
    }
}

// Once a connection cannot be restored, later operations do not try again: each of them would wait
// for the host in vain.
FtpOutcome FtpXCtl::perform(const std::function<FtpOutcome()>& operation,
                            const std::function<void()>& restart) {
    if (!connected_) {
        throw hostConnectionLost("not connected");
    }
    FtpOutcome outcome = operation();
    const bool freshlyLost = outcome.kind == Kind::Lost && outcome.openedAnew;
    if ((outcome.kind == Kind::Lost && !freshlyLost) || outcome.kind == Kind::Broken) {
        restart();
        outcome = operation();
    }
    if (outcome.kind == Kind::Lost) {
        connected_ = outcome.loggedIn;
        postReason(outcome.reason);
        throw hostConnectionLost(outcome.reason);
    }
    return outcome;
}

} // namespace quillmark
