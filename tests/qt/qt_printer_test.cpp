// The desktop's printers: the PDF printer writes real files that the poppler tools read back, and
// the pages, documents and jobs behave as the port says.
#include <gtest/gtest.h>

#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include <QFontDatabase>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPrinter>

#include "platform/os.h"
#include "platform/qt/qt_printer_adapter.h"
#include "platform/qt/qt_printer_system.h"
#include "test_support.h"

namespace hlyd {
namespace {

namespace fs = std::filesystem;

using test::run;

bool haveTool(const char* tool) {
    return std::system((std::string("command -v ") + tool + " >/dev/null 2>&1").c_str()) == 0;
}

#define NEED_POPPLER()                                   \
    if (!haveTool("pdftotext") || !haveTool("pdffonts")) \
    GTEST_SKIP() << "poppler-utils (pdftotext, pdffonts) is not installed: the PDF cannot be read back"

std::string slurp(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

// The words of the text with one blank between them.
std::string squeezed(const std::string& text) {
    std::string out;
    std::istringstream words(text);
    for (std::string w; words >> w;) out += (out.empty() ? "" : " ") + w;
    return out;
}

// The lines of the text with runs of blanks made one and the ends trimmed; pages split at form feeds.
std::vector<std::vector<std::string>> pagesOf(const std::string& text) {
    std::vector<std::vector<std::string>> pages(1);
    std::string line;
    auto endLine = [&] {
        if (std::string words = squeezed(line); !words.empty()) pages.back().push_back(words);
        line.clear();
    };
    for (char c : text) {
        if (c == '\n') endLine();
        else if (c == '\f') endLine(), pages.emplace_back();
        else line += c;
    }
    endLine();
    if (pages.back().empty()) pages.pop_back();
    return pages;
}

std::vector<std::string> filesIn(const std::string& dir) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(dir)) names.push_back(entry.path().filename().string());
    return names;
}

class QtPrinterTest : public test::ConfigDirTest {
protected:
    // Prints `lines` lines as a listing does: tokens in two fonts and colours, the pen moved
    // between them.
    void printLines(QtPrinter& p, const std::vector<std::string>& lines) {
        float y = 0;
        for (const std::string& text : lines) {
            p.setCurrentY(y);
            p.setCurrentX(360);
            std::istringstream words(text);
            bool first = true;
            for (std::string w; words >> w; first = false) {
                if (!first) p.setCurrentX(p.currentX() + p.textWidth(" "));
                bool keyword = w == "Dim" || w == "As" || w == "End";
                p.setFontName(keyword ? "Arial" : "Courier New");
                p.setFontBold(keyword);
                p.setForeColor(keyword ? 0x00800000u : 0);
                p.print(w);
            }
            y += p.textHeight("X");
        }
    }
    // Prints `lines` one under the other from `y` on, in the printer's font as it stands.
    void printLinesAt(QtPrinter& p, float& y, const std::vector<std::string>& lines) {
        for (const std::string& text : lines) {
            p.setCurrentY(y);
            p.setCurrentX(360);
            p.print(text);
            y += p.textHeight("X");
        }
    }
    std::string pdf(const std::string& name) { return dir + "/" + name; }
};

TEST_F(QtPrinterTest, APdfJobHoldsItsPagesAsTextInEmbeddedFonts) {
    NEED_POPPLER();
    QtPrinter p;
    p.beginJob(pdf("listing.pdf"));
    printLines(p, {"Dim total As Long", "total = total + 1"});
    ASSERT_EQ(p.setJobProperty(JobProperty::Orientation, 2), 0);  // for the pages to come
    p.newPage();
    printLines(p, {"End Sub"});
    p.endDoc();
    printLines(p, {"Dim caf\xe9 As String"});  // the second document, in Windows-1252
    ASSERT_TRUE(p.endJob(true)) << p.jobError();
    EXPECT_EQ(p.pagesDelivered(), 3);
    // The first page's text, without its blanks, counted before the page was handed to the writer.
    EXPECT_EQ(p.largestPageText(), std::string("DimtotalAsLongtotal=total+1").size());

    auto pages = pagesOf(run("pdftotext -layout '" + pdf("listing.pdf") + "' -"));
    ASSERT_EQ(pages.size(), 3u);
    EXPECT_EQ(pages[0], (std::vector<std::string>{"Dim total As Long", "total = total + 1"}));
    EXPECT_EQ(pages[1], (std::vector<std::string>{"End Sub"}));
    EXPECT_EQ(pages[2], (std::vector<std::string>{"Dim caf\xc3\xa9 As String"}));
    std::string info = squeezed(run("pdfinfo -f 1 -l 3 '" + pdf("listing.pdf") + "'"));
    EXPECT_NE(info.find("Page 1 size: 612 x 792"), std::string::npos) << info;
    EXPECT_NE(info.find("Page 2 size: 792 x 612"), std::string::npos) << info;

    std::istringstream fonts(run("pdffonts '" + pdf("listing.pdf") + "'"));
    std::string row;
    int fontRows = 0;
    for (int n = 0; std::getline(fonts, row); ++n) {
        if (n < 2 || row.empty()) continue;  // the heading and its rule
        ++fontRows;
        EXPECT_NE(row.find(" yes "), std::string::npos) << "not embedded: " << row;
        EXPECT_NE(row.find('+'), std::string::npos) << "not a subset: " << row;
    }
    EXPECT_GE(fontRows, 2);
    // Only the glyphs used go in: any one of these fonts whole is larger than the file.
    EXPECT_LT(fs::file_size(pdf("listing.pdf")), 100u * 1024);
}

// The pages are turned into PDF on a thread of their own while the next ones are laid out: a face
// first drawn many pages on, while earlier pages still wait, and characters drawn on one page only
// must still reach the file's fonts, and each page its own text.
TEST_F(QtPrinterTest, FacesAndCharactersFirstDrawnOnLaterPagesReachTheFonts) {
    NEED_POPPLER();
    const char* families[] = {"Courier New", "Arial", "Times New Roman"};
    constexpr int kPages = 15;
    QtPrinter p;
    p.beginJob(pdf("late.pdf"));
    std::vector<std::string> expected;
    for (int page = 0; page < kPages; ++page) {
        if (page > 0) p.newPage();
        p.setFontName(families[page % 3]);
        p.setFontBold(page / 3 % 2 == 1);
        p.setFontItalic(page / 6 % 2 == 1);
        p.setFontSize(9 + page / 3);
        std::string word(3, static_cast<char>('A' + page));
        word += std::string(2, static_cast<char>('a' + page));
        p.setCurrentX(360);
        p.setCurrentY(360);
        p.print(word);
        expected.push_back(word);
    }
    ASSERT_TRUE(p.endJob(true)) << p.jobError();

    auto pages = pagesOf(run("pdftotext -layout '" + pdf("late.pdf") + "' -"));
    ASSERT_EQ(pages.size(), static_cast<std::size_t>(kPages));
    for (int page = 0; page < kPages; ++page)
        EXPECT_EQ(pages[static_cast<std::size_t>(page)], std::vector<std::string>{expected[page]}) << "page " << page;
    std::string fonts = run("pdffonts '" + pdf("late.pdf") + "'");
    for (const char* style : {"Bold", "Italic"}) EXPECT_NE(fonts.find(style), std::string::npos) << fonts;
}

// A mark of the layout (a wrap's "»") is drawn as an artifact, which a reader leaves out of the
// text it copies; the text around it stays text, and a control character's "^A" copies out as
// the byte it stands for.
TEST_F(QtPrinterTest, AMarkIsAnArtifactOfThePage) {
    if (!haveTool("qpdf")) GTEST_SKIP() << "qpdf is not installed: the page's content cannot be read back";
    QtPrinter p;
    p.beginJob(pdf("mark.pdf"));
    float y = 0;
    printLinesAt(p, y, {"x = 1 +"});
    p.setCurrentX(360);
    p.printMark("\xBB");
    p.print(" 2 & \"a");
    p.printStandingFor("^A", "\x01");  // a control character, shown in caret notation
    p.print("\"");
    ASSERT_TRUE(p.endJob(true)) << p.jobError();
    EXPECT_NE(run("pdftotext '" + pdf("mark.pdf") + "' -").find("\"a\x01\""), std::string::npos);
    std::string content = run("qpdf --qdf --object-streams=disable '" + pdf("mark.pdf") + "' -");
    std::size_t begin = content.find("/Artifact BMC");
    ASSERT_NE(begin, std::string::npos);
    std::size_t end = content.find("EMC", begin);
    ASSERT_NE(end, std::string::npos);
    std::string marked = content.substr(begin, end - begin);
    EXPECT_EQ(std::count(marked.begin(), marked.end(), '<'), 1) << marked;  // one glyph run: the mark's
    EXPECT_EQ(content.find("/Artifact BMC", end), std::string::npos);
}

// The words of the first page as `pdftotext -bbox` gives them, in points from the sheet's top left.
struct Word {
    std::string text;
    double x0, y0, x1;
};
std::vector<Word> wordsOf(const std::string& path) {
    std::vector<Word> words;
    std::istringstream lines(run("pdftotext -f 1 -l 1 -bbox '" + path + "' -"));
    for (std::string line; std::getline(lines, line);) {
        double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
        char text[256] = {};
        if (std::sscanf(line.c_str(), " <word xMin=\"%lf\" yMin=\"%lf\" xMax=\"%lf\" yMax=\"%lf\">%255[^<]", &x0, &y0,
                        &x1, &y1, text) == 5)
            words.push_back({text, x0, y0, x1});
    }
    return words;
}

// The page's text goes out as one run, each token placed by its distance from the one before:
// every word still stands where it was printed, to a hundredth of a point, across changes of font,
// colour and line, a drawing between them, and a token that goes on where the last one ended. The
// glyph codes are bytes in literal strings, so every printable character must read back as itself,
// those whose codes are a parenthesis, a backslash or a carriage return among them.
TEST_F(QtPrinterTest, EveryWordStandsWhereItWasPrintedAndReadsBack) {
    NEED_POPPLER();
    QtPrinter p;
    p.beginJob(pdf("places.pdf"));
    struct Token {
        const char* font;
        bool bold;
        std::uint32_t colour;
        float x;  // twips from the printable area's left; below zero: where the last token ended
        const char* text;
    };
    const std::vector<std::vector<Token>> lines = {
            {{"Courier New", true, 0x800000, 360, "Dim"},
             {"Courier New", false, 0, 1003.5f, "total"},
             {"Courier New", true, 0x800000, 1877, "As"},
             {"Courier New", true, 0x800000, 2317, "Long"}},
            {{"Courier New", false, 0, 727, "Call"},
             {"Arial", false, 0x008000, 1500.25f, "Foo"},
             {"Courier New", true, 0x800000, -1, "("},
             {"Courier New", false, 0, 3333, "x"}},
            {{"Arial", false, 0, 5, "End"}, {"Courier New", false, 0x008000, 9000, "Sub"}},
    };
    struct Placed {
        std::string text;
        double x0, x1, top;  // points from the sheet's edge
    };
    std::vector<Placed> placed;
    float y = 0;
    const float lineHeight = p.textHeight("X");
    auto points = [](float twips) { return 18 + twips / 20.0; };
    for (const auto& tokens : lines) {
        for (const Token& t : tokens) {
            p.setFontName(t.font);
            p.setFontBold(t.bold);
            p.setForeColor(t.colour);
            p.setCurrentY(y);
            if (t.x >= 0) p.setCurrentX(t.x);
            float x0 = p.currentX();
            p.print(t.text);
            placed.push_back({t.text, points(x0), points(p.currentX()), points(y)});
        }
        p.line(0, y + lineHeight, 3000, y + lineHeight, 0xFF);
        y += 2 * lineHeight;
    }
    std::string printable;
    for (int c = 0x21; c < 0x7F; ++c) printable += static_cast<char>(c);
    for (const char* font : {"Courier New", "Arial"}) {
        p.setFontName(font);
        p.setCurrentX(360);
        p.setCurrentY(y += lineHeight);
        p.print(printable);
    }
    ASSERT_TRUE(p.endJob(true)) << p.jobError();

    // pdftotext may join a token to the one it goes on from: then the word ends where it should.
    std::vector<Word> words = wordsOf(pdf("places.pdf"));
    for (const Placed& token : placed) {
        auto word = std::find_if(words.begin(), words.end(), [&](const Word& w) { return w.text == token.text; });
        if (word != words.end()) {
            EXPECT_NEAR(word->x0, token.x0, 0.01) << token.text;
        } else {
            word = std::find_if(words.begin(), words.end(), [&](const Word& w) {
                return w.text.size() > token.text.size() && w.text.ends_with(token.text);
            });
            ASSERT_NE(word, words.end()) << token.text;
        }
        EXPECT_NEAR(word->x1, token.x1, 0.01) << token.text;
        EXPECT_GE(word->y0, token.top - 1) << token.text;
        EXPECT_LE(word->y0, token.top + lineHeight / 20.0) << token.text;
    }
    // A text object from drawing to drawing, and a font set only when it changes (ten times).
    if (haveTool("qpdf")) {
        std::string content = run("qpdf --qdf --object-streams=disable '" + pdf("places.pdf") + "' -");
        auto count = [&](const std::string& what) {
            std::size_t n = 0;
            for (std::size_t at = content.find(what); at != std::string::npos; at = content.find(what, at + 1)) ++n;
            return n;
        };
        EXPECT_EQ(count("\nBT\n"), 4u);
        EXPECT_EQ(count(" Tf\n"), 10u);
    }
    std::string text = run("pdftotext '" + pdf("places.pdf") + "' -");
    std::size_t first = text.find(printable);
    ASSERT_NE(first, std::string::npos) << text;
    EXPECT_NE(text.find(printable, first + 1), std::string::npos) << text;
}

// A listing places a line's tokens a few blanks apart, a blank being whole twips wide, so a hair
// off the face's own: each token goes on in the string before it after blank glyphs, in whatever
// font and colour, and each line that starts below the last at its indentation takes a bare T*.
// Every word still stands where it was printed, and reads back with one blank between words.
// Each glyph's code is the character's byte, so the content holds the text as it was printed.
TEST_F(QtPrinterTest, TokensABlankApartGoOnInOneStringAndLinesMoveByTheLeading) {
    NEED_POPPLER();
    if (!haveTool("qpdf")) GTEST_SKIP() << "qpdf is not installed: the page's content cannot be read back";
    QtPrinter p;
    p.beginJob(pdf("blanks.pdf"));
    p.setFontName("Courier New");
    const float blank = std::round(p.textWidth(std::string(100, ' ')) / 100);
    const float lineHeight = p.textHeight("X");
    struct Token {
        bool bold;
        std::uint32_t colour;
        int blanksBefore;
        const char* text;
    };
    const std::vector<Token> tokens = {
            {true, 0x800000, 0, "Dim"}, {false, 0, 1, "total"}, {true, 0x800000, 1, "As"}, {true, 0x800000, 2, "Long"}};
    struct Placed {
        std::string text;
        double x0, top;  // points from the sheet's edge
    };
    std::vector<Placed> placed;
    auto points = [](float twips) { return 18 + twips / 20.0; };
    for (int line = 0; line < 3; ++line) {
        float y = static_cast<float>(line) * lineHeight;
        p.setCurrentX(360);
        for (const Token& t : tokens) {
            p.setFontBold(t.bold);
            p.setForeColor(t.colour);
            p.setCurrentX(p.currentX() + static_cast<float>(t.blanksBefore) * blank);
            p.setCurrentY(y);
            placed.push_back({t.text, points(p.currentX()), points(y)});
            p.print(t.text);
        }
    }
    ASSERT_TRUE(p.endJob(true)) << p.jobError();

    std::vector<Word> words = wordsOf(pdf("blanks.pdf"));
    std::sort(words.begin(), words.end(), [](const Word& a, const Word& b) {
        return std::make_pair(std::round(a.y0), a.x0) < std::make_pair(std::round(b.y0), b.x0);
    });
    ASSERT_EQ(words.size(), placed.size());
    for (std::size_t i = 0; i < placed.size(); ++i) {
        EXPECT_EQ(words[i].text, placed[i].text);
        EXPECT_NEAR(words[i].x0, placed[i].x0, 0.01) << placed[i].text;
        EXPECT_GE(words[i].y0, placed[i].top - 1) << placed[i].text;
    }
    std::string content = run("qpdf --qdf --object-streams=disable '" + pdf("blanks.pdf") + "' -");
    auto count = [&](const std::string& what) {
        std::size_t n = 0;
        for (std::size_t at = content.find(what); at != std::string::npos; at = content.find(what, at + 1)) ++n;
        return n;
    };
    EXPECT_EQ(count(" Td\n"), 0u);
    EXPECT_EQ(count(" TD\n"), 1u);  // to the second line, setting the leading
    EXPECT_EQ(count("T*\n"), 1u);
    // The codes are the text's own bytes: a token of one font and colour reads as itself.
    EXPECT_EQ(count("(As  Long)Tj\n"), 3u);
    EXPECT_EQ(pagesOf(run("pdftotext -layout '" + pdf("blanks.pdf") + "' -"))[0],
              std::vector<std::string>(3, "Dim total As Long"));
}

// The pixels darker than mid-grey in a grey PGM image.
int darkPixels(const std::string& pgm) {
    std::istringstream in(pgm);
    std::string magic;
    int width = 0, height = 0, maximum = 0;
    in >> magic >> width >> height >> maximum;
    in.get();
    int dark = 0;
    for (int n = 0; n < width * height && in; ++n) dark += in.get() < maximum / 2 ? 1 : 0;
    return dark;
}

// A face without TrueType outlines, CFF or Type 1, is seen on the page: poppler reads its font
// without a complaint, draws the text and gives it back.
TEST_F(QtPrinterTest, FacesWithoutTrueTypeOutlinesAreDrawnAndRead) {
    NEED_POPPLER();
    if (!haveTool("pdftoppm")) GTEST_SKIP() << "pdftoppm is not installed";
    // Each foundry of a family may be another file: here the Type 1 and the OpenType CFF one.
    QStringList families;
    for (const QString& family : QFontDatabase::families())
        if (family.startsWith("C059") || family.startsWith("Nimbus Mono PS")) families.append(family);
    if (families.isEmpty()) GTEST_SKIP() << "fonts-urw-base35 is not installed: no face without TrueType outlines";
    for (const QString& name : families) {
        const std::string family = name.toStdString();
        SCOPED_TRACE(family);
        QtPrinter p;
        p.beginJob(pdf("face.pdf"));
        p.setFontName(family);
        p.setFontSize(20);
        float y = 0;
        printLinesAt(p, y, {"Dim caf\xe9 As String", "total = total + 1"});
        p.setFontItalic(true);
        printLinesAt(p, y, {"' italic \x80 \x93quoted\x94"});
        ASSERT_TRUE(p.endJob(true)) << p.jobError();

        std::string complaints =
                run("pdftoppm -r 72 -gray -singlefile '" + pdf("face.pdf") + "' '" + pdf("page") + "' 2>&1");
        EXPECT_EQ(complaints, "");
        EXPECT_GT(darkPixels(slurp(pdf("page.pgm"))), 400);
        auto pages = pagesOf(run("pdftotext -layout '" + pdf("face.pdf") + "' - 2>&1"));
        ASSERT_EQ(pages.size(), 1u);
        EXPECT_EQ(pages[0], (std::vector<std::string>{"Dim caf\xc3\xa9 As String", "total = total + 1",
                                                      "' italic \xe2\x82\xac \xe2\x80\x9cquoted\xe2\x80\x9d"}));
        std::string fonts = run("pdffonts '" + pdf("face.pdf") + "' 2>&1");
        EXPECT_EQ(fonts.find("TrueType"), std::string::npos) << fonts;
        EXPECT_EQ(fonts.find("Error"), std::string::npos) << fonts;
    }
}

TEST_F(QtPrinterTest, KillDocDropsThePageNotYetFinishedAndTheJobGoesOn) {
    NEED_POPPLER();
    QtPrinter p;
    p.beginJob(pdf("killed.pdf"));
    printLines(p, {"first document"});
    p.endDoc();
    printLines(p, {"delivered page"});
    p.newPage();
    EXPECT_EQ(p.page(), 2);
    printLines(p, {"never on paper"});
    p.killDoc();
    EXPECT_EQ(p.page(), 1);
    printLines(p, {"third document"});
    ASSERT_TRUE(p.endJob(true)) << p.jobError();

    auto pages = pagesOf(run("pdftotext -layout '" + pdf("killed.pdf") + "' -"));
    ASSERT_EQ(pages.size(), 3u);
    EXPECT_EQ(pages[0].at(0), "first document");
    EXPECT_EQ(pages[1].at(0), "delivered page");
    EXPECT_EQ(pages[2].at(0), "third document");
}

// The numbers a viewer shows go on from page to page while they go on in print, start again where
// they do, and are Roman on contents pages; places and links go with their page, a killed page's
// too, and a link to a place never named is left out.
TEST_F(QtPrinterTest, APdfJobKeepsThePagesNumbersPlacesAndLinks) {
    if (!haveTool("qpdf")) GTEST_SKIP() << "qpdf is not installed: the outline cannot be read back";
    QtPrinter p;
    p.beginJob(pdf("marks.pdf"));
    auto page = [&](std::int32_t number, int kind, const std::string& text) {
        p.setPageLabel(number, kind);
        printLines(p, {text});
    };
    page(1, 1, "code one");
    p.nameDestination("a", 0, "A.bas", 0);
    p.linkTo(360, 0, 2000, 300, "b");
    p.linkTo(360, 300, 2000, 600, "nowhere");
    p.newPage();
    page(2, 1, "code two");
    p.nameDestination("b", 1440, "Caf\xE9", 1);
    p.newPage();
    page(1, 3, "contents one");
    p.linkTo(360, 0, 2000, 300, "a");
    p.newPage();
    page(2, 3, "contents two");
    p.newPage();
    page(7, 1, "code seven");
    p.newPage();
    page(8, 1, "never on paper");
    p.nameDestination("killed", 0, "Killed", 0);
    p.linkTo(360, 0, 2000, 300, "a");
    p.killDoc();
    page(0, 3, "contents without a numeral");
    ASSERT_TRUE(p.endJob(true)) << p.jobError();

    QJsonObject json =
            QJsonDocument::fromJson(QByteArray::fromStdString(run("qpdf --json '" + pdf("marks.pdf") + "'"))).object();
    std::string labels;
    for (const QJsonValue& range : json["pagelabels"].toArray()) {
        QJsonObject label = range.toObject()["label"].toObject();
        labels += std::to_string(range.toObject()["index"].toInt()) + ":" +
                  (label.contains("/S") ? label["/S"].toString().toStdString() + std::to_string(label["/St"].toInt())
                                        : std::string("none")) +
                  " ";
    }
    EXPECT_EQ(labels, "0:/D1 2:/r1 4:/D7 5:none ");

    QJsonArray outline = json["outlines"].toArray();
    ASSERT_EQ(outline.size(), 1);
    QJsonObject file = outline[0].toObject();
    EXPECT_EQ(file["title"].toString(), "A.bas");
    EXPECT_EQ(file["destpageposfrom1"].toInt(), 1);
    ASSERT_EQ(file["kids"].toArray().size(), 1);
    QJsonObject kid = file["kids"].toArray()[0].toObject();
    EXPECT_EQ(kid["title"].toString(), QString::fromUtf8("Caf\u00E9"));
    EXPECT_EQ(kid["destpageposfrom1"].toInt(), 2);
    EXPECT_DOUBLE_EQ(kid["dest"].toArray()[3].toDouble(), 792 - 18 - 72);  // an inch below the printable top

    // The links by page: to "b" from the first, to "a" from the third, none to "nowhere".
    QJsonObject objects = json["qpdf"].toArray()[1].toObject();
    auto value = [&](const QString& ref) { return objects["obj:" + ref].toObject()["value"].toObject(); };
    std::map<QString, int> pageOf;
    for (const QJsonValue& pg : json["pages"].toArray())
        pageOf[pg.toObject()["object"].toString()] = pg.toObject()["pageposfrom1"].toInt();
    std::vector<std::string> links;
    for (const auto& [object, number] : pageOf)
        for (const QJsonValue& ref : value(object)["/Annots"].toArray()) {
            QString target = value(ref.toString())["/Dest"].toArray()[0].toString();
            links.push_back(std::to_string(number) + ">" + std::to_string(pageOf[target]));
        }
    std::sort(links.begin(), links.end());
    EXPECT_EQ(links, (std::vector<std::string>{"1>2", "3>1"}));
}

// A system printer draws through the toolkit's painter; one that prints to a file shows what
// reached it. A document is one print job, started by its first finished page.
TEST_F(QtPrinterTest, ASystemPrinterGetsTheFinishedPagesOfEachDocument) {
    NEED_POPPLER();
    auto device = std::make_unique<QPrinter>(QPrinter::HighResolution);
    device->setOutputFormat(QPrinter::PdfFormat);
    device->setOutputFileName(QString::fromStdString(pdf("system.pdf")));
    QtPrinter p(std::move(device));
    printLines(p, {"never started"});
    p.killDoc();
    EXPECT_FALSE(fs::exists(pdf("system.pdf")));

    printLines(p, {"Dim total As Long", "total = total + 1"});
    p.newPage();
    printLines(p, {"dropped with its document"});
    p.killDoc();
    auto pages = pagesOf(run("pdftotext -layout '" + pdf("system.pdf") + "' -"));
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_EQ(pages[0], (std::vector<std::string>{"Dim total As Long", "total = total + 1"}));

    printLines(p, {"End Sub"});
    p.endDoc();
    EXPECT_TRUE(p.endJob(true));
    pages = pagesOf(run("pdftotext -layout '" + pdf("system.pdf") + "' -"));
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_EQ(pages[0], (std::vector<std::string>{"End Sub"}));
}

TEST_F(QtPrinterTest, AJobThatIsNotKeptOrHasNoPageLeavesTheOldFileAlone) {
    std::string target = pdf("old.pdf");
    std::ofstream(target) << "the old file";
    QtPrinter p;
    p.beginJob(target);
    printLines(p, {"Dim dropped As Long"});
    p.newPage();
    EXPECT_FALSE(p.endJob(false));
    EXPECT_EQ(slurp(target), "the old file");

    p.beginJob(target);
    EXPECT_FALSE(p.endJob(true));
    EXPECT_NE(p.jobError().find("old.pdf"), std::string::npos) << p.jobError();
    EXPECT_EQ(slurp(target), "the old file");
    EXPECT_EQ(filesIn(dir), (std::vector<std::string>{"old.pdf"}));

    p.beginJob(target);
    printLines(p, {"Dim kept As Long"});
    ASSERT_TRUE(p.endJob(true)) << p.jobError();
    EXPECT_EQ(slurp(target).substr(0, 5), "%PDF-");
    EXPECT_EQ(filesIn(dir), (std::vector<std::string>{"old.pdf"}));
}

TEST_F(QtPrinterTest, ATargetThatCannotBeWrittenFailsWithAReasonAndLeavesNothing) {
    std::string target = dir + "/missing/folder/out.pdf";
    QtPrinter p;
    EXPECT_FALSE(p.beginJob(target));  // known before the first page
    EXPECT_NE(p.jobError().find(target), std::string::npos) << p.jobError();
    printLines(p, {"Dim lost As Long"});
    EXPECT_FALSE(p.endJob(true));
    EXPECT_NE(p.jobError().find(target), std::string::npos) << p.jobError();
    EXPECT_NE(p.jobError().find(os::errorText(ENOENT)), std::string::npos) << p.jobError();
    EXPECT_FALSE(fs::exists(dir + "/missing"));
}

// The file system refuses the data halfway (as a full disk would): the job fails and says why.
TEST_F(QtPrinterTest, AWriteThatFailsHalfwayKeepsTheOldFile) {
    std::string target = pdf("full.pdf");
    std::ofstream(target) << "the old file";
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    auto previousHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = before;
    small.rlim_cur = 32 * 1024;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);

    QtPrinter p;
    p.beginJob(target);
    std::vector<std::string> lines(60, "Dim remainingReceiptAmount As Currency ' what is still to be posted");
    for (int page = 0; page < 40; ++page) {
        printLines(p, lines);
        p.newPage();
    }
    bool kept = p.endJob(true);
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, previousHandler);

    EXPECT_FALSE(kept);
    EXPECT_NE(p.jobError().find(os::errorText(EFBIG)), std::string::npos) << p.jobError();
    EXPECT_EQ(slurp(target), "the old file");
    EXPECT_EQ(filesIn(dir), (std::vector<std::string>{"full.pdf"}));
}

TEST_F(QtPrinterTest, MeasuresInTwipsAndReadsClassicNamesBack) {
    QtPrinter p;
    EXPECT_EQ(p.deviceName(), "PDF");
    p.setFontName("Courier New");
    EXPECT_EQ(p.fontName(), "Courier New");
    p.setFontName("No Such Font 9000");
    EXPECT_NE(p.fontName(), "No Such Font 9000");
    std::vector<std::string> fonts = p.fonts();
    EXPECT_EQ(p.fontName(), fonts.front());
    // The start counts them without resolving the font of last resort: the same count.
    EXPECT_EQ(p.fontCount(), fonts.size());
    EXPECT_NE(std::find(fonts.begin(), fonts.end(), "Courier New"), fonts.end());

    p.setFontName("Courier New");
    p.setFontSize(12);
    // A fixed-pitch font of 12 points is 0.6 em, 144 twips, a character.
    EXPECT_NEAR(p.textWidth(std::string(100, 'X')), 14400, 10);
    EXPECT_EQ(p.textWidth("iiii"), p.textWidth("WWWW"));
    float one = p.textHeight("X");
    // Lines stand 1.1 times the size apart, not the face's own 1.13.
    EXPECT_NEAR(one, 12 * 1.1 * 20, 1);
    EXPECT_FLOAT_EQ(p.textHeight("X\r\nX\r\nX"), 3 * one);
    EXPECT_FLOAT_EQ(p.textHeight("X\nX"), one);
    p.setCurrentX(100);
    p.print("Dim");
    EXPECT_FLOAT_EQ(p.currentX(), 100 + p.textWidth("Dim"));
    p.killDoc();
}

// A style set in one call measures as the same properties set one by one on a printer new to
// them, going back and forth between more faces than the printer keeps at hand, and a name the
// fonts lack reads back alike.
TEST_F(QtPrinterTest, AStyleSetAtOnceMeasuresAsItsPropertiesOneByOne) {
    std::vector<TextStyle> styles;
    for (const char* name : {"Courier New", "Arial", "No Such Font 9000"})
        for (double points : {8.0, 10.0, 12.5})
            for (int flags : {0, 1, 2, 5, 10}) {
                bool bold = flags & 1, italic = flags & 2, underline = flags & 4, strike = flags & 8;
                styles.push_back(
                        {name, points, bold, italic, underline, strike, 0x00800000u + static_cast<unsigned>(flags)});
            }
    const std::string text = "Dim total As Currency";
    std::vector<std::pair<std::string, float>> expected;  // the name read back and the width
    for (const TextStyle& style : styles) {
        QtPrinter fresh;
        fresh.setFontName(std::string(style.fontName));
        fresh.setFontSize(style.points);
        fresh.setFontBold(style.bold);
        fresh.setFontItalic(style.italic);
        fresh.setFontUnderline(style.underline);
        fresh.setFontStrikethrough(style.strikethrough);
        expected.emplace_back(fresh.fontName(), fresh.textWidth(text));
    }
    QtPrinter p;
    for (int round = 0; round < 2; ++round) {
        for (std::size_t i = 0; i < styles.size(); ++i) {
            const TextStyle& style = styles[i];
            SCOPED_TRACE(std::string(style.fontName) + " " + std::to_string(style.points) + " round " +
                         std::to_string(round));
            p.setTextStyle(style);
            EXPECT_EQ(p.fontName(), expected[i].first);
            EXPECT_EQ(p.fontSize(), style.points);
            EXPECT_EQ(p.fontBold(), style.bold);
            EXPECT_EQ(p.fontItalic(), style.italic);
            EXPECT_EQ(p.fontUnderline(), style.underline);
            EXPECT_EQ(p.fontStrikethrough(), style.strikethrough);
            EXPECT_EQ(p.foreColor(), style.colour);
            EXPECT_EQ(p.textWidth(text), expected[i].second);
        }
    }
}

// A monospaced face counts its characters, and a byte below a blank takes no room wherever it
// stands among them; a blank, DEL and the upper half of the code page take a character's room.
TEST_F(QtPrinterTest, AControlByteTakesNoRoomWhereverItStands) {
    QtPrinter p;
    p.setFontName("Courier New");
    p.setFontSize(10);
    for (std::size_t length : {1u, 7u, 8u, 9u, 17u, 24u}) {
        float plain = p.textWidth(std::string(length - 1, 'X'));
        for (std::size_t at = 0; at < length; ++at)
            for (char control : {'\x01', '\x1F', '\t'}) {
                std::string text(length, 'X');
                text[at] = control;
                EXPECT_EQ(p.textWidth(text), plain) << length << " " << at << " " << int(control);
            }
        float full = p.textWidth(std::string(length, 'X'));
        for (char other : {' ', '\x7F', '\x80', '\xA0', '\xFF'}) {
            std::string text(length, 'X');
            text[length / 2] = other;
            EXPECT_EQ(p.textWidth(text), full) << length << " " << int(static_cast<unsigned char>(other));
        }
    }
}

TEST_F(QtPrinterTest, ThePdfPageIsLetterOrA4WithAQuarterInchStrip) {
    QtPrinter p;
    EXPECT_EQ(p.width(), 12240);
    EXPECT_EQ(p.height(), 15840);
    EXPECT_EQ(p.scaleWidth(), 12240 - 720);
    EXPECT_EQ(p.scaleHeight(), 15840 - 720);
    PrinterCaps caps = p.caps();
    EXPECT_EQ(caps.PixelsPerInchX, 720);
    EXPECT_EQ(caps.PhysicalWidth, 6120);
    EXPECT_EQ(caps.PhysicalOffsetX, 180);
    EXPECT_EQ(caps.PhysicalOffsetY, 180);
    EXPECT_EQ(p.twipsPerPixelX(), 2);

    EXPECT_EQ(p.setJobProperty(JobProperty::Orientation, 2), 0);
    EXPECT_EQ(p.jobProperty(JobProperty::Orientation), 2);
    EXPECT_EQ(p.width(), 15840);
    EXPECT_EQ(p.setJobProperty(JobProperty::Orientation, 3), 380);
    EXPECT_EQ(p.setJobProperty(JobProperty::Orientation, 1), 0);
    EXPECT_EQ(p.setJobProperty(JobProperty::PaperSize, 9), 0);
    EXPECT_NEAR(p.width(), 11906, 1);  // 210 mm
    EXPECT_EQ(p.setJobProperty(JobProperty::PaperSize, 5), 0);
    EXPECT_EQ(p.height(), 20160);  // 14 inches
    EXPECT_EQ(p.setJobProperty(JobProperty::PaperSize, 999), 0);
    EXPECT_EQ(p.width(), 12240);
    EXPECT_EQ(p.jobProperty(JobProperty::PaperSize), 999);
    EXPECT_EQ(p.setJobProperty(JobProperty::Duplex, 4), 380);
    EXPECT_EQ(p.setJobProperty(JobProperty::Copies, 0), 380);
}

TEST_F(QtPrinterTest, ThePrinterSystemAlwaysHasThePdfPrinter) {
    QtPrinterSystem printers;
    std::vector<std::string> names = printers.printerNames();
    ASSERT_FALSE(names.empty());
    EXPECT_EQ(names.back(), "PDF");
    EXPECT_FALSE(printers.defaultPrinterName().empty());
    auto pdfPrinter = printers.open("PDF");
    ASSERT_TRUE(pdfPrinter);
    EXPECT_EQ(pdfPrinter->deviceName(), "PDF");
    EXPECT_EQ(printers.open("No Such Printer 9000"), nullptr);
}

}  // namespace
}  // namespace hlyd
