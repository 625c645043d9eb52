#include "platform/ftp/FtpConversation.h"

#include "platform/ftp/FtpOptions.h"

#include <chrono>
#include <utility>

namespace quillmark {

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds Slice = 25ms;

/// Takes the handle out of the conversation again; libcurl closes the connection of an operation
/// that has not ended.
class Operation {
public:
    Operation(CURLM* multi, CURL* easy) : multi_(multi), easy_(easy) {
        curl_multi_add_handle(multi_, easy_);
    }
    ~Operation() { curl_multi_remove_handle(multi_, easy_); }
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

private:
    CURLM* multi_;
    CURL* easy_;
};

/// What libcurl reports when the host answered with a refusal and stays reachable.
bool isAnswered(CURLcode code) {
    return code == CURLE_REMOTE_FILE_NOT_FOUND || code == CURLE_FTP_COULDNT_RETR_FILE ||
           code == CURLE_REMOTE_ACCESS_DENIED || code == CURLE_PARTIAL_FILE ||
           code == CURLE_FTP_COULDNT_SET_TYPE || code == CURLE_QUOTE_ERROR;
}

} // namespace

// The bytes of a transfer are taken where libcurl shows them as they came: what it writes has other
// line ends.
FtpConversation::FtpConversation(EventLoop& events, const RunState& state, FtpTrace& trace,
                                 const FtpTimeouts& timeouts)
    : events_(events), state_(state), trace_(trace), clock_(timeouts), multi_(curl_multi_init()),
      easy_(curl_easy_init()) {
    CURL* const easy = easy_.get();
    setUsualOptions(easy);
    setTimeouts(easy, timeouts);
    sockets_.watch(easy);
    curl_easy_setopt(easy, CURLOPT_VERBOSE, 1L);
    curl_easy_setopt(easy, CURLOPT_DEBUGFUNCTION, &FtpConversation::follow);
    curl_easy_setopt(easy, CURLOPT_DEBUGDATA, this);
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &FtpConversation::discard);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
}

FtpConversation::~FtpConversation() {
    sockets_.hangUp();
}

void FtpConversation::setLogin(const FtpLogin& login) {
    hangUp();
    multi_.reset(curl_multi_init());
    password_ = login.password;
    setLoginOptions(easy_.get(), login);
}

FtpOutcome FtpConversation::perform(const FtpRequest& request, const Taker& take) {
    const CurlList commands = setRequestOptions(easy_.get(), request);
    prepare(request);
    FtpOutcome outcome;
    {
        const Operation operation(multi_.get(), easy_.get());
        outcome = talk(take);
    }
    outcome.openedAnew = sockets_.takeOpenedAnew();
    outcome.loggedIn = loggedIn_ || !outcome.openedAnew;
    if (outcome.kind == FtpOutcome::Kind::Lost) {
        hangUp();
    }
    return outcome;
}

void FtpConversation::prepare(const FtpRequest& request) {
    setConnectLimit(easy_.get(), clock_.timeouts().connect);
    clock_.waitForConnection();
    sockets_.forgetData();
    received_.clear();
    reply_ = {};
    wantsTransfer_ = request.transfer;
    loggedIn_ = false;
    transferring_ = false;
    dataEnded_ = false;
    dataBroken_ = false;
}

FtpOutcome FtpConversation::talk(const Taker& take) {
    while (!state_.abort) {
        if (mayGoOn()) {
            int running = 0;
            curl_multi_perform(multi_.get(), &running);
        }
        if (!handOver(take)) {
            break;
        }
        if (finished()) {
            return outcomeOf(code_);
        }
        if (clock_.expired()) {
            return lost(CURLE_OPERATION_TIMEDOUT);
        }
        events_.DoEvents();
        if (!state_.abort) {
            wait();
        }
    }
    return {FtpOutcome::Kind::Ended, {}};
}

// During a transfer libcurl is held, and let on for one piece of data that is there already, or to
// the end when it need not wait for the last reply.
bool FtpConversation::mayGoOn() {
    if (!transferIsOpen()) {
        return true;
    }
    const FtpSockets::Data state = sockets_.dataState();
    if (state == FtpSockets::Data::Waiting) {
        return false;
    }
    if (state != FtpSockets::Data::Readable) {
        noticeEndOfData(state);
        if (!sockets_.lastReplyIsThere()) {
            return false;
        }
    }
    curl_easy_pause(easy_.get(), CURLPAUSE_CONT);
    return true;
}

void FtpConversation::noticeEndOfData(FtpSockets::Data state) {
    dataBroken_ = dataBroken_ || state == FtpSockets::Data::Broken;
    if (!dataEnded_) {
        dataEnded_ = true;
        sockets_.endData();
        clock_.waitForReply();
    }
}

bool FtpConversation::handOver(const Taker& take) {
    for (const std::string& text : std::exchange(traced_, {})) {
        trace_.Trace(text);
    }
    const bool wanted = received_.empty() || take(received_);
    received_.clear();
    return wanted;
}

bool FtpConversation::finished() {
    int left = 0;
    const CURLMsg* const message = curl_multi_info_read(multi_.get(), &left);
    if (message == nullptr) {
        return false;
    }
    code_ = message->data.result;
    return true;
}

void FtpConversation::wait() {
    if (!transferIsOpen()) {
        const std::chrono::milliseconds time =
            std::exchange(nothingToWaitFor_, false) ? 0ms : Slice;
        curl_multi_poll(multi_.get(), nullptr, 0, static_cast<int>(time.count()), nullptr);
    } else if (!dataEnded_) {
        sockets_.waitForData(Slice);
    } else if (!sockets_.lastReplyIsThere()) {
        sockets_.waitForReply(Slice);
    }
}

// A listing that libcurl takes for empty may have a negative reply ("450 No files found").
FtpOutcome FtpConversation::outcomeOf(CURLcode code) const {
    if (code == CURLE_OK && dataBroken_) {
        return lost(CURLE_RECV_ERROR);
    }
    if (code == CURLE_OK && (wantsTransfer_ || !reply_.negative())) {
        return {FtpOutcome::Kind::Done, {}};
    }
    if (reply_.negative() && (code == CURLE_OK || isAnswered(code))) {
        return {reply_.brokenTransfer() ? FtpOutcome::Kind::Broken : FtpOutcome::Kind::Refused,
                reply_.text};
    }
    return lost(code);
}

FtpOutcome FtpConversation::lost(CURLcode code) const {
    return {FtpOutcome::Kind::Lost, reply_.unsatisfied() ? reply_.text : curl_easy_strerror(code)};
}

int FtpConversation::follow(CURL* /*easy*/, curl_infotype type, char* data, std::size_t size,
                            void* self) {
    auto& conversation = *static_cast<FtpConversation*>(self);
    const std::string_view bytes(data, size);
    if (type == CURLINFO_HEADER_OUT) {
        conversation.sent(bytes);
    } else if (type == CURLINFO_HEADER_IN) {
        conversation.heard(bytes);
    } else if (type == CURLINFO_DATA_IN) {
        conversation.received_ += bytes;
        conversation.clock_.waitForByte();
    }
    return 0;
}

std::size_t FtpConversation::discard(char* /*data*/, std::size_t size, std::size_t count,
                                     void* self) {
    static_cast<FtpConversation*>(self)->hold();
    return size * count;
}

void FtpConversation::sent(std::string_view command) {
    const bool password = command.starts_with("PASS ");
    traced_.emplace_back(password ? "PASS"
                                  : command.substr(0, command.find_last_not_of("\r\n") + 1));
    reply_ = {};
    loggedIn_ = loggedIn_ || command.starts_with("PWD");
    if (command.starts_with("QUIT")) {
        clock_.waitForGoodbye();
    } else {
        clock_.waitForReply();
    }
}

// Once the host has spoken, libcurl's limit for connecting has done its work; it would count the
// login too.
void FtpConversation::heard(std::string_view line) {
    sockets_.heard(line.size());
    traced_.push_back(withoutPassword(line, password_));
    liftConnectLimit(easy_.get());
    clock_.waitForReply();
    const int code = replyCode(line);
    if (code == 0) {
        return;
    }
    reply_ = {code, traced_.back()};
    answered();
}

void FtpConversation::answered() {
    // libcurl opens the data connection when it is called again, and names no socket until then.
    if (reply_.namesPort()) {
        clock_.waitForConnection();
        nothingToWaitFor_ = true;
    }
    if (wantsTransfer_ && reply_.announcesTransfer()) {
        clock_.waitForByte();
        transferring_ = true;
        hold();
    }
}

// Both directions: with one of them open, libcurl would read once more to be sure.
void FtpConversation::hold() {
    curl_easy_pause(easy_.get(), CURLPAUSE_ALL);
}

} // namespace quillmark
