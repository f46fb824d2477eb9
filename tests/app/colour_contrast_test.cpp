// Contrast as the guidelines measure it, and colours drawn to where they can be read.
#include "colour_contrast.h"

#include <QTest>

namespace korvex {

class ColourContrastTest : public QObject {
    Q_OBJECT

private slots:
    void contrastIsThatOfTheGuidelines_data();
    void contrastIsThatOfTheGuidelines();
    void colourThatSufficesIsKept();
    void colourIsDrawnAsLittleAsItTakes();
    void everyGroundCounts();
    void whatNothingHelpsBecomesTheOtherColour();
};

void ColourContrastTest::contrastIsThatOfTheGuidelines_data()
{
    QTest::addColumn<QColor>("one");
    QTest::addColumn<QColor>("other");
    QTest::addColumn<double>("expected");
    QTest::newRow("the strongest") << QColor(Qt::black) << QColor(Qt::white) << 21.0;
    QTest::newRow("the same") << QColor(Qt::red) << QColor(Qt::red) << 1.0;
    QTest::newRow("the palest grey for text on white") << QColor(0x76, 0x76, 0x76) << QColor(Qt::white) << 4.54;
    QTest::newRow("blue on white") << QColor(0, 0, 255) << QColor(Qt::white) << 8.59;
    QTest::newRow("yellow on white") << QColor(255, 255, 0) << QColor(Qt::white) << 1.07;
}

void ColourContrastTest::contrastIsThatOfTheGuidelines()
{
    QFETCH(const QColor, one);
    QFETCH(const QColor, other);
    QFETCH(const double, expected);
    constexpr double rounding = 0.005;
    QVERIFY(qAbs(contrast(one, other) - expected) <= rounding);
    QCOMPARE(contrast(one, other), contrast(other, one));
}

void ColourContrastTest::colourThatSufficesIsKept()
{
    QCOMPARE(drawnTowards(QColor(0, 0, 200), Qt::black, {Qt::white}, 4.5), QColor(0, 0, 200));
}

void ColourContrastTest::colourIsDrawnAsLittleAsItTakes()
{
    const QColor ground(25, 25, 25);
    const QColor drawn = drawnTowards(QColor(0, 0, 255), Qt::white, {ground}, 4.5);
    QVERIFY(contrast(drawn, ground) >= 4.5);
    QVERIFY(contrast(drawn, ground) < 6.0);
    QVERIFY(drawn.blue() > drawn.red());
}

void ColourContrastTest::everyGroundCounts()
{
    const QColor drawn = drawnTowards(Qt::black, Qt::white, {QColor(Qt::black), QColor(60, 60, 60)}, 3.0);
    QVERIFY(contrast(drawn, Qt::black) >= 3.0);
    QVERIFY(contrast(drawn, QColor(60, 60, 60)) >= 3.0);
}

void ColourContrastTest::whatNothingHelpsBecomesTheOtherColour()
{
    QCOMPARE(drawnTowards(Qt::white, Qt::lightGray, {Qt::white}, 4.5), QColor(Qt::lightGray));
}

}  // namespace korvex

QTEST_GUILESS_MAIN(korvex::ColourContrastTest)

#include "colour_contrast_test.moc"
