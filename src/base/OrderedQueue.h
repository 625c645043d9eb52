#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace quillmark {

/// Has tasks done by several threads and hands the results out in the order in which the tasks were
/// added, whatever the order in which the threads end.
template <typename Task, typename Result> class OrderedQueue {
public:
    /// Does one task; the result may hold what an earlier task left in it.
    using Work = std::function<void(const Task& task, Result& result)>;

    /// `makeWork` gives each thread a Work of its own. `threads` counts the caller of take(), who
    /// works while it waits.
    OrderedQueue(const std::function<Work()>& makeWork, unsigned threads) : ownWork_(makeWork()) {
        for (unsigned i = 1; i < threads; ++i) {
            threads_.emplace_back([this, work = makeWork()] { workAside(work); });
        }
    }
    ~OrderedQueue() {
        {
            const std::lock_guard lock(mutex_);
            ending_ = true;
        }
        changed_.notify_all();
        for (std::thread& thread : threads_) {
            thread.join();
        }
    }
    OrderedQueue(const OrderedQueue&) = delete;
    OrderedQueue& operator=(const OrderedQueue&) = delete;

    void add(Task task) {
        auto slot = std::make_unique<Slot>();
        slot->task = std::move(task);
        {
            const std::lock_guard lock(mutex_);
            waiting_.push_back(std::move(slot));
        }
        changed_.notify_one();
    }

    /// The result of the task that was added first; there must be one. It may be changed, and holds
    /// until the next call. Throws what its Work threw.
    Result& take() {
        std::unique_lock lock(mutex_);
        finishFirst(lock);
        const std::unique_ptr<Slot> slot = std::move(waiting_.front());
        waiting_.pop_front();
        --begun_;
        if (taken_) {
            free_.push_back(std::move(taken_));
        }
        taken_ = std::move(slot->result);
        lock.unlock();
        changed_.notify_one();
        if (slot->failure) {
            std::rethrow_exception(slot->failure);
        }
        return *taken_;
    }

private:
    /// So many tasks are done ahead of the one that is taken next: their results stay in memory.
    static constexpr std::size_t MostAhead = 64;

    struct Slot {
        Task task;
        std::unique_ptr<Result> result;
        std::exception_ptr failure;
        bool done = false;
    };

    // A thread that only waited would be woken for each task, which costs as much as a small task
    // itself.
    void finishFirst(std::unique_lock<std::mutex>& lock) {
        while (!waiting_.front()->done) {
            if (Slot* slot = begin()) {
                finish(*slot, ownWork_, lock);
            } else {
                done_.wait(lock);
            }
        }
    }

    /// The next task, or null if all are begun, or enough of them.
    Slot* begin() {
        if (begun_ == waiting_.size() || begun_ == MostAhead) {
            return nullptr;
        }
        Slot* slot = waiting_[begun_++].get();
        slot->result = freeResult();
        return slot;
    }

    std::unique_ptr<Result> freeResult() {
        if (free_.empty()) {
            return std::make_unique<Result>();
        }
        auto result = std::move(free_.back());
        free_.pop_back();
        return result;
    }

    static void finish(Slot& slot, const Work& work, std::unique_lock<std::mutex>& lock) {
        lock.unlock();
        try {
            work(slot.task, *slot.result);
        } catch (...) {
            slot.failure = std::current_exception();
        }
        lock.lock();
        slot.done = true;
    }

    void workAside(const Work& work) {
        std::unique_lock lock(mutex_);
        while (!ending_) {
            Slot* slot = begin();
            if (slot == nullptr) {
                changed_.wait(lock);
                continue;
            }
            finish(*slot, work, lock);
            if (slot == waiting_.front().get()) {
                done_.notify_one();
            }
        }
    }

    Work ownWork_;
    std::mutex mutex_;
    std::condition_variable changed_;           ///< A task was added or taken, or the queue ends.
    std::condition_variable done_;              ///< The first task is done.
    std::deque<std::unique_ptr<Slot>> waiting_; ///< In order; the first `begun_` were begun.
    std::size_t begun_ = 0;
    std::vector<std::unique_ptr<Result>> free_;
    std::unique_ptr<Result> taken_;
    bool ending_ = false;
    std::vector<std::thread> threads_;
};

} // namespace quillmark
