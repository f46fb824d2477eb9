#include "desktop_style.h"

#include "colour_contrast.h"

#include <QPainter>
#include <QStyleOption>

namespace korvex {

namespace {

/// The toolkit's own style draws edges a little darker than the window: on a dark window nobody sees them, and on a
/// black one an empty field or check box is not there at all.
bool losesEdges(const QPalette& palette)
{
    constexpr int darker = 140;
    constexpr double justSeen = 1.5;
    const QColor window = palette.color(QPalette::Window);
    return contrast(window, window.darker(darker)) < justSeen;
}

/// Where Enter or what is typed goes.
bool isSingledOut(const QStyleOption& option)
{
    const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    return option.state.testFlag(QStyle::State_HasFocus)
        || (button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton));
}

QColor edgeColour(const QStyleOption& option)
{
    constexpr double visible = 3.0;
    const QPalette& palette = option.palette;
    const QPalette::ColorRole role = isSingledOut(option) ? QPalette::Highlight : QPalette::Window;
    return drawnTowards(palette.color(role), palette.color(QPalette::WindowText),
        {palette.color(QPalette::Window), palette.color(QPalette::Base)}, visible);
}

void drawEdge(QStyle::PrimitiveElement element, const QStyleOption& option, QPainter& painter)
{
    constexpr double half = 0.5;
    constexpr double rounding = 2.0;
    const QRectF edge = QRectF(option.rect).adjusted(half, half, -half, -half);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(edgeColour(option));
    if (element == QStyle::PE_IndicatorRadioButton)
        painter.drawEllipse(edge);
    else
        painter.drawRoundedRect(edge, rounding, rounding);
    painter.restore();
}

/// An outline: the toolkit's own style veils the whole row, and the text of a selected one with it.
void drawRowFocus(const QStyleOption& option, QPainter& painter)
{
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text), 1, Qt::DotLine));
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

}  // namespace

DesktopStyle::DesktopStyle() = default;

bool DesktopStyle::isToolkitsOwn() const
{
    return baseStyle()->name() == QStringLiteral("fusion");
}

int DesktopStyle::styleHint(
    StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* returnData) const
{
    if (hint == SH_DialogButtonLayout)
        return 0;  // Ok left of Storno (QDialogButtonBox::WinLayout)
    // Only the toolkit's own buttons have icons; ours have none, on any desktop.
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

void DesktopStyle::drawPrimitive(
    PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
    if (element == PE_FrameFocusRect && option->state.testFlag(State_Item) && isToolkitsOwn()) {
        drawRowFocus(*option, *painter);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    switch (element) {
    case PE_Frame:
    case PE_FrameLineEdit:
    case PE_PanelButtonCommand:
    case PE_IndicatorCheckBox:
    case PE_IndicatorRadioButton:
        if (option->state.testFlag(State_Enabled) && losesEdges(option->palette) && isToolkitsOwn())
            drawEdge(element, *option, *painter);
        break;
    default:
        break;
    }
}

}  // namespace korvex
