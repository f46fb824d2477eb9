// How well colours can be told apart, and colours that can: for what a desktop's theme leaves unreadable.
#pragma once

#include <QColor>

#include <initializer_list>

namespace korvex {

/// From 1, the same, to 21, black on white, as the accessibility guidelines for web pages measure it.
[[nodiscard]] double contrast(const QColor& one, const QColor& other);

[[nodiscard]] QColor mixed(const QColor& one, const QColor& other, double shareOfOther);

/// The colour itself where its contrast to all grounds suffices, else drawn as little as it takes towards another.
[[nodiscard]] QColor drawnTowards(
    const QColor& colour, const QColor& other, std::initializer_list<QColor> grounds, double sufficientContrast);

}  // namespace korvex
