#pragma once
// The pages of a PDF compressed and written on a thread of their own, in the order they were
// finished, while the next pages are laid out: deflating a page's content takes as long as laying
// the page out and writing its content, and a machine has a second core for it. Only a few pages
// wait at a time, so that a long listing holds no more than before in memory.
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace hlyd {

class PdfPagePacker {
public:
    // Called for each page's content, in order, on the packing thread (or on the caller's, where
    // no thread could be started); nothing else may write the file until drain() is back.
    using Sink = std::function<void(std::uint32_t object, const std::string& content)>;
    explicit PdfPagePacker(Sink sink) : sink_(std::move(sink)) {}
    // Stops the thread; contents not yet written are dropped (the file is abandoned then).
    ~PdfPagePacker();

    // Hands over the content of a page's stream object; `content` comes back empty, with room for
    // the next page's.
    void submit(std::uint32_t object, std::string& content);
    // Waits until every content handed over is written.
    void drain();

    static constexpr std::size_t kMostWaiting = 4;

private:
    struct Job {
        std::uint32_t object;
        std::string content;
    };
    void run();
    void stop(bool dropWaiting);

    Sink sink_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Job> waiting_;
    std::vector<std::string> spare_;  // emptied contents, their room kept for pages to come
    bool stopping_ = false, dropping_ = false, inline_ = false;
    std::thread thread_;
};

}  // namespace hlyd
