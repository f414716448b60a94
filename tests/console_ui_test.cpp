// Message boxes in a run without a window: nobody can answer, so the answer must end the question.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "platform/console_ui.h"

namespace hlyd {
namespace {

std::string answerAndNote(const MessageBoxRequest& request, MsgAnswer& answer) {
    std::FILE* note = std::tmpfile();
    answer = windowlessAnswer(request, note);
    std::rewind(note);
    char text[128] = {};
    std::size_t size = std::fread(text, 1, sizeof text - 1, note);
    std::fclose(note);
    return std::string(text, size);
}

TEST(ConsoleUiTest, RetryIsNeverTheAnswerAndEveryChoiceIsTold) {
    MsgAnswer answer{};
    EXPECT_EQ(answerAndNote({"x", "", MsgButtons::RetryCancel, MsgIcon::Warning, 1}, answer),
              "(no window to ask: answered Cancel)\n");
    EXPECT_EQ(answer, MsgAnswer::Cancel);
    answerAndNote({"x", "", MsgButtons::AbortRetryIgnore, MsgIcon::Warning, 2}, answer);
    EXPECT_EQ(answer, MsgAnswer::Abort);
    EXPECT_EQ(answerAndNote({"x", "", MsgButtons::YesNo, MsgIcon::Question, 2}, answer),
              "(no window to ask: answered No)\n");
    EXPECT_EQ(answer, MsgAnswer::No);
    EXPECT_EQ(answerAndNote({"x", "", MsgButtons::OK, MsgIcon::None, 1}, answer), "");
    EXPECT_EQ(answer, MsgAnswer::OK);
}

}  // namespace
}  // namespace hlyd
