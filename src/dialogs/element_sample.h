#pragma once
// A line of sample text drawn in a language element's font and colours (picSample).
#include <QWidget>
#include <cstdint>

#include "settings/attributes.h"

namespace hlyd {

class ElementSample : public QWidget {
public:
    ElementSample(int element, QWidget* parent = nullptr);
    void showAttributes(const AttributeRecord& attributes);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString text_;
    QFont font_;
    QColor fore_, back_;
};

// The font an element's record asks for, as the window draws it.
QFont qtFontOf(const FontSpec& spec);
FontSpec fontSpecOf(const QFont& font);
// 0x00BBGGRR, as the settings keep a colour.
std::uint32_t classicValue(const QColor& colour);

}  // namespace hlyd
