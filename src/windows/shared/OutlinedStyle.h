#pragma once

#include <QProxyStyle>

namespace quillmark {

/// Qt's Fusion style with outlines that one can see on light and dark grounds. Fusion takes the
/// colour of its outlines from the window's: in the dark it paints black on grey. Here an outline
/// has the palette's Dark colour, and its Link colour where the keys go.
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
