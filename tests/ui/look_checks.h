// What can be wrong with the look of a window, found by rule: texts cut off, controls in each other's place, texts
// that can hardly be told from their ground. Each finding is a line of text; none is what is wanted.
#pragma once

#include <QImage>
#include <QStringList>
#include <QWidget>

namespace korvex {

/// Captions, titles and numbers that have less room than they need.
[[nodiscard]] QStringList cutTexts(const QWidget& window);

/// Controls that overlap or reach out of what they stand in.
[[nodiscard]] QStringList misplacedWidgets(const QWidget& window);

/// Texts of what can be used that are drawn with less contrast than text needs. The picture is of the window as it is.
[[nodiscard]] QStringList faintTexts(QWidget& window, const QImage& picture);

/// Fields, boxes, buttons and lists whose edge cannot be told from what they stand on.
[[nodiscard]] QStringList hiddenEdges(const QWidget& window, const QImage& picture);

/// Pictures on buttons, labels and rows of which too little stands out of the ground.
/// The toolkit's own file icons are left alone: the kind of a file stands beside its name.
[[nodiscard]] QStringList faintPictures(const QWidget& window, const QImage& picture);

/// The part, 0 to 1, of the dots of a place that can be told from the ground, which is the commonest colour there.
[[nodiscard]] double standingOut(const QImage& picture, const QRect& place);

}  // namespace korvex
