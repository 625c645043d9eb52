#pragma once

#include "web/judge/JudgedPage.h"
#include "web/judge/PageJudge.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace quillmark::web {

/// Has pages judged by several threads and hands them out in the order in which they were added,
/// whatever the order in which the threads end. Without threads take() judges.
class PageQueue {
public:
    PageQueue(const JudgeContext& context, unsigned threads);
    ~PageQueue();
    PageQueue(const PageQueue&) = delete;
    PageQueue& operator=(const PageQueue&) = delete;

    void add(PageTask task);
    bool empty() const { return waiting_.empty(); }
    /// The page that was added first. It may be changed, and holds until the next call.
    /// Throws what its judge threw.
    const JudgedPage& take();

private:
    struct Slot {
        PageTask task;
        std::unique_ptr<JudgedPage> page;
        std::exception_ptr failure;
        bool done = false;
    };

    void work();
    Slot* nextSlot();
    std::unique_ptr<JudgedPage> freePage();

    const JudgeContext& context_;
    PageJudge ownJudge_;
    std::mutex mutex_;
    std::condition_variable changed_; ///< A page was added or taken, or the queue ends.
    std::condition_variable judged_;
    std::deque<std::unique_ptr<Slot>> waiting_; ///< In order; the first `begun_` are being judged.
    std::size_t begun_ = 0;
    std::vector<std::unique_ptr<JudgedPage>> free_;
    std::unique_ptr<JudgedPage> taken_;
    bool ending_ = false;
    std::vector<std::thread> threads_;
};

} // namespace quillmark::web
