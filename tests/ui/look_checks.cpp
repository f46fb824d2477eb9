#include "look_checks.h"

#include "colour_contrast.h"
#include "shown_texts.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSizeGrip>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

#include <algorithm>

namespace korvex {

namespace {

constexpr double readable = 4.5;  // of text
constexpr double visible = 3.0;   // of pictures
constexpr double seenEdge = 1.6;  // as light themes draw it
constexpr int iconMargin = 3;     // of a button
constexpr QRgb fullyOpaque = 0xff000000;
constexpr double leastPart = 0.1;  // of a picture's place, for strokes to be seen

QString nameOf(const QWidget& widget)
{
    for (const QWidget* named = &widget; named != nullptr; named = named->parentWidget()) {
        if (!named->objectName().isEmpty() && !named->objectName().startsWith(QStringLiteral("qt_")))
            return named->objectName();
    }
    return QLatin1String(widget.metaObject()->className());
}

QString line(const QString& what, const QWidget& widget, const QString& text, const QString& numbers)
{
    return QStringLiteral("%1: %2 \"%3\" %4").arg(what, nameOf(widget), text.left(40), numbers);
}

/// The dots of a place of the window, in the picture.
QRect inPicture(const QImage& picture, const QRect& place)
{
    const double scale = picture.devicePixelRatio();
    const QRectF scaled(place.x() * scale, place.y() * scale, place.width() * scale, place.height() * scale);
    return scaled.toAlignedRect() & picture.rect();
}

/// The picture has four bytes a dot, as all of a window have.
QHash<QRgb, int> coloursOf(const QImage& picture, const QRect& place)
{
    QHash<QRgb, int> colours;
    const QRect dots = inPicture(picture, place);
    for (int y = dots.top(); y <= dots.bottom(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        // Most dots are coloured as the one before them.
        for (int x = dots.left(); x <= dots.right();) {
            const int first = x;
            while (x <= dots.right() && row[x] == row[first])
                ++x;
            colours[row[first] | fullyOpaque] += x - first;
        }
    }
    return colours;
}

QColor commonest(const QHash<QRgb, int>& colours)
{
    QRgb found = 0;
    int most = 0;
    for (auto colour = colours.begin(); colour != colours.end(); ++colour) {
        if (colour.value() > most) {
            most = colour.value();
            found = colour.key();
        }
    }
    return QColor::fromRgb(found);
}

/// What the contrast in a place has to be. Desktops choose what they lay under selected text, and some choose too light
/// a colour: there a window cannot do better than they do.
double enough(const QHash<QRgb, int>& colours, const QPalette& palette)
{
    const QColor highlight = palette.color(QPalette::Highlight);
    if (!colours.contains(highlight.rgb()))
        return readable;
    return std::min(readable, contrast(highlight, palette.color(QPalette::HighlightedText)));
}

bool isFaint(const QImage& picture, const QRect& place, const QPalette& palette)
{
    const QHash<QRgb, int> colours = coloursOf(picture, place);
    const QColor ground = commonest(colours);
    double strongest = 1.0;
    for (auto colour = colours.begin(); colour != colours.end(); ++colour)
        strongest = std::max(strongest, contrast(ground, QColor::fromRgb(colour.key())));
    constexpr double rounding = 0.02;
    return strongest < enough(colours, palette) - rounding;
}

/// Thin strokes are drawn paler than their colour; enlarged they are not.
QImage enlarged(QWidget& window)
{
    constexpr int scale = 4;
    QImage picture(window.size() * scale, QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    window.render(&picture);
    return picture;
}

/// Made of parts that overlap by the toolkit's own design, or that lay one thing over another.
bool isOneControl(const QWidget& widget)
{
    return qobject_cast<const QAbstractScrollArea*>(&widget) != nullptr
        || qobject_cast<const QTabWidget*>(&widget) != nullptr || qobject_cast<const QTabBar*>(&widget) != nullptr
        || qobject_cast<const QComboBox*>(&widget) != nullptr
        || qobject_cast<const QLineEdit*>(&widget) != nullptr
        // The title of the box about the program lies over its shadow.
        || widget.findChild<QLabel*>(QStringLiteral("lbStin"), Qt::FindDirectChildrenOnly) != nullptr;
}

QList<QWidget*> visibleChildren(const QWidget& widget)
{
    QList<QWidget*> children;
    for (QWidget* const child : widget.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (child->isVisible() && !child->isWindow() && qobject_cast<QSizeGrip*>(child) == nullptr
            && !child->geometry().isEmpty())
            children.append(child);
    }
    return children;
}

void findMisplaced(const QWidget& widget, QStringList& findings)
{
    if (isOneControl(widget))
        return;
    const QList<QWidget*> children = visibleChildren(widget);
    for (qsizetype i = 0; i < children.size(); ++i) {
        if (!widget.rect().contains(children[i]->geometry()))
            findings << line(QStringLiteral("out of its place"), *children[i], {}, nameOf(widget));
        for (qsizetype j = i + 1; j < children.size(); ++j) {
            if (children[i]->geometry().intersects(children[j]->geometry()))
                findings << line(QStringLiteral("overlap"), *children[i], {}, nameOf(*children[j]));
        }
        findMisplaced(*children[i], findings);
    }
}

/// Where the edge of a control is that has one.
QRect edgeOf(const QWidget& widget)
{
    QStyleOptionButton option;
    option.initFrom(&widget);
    if (qobject_cast<const QCheckBox*>(&widget) != nullptr)
        return widget.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &widget);
    if (qobject_cast<const QRadioButton*>(&widget) != nullptr)
        return widget.style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, &widget);
    const auto* const view = qobject_cast<const QAbstractItemView*>(&widget);
    const bool isField = qobject_cast<const QLineEdit*>(&widget) != nullptr
        && qobject_cast<const QComboBox*>(widget.parentWidget()) == nullptr;
    const bool hasEdge = isField || qobject_cast<const QPushButton*>(&widget) != nullptr
        || qobject_cast<const QComboBox*>(&widget) != nullptr
        || (view != nullptr && view->frameShape() != QFrame::NoFrame);
    return hasEdge ? widget.rect() : QRect();
}

void judgePicture(
    const QWidget& widget, const QString& text, const QRect& place, const QImage& picture, QStringList& findings)
{
    const QRect inWindow = visiblePart(widget, place).translated(widget.mapTo(widget.window(), QPoint()));
    const double part = standingOut(picture, inWindow);
    if (part < leastPart)
        findings << line(QStringLiteral("faint picture"), widget, text, QString::number(part, 'f', 2));
}

}  // namespace

QStringList cutTexts(const QWidget& window)
{
    QStringList findings;
    for (const ShownText& shown : shownTexts(window)) {
        if (shown.place.width() >= shown.need.width() && shown.place.height() >= shown.need.height())
            continue;
        const QString numbers = QStringLiteral("%1x%2 of %3x%4")
                                    .arg(shown.place.width())
                                    .arg(shown.place.height())
                                    .arg(shown.need.width())
                                    .arg(shown.need.height());
        findings << line(QStringLiteral("cut"), *shown.widget, shown.text, numbers);
    }
    return findings;
}

QStringList misplacedWidgets(const QWidget& window)
{
    QStringList findings;
    findMisplaced(window, findings);
    return findings;
}

QStringList faintTexts(QWidget& window, const QImage& picture)
{
    QStringList findings;
    QImage closer;
    for (const ShownText& shown : shownTexts(window)) {
        const QRect place = shown.place.translated(shown.widget->mapTo(&window, QPoint()));
        if (!shown.canBeUsed || place.isEmpty() || !isFaint(picture, place, shown.widget->palette()))
            continue;
        if (closer.isNull())
            closer = enlarged(window);
        if (isFaint(closer, place, shown.widget->palette()))
            findings << line(QStringLiteral("faint"), *shown.widget, shown.text, {});
    }
    return findings;
}

QStringList hiddenEdges(const QWidget& window, const QImage& picture)
{
    QStringList findings;
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        const bool isSeen = widget->isVisible() && widget->isEnabled() && widget->window() == &window;
        const QRect edge = isSeen ? edgeOf(*widget).translated(widget->mapTo(&window, QPoint())) : QRect();
        constexpr int away = 2;
        // The outside, the edge and a little of the inside.
        const QRect across(edge.left() - away, edge.center().y(), 2 * away + 1, 1);
        if (edge.isEmpty() || !window.rect().contains(across))
            continue;
        const QRect dots = inPicture(picture, across);
        const QColor outside = picture.pixelColor(dots.topLeft());
        double strongest = 1.0;
        for (int x = dots.left(); x <= dots.right(); ++x)
            strongest = std::max(strongest, contrast(outside, picture.pixelColor(x, dots.top())));
        if (strongest < seenEdge)
            findings << line(QStringLiteral("no edge"), *widget, {}, QString::number(strongest, 'f', 2));
    }
    return findings;
}

QStringList faintPictures(const QWidget& window, const QImage& picture)
{
    QStringList findings;
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || !widget->isEnabled() || widget->window() != &window)
            continue;
        if (const auto* const label = qobject_cast<const QLabel*>(widget)) {
            if (!label->pixmap().isNull())
                judgePicture(*label, {}, label->contentsRect(), picture, findings);
        } else if (const auto* const button = qobject_cast<const QToolButton*>(widget)) {
            QRect place(QPoint(), button->iconSize());
            place.moveCenter(button->rect().center());
            if (button->toolButtonStyle() == Qt::ToolButtonTextBesideIcon)
                place.moveLeft(iconMargin);
            if (!button->icon().isNull())
                judgePicture(*button, button->text(), place, picture, findings);
        } else if (const auto* const view = qobject_cast<const QAbstractItemView*>(widget);
                   view != nullptr && qobject_cast<const QFileDialog*>(&window) == nullptr) {
            for (int row = 0; view->model() != nullptr && row < view->model()->rowCount(view->rootIndex()); ++row) {
                const QModelIndex index = view->model()->index(row, 0, view->rootIndex());
                QRect place = view->visualRect(index).adjusted(2, 2, -2, -2);
                place.setWidth(smallIconSize(*view));
                if (index.data(Qt::DecorationRole).isValid() && view->viewport()->rect().contains(place))
                    judgePicture(*view->viewport(), index.data().toString(), place, picture, findings);
            }
        }
    }
    return findings;
}

double standingOut(const QImage& picture, const QRect& place)
{
    const QHash<QRgb, int> colours = coloursOf(picture, place);
    const QColor ground = commonest(colours);
    double all = 0;
    double telling = 0;
    for (auto colour = colours.begin(); colour != colours.end(); ++colour) {
        all += colour.value();
        telling += contrast(ground, QColor::fromRgb(colour.key())) >= visible ? colour.value() : 0;
    }
    return all > 0 ? telling / all : 0;
}

}  // namespace korvex
