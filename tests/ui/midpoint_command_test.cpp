// The midpoint command of the main window: its question, its report, and what it leaves alone.
#include "window_harness.h"

#include <QAbstractItemModel>
#include <QSignalSpy>

namespace korvex {
namespace {

const QString title = QStringLiteral("Výpočet středového bodu úseku liniových zdrojů");

QString question()
{
    const QStringList lines{QStringLiteral("Pro liniové zdroje z vybrané množiny zdrojů"),
        QStringLiteral("budou vypočítány souřadnice středového bodu úseku."), QString(),
        QStringLiteral("Mám spustit výpočet ?")};
    return describe({title, lines.join(QLatin1Char('\n')), BoxIcon::Question, BoxButtons::YesNo, {}});
}

QString report()
{
    return describe({title, QStringLiteral("Hotovo…"), BoxIcon::Information, BoxButtons::Ok, {}});
}

}  // namespace

class MidpointCommandTest : public ShellTest {
    Q_OBJECT

private slots:
    void asksAndReportsLetterByLetter();
    void markedLinesGetTheirMidpoints();
    void answeredNoChangesNothingAndReportsNothing();
    void asksAndReportsAlsoWithoutAMarkedLine_data();
    void asksAndReportsAlsoWithoutAMarkedLine();
    void nothingIsComputedBeforeTheAnswer();
    void pendingEventsRunBeforeTheCalculation();
    void overflowIsARunTimeErrorWithoutTheReport();
    void linesAreTakenByTheirTagsAfterSorting();
    void listMarksAndModifiedFlagAreLeftAlone();

private:
    void addLine(int number, float x1, float y1, float x2, float y2)
    {
        harness().append(cLiniovyZdroj, number);
        cZdroje& source = harness().set().last();
        source.Parameters(1, x1);
        source.Parameters(2, y1);
        source.Parameters(3, x2);
        source.Parameters(4, y2);
    }
    void show(const QString& marks)
    {
        harness().window().refill();
        harness().mark(marks);
    }
    void run()
    {
        harness().boxes.answerNext(BoxAnswer::Yes);
        harness().boxes.answerNext(BoxAnswer::Ok);
        harness().item("mnuVypocetXY").trigger();
    }
    QStringList boxes()
    {
        QStringList texts;
        for (const BoxRequest& box : harness().boxes.shown())
            texts << describe(box);
        return texts;
    }
    QList<int> position(std::size_t place) { return {harness().set().at(place).X(), harness().set().at(place).Y()}; }
};

void MidpointCommandTest::asksAndReportsLetterByLetter()
{
    addLine(1, 1, 10, 2, 20);
    show(QStringLiteral("X"));
    run();
    QCOMPARE(boxes(), QStringList({question(), report()}));
    QCOMPARE(harness().boxes.shown().first().text.count(QLatin1Char('\n')), 3);
}

void MidpointCommandTest::markedLinesGetTheirMidpoints()
{
    addLine(1, 1, 10, 2, 20);
    addLine(2, 2, 10, 3, 20);
    addLine(3, 100.6F, -3, 200, 0);
    show(QStringLiteral("X-X"));
    run();
    QCOMPARE(position(1), QList<int>({2, 15}));
    QCOMPARE(position(2), QList<int>({0, 0}));
    QCOMPARE(position(3), QList<int>({150, -2}));
}

void MidpointCommandTest::answeredNoChangesNothingAndReportsNothing()
{
    addLine(1, 1, 10, 2, 20);
    show(QStringLiteral("X"));
    harness().boxes.answerNext(BoxAnswer::No);
    harness().item("mnuVypocetXY").trigger();
    QCOMPARE(boxes(), QStringList{question()});
    QCOMPARE(position(1), QList<int>({0, 0}));
}

void MidpointCommandTest::asksAndReportsAlsoWithoutAMarkedLine_data()
{
    QTest::addColumn<QString>("marks");
    QTest::newRow("nothing marked") << QStringLiteral("---");
    QTest::newRow("no line marked") << QStringLiteral("-XX");
}

void MidpointCommandTest::asksAndReportsAlsoWithoutAMarkedLine()
{
    QFETCH(const QString, marks);
    addLine(1, 1, 10, 2, 20);
    harness().append(cBodovyZdroj, 2);
    harness().append(cPlosnyZdroj, 3);
    for (const std::size_t place : {2U, 3U}) {
        for (int index = 1; index <= 4; ++index)
            harness().set().at(place).Parameters(index, 10);
    }
    show(marks);
    run();
    QCOMPARE(boxes(), QStringList({question(), report()}));
    for (const std::size_t place : {1U, 2U, 3U})
        QCOMPARE(position(place), QList<int>({0, 0}));
}

void MidpointCommandTest::nothingIsComputedBeforeTheAnswer()
{
    addLine(1, 1, 10, 2, 20);
    show(QStringLiteral("X"));
    harness().boxes.answerNext(BoxAnswer::Yes, [this] { QCOMPARE(position(1), QList<int>({0, 0})); });
    harness().boxes.answerNext(BoxAnswer::Ok, [this] { QCOMPARE(position(1), QList<int>({2, 15})); });
    harness().item("mnuVypocetXY").trigger();
    QCOMPARE(harness().boxes.shown().size(), 2);
}

void MidpointCommandTest::pendingEventsRunBeforeTheCalculation()
{
    addLine(1, 1, 10, 2, 20);
    show(QStringLiteral("X"));
    QList<QList<int>> seen;
    harness().boxes.answerNext(BoxAnswer::Yes, [this, &seen] {
        QMetaObject::invokeMethod(
            &harness().window(), [this, &seen] { seen << position(1); }, Qt::QueuedConnection);
    });
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().item("mnuVypocetXY").trigger();
    const QList<QList<int>> unset{{0, 0}};
    QCOMPARE(seen, unset);
    QCOMPARE(position(1), QList<int>({2, 15}));
}

void MidpointCommandTest::overflowIsARunTimeErrorWithoutTheReport()
{
    addLine(1, 1, 10, 2, 20);
    addLine(2, 3e9F, 10, 3e9F, 20);
    addLine(3, 1, 10, 2, 20);
    show(QStringLiteral("XXX"));
    run();
    QCOMPARE(boxes(),
        QStringList({question(),
            describe({QStringLiteral("Chyba při běhu programu"), QStringLiteral("Číslo je mimo rozsah: zdroj 2."),
                BoxIcon::Critical, BoxButtons::Ok, {}})}));
    QCOMPARE(position(1), QList<int>({2, 15}));
    QCOMPARE(position(2), QList<int>({0, 0}));
    QCOMPARE(position(3), QList<int>({0, 0}));
    QVERIFY(!harness().set().modified());
}

void MidpointCommandTest::linesAreTakenByTheirTagsAfterSorting()
{
    addLine(9, 1, 10, 2, 20);
    addLine(5, 3, 30, 5, 40);
    show(QStringLiteral("--"));
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    QCOMPARE(harness().numberColumn().first(), QStringLiteral("000000005"));
    harness().mark(QStringLiteral("X-"));
    run();
    QCOMPARE(position(1), QList<int>({0, 0}));
    QCOMPARE(position(2), QList<int>({4, 35}));
}

void MidpointCommandTest::listMarksAndModifiedFlagAreLeftAlone()
{
    addLine(1, 1, 10, 2, 20);
    addLine(2, 1, 10, 2, 20);
    show(QStringLiteral("-X"));
    for (const bool modified : {false, true}) {
        harness().set().modified(modified);
        const QSignalSpy resets(&harness().model(), &QAbstractItemModel::modelReset);
        const QSignalSpy changes(&harness().model(), &QAbstractItemModel::dataChanged);
        const QSignalSpy layouts(&harness().model(), &QAbstractItemModel::layoutChanged);
        run();
        QCOMPARE(resets.count() + changes.count() + layouts.count(), 0);
        QCOMPARE(harness().marks(), QStringLiteral("-X"));
        QCOMPARE(harness().set().modified(), modified);
    }
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::MidpointCommandTest)

#include "midpoint_command_test.moc"
