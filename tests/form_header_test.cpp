// The description of a form: every property is named alike, whether or not the language has the
// word as a keyword of its own.
#include "test_support.h"

namespace hlyd {
namespace {

class FormHeaderTest : public test::AnalysisTest {};

TEST_F(FormHeaderTest, PropertyNamesAreNamesNotKeywords) {
    analyze("VERSION 5.00\nBegin VB.Form F\nName = \"F\"\nLeft = 60\nWidth = 4800\nHeight = 3600\n"
            "Caption = \"Left\"\nEnd\nAttribute VB_Name = \"F\"\nPrivate Sub Form_Load()\nLeft = 0\nEnd Sub\n");
    for (const char* property : {"Name", "Left", "Width", "Height", "Caption"}) {
        std::int32_t t = find(property);
        ASSERT_NE(t, 0) << property;
        EXPECT_EQ(token(t).Class, TokenClass::Identifier) << property;
    }
    // In code the words are what the language makes them.
    std::int32_t inCode = 0;
    for (std::int32_t i = 1; i <= tables().TokenCount; ++i)
        if (token(i).text() == "Left") inCode = i;
    EXPECT_EQ(token(inCode).Class, TokenClass::Keyword);
}

}  // namespace
}  // namespace hlyd
