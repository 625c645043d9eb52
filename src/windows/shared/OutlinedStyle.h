#pragma once

#include <QProxyStyle>

namespace quillmark {

/// Qt's Fusion style with outlines that can be seen on light and dark backgrounds. Fusion derives
/// their colour from the window's: in a dark theme it paints black on grey. Here an outline has the
/// palette's Dark colour, or its Link colour if the control has the focus.
class OutlinedStyle : public QProxyStyle {
    Q_OBJECT
public:
    OutlinedStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
};

} // namespace quillmark
