#include "platform/host/HostConnection.h"

#include "platform/host/HostRequest.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quillmark {

namespace {

using Kind = HostOutcome::Kind;
using Operation = HostOperation::Kind;

constexpr int LongestPoll = 1000;                  ///< In milliseconds; interrupt() ends a poll.
constexpr long NoLimit = 7L * 24 * 60 * 60 * 1000; ///< More milliseconds are too many for libcurl.
constexpr std::chrono::milliseconds Goodbye{2000};

} // namespace

HostConnection::HostConnection(HostTasks& tasks, const FtpLogin& login, const FtpTimeouts& timeouts)
    : tasks_(tasks), login_(login), url_(hostUrl(login)), timeouts_(timeouts), verifier_(login),
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
    tasks_.join(seat_);
    thread_ = std::thread([this] { work(); });
}

// libcurl says goodbye to a connection that still works, and would wait for the answer.
HostConnection::~HostConnection() {
    tasks_.close();
    thread_.join();
    tasks_.leave(seat_);
    sockets_.shutDown();
}

void HostConnection::interrupt() {
    interrupted_ = true;
    sockets_.shutDown();
    curl_multi_wakeup(multi_.get());
}

void HostConnection::work() {
    while (std::optional<HostOperation> operation = tasks_.next(seat_)) {
        operation_ = std::move(*operation);
        if (!tasks_.end(seat_, perform())) {
            return;
        }
    }
}

HostOutcome HostConnection::perform() {
    if (operation_.kind == Operation::Goodbye) {
        return sockets_.isAlive() ? attempt() : HostOutcome{Kind::Lost};
    }
    HostOutcome outcome = attempt();
    // SFTP answers to the reading of a directory, say, with an error that libcurl takes for one of
    // the connection. Twice in a row, each time after a login, it hardly is.
    const auto mayBeRefusal = [&] { return isSftp() && outcome.loggedIn && !interrupted_; };
    if (tasks_.mayRetry(seat_, outcome, !sockets_.openedAnew() || mayBeRefusal())) {
        outcome = attempt();
        const bool isRefusal = outcome.kind == Kind::Lost && mayBeRefusal();
        outcome.kind = isRefusal ? Kind::Refused : outcome.kind;
    }
    return outcome;
}

HostOutcome HostConnection::attempt() {
    exchange_ = {};
    sockets_.begin();
    if (!tasks_.begin(seat_)) {
        return {Kind::Ended};
    }
    curl_easy_setopt(easy_.get(), CURLOPT_CONNECTTIMEOUT_MS, long{timeouts_.connect.count()});
    const CurlList commands = setOperation(easy_.get(), url_, login_.encryption, operation_);
    if (isSftp()) {
        const std::string text(verbOf(operation_.kind).trace);
        tasks_.tell(seat_, &HostNews::trace,
                    operation_.path.empty() ? text : text + " " + operation_.path);
    }
    HostOutcome outcome = outcomeOf(drive());
    if (isSftp()) {
        tasks_.tell(seat_, &HostNews::trace, outcome.kind == Kind::Done ? "done" : outcome.reason);
    }
    if (const std::string stranger = sockets_.takeStranger(); !stranger.empty()) {
        tasks_.tell(seat_, &HostNews::notes,
                    "Refused a connection from " + stranger + ", which is not the host");
    }
    const bool isOver =
        outcome.kind == Kind::Lost || outcome.kind == Kind::Ended || exchange_.outOfStep;
    if (isOver) {
        sockets_.giveUp();
    }
    curl_easy_setopt(easy_.get(), CURLOPT_FRESH_CONNECT, isOver ? 1L : 0L);
    return outcome;
}

// libcurl closes the connection of an operation that has not ended when it is taken out.
CURLcode HostConnection::drive() {
    curl_multi_add_handle(multi_.get(), easy_.get());
    int left = 0;
    const CURLMsg* message = nullptr;
    while (message == nullptr && !interrupted_) {
        curl_multi_perform(multi_.get(), &left);
        message = curl_multi_info_read(multi_.get(), &left);
        if (message == nullptr) {
            const int time = std::exchange(exchange_.hasWork, false) ? 0 : LongestPoll;
            curl_multi_poll(multi_.get(), nullptr, 0, time, nullptr);
        }
    }
    const CURLcode code = message == nullptr ? CURLE_OPERATION_TIMEDOUT : message->data.result;
    curl_multi_remove_handle(multi_.get(), easy_.get());
    return code;
}

HostOutcome HostConnection::outcomeOf(CURLcode code) {
    curl_off_t sftpLogin = 0;
    if (isSftp()) {
        sockets_.established();
        curl_easy_getinfo(easy_.get(), CURLINFO_APPCONNECT_TIME_T, &sftpLogin);
    }
    const bool loggedIn = exchange_.loggedIn || sftpLogin > 0 || !sockets_.openedAnew();
    HostOutcome outcome = {kindOf(code, loggedIn), reasonOf(code), loggedIn,
                           verifier_.takeRefused()};
    if (outcome.kind == Kind::Done && isTls(login_.encryption) && !verifier_.ended() &&
        verbOf(operation_.kind).isTransfer && !exchange_.own.negative()) {
        outcome.kind = Kind::Broken; // TLS does not call it whole.
        outcome.reason = operation_.path + " was cut short on the way";
        tasks_.tell(seat_, &HostNews::notes, outcome.reason);
    }
    return outcome;
}

// A listing that libcurl takes for empty may have a negative reply ("450 No files found"), and a
// host need not know its current directory to be logged in. Over SFTP libcurl tells by its code
// what was refused; anything else may be the end of the connection.
Kind HostConnection::kindOf(CURLcode code, bool loggedIn) const {
    if (exchange_.ended) {
        return Kind::Ended;
    }
    if (interrupted_ || isEndless() || exchange_.reply.isGoodbye()) {
        return Kind::Lost;
    }
    const HostReply& own = exchange_.own;
    if (code == CURLE_OK && (verbOf(operation_.kind).isTransfer || !own.negative())) {
        return Kind::Done;
    }
    const bool isRefusedBySftp = isSftp() && loggedIn &&
                                 (code == CURLE_REMOTE_FILE_NOT_FOUND ||
                                  code == CURLE_REMOTE_ACCESS_DENIED || code == CURLE_QUOTE_ERROR);
    if (!own.negative() && !isRefusedBySftp) {
        return Kind::Lost;
    }
    return own.brokenTransfer() ? Kind::Broken : Kind::Refused;
}

std::string HostConnection::reasonOf(CURLcode code) const {
    if (interrupted_) {
        return curl_easy_strerror(CURLE_OPERATION_TIMEDOUT);
    }
    if (isEndless()) {
        return curl_easy_strerror(CURLE_WEIRD_SERVER_REPLY);
    }
    const HostReply& reply = exchange_.own.negative() ? exchange_.own : exchange_.reply;
    return reply.unsatisfied() ? reply.text : curl_easy_strerror(code);
}

// What libcurl hands out of a listing has other line ends; it shows the bytes here as they came.
int HostConnection::follow(CURL* /*easy*/, curl_infotype type, char* data, std::size_t size,
                           void* self) {
    auto& connection = *static_cast<HostConnection*>(self);
    const std::string_view bytes(data, size);
    if (connection.isSftp()) {
        connection.tasks_.giveTime(connection.seat_, connection.timeouts_.reply);
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
    exchange_.ended = exchange_.ended || !tasks_.keep(seat_, bytes);
}

// libcurl asks for the current directory as soon as it is logged in. When a host that refuses a
// transfer closes the data connection before TLS is set up on it, libcurl asks for another one and
// takes the refusal for the answer.
void HostConnection::sent(std::string_view command) {
    const bool isPassword = command.starts_with("PASS ");
    tasks_.tell(seat_, &HostNews::trace, isPassword ? "PASS" : withoutPassword(command, {}));
    const std::string_view own = verbOf(operation_.kind).ftp;
    const bool isOwn = !own.empty() && (command.starts_with(own) || command.starts_with("TYPE"));
    exchange_.outOfStep = exchange_.ownCommand && exchange_.reply.code == 0;
    exchange_.reply = {};
    exchange_.replySize = 0;
    exchange_.ownCommand = isOwn || exchange_.outOfStep;
    exchange_.own = exchange_.ownCommand ? HostReply() : exchange_.own;
    exchange_.loggedIn = exchange_.loggedIn || command.starts_with("PWD");
    const bool isGoodbye = command.starts_with("QUIT");
    tasks_.giveTime(seat_, isGoodbye ? std::min(timeouts_.reply, Goodbye) : timeouts_.reply);
}

void HostConnection::heard(std::string_view line) {
    const std::string text = withoutPassword(line, login_.password);
    tasks_.tell(seat_, &HostNews::trace, text);
    sockets_.established();
    curl_easy_setopt(easy_.get(), CURLOPT_CONNECTTIMEOUT_MS, NoLimit); // It would go on.
    exchange_.replySize += line.size();
    if (isEndless()) {
        sockets_.shutDown();
    }
    const int code = finalCode(line);
    if (code == 0) {
        return;
    }
    exchange_.reply = {code, text};
    exchange_.own = exchange_.ownCommand ? exchange_.reply : exchange_.own;
    exchange_.hasWork = exchange_.reply.namesPort(); // To open the data connection.
    const auto time = exchange_.reply.announcesTransfer() ? timeouts_.transfer : timeouts_.reply;
    tasks_.giveTime(seat_, exchange_.hasWork ? timeouts_.connect : time);
}

} // namespace quillmark
