#pragma once

#include "platform/host/FtpTimeouts.h"
#include "platform/host/HostTask.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// The operations between the run, which asks for one after the other, and the connections, which
/// perform what is asked for and, as far as the memory goes, what will be asked for next. All
/// functions may be called from any thread.
class HostTasks {
public:
    /// The bytes that are kept of what was not asked for yet, in all.
    static constexpr std::size_t MostAhead = std::size_t{16} * 1024 * 1024;
    /// The bytes that a connection may be ahead of the run with what was asked for.
    static constexpr std::size_t MostWaiting = std::size_t{1} * 1024 * 1024;
    /// The operations that may be begun before they are asked for.
    static constexpr std::size_t MostTasksAhead = 256;

    using Handle = std::shared_ptr<HostTask>;

    explicit HostTasks(const FtpTimeouts& timeouts) : timeouts_(timeouts) {}

    // The run's side.

    /// Adds what will be asked for after all that was added before.
    void expect(HostOperation operation);
    /// Asks for a goodbye of each connection that is logged in.
    std::vector<Handle> askGoodbyes();
    /// Names what is wanted now. Of what is expected, all that stands before it is given up: the
    /// run has passed over it.
    Handle ask(const HostOperation& operation);
    /// What became of the task asked for; waits for something, `slice` at most.
    HostNews waitForNews(HostTask& task, std::chrono::milliseconds slice);
    /// Interrupts what has waited for the host for too long.
    void interruptLate();
    /// Gives the task up.
    void cancel(HostTask& task);
    /// Gives everything up.
    void cancelAll();
    /// The same, and connections end.
    void close();
    /// Why a connection beyond the first ones was not to be had; empty if it was. Tells it once.
    std::string takeRefusal();

    // The side of the connections.

    /// The next task to perform; waits for one. Null when it is time to end.
    Handle next(const HostConnection& connection);
    /// A connection begins to perform a task, or begins anew. False if it is not wanted any more.
    bool begin(HostTask& task, HostConnection& connection);
    /// Gives the host so much time from now on.
    void giveTime(HostTask& task, std::chrono::milliseconds time);
    void trace(HostTask& task, std::string text);
    void note(HostTask& task, std::string text);
    /// Takes bytes, once there is room for them. False if the transfer is to end.
    bool keep(HostTask& task, std::string_view bytes);
    /// Whether the task is worth a second attempt after this outcome.
    bool mayRetry(const HostTask& task, const HostOutcome& outcome,
                  const HostConnection& connection);
    /// Ends the task, or gives it back for another attempt. False if the connection is to end,
    /// since the host serves others but not this one.
    bool end(HostTask& task, const HostOutcome& outcome, const HostConnection& connection);

private:
    using Lock = std::unique_lock<std::mutex>;

    Handle candidate(const HostConnection& connection);
    bool mayKeep(const HostTask& task) const;
    bool mustGiveWay(const HostTask& task) const;
    bool hasOthers(const HostConnection& connection) const;
    void cancelRest();
    void settleGoodbyes();
    void giveBack(HostTask& task);
    void drop(HostTask& task);
    void empty(HostTask& task);

    FtpTimeouts timeouts_;
    std::mutex mutex_;
    std::condition_variable work_; ///< There is something to do, or room for bytes.
    std::condition_variable news_; ///< Something became of the task asked for.
    Handle asked_;
    std::vector<Handle> goodbyes_;   ///< Not begun yet.
    std::deque<Handle> expected_;    ///< In the order of the run.
    std::vector<HostTask*> running_; ///< By connections that have begun and not ended them.
    std::set<const HostConnection*> loggedIn_;
    std::size_t kept_ = 0; ///< The bytes of what is expected.
    std::string refusal_;
    bool refusalTold_ = false;
    bool closed_ = false;
};

} // namespace quillmark
