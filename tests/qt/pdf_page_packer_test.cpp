// Pages packed on a thread of their own reach the file whole and in the order they were finished,
// however far the layout runs ahead, and a job given up stops the thread.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "platform/pdf/pdf_page_packer.h"

namespace hlyd {
namespace {

TEST(PdfPagePacker, WritesEveryPageWholeAndInOrderAndHandsTheRoomBack) {
    std::vector<std::pair<std::uint32_t, std::string>> written;
    PdfPagePacker<std::string> packer([&](std::uint32_t object, std::string& content) {
        // A slow first page: the layout runs ahead until pages wait.
        if (written.empty()) std::this_thread::sleep_for(std::chrono::milliseconds(20));
        written.emplace_back(object, content);
    });
    std::string content;
    for (std::uint32_t page = 1; page <= 40; ++page) {
        content.assign(100 + page, static_cast<char>('a' + page % 26));
        packer.submit(page * 2, content);
        EXPECT_TRUE(content.empty()) << "page " << page;
    }
    packer.drain();
    ASSERT_EQ(written.size(), 40u);
    for (std::uint32_t page = 1; page <= 40; ++page) {
        EXPECT_EQ(written[page - 1].first, page * 2);
        EXPECT_EQ(written[page - 1].second, std::string(100 + page, static_cast<char>('a' + page % 26)));
    }
    // Drained, it starts again for the pages of a further document.
    content = "more";
    packer.submit(99, content);
    packer.drain();
    ASSERT_EQ(written.size(), 41u);
    EXPECT_EQ(written.back().second, "more");
}

// The thread is stopped while it writes and pages wait: it ends after the page in hand.
TEST(PdfPagePacker, AJobGivenUpStopsTheThreadWhilePagesWait) {
    std::atomic<int> written{0};
    {
        PdfPagePacker<std::string> packer([&](std::uint32_t, std::string&) {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            ++written;
        });
        std::string content;
        for (std::uint32_t page = 1; page <= PdfPagePacker<std::string>::kMostWaiting; ++page) {
            content = "page";
            packer.submit(page, content);
        }
    }
    EXPECT_LE(written.load(), static_cast<int>(PdfPagePacker<std::string>::kMostWaiting));
}

}  // namespace
}  // namespace hlyd
