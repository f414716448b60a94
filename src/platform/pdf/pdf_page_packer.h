#pragma once
// The pages of a PDF written out and compressed on a thread of their own, in the order they were
// finished, while the next pages are laid out: turning a page into its content and deflating that
// takes nearly as long as laying the page out, and a machine has a second core for it. Only a few
// pages wait at a time, so that a long listing holds no more than before in memory.
//
// `Page` is what a page is handed over as: movable, with clear() and empty(); its room is kept for
// the pages to come.
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace hlyd {

template <class Page>
class PdfPagePacker {
public:
    // Called for each page, in order, on the packing thread (or on the caller's, where no thread
    // could be started); nothing else may write the file until drain() is back.
    using Sink = std::function<void(std::uint32_t object, Page& page)>;
    explicit PdfPagePacker(Sink sink) : sink_(std::move(sink)) {}
    // Stops the thread; pages not yet written are dropped (the file is abandoned then).
    ~PdfPagePacker() { stop(true); }

    // Hands over a page for its stream object; `page` comes back empty, with room for the next.
    void submit(std::uint32_t object, Page& page) {
        if (!thread_.joinable() && !inline_) {
            try {
                thread_ = std::thread([this] { run(); });
            } catch (const std::system_error&) {
                inline_ = true;  // no thread to be had: each page is written as it is handed over
            }
        }
        if (inline_) {
            sink_(object, page);
            page.clear();
            return;
        }
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return waiting_.size() < kMostWaiting; });
        waiting_.push_back({object, std::move(page)});
        page.clear();
        if (!spare_.empty()) {
            page = std::move(spare_.back());
            spare_.pop_back();
        }
        changed_.notify_all();
    }
    // Waits until every page handed over is written.
    void drain() { stop(false); }

    static constexpr std::size_t kMostWaiting = 4;

private:
    struct Job {
        std::uint32_t object;
        Page page;
    };

    void run() {
        std::unique_lock lock(mutex_);
        for (;;) {
            changed_.wait(lock, [this] { return !waiting_.empty() || stopping_; });
            if (waiting_.empty() || dropping_) return;
            Job job = std::move(waiting_.front());
            waiting_.pop_front();
            lock.unlock();
            sink_(job.object, job.page);
            job.page.clear();
            lock.lock();
            spare_.push_back(std::move(job.page));
            changed_.notify_all();
        }
    }

    void stop(bool dropWaiting) {
        if (!thread_.joinable()) return;
        {
            std::lock_guard lock(mutex_);
            stopping_ = true;
            dropping_ = dropWaiting;
        }
        changed_.notify_all();
        thread_.join();
        stopping_ = dropping_ = false;
        waiting_.clear();
    }

    Sink sink_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Job> waiting_;
    std::vector<Page> spare_;  // emptied pages, their room kept for pages to come
    bool stopping_ = false, dropping_ = false, inline_ = false;
    std::thread thread_;
};

}  // namespace hlyd
