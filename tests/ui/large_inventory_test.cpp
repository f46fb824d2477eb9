// The list with a hundred thousand sources: every command gives the right rows and none is quadratic.
#include "window_harness.h"

#include <QElapsedTimer>
#include <QLabel>

namespace korvex {
namespace {

constexpr int sourceCount = 100'000;

/// What is quadratic takes minutes with so many rows; a slow machine, or one that checks every access, does not.
constexpr qint64 mostMilliseconds = 5'000;

}  // namespace

class LargeInventoryTest : public ShellTest {
    Q_OBJECT

private slots:
    void markingInvertingSortingAndDeletingEverySecondRow();
    void markingByMouseInManyMarkedRows();
    void findingADuplicateOfEachSource();

private:
    void fill();
    [[nodiscard]] qsizetype markedCount() { return harness().marks().count(QLatin1Char('X')); }
};

/// Numbers fall from sourceCount to 1; names are in no order.
void LargeInventoryTest::fill()
{
    SourceSet& set = harness().set();
    set.reserve(sourceCount);
    for (int number = sourceCount; number > 0; --number)
        harness().append(number % 2 == 0 ? cBodovyZdroj : cLiniovyZdroj, number,
            QStringLiteral("Zdroj %1").arg(number * 7919 % sourceCount));
    harness().window().refill();
    harness().show();
    QCOMPARE(harness().model().rowCount(), sourceCount);
}

void LargeInventoryTest::markingInvertingSortingAndDeletingEverySecondRow()
{
    fill();
    QElapsedTimer timer;
    timer.start();

    harness().item("mnuSelectBodove").trigger();
    QCOMPARE(markedCount(), sourceCount / 2);
    QCOMPARE(harness().marks().left(4), QStringLiteral("X-X-"));
    QTest::keyClick(&harness().view(), Qt::Key_Asterisk, Qt::KeypadModifier);
    QCOMPARE(harness().marks().left(4), QStringLiteral("-X-X"));
    for (int row = 0; row < sourceCount; ++row)
        harness().model().mark(row, row % 2 == 0);
    QCOMPARE(harness().marks().left(4), QStringLiteral("X-X-"));

    harness().clickHeader(SourceListModel::NumberColumn);
    QCOMPARE(harness().model().numberText(0), QStringLiteral("000000001"));
    QCOMPARE(harness().marks().left(4), QStringLiteral("-X-X"));
    harness().clickHeader(SourceListModel::NameColumn);
    QCOMPARE(harness().model().nameText(0), QStringLiteral("Zdroj 0"));
    QCOMPARE(harness().model().nameText(1), QStringLiteral("Zdroj 1"));
    QCOMPARE(harness().model().nameText(2), QStringLiteral("Zdroj 10"));
    harness().clickHeader(SourceListModel::NameColumn);
    QCOMPARE(harness().model().nameText(0), QStringLiteral("Zdroj 99999"));
    QCOMPARE(markedCount(), sourceCount / 2);

    QTest::keyClick(&harness().view(), Qt::Key_Delete);
    QCOMPARE(harness().model().rowCount(), sourceCount / 2);
    QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: 50000"));
    QCOMPARE(harness().model().numberText(0), QStringLiteral("000099999"));
    QCOMPARE(harness().model().numberText(sourceCount / 2 - 1), QStringLiteral("000000001"));
    QCOMPARE(markedCount(), 0);

    QVERIFY2(timer.elapsed() < mostMilliseconds, qPrintable(QString::number(timer.elapsed())));
}

void LargeInventoryTest::markingByMouseInManyMarkedRows()
{
    fill();
    QElapsedTimer timer;
    timer.start();
    harness().item("mnuSelectBodove").trigger();
    constexpr int clicks = 100;
    for (int i = 0; i < clicks; ++i)
        harness().clickRow(1, Qt::ControlModifier);
    QCOMPARE(harness().marks().left(4), QStringLiteral("X-X-"));
    harness().clickRow(1);
    QCOMPARE(markedCount(), 1);
    QTest::keyClick(&harness().view(), Qt::Key_End, Qt::ShiftModifier);
    QCOMPARE(markedCount(), sourceCount - 1);
    QCOMPARE(harness().view().currentRow(), sourceCount - 1);
    QVERIFY2(timer.elapsed() < mostMilliseconds, qPrintable(QString::number(timer.elapsed())));
}

void LargeInventoryTest::findingADuplicateOfEachSource()
{
    fill();
    for (int number = 1; number <= sourceCount; ++number)
        harness().append(number % 2 == 0 ? cBodovyZdroj : cLiniovyZdroj, number);
    harness().window().refill();
    QElapsedTimer timer;
    timer.start();
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().item("mnuVKontrolaDuplicit").trigger();
    QCOMPARE(harness().boxes.shown().value(0).text, QStringLiteral("Bylo nalezeno 100000 duplicit."));
    QCOMPARE(markedCount(), sourceCount);
    QCOMPARE(harness().marks().left(4), QStringLiteral("-X-X"));
    QVERIFY2(timer.elapsed() < mostMilliseconds, qPrintable(QString::number(timer.elapsed())));
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::LargeInventoryTest)

#include "large_inventory_test.moc"
