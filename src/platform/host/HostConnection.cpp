#include "platform/host/HostConnection.h"

#include "platform/host/HostRequest.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quillmark {

namespace {

using namespace std::chrono_literals;
using Kind = HostOutcome::Kind;

constexpr int LongestPoll = 1000; ///< In milliseconds; interrupt() ends a poll.
constexpr std::chrono::milliseconds Goodbye = 2s;

bool isTransfer(HostOperation::Kind kind) {
    return kind == HostOperation::Kind::List || kind == HostOperation::Kind::ListFacts ||
           kind == HostOperation::Kind::Retrieve;
}

/// Whether the command is what the task is about; others only prepare it.
bool isOwn(std::string_view command) {
    const std::string_view verb = command.substr(0, command.find_first_of(" \r"));
    return verb == "RETR" || verb == "LIST" || verb == "MLSD" || verb == "DELE" || verb == "RMD" ||
           verb == "TYPE";
}

/// Adds the handle to the multi handle; libcurl closes the connection of an operation that has not
/// ended when it is taken out.
class Membership {
public:
    Membership(CURLM* multi, CURL* easy) : multi_(multi), easy_(easy) {
        curl_multi_add_handle(multi_, easy_);
    }
    ~Membership() { curl_multi_remove_handle(multi_, easy_); }
    Membership(const Membership&) = delete;
    Membership& operator=(const Membership&) = delete;

private:
    CURLM* multi_;
    CURL* easy_;
};

} // namespace

HostConnection::HostConnection(HostTasks& tasks, const FtpLogin& login, const std::string& url,
                               const FtpTimeouts& timeouts)
    : tasks_(tasks), login_(login), url_(url), timeouts_(timeouts), verifier_(login),
      multi_(curl_multi_init()), easy_(curl_easy_init()) {
    CURL* const easy = easy_.get();
    curl_multi_setopt(multi_.get(), CURLMOPT_MAXCONNECTS, 1L);
    setLogin(easy, login_, timeouts_);
    sockets_.watch(easy);
    verifier_.watch(easy);
    curl_easy_setopt(easy, CURLOPT_VERBOSE, 1L);
    curl_easy_setopt(easy, CURLOPT_DEBUGFUNCTION, &HostConnection::follow);
    curl_easy_setopt(easy, CURLOPT_DEBUGDATA, this);
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &HostConnection::receive);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
    thread_ = std::thread([this] { work(); });
}

// libcurl says goodbye to a connection that still works, and would wait for the answer.
HostConnection::~HostConnection() {
    thread_.join();
    sockets_.shutDown();
}

void HostConnection::interrupt() {
    interrupted_ = true;
    sockets_.shutDown();
    curl_multi_wakeup(multi_.get());
}

void HostConnection::work() {
    while (const HostTasks::Handle task = tasks_.next(*this)) {
        if (!perform(*task)) {
            return;
        }
    }
}

bool HostConnection::perform(HostTask& task) {
    if (task.operation.kind == HostOperation::Kind::Goodbye) {
        tasks_.end(task, sockets_.isAlive() ? attempt(task) : HostOutcome{Kind::Lost}, *this);
        return false;
    }
    HostOutcome outcome = attempt(task);
    if (tasks_.mayRetry(task, outcome, *this)) {
        outcome = attempt(task);
        // SFTP answers to the reading of a directory, say, with an error that libcurl takes for one
        // of the connection.
        const bool isNew = outcome.kind == Kind::Lost && outcome.loggedIn && !interrupted_;
        outcome.kind = isSftp() && isNew ? Kind::Refused : outcome.kind;
    }
    return tasks_.end(task, outcome, *this);
}

HostOutcome HostConnection::attempt(HostTask& task) {
    exchange_ = {};
    task_ = &task;
    sockets_.begin();
    if (!tasks_.begin(task, *this)) {
        return {Kind::Ended, {}, false, false};
    }
    setConnectLimit(easy_.get(), timeouts_.connect);
    const CurlList commands = isSftp() ? setSftpOperation(easy_.get(), url_, task.operation)
                                       : setOperation(easy_.get(), url_, task.operation);
    if (isSftp()) {
        traceSftp(nullptr);
    }
    const CURLcode code = drive();
    HostOutcome outcome = isSftp() ? sftpOutcomeOf(code) : outcomeOf(code);
    outcome.refused = verifier_.takeRefused();
    noteCut(outcome);
    if (isSftp()) {
        traceSftp(&outcome);
    }
    noteStranger();
    if (outcome.kind == Kind::Lost || outcome.kind == Kind::Ended || exchange_.outOfStep) {
        sockets_.giveUp();
        curl_easy_setopt(easy_.get(), CURLOPT_FRESH_CONNECT, 1L);
    } else {
        curl_easy_setopt(easy_.get(), CURLOPT_FRESH_CONNECT, 0L);
    }
    return outcome;
}

CURLcode HostConnection::drive() {
    const Membership membership(multi_.get(), easy_.get());
    while (!interrupted_) {
        int left = 0;
        curl_multi_perform(multi_.get(), &left);
        if (const CURLMsg* const message = curl_multi_info_read(multi_.get(), &left)) {
            return message->data.result;
        }
        const int time = std::exchange(exchange_.hasWork, false) ? 0 : LongestPoll;
        curl_multi_poll(multi_.get(), nullptr, 0, time, nullptr);
    }
    return CURLE_OPERATION_TIMEDOUT;
}

HostOutcome HostConnection::outcomeOf(CURLcode code) {
    const bool openedAnew = sockets_.openedAnew();
    return {kindOf(code), reasonOf(code), openedAnew, exchange_.loggedIn || !openedAnew};
}

// A listing that libcurl takes for empty may have a negative reply ("450 No files found"), and a
// host need not know its current directory to be logged in.
Kind HostConnection::kindOf(CURLcode code) const {
    const HostReply& own = exchange_.own;
    if (exchange_.ended) {
        return Kind::Ended;
    }
    if (interrupted_ || exchange_.senseless || exchange_.reply.isGoodbye()) {
        return Kind::Lost;
    }
    const HostOperation::Kind kind = task_->operation.kind;
    const bool isCommand =
        kind == HostOperation::Kind::Delete || kind == HostOperation::Kind::RemoveDirectory;
    if (code == CURLE_OK && !(isCommand && own.negative())) {
        return Kind::Done;
    }
    if (!own.negative()) {
        return Kind::Lost;
    }
    return own.brokenTransfer() ? Kind::Broken : Kind::Refused;
}

std::string HostConnection::reasonOf(CURLcode code) const {
    if (interrupted_) {
        return curl_easy_strerror(CURLE_OPERATION_TIMEDOUT);
    }
    if (exchange_.senseless) {
        return curl_easy_strerror(CURLE_WEIRD_SERVER_REPLY);
    }
    const HostReply& reply = exchange_.own.negative() ? exchange_.own : exchange_.reply;
    return reply.unsatisfied() ? reply.text : curl_easy_strerror(code);
}

// libcurl tells by its code what SFTP refused; anything else may be the end of the connection.
HostOutcome HostConnection::sftpOutcomeOf(CURLcode code) {
    sockets_.established();
    const bool openedAnew = sockets_.openedAnew();
    curl_off_t time = 0;
    curl_easy_getinfo(easy_.get(), CURLINFO_APPCONNECT_TIME_T, &time);
    const bool loggedIn = !openedAnew || time > 0;
    if (exchange_.ended) {
        return {Kind::Ended, {}, openedAnew, loggedIn};
    }
    const bool isRefused = code == CURLE_REMOTE_FILE_NOT_FOUND ||
                           code == CURLE_REMOTE_ACCESS_DENIED || code == CURLE_QUOTE_ERROR;
    const bool isLost = interrupted_ || !loggedIn || (code != CURLE_OK && !isRefused);
    const Kind answered = code == CURLE_OK ? Kind::Done : Kind::Refused;
    return {isLost ? Kind::Lost : answered, reasonOf(code), openedAnew, loggedIn};
}

/// SFTP has no lines of text: the trace gets one for what is asked and one for what came of it.
void HostConnection::traceSftp(const HostOutcome* outcome) {
    constexpr std::array<std::string_view, 7> Names = {"log in", "list",  "",    "get",
                                                       "remove", "rmdir", "quit"};
    const HostOperation& operation = task_->operation;
    if (outcome == nullptr) {
        std::string text(Names.at(static_cast<std::size_t>(operation.kind)));
        tasks_.trace(*task_, operation.path.empty() ? text : text + " " + operation.path);
    } else {
        tasks_.trace(*task_, outcome->kind == Kind::Done ? "done" : outcome->reason);
    }
}

/// Takes no transfer for whole that TLS does not call whole.
void HostConnection::noteCut(HostOutcome& outcome) {
    const HostOperation& operation = task_->operation;
    if (isTls(login_.encryption) && outcome.kind == Kind::Done && isTransfer(operation.kind) &&
        !exchange_.own.negative() && !verifier_.ended()) {
        outcome.kind = Kind::Broken;
        outcome.reason = operation.path + " was cut short on the way";
        tasks_.note(*task_, outcome.reason);
    }
}

void HostConnection::noteStranger() {
    if (const std::string stranger = sockets_.takeStranger(); !stranger.empty()) {
        tasks_.note(*task_, "Refused a connection from " + stranger + ", which is not the host");
    }
}

// What libcurl hands out of a listing has other line ends; it shows the bytes here as they came.
int HostConnection::follow(CURL* /*easy*/, curl_infotype type, char* data, std::size_t size,
                           void* self) {
    auto& connection = *static_cast<HostConnection*>(self);
    const std::string_view bytes(data, size);
    if (connection.isSftp()) {
        connection.tasks_.giveTime(*connection.task_, connection.timeouts_.reply);
    } else if (type == CURLINFO_HEADER_OUT) {
        connection.sent(bytes);
    } else if (type == CURLINFO_HEADER_IN) {
        connection.heard(bytes);
    } else if (type == CURLINFO_DATA_IN) {
        connection.keep(bytes);
    }
    return 0;
}

std::size_t HostConnection::receive(char* data, std::size_t size, std::size_t count, void* self) {
    auto& connection = *static_cast<HostConnection*>(self);
    if (connection.isSftp()) {
        connection.keep({data, size * count});
    }
    return connection.exchange_.ended ? 0 : size * count;
}

void HostConnection::keep(std::string_view bytes) {
    exchange_.ended = exchange_.ended || !tasks_.keep(*task_, bytes);
}

// libcurl asks for the current directory as soon as it is logged in. When a host that refuses a
// transfer closes the data connection before TLS is set up on it, libcurl asks for another one and
// takes the refusal for the answer.
void HostConnection::sent(std::string_view command) {
    const bool isPassword = command.starts_with("PASS ");
    tasks_.trace(*task_, isPassword ? "PASS" : withoutPassword(command, {}));
    exchange_.outOfStep = exchange_.ownCommand && exchange_.reply.code == 0;
    exchange_.reply = {};
    exchange_.replySize = 0;
    exchange_.commandSent = true;
    exchange_.ownCommand = isOwn(command) || exchange_.outOfStep;
    exchange_.own = exchange_.ownCommand ? HostReply() : exchange_.own;
    exchange_.loggedIn = exchange_.loggedIn || command.starts_with("PWD");
    const bool isGoodbye = command.starts_with("QUIT");
    tasks_.giveTime(*task_, isGoodbye ? std::min(timeouts_.reply, Goodbye) : timeouts_.reply);
}

void HostConnection::heard(std::string_view line) {
    const std::string text = withoutPassword(line, login_.password);
    tasks_.trace(*task_, text);
    if (!exchange_.commandSent) {
        sockets_.established();
        liftConnectLimit(easy_.get());
    }
    exchange_.replySize += line.size();
    if (exchange_.replySize > LongestReply) {
        exchange_.senseless = true;
        sockets_.shutDown();
    }
    if (const int code = finalCode(line); code != 0) {
        exchange_.reply = {code, text};
        exchange_.own = exchange_.ownCommand ? exchange_.reply : exchange_.own;
        giveTimeAfter(exchange_.reply);
    }
}

void HostConnection::giveTimeAfter(const HostReply& reply) {
    if (reply.namesPort()) {
        exchange_.hasWork = true; // To open the data connection.
        tasks_.giveTime(*task_, timeouts_.connect);
    } else if (reply.announcesTransfer()) {
        tasks_.giveTime(*task_, timeouts_.transfer);
    } else {
        tasks_.giveTime(*task_, timeouts_.reply);
    }
}

} // namespace quillmark
