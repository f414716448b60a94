// The view's lines against the real fonts of this desktop: a line is as tall as its fonts draw,
// so that the next line's background never covers underscores and descenders.
#include <gtest/gtest.h>

#include <QImage>
#include <string>
#include <algorithm>
#include <tuple>

#include "display/font_metrics.h"
#include "display/screen_emitter.h"
#include "platform/qt/image_surface.h"
#include "settings/settings_store.h"
#include "test_support.h"

namespace hlyd {
namespace {

using FontAndSize = std::tuple<const char*, double>;

class ViewLinesTest : public test::ProgramTest, public ::testing::WithParamInterface<FontAndSize> {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        setDisplaySurface(&surface);
        displayAttributes().Format[kDisplay].ConnectControls = 0;
    }
    void TearDown() override {
        setDisplaySurface(nullptr);
        ProgramTest::TearDown();
    }
    // Every element of the screen in one font, as "Change All Fonts" sets them.
    static void allFonts(const std::string& name, double size) {
        for (int e = 1; e <= kElementCount; ++e) {
            AttributeRecord& a = displayAttributes().Elements[e].slot[kDisplay];
            a.FontName = a.Font.Name = name;
            a.Font.Size = size;
        }
        HlydDAValidateFonts();
    }
    QImage view(const std::string& name, const std::string& text) {
        showSource(name, text);
        std::int32_t first = 1;
        HlydDSEmitRequestedData(first);
        return surface.image().copy();
    }

    ImageSurface surface{QSize(400, 300)};
};

// Every pixel the first line inks alone is still inked with a second line below it.
TEST_P(ViewLinesTest, TheNextLineLeavesTheDescentsOfTheLineAbove) {
    auto [font, size] = GetParam();
    allFonts(font, size);
    const std::string line = "x_gjpqy = A_B_C ' _gjpqy\n";
    QImage alone = view("one.bas", line);
    QImage below = view("two.bas", line + line);
    QRgb background = alone.pixel(alone.width() - 1, alone.height() - 1);
    int inked = 0, lost = 0;
    for (int y = 0; y < alone.height(); ++y)
        for (int x = 0; x < alone.width(); ++x) {
            if (alone.pixel(x, y) == background) continue;
            ++inked;
            if (below.pixel(x, y) != alone.pixel(x, y)) ++lost;
        }
    EXPECT_GT(inked, 0);
    EXPECT_EQ(lost, 0);
}

INSTANTIATE_TEST_SUITE_P(Fonts, ViewLinesTest,
                         ::testing::Values(FontAndSize{"DejaVu Sans Mono", 11}, FontAndSize{"DejaVu Sans Mono", 12},
                                           FontAndSize{"DejaVu Sans Mono", 14}, FontAndSize{"DejaVu Sans Mono", 15},
                                           FontAndSize{"DejaVu Sans Mono", 16}, FontAndSize{"DejaVu Sans Mono", 20},
                                           FontAndSize{"DejaVu Serif", 18}, FontAndSize{"Courier New", 12},
                                           FontAndSize{"Liberation Mono", 13}, FontAndSize{"Arial", 11},
                                           FontAndSize{"Noto Sans Mono", 9}),
                         [](const ::testing::TestParamInfo<FontAndSize>& info) {
                             std::string name = std::get<0>(info.param);
                             std::erase(name, ' ');
                             return name + "_" + std::to_string(static_cast<int>(std::get<1>(info.param)));
                         });

}  // namespace
}  // namespace hlyd
