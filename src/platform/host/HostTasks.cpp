#include "platform/host/HostTasks.h"

#include "platform/host/HostConnection.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quillmark {

namespace {

using Kind = HostOutcome::Kind;

/// So many bytes are worth waking the run for; fewer wait for the end of the task.
constexpr std::size_t Portion = std::size_t{128} * 1024;

HostTasks::Handle taskOf(HostOperation operation, bool asked = false) {
    auto task = std::make_shared<HostTask>();
    task->operation = std::move(operation);
    task->asked = asked;
    return task;
}

void append(std::vector<std::string>& lines, std::vector<std::string>& more) {
    std::move(more.begin(), more.end(), std::back_inserter(lines));
    more.clear();
}

} // namespace

void HostTasks::expect(HostOperation operation) {
    const Lock lock(mutex_);
    expected_.push_back(taskOf(std::move(operation)));
    work_.notify_all();
}

HostTasks::Handle HostTasks::ask(const HostOperation& operation) {
    const Lock lock(mutex_);
    const auto found = std::find_if(expected_.begin(), expected_.end(), [&](const Handle& task) {
        return task->operation == operation;
    });
    if (found == expected_.end()) {
        asked_ = taskOf(operation);
    } else {
        asked_ = *found;
        std::for_each(expected_.begin(), found, [this](const Handle& task) { drop(task.get()); });
        expected_.erase(expected_.begin(), found + 1);
    }
    asked_->asked = true;
    work_.notify_all();
    return {asked_.get(), [this](const HostTask* task) { cancel(task); }};
}

std::vector<HostTasks::Handle> HostTasks::askGoodbyes() {
    const Lock lock(mutex_);
    expected_.clear();
    drop(nullptr);
    work_.notify_all();
    std::vector<Handle> goodbyes;
    for (Seat* const seat : seats_) {
        if (seat->loggedIn) {
            seat->task = taskOf({HostOperation::Kind::Goodbye}, true);
            goodbyes.push_back(seat->task);
        }
    }
    return goodbyes;
}

HostNews HostTasks::waitForNews(HostTask& task, std::chrono::milliseconds slice) {
    Lock lock(mutex_);
    news_.wait_for(lock, slice,
                   [&task] { return task.news.outcome || task.news.bytes.size() >= Portion; });
    work_.notify_all();
    HostNews news = std::exchange(task.news, HostNews{task.news.attempt});
    if (news.outcome && news.outcome->kind != Kind::Lost) {
        append(news.trace, refusal_.trace);
        append(news.notes, refusal_.notes);
    }
    for (Seat* const seat : seats_) {
        const bool isBegun = seat->task && seat->task->begun;
        if (isBegun && Clock::now() >= std::min(seat->silentUntil, seat->endsAt)) {
            seat->late = true;
            seat->connection.interrupt();
        }
    }
    return news;
}

void HostTasks::cancel(const HostTask* task) {
    const Lock lock(mutex_);
    drop(task);
    asked_ = nullptr;
    work_.notify_all();
}

void HostTasks::close() {
    const Lock lock(mutex_);
    closed_ = true;
    drop(nullptr);
    work_.notify_all();
}

/// Has nobody perform the task, or any task.
void HostTasks::drop(const HostTask* task) {
    for (Seat* const seat : seats_) {
        if (seat->task && (task == nullptr || seat->task.get() == task)) {
            seat->task = nullptr;
            seat->loggedIn = false;
            seat->connection.interrupt();
        }
    }
}

void HostTasks::join(Seat& seat) {
    const Lock lock(mutex_);
    if (!seats_.empty()) {
        seat.task = taskOf({HostOperation::Kind::LogIn});
    }
    seats_.push_back(&seat);
}

void HostTasks::leave(Seat& seat) {
    const Lock lock(mutex_);
    std::erase(seats_, &seat);
}

std::optional<HostOperation> HostTasks::next(Seat& seat) {
    Lock lock(mutex_);
    while (!closed_ && !seat.task) {
        seat.task = candidate();
        if (!seat.task) {
            work_.wait(lock);
        }
    }
    if (closed_) {
        return std::nullopt;
    }
    seat.task->begun = true;
    seat.silentUntil = seat.endsAt = Clock::time_point::max();
    return seat.task->operation;
}

HostTasks::Handle HostTasks::candidate() const {
    if (asked_ && !asked_->begun) {
        return asked_;
    }
    const auto last = expected_.begin() + std::min(std::ssize(expected_), MostTasksAhead);
    const auto found =
        std::find_if(expected_.begin(), last, [](const Handle& task) { return !task->begun; });
    return found == last || bytesAhead() >= MostAhead ? nullptr : *found;
}

bool HostTasks::begin(Seat& seat) {
    const Lock lock(mutex_);
    if (!seat.task) {
        return false;
    }
    HostNews& news = seat.task->news;
    news.bytes.clear();
    ++news.attempt;
    append(news.trace, seat.untold);
    seat.late = false;
    seat.silentUntil = Clock::now() + timeouts_.connect;
    seat.endsAt = Clock::now() + timeouts_.operation;
    seat.connection.rearm();
    return true;
}

void HostTasks::giveTime(Seat& seat, std::chrono::milliseconds time) {
    const Lock lock(mutex_);
    seat.silentUntil = Clock::now() + time;
}

void HostTasks::tell(Seat& seat, std::vector<std::string> HostNews::*lines, std::string text) {
    const Lock lock(mutex_);
    if (seat.task) {
        (seat.task->news.*lines).push_back(std::move(text));
    }
}

// While there is no room the host is not to blame for the silence. What is asked for may be what no
// connection has begun, and all of them may wait for room: then one gives way to it.
bool HostTasks::keep(Seat& seat, std::string_view bytes) {
    Lock lock(mutex_);
    while (seat.task && !hasRoom(*seat.task)) {
        if (mustGiveWay(*seat.task)) {
            std::erase(expected_, seat.task);
            drop(seat.task.get());
            break;
        }
        seat.silentUntil = seat.endsAt = Clock::time_point::max();
        work_.wait(lock);
        seat.endsAt = Clock::now() + timeouts_.operation;
    }
    if (!seat.task) {
        return false;
    }
    HostNews& news = seat.task->news;
    news.bytes += bytes;
    seat.silentUntil = Clock::now() + timeouts_.transfer;
    seat.endsAt += std::chrono::milliseconds(bytes.size() / 16); // 16 KiB a second are enough.
    if (seat.task->asked && news.bytes.size() >= Portion) {
        news_.notify_one();
    }
    return true;
}

bool HostTasks::mustGiveWay(const HostTask& task) const {
    return !task.asked && asked_ && !asked_->begun &&
           std::all_of(seats_.begin(), seats_.end(), [](const Seat* seat) { return seat->task; });
}

bool HostTasks::hasRoom(const HostTask& task) const {
    return task.asked ? task.news.bytes.size() < MostWaiting : bytesAhead() < MostAhead;
}

// Only the first tasks can have been begun.
std::size_t HostTasks::bytesAhead() const {
    std::size_t bytes = 0;
    const auto last = expected_.begin() + std::min(std::ssize(expected_), MostTasksAhead);
    std::for_each(expected_.begin(), last,
                  [&bytes](const Handle& task) { bytes += task->news.bytes.size(); });
    return bytes;
}

bool HostTasks::mayRetry(const Seat& seat, const HostOutcome& outcome, bool wasOpen) {
    const Lock lock(mutex_);
    const bool isOver = !seat.task || (seat.late && hasOthers(seat));
    return !isOver && (outcome.kind == Kind::Broken || (outcome.kind == Kind::Lost && wasOpen));
}

bool HostTasks::hasOthers(const Seat& seat) const {
    return std::any_of(seats_.begin(), seats_.end(),
                       [&seat](const Seat* other) { return other != &seat && other->loggedIn; });
}

bool HostTasks::end(Seat& seat, const HostOutcome& outcome) {
    const Lock lock(mutex_);
    const Handle task = std::exchange(seat.task, nullptr);
    const bool isLost = outcome.kind == Kind::Lost;
    seat.loggedIn = task && !isLost && outcome.kind != Kind::Ended;
    if (!task) {
        return true;
    }
    const bool isGoodbye = task->operation.kind == HostOperation::Kind::Goodbye;
    const bool isRefused =
        isLost && !isGoodbye && (seat.late || !outcome.loggedIn) && hasOthers(seat);
    if (isRefused) {
        refuse(seat, *task, outcome.reason);
    } else if (task->asked || !isLost) {
        task->news.outcome = outcome;
        news_.notify_one();
    } else {
        std::erase(expected_, task);
    }
    if (!task->asked && (isLost || task->operation.kind == HostOperation::Kind::LogIn)) {
        append(seat.untold, task->news.trace);
    }
    return !isRefused && !isGoodbye;
}

/// Leaves the task to the others.
void HostTasks::refuse(Seat& seat, HostTask& task, const std::string& reason) {
    append(seat.untold, task.news.trace);
    if (!std::exchange(isRefused_, true)) {
        refusal_.trace = std::move(seat.untold);
        refusal_.notes = {"A further connection failed (" + reason + "); going on with fewer"};
    }
    std::erase(seats_, &seat);
    task.news.bytes.clear();
    task.begun = false;
    work_.notify_all();
}

} // namespace quillmark
