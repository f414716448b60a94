#include "platform/qt/classic_colour.h"

#include <QGuiApplication>
#include <QPalette>

namespace hlyd {

namespace {

QPalette::ColorRole roleOfSystemColour(std::uint32_t index) {
    switch (index) {
        case 5: return QPalette::Base;  // window background
        case 8: return QPalette::Text;  // window text
        case 13: return QPalette::Highlight;
        case 14: return QPalette::HighlightedText;
        case 15: return QPalette::Button;  // button face
        case 16: return QPalette::Mid;     // button shadow
        case 18: return QPalette::ButtonText;
        case 20: return QPalette::Light;  // button highlight
        case 24: return QPalette::ToolTipBase;
        case 23: return QPalette::ToolTipText;
        default: return QPalette::Window;
    }
}

}  // namespace

QColor classicColour(std::uint32_t colour) {
    if (colour & 0x80000000u) return QGuiApplication::palette().color(roleOfSystemColour(colour & 0xFFu));
    return QColor(static_cast<int>(colour & 0xFFu), static_cast<int>((colour >> 8) & 0xFFu),
                  static_cast<int>((colour >> 16) & 0xFFu));
}

}  // namespace hlyd
