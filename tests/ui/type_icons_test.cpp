// The icons of the types of sources: told from the ground of a row in any theme, marked or not, and from one another by
// their shape alone.
#include "colour_contrast.h"
#include "theme_palettes.h"
#include "window_harness.h"

#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <functional>

namespace korvex {

namespace {

const QStringList types{
    QStringLiteral("bodovy_zdroj"), QStringLiteral("plosny_zdroj"), QStringLiteral("liniovy_zdroj")};

/// The sizes that the program has are taken from it.
QImage icon(const QString& type, int size)
{
    const QImage built(QStringLiteral(":/icons/%1-%2.png").arg(type).arg(size));
    if (!built.isNull())
        return built;
    QSvgRenderer renderer(QStringLiteral(KORVEX_SOURCE_DIR "/src/ui/icons/%1.svg").arg(type));
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

/// Row by row, whether a dot belongs to the shape.
using Shape = QList<bool>;

Shape shapeOf(const QImage& image, const std::function<bool(const QColor&)>& belongs)
{
    Shape shape;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            shape << belongs(image.pixelColor(x, y));
    }
    return shape;
}

/// What is left to see of an icon that lies on a ground.
Shape seenOn(const QImage& image, const QColor& ground)
{
    QImage laid(image.size(), QImage::Format_RGB32);
    laid.fill(ground);
    QPainter painter(&laid);
    painter.drawImage(0, 0, image);
    painter.end();
    constexpr double visible = 3.0;
    return shapeOf(laid, [&ground](const QColor& colour) { return contrast(colour, ground) >= visible; });
}

Shape outlineOf(const QImage& image)
{
    constexpr int half = 128;
    return shapeOf(image, [](const QColor& colour) { return colour.alpha() >= half; });
}

/// The part, 0 to 1, that two shapes do not share of all that they cover.
double difference(const Shape& one, const Shape& other)
{
    int all = 0;
    int shared = 0;
    for (qsizetype i = 0; i < one.size(); ++i) {
        all += one[i] || other[i] ? 1 : 0;
        shared += one[i] && other[i] ? 1 : 0;
    }
    return all > 0 ? 1.0 - 1.0 * shared / all : 0.0;
}

constexpr double clearlyAnother = 0.35;

/// Where the dots of a shape in a square of this size are.
QRect extent(const Shape& shape, int size)
{
    QRect extent;
    for (int i = 0; i < shape.size(); ++i) {
        if (shape[i])
            extent |= QRect(i % size, i / size, 1, 1);
    }
    return extent;
}

/// The shape is seen in its full height and width, but for an edge as thin as the white or the dark one.
bool isSeenWhole(const Shape& seen, const Shape& outline, int size)
{
    const int edge = size / 8;
    return extent(seen, size).adjusted(-edge, -edge, edge, edge).contains(extent(outline, size));
}

}  // namespace

class TypeIconsTest : public ShellTest {
    Q_OBJECT

private slots:
    void shapesDiffer_data();
    void shapesDiffer();
    void standOutOfEveryGround_data();
    void standOutOfEveryGround();
    void standOutOfMarkedRowsAsTheyAre();
    void areDrawnForTheDoubleScale();
};

void TypeIconsTest::shapesDiffer_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {16, 24, 32, 64, 256})
        QTest::newRow(qPrintable(QString::number(size))) << size;
}

void TypeIconsTest::shapesDiffer()
{
    QFETCH(const int, size);
    for (qsizetype i = 0; i < types.size(); ++i) {
        const QString& other = types[(i + 1) % types.size()];
        const double different = difference(outlineOf(icon(types[i], size)), outlineOf(icon(other, size)));
        QVERIFY2(different >= clearlyAnother,
            qPrintable(QStringLiteral("%1 and %2: %3").arg(types[i], other).arg(different)));
    }
}

void TypeIconsTest::standOutOfEveryGround_data()
{
    QTest::addColumn<QColor>("ground");
    for (const Theme theme : {Theme::Light, Theme::Dark, Theme::HighContrast}) {
        const QPalette palette = paletteOf(theme);
        const QByteArray name = nameOf(theme).toLatin1();
        QTest::newRow(name + ", row") << palette.color(QPalette::Base);
        QTest::newRow(name + ", marked row") << palette.color(QPalette::Highlight);
        QTest::newRow(name + ", marked row of a window behind")
            << palette.color(QPalette::Inactive, QPalette::Highlight);
    }
    // Marks of other desktops, and the ground that is hardest to stand out of.
    QTest::newRow("light blue") << QColor(61, 174, 233);
    QTest::newRow("orange") << QColor(233, 84, 32);
    QTest::newRow("middle grey") << QColor(145, 145, 145);
}

void TypeIconsTest::standOutOfEveryGround()
{
    QFETCH(const QColor, ground);
    for (const int size : {16, 24, 32, 64, 256}) {
        QList<Shape> seen;
        for (const QString& type : types) {
            const QImage image = icon(type, size);
            seen << seenOn(image, ground);
            const QString name = QStringLiteral("%1, %2").arg(type).arg(size);
            QVERIFY2(isSeenWhole(seen.last(), outlineOf(image), size), qPrintable(name));
            constexpr double enough = 0.15;
            const double part
                = static_cast<double>(seen.last().count(true)) / static_cast<double>(outlineOf(image).count(true));
            QVERIFY2(part >= enough, qPrintable(name + QStringLiteral(": %1").arg(part)));
        }
        for (qsizetype i = 0; i < seen.size(); ++i) {
            const double different = difference(seen[i], seen[(i + 1) % seen.size()]);
            QVERIFY2(different >= clearlyAnother,
                qPrintable(QStringLiteral("%1, %2: %3").arg(types[i]).arg(size).arg(different)));
        }
    }
}

void TypeIconsTest::standOutOfMarkedRowsAsTheyAre()
{
    harness().append(cBodovyZdroj, 1);
    harness().window().refill();
    const auto shown
        = harness().model().index(0, SourceListModel::NumberColumn).data(Qt::DecorationRole).value<QIcon>();
    const QSize size(16, 16);
    QCOMPARE(shown.pixmap(size, 1.0, QIcon::Selected).toImage(), shown.pixmap(size, 1.0, QIcon::Normal).toImage());
}

void TypeIconsTest::areDrawnForTheDoubleScale()
{
    harness().append(cBodovyZdroj, 1);
    harness().append(cPlosnyZdroj, 2);
    harness().append(cLiniovyZdroj, 3);
    harness().window().refill();
    for (int row = 0; row < types.size(); ++row) {
        const QModelIndex index = harness().model().index(row, SourceListModel::NumberColumn);
        const QPixmap shown = index.data(Qt::DecorationRole).value<QIcon>().pixmap(QSize(16, 16), 2.0);
        QCOMPARE(shown.devicePixelRatio(), 2.0);
        QImage drawn = shown.toImage();
        drawn.setDevicePixelRatio(1.0);
        QCOMPARE(drawn, icon(types.at(row), 32).convertToFormat(drawn.format()));
    }
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::TypeIconsTest)

#include "type_icons_test.moc"
