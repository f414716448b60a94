#include "platform/qt/pdf_page_packer.h"

#include <system_error>

namespace hlyd {

PdfPagePacker::~PdfPagePacker() { stop(true); }

void PdfPagePacker::submit(std::uint32_t object, std::string& content) {
    if (!thread_.joinable() && !inline_) {
        try {
            thread_ = std::thread([this] { run(); });
        } catch (const std::system_error&) {
            inline_ = true;  // no thread to be had: each page is written as it is handed over
        }
    }
    if (inline_) {
        sink_(object, content);
        content.clear();
        return;
    }
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return waiting_.size() < kMostWaiting; });
    waiting_.push_back({object, std::move(content)});
    content.clear();
    if (!spare_.empty()) {
        content = std::move(spare_.back());
        spare_.pop_back();
    }
    changed_.notify_all();
}

void PdfPagePacker::run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return !waiting_.empty() || stopping_; });
        if (waiting_.empty() || dropping_) return;
        Job job = std::move(waiting_.front());
        waiting_.pop_front();
        lock.unlock();
        sink_(job.object, job.content);
        job.content.clear();
        lock.lock();
        spare_.push_back(std::move(job.content));
        changed_.notify_all();
    }
}

void PdfPagePacker::drain() { stop(false); }

void PdfPagePacker::stop(bool dropWaiting) {
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

}  // namespace hlyd
