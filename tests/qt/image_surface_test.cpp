// The hidden picture against the real fonts of this desktop: twips through the screen's DPI,
// classic font names, measuring and drawing.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QPalette>

#include "platform/qt/classic_colour.h"
#include "platform/qt/classic_fonts.h"
#include "platform/qt/image_surface.h"
#include "platform/qt/screen_metrics.h"

namespace hlyd {
namespace {

QColor pixelAt(ImageSurface& s, float xTwips, float yTwips) {
    return s.image().pixelColor(static_cast<int>(xTwips / s.twipsPerPixelX()),
                                static_cast<int>(yTwips / s.twipsPerPixelY()));
}

TEST(ImageSurface, TwipsFollowTheScreensDpi) {
    int tpp = screenTwipsPerPixelX();
    EXPECT_EQ(tpp, static_cast<int>(std::lround(1440.0 / screenLogicalDpiX())));
    ImageSurface s(QSize(200, 100));
    EXPECT_EQ(s.width(), 200.0f * tpp);
    EXPECT_EQ(s.height(), 100.0f * s.twipsPerPixelY());
    EXPECT_EQ(s.scaleWidth(), s.width());
    // A surface for a fixed resolution measures a point as that resolution has it.
    ImageSurface fine(QSize(10, 10), 10, 10);
    fine.setFontName("Courier New");
    fine.setFontSize(12);
    ImageSurface coarse(QSize(10, 10), 20, 20);
    coarse.setFontName("Courier New");
    coarse.setFontSize(12);
    EXPECT_NEAR(fine.textWidth(std::string(100, 'X')), coarse.textWidth(std::string(100, 'X')), 300.0f);
}

TEST(ImageSurface, ClassicNamesReadBackWhenAStandInIsInstalled) {
    ImageSurface s;
    for (const char* classic : {"Courier New", "Arial", "Times New Roman", "MS Sans Serif"}) {
        s.setFontName(classic);
        EXPECT_EQ(s.fontName(), classic);
    }
    s.setFontName("courier new");
    EXPECT_EQ(s.fontName(), "Courier New");
    // Courier New is fixed pitch, as its stand-in must be.
    s.setFontName("Courier New");
    EXPECT_EQ(s.textWidth("iiii"), s.textWidth("WWWW"));
}

TEST(ImageSurface, AnUnknownNameReadsBackTheFontOfLastResort) {
    ImageSurface s;
    s.setFontName("No Such Font 9000");
    EXPECT_NE(s.fontName(), "No Such Font 9000");
    std::vector<std::string> fonts = s.fonts();
    ASSERT_FALSE(fonts.empty());
    EXPECT_EQ(s.fontName(), fonts.front());
    // The font of last resort is itself available: written back, it reads the same.
    s.setFontName(fonts.front());
    EXPECT_EQ(s.fontName(), fonts.front());
    EXPECT_EQ(s.textWidth("ii"), s.textWidth("WW"));
}

TEST(ImageSurface, MeasuresLinesAndMovesThePenAsPrinted) {
    ImageSurface s(QSize(400, 200));
    s.setFontName("Arial");
    s.setFontSize(10);
    float one = s.textHeight("X");
    EXPECT_GT(one, 0.0f);
    EXPECT_FLOAT_EQ(s.textHeight("X\r\nX\r\nX\r\nX\r\nX"), 5 * one);
    EXPECT_FLOAT_EQ(s.textHeight("X\nX"), one);  // only CR LF starts a line
    s.setCurrentX(150);
    s.setCurrentY(300);
    float width = s.textWidth("Dim i As Long");
    s.print("Dim i As Long");
    EXPECT_FLOAT_EQ(s.currentX(), 150 + width);
    EXPECT_FLOAT_EQ(s.currentY(), 300);
    s.setFontSize(20);
    EXPECT_GT(s.textWidth("Dim i As Long"), width * 1.8f);
}

TEST(ImageSurface, DrawsBoxesLinesAndTextInClassicColours) {
    ImageSurface s(QSize(300, 200));
    int tx = s.twipsPerPixelX(), ty = s.twipsPerPixelY();
    s.filledBox(10 * tx, 10 * ty, 50 * tx, 30 * ty, 0x0000FF);  // red in 0x00BBGGRR
    EXPECT_EQ(pixelAt(s, 20 * tx, 20 * ty), QColor(255, 0, 0));
    EXPECT_EQ(s.currentX(), 50 * tx);
    s.setDrawWidth(5);
    s.line(0, 100 * ty, 299 * tx, 100 * ty, 0xFF0000);  // blue
    EXPECT_EQ(pixelAt(s, 150 * tx, 101 * ty), QColor(0, 0, 255));
    EXPECT_EQ(s.currentY(), 100 * ty);
    s.setDrawWidth(1);
    s.setForeColor(0x008000);
    s.setFontSize(24);
    s.setCurrentX(60 * tx);
    s.setCurrentY(40 * ty);
    s.print("WWW");
    QImage picture = s.image();
    bool green = false;
    for (int y = 40; y < 80 && !green; ++y)
        for (int x = 60; x < 120 && !green; ++x) green = picture.pixelColor(x, y) == QColor(0, 128, 0);
    EXPECT_TRUE(green);
    s.cls();
    EXPECT_EQ(s.currentX(), 0);
    EXPECT_EQ(pixelAt(s, 20 * tx, 20 * ty), QGuiApplication::palette().color(QPalette::Base));
}

TEST(ClassicColour, SystemColoursComeFromThePalette) {
    QPalette palette = QGuiApplication::palette();
    EXPECT_EQ(classicColour(0x80000005u), palette.color(QPalette::Base));
    EXPECT_EQ(classicColour(0x80000008u), palette.color(QPalette::Text));
    EXPECT_EQ(classicColour(0x00123456u), QColor(0x56, 0x34, 0x12));
}

}  // namespace
}  // namespace hlyd
