#include "printing/heading_macro_tips.h"

namespace hlyd {

namespace {
constexpr HeadingMacroTip kTips[] = {
        {201, "<", "Print your own information enclosed in < >'"},
        {202, "@date", "Print the current date"},
        {203, "@time", "Print the current time"},
        {204, "@page", "Print the page number"},
        {205, "@filedate", "Print the date the file was last saved"},
        {206, "@filetime", "Print the time the file was last saved"},
        {207, "@user", "Print the user name"},
        {208, "@company", "Print the company name"},
        {209, "@filename", "Print the file name"},
        {210, "@filepath", "Include the full file path"},
        {211, "@procname", "Print the name of the procedure"},
        {212, "@vbname", "Print the VB Name"},
        {213, "@project", "Print the name of the project"},
        {214, "@ask", "When Printing, ask for a comment to be printed"},
        {215, "|", "Line Separator. '|', the pipe symbol will denote the next line"},
};
}  // namespace

std::span<const HeadingMacroTip> headingMacroTips() { return kTips; }

const char* headingMacroTip(int number) {
    for (const HeadingMacroTip& tip : kTips)
        if (tip.number == number) return tip.text;
    return nullptr;
}

}  // namespace hlyd
