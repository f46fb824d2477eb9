#include "theme_palettes.h"

#include <QApplication>
#include <QStyle>

#include <initializer_list>

namespace korvex {

namespace {

struct Colours {
    QColor window;
    QColor base;
    QColor alternateBase;
    QColor button;
    QColor text;
    QColor disabledText;
    QColor highlight;
    QColor highlightedText;
    QColor link;
    QColor light;
    QColor mid;
    QColor dark;
};

QPalette paletteOf(const Colours& colours)
{
    QPalette palette;
    palette.setColor(QPalette::Window, colours.window);
    palette.setColor(QPalette::Base, colours.base);
    palette.setColor(QPalette::AlternateBase, colours.alternateBase);
    palette.setColor(QPalette::Button, colours.button);
    palette.setColor(QPalette::ToolTipBase, colours.window);
    palette.setColor(QPalette::Highlight, colours.highlight);
    palette.setColor(QPalette::HighlightedText, colours.highlightedText);
    palette.setColor(QPalette::Link, colours.link);
    palette.setColor(QPalette::LinkVisited, colours.link);
    palette.setColor(QPalette::Light, colours.light);
    palette.setColor(QPalette::Midlight, colours.light);
    palette.setColor(QPalette::Mid, colours.mid);
    palette.setColor(QPalette::Dark, colours.dark);
    palette.setColor(QPalette::Shadow, Qt::black);
    for (const QPalette::ColorRole role :
        {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText, QPalette::BrightText}) {
        palette.setColor(role, colours.text);
        palette.setColor(QPalette::Disabled, role, colours.disabledText);
    }
    palette.setColor(QPalette::PlaceholderText, colours.disabledText);
    return palette;
}

}  // namespace

QPalette paletteOf(Theme theme)
{
    switch (theme) {
    case Theme::Dark:
        // The blue of links is what desktops without one of their own leave there.
        return paletteOf({{53, 53, 53}, {45, 45, 45}, {51, 51, 51}, {56, 56, 56}, {238, 238, 236}, {145, 145, 144},
            {21, 83, 158}, Qt::white, {0, 0, 255}, {80, 80, 80}, {40, 40, 40}, {27, 27, 27}});
    case Theme::HighContrast:
        return paletteOf({Qt::black, Qt::black, Qt::black, Qt::black, Qt::white, {160, 160, 160}, Qt::yellow, Qt::black,
            Qt::yellow, Qt::white, {128, 128, 128}, Qt::white});
    case Theme::Light:
        break;
    }
    return QApplication::style()->standardPalette();
}

QString nameOf(Theme theme)
{
    switch (theme) {
    case Theme::Dark:
        return QStringLiteral("dark");
    case Theme::HighContrast:
        return QStringLiteral("high-contrast");
    case Theme::Light:
        break;
    }
    return QStringLiteral("light");
}

}  // namespace korvex
