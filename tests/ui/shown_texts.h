// Every text that a window shows, with the place it has and the room it needs.
#pragma once

#include <QList>
#include <QRect>
#include <QSize>
#include <QString>
#include <QWidget>

namespace korvex {

struct ShownText {
    const QWidget* widget;
    QString text;
    QRect place;  // of the widget, only what can be seen of it
    QSize need;   // zero where a text may be longer than its place: names and paths that can be scrolled
    bool canBeUsed = true;
};

[[nodiscard]] QList<ShownText> shownTexts(const QWidget& window);

/// The part of the widget's rectangle that is not cut off by what it stands in.
[[nodiscard]] QRect visiblePart(const QWidget& widget, const QRect& place);

/// Of the icons in rows and on buttons.
[[nodiscard]] int smallIconSize(const QWidget& widget);

}  // namespace korvex
