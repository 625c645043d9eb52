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

/// Runs tasks on several threads and hands out their results in the order in which the tasks were
/// added, whichever ends first.
template <typename Task, typename Result> class OrderedQueue {
public:
    /// Does one task. `result` may hold what an earlier task left there, so that its memory is used
    /// again.
    using Work = std::function<void(const Task& task, Result& result)>;

    /// Each thread gets its own Work from `makeWork`. `threads` counts the caller of take() too,
    /// which works while it waits.
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

    /// Adds a task behind all others; the next free thread begins it.
    void add(Task task) {
        auto slot = std::make_unique<Slot>();
        slot->task = std::move(task);
        {
            const std::lock_guard lock(mutex_);
            waiting_.push_back(std::move(slot));
        }
        changed_.notify_one();
    }

    /// Waits for the result of the oldest task that was not taken yet; there must be one. The
    /// caller may change the result, which stays valid until the next call. Throws what the Work
    /// threw.
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
    /// The most tasks that are begun and not yet taken: their results wait in memory.
    static constexpr std::size_t MostAhead = 64;

    struct Slot {
        Task task;
        std::unique_ptr<Result> result;
        std::exception_ptr failure;
        bool done = false;
    };

    // The caller works too: a thread that only waited would have to be woken for each task, which
    // costs as much as a small task itself.
    void finishFirst(std::unique_lock<std::mutex>& lock) {
        while (!waiting_.front()->done) {
            if (Slot* slot = begin()) {
                finish(*slot, ownWork_, lock);
            } else {
                done_.wait(lock);
            }
        }
    }

    /// The next task to do; null if all have begun, or MostAhead have.
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
