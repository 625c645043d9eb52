#pragma once

#include "platform/host/FtpTimeouts.h"
#include "run/HostTrust.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

class HostConnection;

/// What the run asks of the host.
struct HostOperation {
    enum class Kind { LogIn, List, ListFacts, Retrieve, Delete, RemoveDirectory, Goodbye };

    Kind kind = Kind::LogIn;
    /// In "/" form, as bytes; a listing without a path is of the current directory.
    std::string path = {};

    bool operator==(const HostOperation&) const = default;
};

/// How an operation went.
struct HostOutcome {
    enum class Kind {
        Done,
        Refused, ///< The host said no, and the conversation goes on.
        Broken,  ///< The data connection failed, and the conversation goes on.
        Lost,    ///< No connection, no login, or the host fell silent.
        Ended,   ///< By Stop, or since the bytes are not wanted.
    };

    Kind kind = Kind::Done;
    std::string reason = {}; ///< Why it was refused or lost; never holds the password.
    bool loggedIn = false;   ///< The login of the control connection had succeeded.
    std::optional<HostIdentity> refused = {}; ///< Who the host is, if it was not believed.
};

/// What became of a task since the run last looked.
struct HostNews {
    int attempt = 0; ///< The bytes of an earlier one count no more.
    std::string bytes = {};
    std::vector<std::string> trace = {};
    std::vector<std::string> notes = {};     ///< Messages for the user.
    std::optional<HostOutcome> outcome = {}; ///< Once it has ended.
};

/// An operation on its way. All but the operation is guarded by the tasks that it is one of.
struct HostTask {
    HostOperation operation = {};
    bool asked = false; ///< The run waits for it.
    bool begun = false; ///< A connection has taken it.
    HostNews news = {}; ///< Not taken by the run yet.
};

/// The operations between the run, which asks for one after the other, and the connections, which
/// perform what is asked for and, as far as the memory goes, what will be asked for next. What
/// fails ahead is forgotten, and done anew when it is asked for. All functions may be called from
/// any thread.
class HostTasks {
public:
    /// The bytes that are kept of what was not asked for yet, in all.
    static constexpr std::size_t MostAhead = std::size_t{16} * 1024 * 1024;
    /// The bytes that a connection may be ahead of the run with what was asked for.
    static constexpr std::size_t MostWaiting = std::size_t{1} * 1024 * 1024;
    /// The operations that may be begun before they are asked for.
    static constexpr std::ptrdiff_t MostTasksAhead = 256;

    using Clock = std::chrono::steady_clock;
    using Handle = std::shared_ptr<HostTask>;

    /// The place of a connection, guarded by the tasks.
    struct Seat {
        HostConnection& connection;
        Handle task = {};                     ///< None while there is none, or nobody wants it.
        bool loggedIn = false;                ///< As far as its last task tells.
        bool late = false;                    ///< The host took too long.
        Clock::time_point silentUntil = {};   ///< When the host has been silent for too long.
        Clock::time_point endsAt = {};        ///< When it took too long, whatever arrived.
        std::vector<std::string> untold = {}; ///< Said for no task that the run asked for.
    };

    explicit HostTasks(const FtpTimeouts& timeouts) : timeouts_(timeouts) {}

    // The run's side.

    /// Adds what will be asked for after all that was added before.
    void expect(HostOperation operation);
    /// Names what is wanted now, as long as the handle is kept. Of what is expected, all that
    /// stands before it is given up: the run has passed over it.
    Handle ask(const HostOperation& operation);
    /// Asks for a goodbye of each connection that is logged in. Gives everything else up.
    std::vector<Handle> askGoodbyes();
    /// What became of a task asked for; waits for its end, or many bytes, `slice` at most. The
    /// first time that a connection beyond the first one was not to be had, that is told as well.
    /// Interrupts what has waited for the host for too long.
    HostNews waitForNews(HostTask& task, std::chrono::milliseconds slice);
    /// Gives everything up, and connections end.
    void close();

    // The side of the connections.

    /// A connection begins to take tasks. All but the first one log in without being asked.
    void join(Seat& seat);
    /// It takes none any more, and is forgotten.
    void leave(Seat& seat);
    /// The next operation to perform; waits for one. None when it is time to end.
    std::optional<HostOperation> next(Seat& seat);
    /// The task is attempted, or attempted anew. False if it is not wanted any more.
    bool begin(Seat& seat);
    /// Gives the host so much time from now on.
    void giveTime(Seat& seat, std::chrono::milliseconds time);
    /// Adds a line to what the run will learn of the task.
    void tell(Seat& seat, std::vector<std::string> HostNews::*lines, std::string text);
    /// Takes bytes, once there is room for them. False if the transfer is to end.
    bool keep(Seat& seat, std::string_view bytes);
    /// Whether the task is worth a second attempt after this outcome of one over a connection that
    /// was open before, or was not.
    bool mayRetry(const Seat& seat, const HostOutcome& outcome, bool wasOpen);
    /// The task has come to its end. False if the connection has, too, since the host serves others
    /// but not this one.
    bool end(Seat& seat, const HostOutcome& outcome);

private:
    using Lock = std::unique_lock<std::mutex>;

    Handle candidate() const;
    bool mustGiveWay(const HostTask& task) const;
    bool hasRoom(const HostTask& task) const;
    std::size_t bytesAhead() const;
    bool hasOthers(const Seat& seat) const;
    void refuse(Seat& seat, HostTask& task, const std::string& reason);
    void cancel(const HostTask* task);
    void drop(const HostTask* task);

    FtpTimeouts timeouts_;
    std::mutex mutex_;
    std::condition_variable work_; ///< There is something to do, or room for bytes.
    std::condition_variable news_; ///< Something became of a task asked for.
    std::vector<Seat*> seats_;
    Handle asked_;
    std::deque<Handle> expected_; ///< In the order of the run.
    HostNews refusal_;            ///< Of a connection beyond the first one, until it is told.
    bool isRefused_ = false;
    bool closed_ = false;
};

} // namespace quillmark
