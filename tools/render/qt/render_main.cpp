// hlyd-render --view FILE [--width PX] [--height PX] [--first N] --out FILE.png
// hlyd-render --pdf OUT.pdf FILE [--printer NAME]
#include <QApplication>
#include <cstdlib>
#include <iostream>
#include <string>

#include "base/app_info.h"
#include "tool_errors.h"
#include "pdf_render.h"
#include "view_render.h"
#include "shell/session.h"

namespace {

int usage() {
    std::cerr << "usage: hlyd-render --view FILE [--width PX] [--height PX] [--first N] --out FILE.png\n"
              << "       hlyd-render --pdf OUT.pdf FILE [--printer NAME]\n";
    return 2;
}

bool readNumber(const char* text, long low, long high, long& value) {
    char* end = nullptr;
    value = std::strtol(text, &end, 10);
    return end && *end == '\0' && end != text && value >= low && value <= high;
}

bool parse(int argc, char** argv, hlyd::RenderRequest& request) {
    for (int i = 1; i < argc; ++i) {
        std::string option = argv[i];
        if (i + 1 >= argc) return false;
        const char* value = argv[++i];
        long number = 0;
        if (option == "--view") request.file = value;
        else if (option == "--out") request.out = value;
        else if (option == "--width" && readNumber(value, 16, 16384, number)) request.width = static_cast<int>(number);
        else if (option == "--height" && readNumber(value, 16, 16384, number))
            request.height = static_cast<int>(number);
        else if (option == "--first" && readNumber(value, -1, 2147483647L, number) && number != 0)
            request.first = static_cast<std::int32_t>(number);
        else return false;
    }
    return !request.file.empty() && !request.out.empty();
}

bool parsePdf(int argc, char** argv, hlyd::PdfRequest& request) {
    if (argc < 4) return false;
    request.out = argv[2];
    request.file = argv[3];
    for (int i = 4; i < argc; i += 2) {
        if (std::string(argv[i]) != "--printer" || i + 1 >= argc) return false;
        request.printer = argv[i + 1];
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    hlyd::installProgramSession();
    hlyd::initAppInfo(argc > 0 ? argv[0] : nullptr);
    hlyd::RenderRequest request;
    hlyd::PdfRequest pdf;
    bool printing = argc > 1 && std::string(argv[1]) == "--pdf";
    if (printing ? !parsePdf(argc, argv, pdf) : !parse(argc, argv, request)) return usage();
    // Rendering needs no display; the offscreen platform stands in unless one is asked for.
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication app(argc, argv);
    try {
        return printing ? hlyd::renderPdf(pdf, std::cout, std::cerr) : hlyd::renderView(request, std::cout, std::cerr);
    } catch (const hlyd::HlydError& e) {
        return hlyd::reportToolError("hlyd-render", e, std::cerr);
    }
}
