// The desktop's style of controls, with what some desktops turn round or leave out of dark themes.
#pragma once

#include <QProxyStyle>

namespace korvex {

class DesktopStyle : public QProxyStyle {
    Q_OBJECT

public:
    DesktopStyle();

    [[nodiscard]] int styleHint(
        StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* returnData) const override;
    void drawPrimitive(
        PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override;

private:
    [[nodiscard]] bool isToolkitsOwn() const;
};

}  // namespace korvex
