#include "platform/host/HostTasks.h"

#include "platform/host/HostConnection.h"

#include <algorithm>
#include <utility>

namespace quillmark {

namespace {

using Kind = HostOutcome::Kind;

/// An operation may take this much longer for the bytes that came: 16 KiB a second.
std::chrono::milliseconds timeFor(std::size_t bytes) {
    return std::chrono::milliseconds(bytes / 16);
}

} // namespace

void HostTasks::expect(HostOperation operation) {
    const Lock lock(mutex_);
    expected_.push_back(std::make_shared<HostTask>());
    expected_.back()->operation = std::move(operation);
    work_.notify_all();
}

HostTasks::Handle HostTasks::ask(const HostOperation& operation) {
    const Lock lock(mutex_);
    const auto found = std::find_if(expected_.begin(), expected_.end(), [&](const Handle& task) {
        return task->operation == operation;
    });
    if (found == expected_.end()) {
        asked_ = std::make_shared<HostTask>();
        asked_->operation = operation;
    } else {
        asked_ = *found;
        std::for_each(expected_.begin(), found, [this](const Handle& task) { drop(*task); });
        expected_.erase(expected_.begin(), found + 1);
        kept_ -= asked_->news.bytes.size();
    }
    asked_->asked = true;
    work_.notify_all();
    return asked_;
}

HostNews HostTasks::waitForNews(HostTask& task, std::chrono::milliseconds slice) {
    Lock lock(mutex_);
    news_.wait_for(lock, slice, [&task] {
        return !task.news.bytes.empty() || !task.news.trace.empty() || !task.news.notes.empty() ||
               task.news.outcome;
    });
    HostNews news = task.news;
    task.news = {news.attempt, {}, {}, {}, news.outcome};
    if (!news.bytes.empty()) {
        work_.notify_all();
    }
    return news;
}

void HostTasks::interruptLate() {
    const Lock lock(mutex_);
    const auto now = HostTask::Clock::now();
    for (HostTask* task : running_) {
        if (now >= std::min(task->silentUntil, task->endsAt)) {
            task->late = true;
            task->by->interrupt();
        }
    }
}

void HostTasks::cancel(HostTask& task) {
    const Lock lock(mutex_);
    drop(task);
    asked_ = nullptr;
}

void HostTasks::cancelAll() {
    const Lock lock(mutex_);
    cancelRest();
}

void HostTasks::close() {
    const Lock lock(mutex_);
    closed_ = true;
    cancelRest();
}

void HostTasks::cancelRest() {
    expected_.clear();
    goodbyes_.clear();
    kept_ = 0;
    asked_ = nullptr;
    for (HostTask* task : running_) {
        task->cancelled = true;
        task->news.bytes.clear();
        task->by->interrupt();
    }
    work_.notify_all();
}

std::vector<HostTasks::Handle> HostTasks::askGoodbyes() {
    const Lock lock(mutex_);
    cancelRest();
    for (std::size_t i = 0; i < loggedIn_.size(); ++i) {
        goodbyes_.push_back(std::make_shared<HostTask>());
        goodbyes_.back()->operation.kind = HostOperation::Kind::Goodbye;
        goodbyes_.back()->asked = true;
    }
    return goodbyes_;
}

std::string HostTasks::takeRefusal() {
    const Lock lock(mutex_);
    if (refusal_.empty() || std::exchange(refusalTold_, true)) {
        return {};
    }
    return refusal_;
}

HostTasks::Handle HostTasks::next(const HostConnection& connection) {
    Lock lock(mutex_);
    for (;;) {
        if (closed_) {
            return nullptr;
        }
        if (Handle task = candidate(connection)) {
            task->begun = true;
            return task;
        }
        work_.wait(lock);
    }
}

HostTasks::Handle HostTasks::candidate(const HostConnection& connection) {
    if (!goodbyes_.empty() && loggedIn_.contains(&connection)) {
        Handle goodbye = goodbyes_.back();
        goodbyes_.pop_back();
        return goodbye;
    }
    if (asked_ && !asked_->begun) {
        return asked_;
    }
    if (kept_ >= MostAhead) {
        return nullptr;
    }
    const auto end =
        expected_.begin() + static_cast<std::ptrdiff_t>(std::min(expected_.size(), MostTasksAhead));
    const auto found = std::find_if(expected_.begin(), end, [](const Handle& task) {
        return !task->begun && !task->onlyWhenAsked;
    });
    return found == end ? nullptr : *found;
}

bool HostTasks::begin(HostTask& task, HostConnection& connection) {
    const Lock lock(mutex_);
    if (task.cancelled) {
        return false;
    }
    empty(task);
    ++task.news.attempt;
    task.late = false;
    task.gaveWay = false;
    task.silentUntil = HostTask::Clock::now() + timeouts_.connect;
    task.endsAt = HostTask::Clock::now() + timeouts_.operation;
    if (std::exchange(task.by, &connection) == nullptr) {
        running_.push_back(&task);
    }
    connection.rearm();
    return true;
}

void HostTasks::giveTime(HostTask& task, std::chrono::milliseconds time) {
    const Lock lock(mutex_);
    task.silentUntil = HostTask::Clock::now() + time;
}

void HostTasks::trace(HostTask& task, std::string text) {
    const Lock lock(mutex_);
    task.news.trace.push_back(std::move(text));
    if (task.asked) {
        news_.notify_one();
    }
}

void HostTasks::note(HostTask& task, std::string text) {
    const Lock lock(mutex_);
    task.news.notes.push_back(std::move(text));
}

// While there is no room the host is not to blame for the silence.
bool HostTasks::keep(HostTask& task, std::string_view bytes) {
    Lock lock(mutex_);
    while (!task.cancelled && !mayKeep(task)) {
        if (mustGiveWay(task)) {
            task.gaveWay = true;
            return false;
        }
        task.silentUntil = HostTask::Clock::time_point::max();
        task.endsAt = HostTask::Clock::time_point::max();
        work_.wait(lock);
        task.endsAt = HostTask::Clock::now() + timeouts_.operation;
    }
    if (task.cancelled) {
        return false;
    }
    task.news.bytes += bytes;
    task.silentUntil = HostTask::Clock::now() + timeouts_.transfer;
    task.endsAt += timeFor(bytes.size());
    if (task.asked) {
        news_.notify_one();
    } else {
        kept_ += bytes.size();
    }
    return true;
}

bool HostTasks::mayKeep(const HostTask& task) const {
    return task.asked ? task.news.bytes.size() < MostWaiting : kept_ < MostAhead;
}

// What is asked for may be what no connection has begun, and all of them may be waiting for room.
bool HostTasks::mustGiveWay(const HostTask& task) const {
    return !task.asked && asked_ && !asked_->begun &&
           std::none_of(running_.begin(), running_.end(),
                        [](const HostTask* other) { return other->gaveWay; });
}

// With one connection, the first one after the login was there before.
bool HostTasks::mayRetry(const HostTask& task, const HostOutcome& outcome,
                         const HostConnection& connection) {
    const Lock lock(mutex_);
    if (task.cancelled || task.gaveWay || (task.late && hasOthers(connection))) {
        return false;
    }
    const bool wasOpen = !outcome.openedAnew || (outcome.loggedIn && hasOthers(connection));
    return outcome.kind == Kind::Broken || (outcome.kind == Kind::Lost && wasOpen);
}

bool HostTasks::hasOthers(const HostConnection& connection) const {
    return loggedIn_.size() > (loggedIn_.contains(&connection) ? 1U : 0U);
}

bool HostTasks::end(HostTask& task, const HostOutcome& outcome, const HostConnection& connection) {
    const Lock lock(mutex_);
    std::erase(running_, &task);
    task.by = nullptr;
    const bool isGoodbye = task.operation.kind == HostOperation::Kind::Goodbye;
    const bool isLost = outcome.kind == Kind::Lost && !isGoodbye;
    if (task.cancelled || isLost || isGoodbye || outcome.kind == Kind::Ended) {
        loggedIn_.erase(&connection);
        settleGoodbyes();
    } else {
        loggedIn_.insert(&connection);
    }
    if (task.cancelled) {
        return true;
    }
    const bool isRefused = isLost && (task.late || !outcome.loggedIn) && !loggedIn_.empty();
    if (isRefused && refusal_.empty()) {
        refusal_ = outcome.reason;
    }
    if (isRefused || task.gaveWay || (isLost && !task.asked)) {
        task.onlyWhenAsked = isLost && !isRefused;
        giveBack(task);
        return !isRefused;
    }
    task.news.outcome = outcome;
    news_.notify_one();
    return true;
}

// There may be nobody left to say goodbye to.
void HostTasks::settleGoodbyes() {
    if (loggedIn_.empty()) {
        for (const Handle& goodbye : std::exchange(goodbyes_, {})) {
            goodbye->news.outcome = HostOutcome{Kind::Lost, {}, false, false};
        }
    }
}

void HostTasks::giveBack(HostTask& task) {
    empty(task);
    task.begun = false;
    task.gaveWay = false;
    work_.notify_all();
}

void HostTasks::drop(HostTask& task) {
    task.cancelled = true;
    empty(task);
    if (task.by != nullptr) {
        task.by->interrupt();
    }
    work_.notify_all();
}

void HostTasks::empty(HostTask& task) {
    if (!task.asked) {
        kept_ -= task.news.bytes.size();
    }
    task.news.bytes.clear();
}

} // namespace quillmark
