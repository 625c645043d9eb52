#include "web/judge/PageQueue.h"

#include <utility>

namespace quillmark::web {

namespace {

/// So many pages may be read ahead of the one that is taken next: what they hold stays in memory.
constexpr std::size_t MostAhead = 64;

} // namespace

PageQueue::PageQueue(const JudgeContext& context, unsigned threads)
    : context_(context), ownJudge_(context) {
    for (unsigned i = 0; i < threads; ++i) {
        threads_.emplace_back([this] { work(); });
    }
}

PageQueue::~PageQueue() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_all();
    for (std::thread& thread : threads_) {
        thread.join();
    }
}

void PageQueue::add(PageTask task) {
    auto slot = std::make_unique<Slot>();
    slot->task = std::move(task);
    {
        const std::lock_guard lock(mutex_);
        waiting_.push_back(std::move(slot));
    }
    changed_.notify_one();
}

const JudgedPage& PageQueue::take() {
    std::unique_ptr<Slot> slot;
    if (threads_.empty()) {
        slot = std::move(waiting_.front());
        waiting_.pop_front();
        slot->page = freePage();
        ownJudge_.judge(slot->task, *slot->page);
    } else {
        std::unique_lock lock(mutex_);
        judged_.wait(lock, [this] { return waiting_.front()->done; });
        slot = std::move(waiting_.front());
        waiting_.pop_front();
        --begun_;
        lock.unlock();
        changed_.notify_one();
    }
    if (slot->failure) {
        std::rethrow_exception(slot->failure);
    }
    const std::lock_guard lock(mutex_);
    if (taken_) {
        free_.push_back(std::move(taken_));
    }
    taken_ = std::move(slot->page);
    return *taken_;
}

std::unique_ptr<JudgedPage> PageQueue::freePage() {
    if (free_.empty()) {
        return std::make_unique<JudgedPage>();
    }
    auto page = std::move(free_.back());
    free_.pop_back();
    return page;
}

/// The next page to judge, once there is one; null when the queue ends.
PageQueue::Slot* PageQueue::nextSlot() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock,
                  [this] { return ending_ || (begun_ < waiting_.size() && begun_ < MostAhead); });
    if (ending_) {
        return nullptr;
    }
    Slot* slot = waiting_[begun_++].get();
    slot->page = freePage();
    return slot;
}

void PageQueue::work() {
    PageJudge judge(context_);
    while (Slot* slot = nextSlot()) {
        try {
            judge.judge(slot->task, *slot->page);
        } catch (...) {
            slot->failure = std::current_exception();
        }
        {
            const std::lock_guard lock(mutex_);
            slot->done = true;
        }
        judged_.notify_one();
    }
}

} // namespace quillmark::web
