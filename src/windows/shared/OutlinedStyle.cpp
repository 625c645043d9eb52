#include "windows/shared/OutlinedStyle.h"

#include <QGroupBox>
#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace quillmark {

namespace {

constexpr double Rounding = 2;

/// A box to type into always shows that it has the focus, any other control only if a key brought
/// the focus there: that is how Fusion does it.
bool showsFocus(const QStyleOption& option, bool typedInto) {
    return option.state.testFlag(QStyle::State_HasFocus) &&
           (typedInto || option.state.testFlag(QStyle::State_KeyboardFocusChange));
}

/// Paints over the outline that Fusion has painted in `rect`.
void drawOutline(const QStyleOption& option, QPainter& painter, const QRectF& rect,
                 bool typedInto = false) {
    const bool focused = showsFocus(option, typedInto);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(option.palette.color(focused ? QPalette::Link : QPalette::Dark));
    painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), Rounding, Rounding);
    painter.restore();
}

void drawSeparator(const QStyleOption& option, QPainter& painter) {
    constexpr int Margin = 6;
    const int middle = option.rect.center().y();
    painter.save();
    painter.setPen(option.palette.color(QPalette::Dark));
    painter.drawLine(option.rect.left() + Margin, middle, option.rect.right() - Margin, middle);
    painter.restore();
}

/// The height that Fusion leaves above the frame of a group for its title, in pixels.
int titleHeight(const QStyle& style, const QStyleOption& option, const QWidget* widget) {
    constexpr int Gap = 3;
    const auto* group = qobject_cast<const QGroupBox*>(widget);
    if (group != nullptr && group->title().isEmpty()) {
        return 0;
    }
    return std::max(style.pixelMetric(QStyle::PM_IndicatorHeight), option.fontMetrics.height()) +
           Gap;
}

} // namespace

OutlinedStyle::OutlinedStyle() : QProxyStyle("Fusion") {}

void OutlinedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    switch (element) {
    case PE_FrameLineEdit:
        drawOutline(*option, *painter, option->rect, true);
        break;
    case PE_PanelButtonCommand:
    case PE_Frame:
    case PE_PanelMenu:
    case PE_IndicatorCheckBox:
        drawOutline(*option, *painter, option->rect);
        break;
    case PE_FrameGroupBox:
        drawOutline(*option, *painter,
                    option->rect.adjusted(0, titleHeight(*this, *option, widget), 0, 0));
        break;
    default:
        break;
    }
}

void OutlinedStyle::drawControl(ControlElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element == CE_ProgressBarGroove) {
        drawOutline(*option, *painter, option->rect);
    }
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (item != nullptr && item->menuItemType == QStyleOptionMenuItem::Separator) {
        drawSeparator(*option, *painter);
    }
}

void OutlinedStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox) {
        const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
        drawOutline(*option, *painter, option->rect, box != nullptr && box->editable);
    } else if (control == CC_SpinBox) {
        drawOutline(*option, *painter, option->rect, true);
    }
}

} // namespace quillmark
