// The looks that the windows are tried in: colours as desktops set them, a usual and a large font.
#pragma once

#include <QPalette>
#include <QString>

namespace korvex {

enum class Theme { Light, Dark, HighContrast };

[[nodiscard]] QPalette paletteOf(Theme theme);
[[nodiscard]] QString nameOf(Theme theme);

}  // namespace korvex
