// The commands on the sources: deleting, marking by type, and the duplicate check, with their messages.
#include "duplicate_report.h"
#include "window_harness.h"

#include <QHeaderView>
#include <QLabel>

namespace korvex {
namespace {

QString note(const QString& title, const QString& text)
{
    return describe({title, text, BoxIcon::Information, BoxButtons::Ok, {}});
}

const QString duplicateTitle = QStringLiteral("Kontrola duplicit");
const QString noDuplicates = QStringLiteral("Nebyly nalezeny žádné duplicity.");

}  // namespace

class SourceCommandsTest : public ShellTest {
    Q_OBJECT

private slots:
    void deletingMarkedRemovesExactlyTheMarkedSources();
    void deletingMarkedAfterSortingRemovesExactlyTheMarkedSources();
    void deletingMarkedSetsTheModifiedFlag();
    void deletingMarkedWithoutAMarkRemovesNothingAndStillSetsTheModifiedFlag();
    void deletingMarkedAsksNothingAndShowsItsStatusTexts();
    void deletingMarkedRefillsTheList();
    void deletingTheLastSourcesResetsTheNextSourceNumber();

    void deletingAllAsksFirst();
    void deletingAllAnsweredNoChangesNothing();
    void deletingAllEmptiesTheSetTheListAndTheComment();
    void deletingAllDoesNotTouchTheModifiedFlag_data();
    void deletingAllDoesNotTouchTheModifiedFlag();
    void deletingAllResetsTheNextSourceNumber();
    void deletingAllShowsTheHourglassOnlyBehindTheQuestion();

    void markingByTypeMarksAllRowsOfTheType_data();
    void markingByTypeMarksAllRowsOfTheType();
    void markingByTypeTwiceChangesNothing();
    void markingPointsThenLinesLeavesBothMarked();
    void markingByTypeLeavesTheMarksOfOtherTypes();
    void markingByTypeAfterSortingFollowsTheTags();
    void markingAllMarksEveryRowAndShowsItsStatusText();

    void duplicateCheckMarksTheSecondOfTwoEqualSources();
    void duplicateCheckCountsAllButTheFirstOfARun();
    void duplicateCheckIgnoresNameTypeAndPlaceWhenNumberAndStackAreEqual();
    void sameNumberWithAnotherStackNumberIsNoDuplicate();
    void quietCheckSaysNothingWhenThereIsNothing();
    void quietCheckSaysHowManyThereAre();
    void duplicateCheckLeavesTheListSortedByNumber();
    void duplicateCheckKeepsTheMarksThatWereThere();
    void duplicateCheckComparesNeighboursOnly();
    void duplicateCheckShowsItsStatusTextAndClearsItBeforeTheMessage();
    void duplicateCheckDoesNotSetTheModifiedFlag();

private:
    /// Point 1, area 2, line 3, point 4, area 5, line 6.
    void fillWithTypes();
};

void SourceCommandsTest::fillWithTypes()
{
    harness().append(cBodovyZdroj, 1);
    harness().append(cPlosnyZdroj, 2);
    harness().append(cLiniovyZdroj, 3);
    harness().append(cBodovyZdroj, 4);
    harness().append(cPlosnyZdroj, 5);
    harness().append(cLiniovyZdroj, 6);
    harness().window().refill();
}

void SourceCommandsTest::deletingMarkedRemovesExactlyTheMarkedSources()
{
    harness().fillWithNumbers({1, 2, 3, 4, 5});
    harness().mark(QStringLiteral("X--XX"));
    harness().item("mnuVZrusVybrane").trigger();
    QCOMPARE(harness().numberColumn(), QStringList({QStringLiteral("000000002"), QStringLiteral("000000003")}));
    QCOMPARE(harness().set().size(), std::size_t{2});
}

void SourceCommandsTest::deletingMarkedAfterSortingRemovesExactlyTheMarkedSources()
{
    harness().fillWithNumbers({5, 3, 4, 1, 2});
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().mark(QStringLiteral("XX---"));
    harness().item("mnuVZrusVybrane").trigger();
    QCOMPARE(harness().numberColumn(),
        QStringList({QStringLiteral("000000005"), QStringLiteral("000000003"), QStringLiteral("000000004")}));
}

void SourceCommandsTest::deletingMarkedSetsTheModifiedFlag()
{
    harness().fillWithNumbers({1, 2});
    harness().mark(QStringLiteral("X-"));
    harness().item("mnuVZrusVybrane").trigger();
    QVERIFY(harness().set().modified());
}

void SourceCommandsTest::deletingMarkedWithoutAMarkRemovesNothingAndStillSetsTheModifiedFlag()
{
    harness().fillWithNumbers({1, 2});
    harness().item("mnuVZrusVybrane").trigger();
    QCOMPARE(harness().set().size(), std::size_t{2});
    QVERIFY(harness().set().modified());
}

void SourceCommandsTest::deletingMarkedAsksNothingAndShowsItsStatusTexts()
{
    harness().fillWithNumbers({1, 2});
    harness().mark(QStringLiteral("X-"));
    harness().show();
    const StatusSpy spy(harness().window());
    harness().item("mnuVZrusVybrane").trigger();
    QCOMPARE(spy.texts().mid(0, 2),
        QStringList({QStringLiteral("Ruším vybrané zdroje…"), QStringLiteral("Zobrazuji zdroje…")}));
    QCOMPARE(harness().status().text(), QString());
    QVERIFY(harness().boxes.shown().isEmpty());
}

void SourceCommandsTest::deletingMarkedRefillsTheList()
{
    harness().fillWithNumbers({3, 1, 2});
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().mark(QStringLiteral("--X"));
    harness().item("mnuVZrusVybrane").trigger();
    QCOMPARE(harness().numberColumn(), QStringList({QStringLiteral("000000001"), QStringLiteral("000000002")}));
    QCOMPARE(harness().marks(), QStringLiteral("--"));
    QVERIFY(!harness().header().isSortIndicatorShown());
    QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: 2"));
}

void SourceCommandsTest::deletingTheLastSourcesResetsTheNextSourceNumber()
{
    harness().fillWithNumbers({1});
    QCOMPARE(harness().window().sourceNumbers().next().value_or(0), 50001);
    harness().mark(QStringLiteral("X"));
    harness().item("mnuVZrusVybrane").trigger();
    QCOMPARE(harness().window().sourceNumbers().last(), 50000);
    QVERIFY(!harness().item("mnuVZrus").isEnabled());
}

void SourceCommandsTest::deletingAllAsksFirst()
{
    harness().fillWithNumbers({1});
    harness().boxes.answerNext(BoxAnswer::No);
    harness().item("mnuVZrus").trigger();
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(describe(harness().boxes.shown().first()),
        describe({QStringLiteral("Zrušit všechny zdroje"), QStringLiteral("Mám opravdu zrušit všechny zdroje ?"),
            BoxIcon::Question, BoxButtons::YesNo, {}}));
}

void SourceCommandsTest::deletingAllAnsweredNoChangesNothing()
{
    harness().fillWithNumbers({2, 1});
    harness().window().comment(QStringLiteral("Obec"));
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().mark(QStringLiteral("X-"));
    harness().boxes.answerNext(BoxAnswer::No);
    harness().item("mnuVZrus").trigger();
    QCOMPARE(harness().numberColumn(), QStringList({QStringLiteral("000000001"), QStringLiteral("000000002")}));
    QCOMPARE(harness().marks(), QStringLiteral("X-"));
    QCOMPARE(harness().window().comment(), QStringLiteral("Obec"));
    QVERIFY(!harness().set().modified());
}

void SourceCommandsTest::deletingAllEmptiesTheSetTheListAndTheComment()
{
    harness().fillWithNumbers({1, 2});
    harness().window().comment(QStringLiteral("Obec"));
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().item("mnuVZrus").trigger();
    QVERIFY(harness().set().empty());
    QCOMPARE(harness().model().rowCount(), 0);
    QCOMPARE(harness().window().comment(), QString());
    QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: 0"));
    QVERIFY(!harness().item("mnuVZrus").isEnabled());
}

void SourceCommandsTest::deletingAllDoesNotTouchTheModifiedFlag_data()
{
    QTest::addColumn<bool>("modified");
    QTest::newRow("clear before") << false;
    QTest::newRow("set before") << true;
}

void SourceCommandsTest::deletingAllDoesNotTouchTheModifiedFlag()
{
    QFETCH(const bool, modified);
    harness().fillWithNumbers({1, 2});
    harness().set().modified(modified);
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().item("mnuVZrus").trigger();
    QCOMPARE(harness().set().modified(), modified);
}

void SourceCommandsTest::deletingAllResetsTheNextSourceNumber()
{
    harness().fillWithNumbers({1, 2});
    QCOMPARE(harness().window().sourceNumbers().next().value_or(0), 50001);
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().item("mnuVZrus").trigger();
    QCOMPARE(harness().window().sourceNumbers().last(), 50000);
}

void SourceCommandsTest::deletingAllShowsTheHourglassOnlyBehindTheQuestion()
{
    harness().fillWithNumbers({1, 2});
    harness().show();
    const StatusSpy spy(harness().window());
    bool hourglassWhileAsking = true;
    harness().boxes.answerNext(
        BoxAnswer::Yes, [&] { hourglassWhileAsking = QGuiApplication::overrideCursor() != nullptr; });
    harness().item("mnuVZrus").trigger();
    QVERIFY(!hourglassWhileAsking);
    QVERIFY(!spy.moments().isEmpty());
    QCOMPARE(spy.moments().first().text, QStringLiteral("Zobrazuji zdroje…"));
    QVERIFY(spy.moments().first().hourglass);
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

void SourceCommandsTest::markingByTypeMarksAllRowsOfTheType_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("marks");
    QTest::newRow("points") << QStringLiteral("mnuSelectBodove") << QStringLiteral("X--X--");
    QTest::newRow("areas") << QStringLiteral("mnuSelectPlosne") << QStringLiteral("-X--X-");
    QTest::newRow("lines") << QStringLiteral("mnuSelectLiniove") << QStringLiteral("--X--X");
}

void SourceCommandsTest::markingByTypeMarksAllRowsOfTheType()
{
    QFETCH(const QString, item);
    QFETCH(const QString, marks);
    fillWithTypes();
    harness().find<QAction>(item.toLatin1().constData()).trigger();
    QCOMPARE(harness().marks(), marks);
    QVERIFY(!harness().set().modified());
}

void SourceCommandsTest::markingByTypeTwiceChangesNothing()
{
    fillWithTypes();
    harness().item("mnuSelectPlosne").trigger();
    harness().item("mnuSelectPlosne").trigger();
    QCOMPARE(harness().marks(), QStringLiteral("-X--X-"));
}

void SourceCommandsTest::markingPointsThenLinesLeavesBothMarked()
{
    fillWithTypes();
    harness().item("mnuSelectBodove").trigger();
    harness().item("mnuSelectLiniove").trigger();
    QCOMPARE(harness().marks(), QStringLiteral("X-XX-X"));
}

void SourceCommandsTest::markingByTypeLeavesTheMarksOfOtherTypes()
{
    fillWithTypes();
    harness().mark(QStringLiteral("-X----"));
    harness().item("mnuSelectLiniove").trigger();
    QCOMPARE(harness().marks(), QStringLiteral("-XX--X"));
}

void SourceCommandsTest::markingByTypeAfterSortingFollowsTheTags()
{
    fillWithTypes();
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().item("mnuSelectBodove").trigger();
    QCOMPARE(harness().marks(), QStringLiteral("--X--X"));
}

void SourceCommandsTest::markingAllMarksEveryRowAndShowsItsStatusText()
{
    fillWithTypes();
    harness().mark(QStringLiteral("-X----"));
    harness().show();
    const StatusSpy spy(harness().window());
    harness().item("mnuVSelectAll").trigger();
    QCOMPARE(harness().marks(), QStringLiteral("XXXXXX"));
    QCOMPARE(spy.texts().value(0), QStringLiteral("Označuji všechny zdroje…"));
    QCOMPARE(harness().status().text(), QString());
}

void SourceCommandsTest::duplicateCheckMarksTheSecondOfTwoEqualSources()
{
    harness().fillWithNumbers({7, 3, 7});
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().item("mnuVKontrolaDuplicit").trigger();
    QCOMPARE(
        describe(harness().boxes.shown().value(0)), note(duplicateTitle, QStringLiteral("Bylo nalezeno 1 duplicit.")));
    QCOMPARE(harness().marks(), QStringLiteral("--X"));
    QCOMPARE(harness().model().tag(2), std::size_t{3});
}

void SourceCommandsTest::duplicateCheckCountsAllButTheFirstOfARun()
{
    harness().fillWithNumbers({7, 7, 7, 8});
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().item("mnuVKontrolaDuplicit").trigger();
    QCOMPARE(
        describe(harness().boxes.shown().value(0)), note(duplicateTitle, QStringLiteral("Bylo nalezeno 2 duplicit.")));
    QCOMPARE(harness().marks(), QStringLiteral("-XX-"));
}

void SourceCommandsTest::duplicateCheckIgnoresNameTypeAndPlaceWhenNumberAndStackAreEqual()
{
    harness().append(cPlosnyZdroj, 7, QStringLiteral("Náměstí"));
    harness().append(cLiniovyZdroj, 7, QStringLiteral("Silnice"));
    harness().set().last().X(100);
    harness().window().refill();
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().item("mnuVKontrolaDuplicit").trigger();
    QCOMPARE(
        describe(harness().boxes.shown().value(0)), note(duplicateTitle, QStringLiteral("Bylo nalezeno 1 duplicit.")));
    QCOMPARE(harness().marks(), QStringLiteral("-X"));
}

void SourceCommandsTest::sameNumberWithAnotherStackNumberIsNoDuplicate()
{
    harness().append(cBodovyZdroj, 7);
    harness().append(cPlosnyZdroj, 7);
    harness().window().refill();
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().item("mnuVKontrolaDuplicit").trigger();
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(describe(harness().boxes.shown().value(0)), note(duplicateTitle, noDuplicates));
    QCOMPARE(harness().marks(), QStringLiteral("--"));
}

void SourceCommandsTest::quietCheckSaysNothingWhenThereIsNothing()
{
    harness().fillWithNumbers({2, 1});
    runDuplicateCheck(harness().window(), DuplicateReport::OnlyFound);
    QVERIFY(harness().boxes.shown().isEmpty());
    QCOMPARE(harness().numberColumn(), QStringList({QStringLiteral("000000001"), QStringLiteral("000000002")}));
}

void SourceCommandsTest::quietCheckSaysHowManyThereAre()
{
    harness().fillWithNumbers({2, 2});
    harness().boxes.answerNext(BoxAnswer::Ok);
    runDuplicateCheck(harness().window(), DuplicateReport::OnlyFound);
    QCOMPARE(
        describe(harness().boxes.shown().value(0)), note(duplicateTitle, QStringLiteral("Bylo nalezeno 1 duplicit.")));
}

void SourceCommandsTest::duplicateCheckLeavesTheListSortedByNumber()
{
    harness().fillWithNumbers({30, 4, 100});
    // Descending before: the check sorts ascending all the same.
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().item("mnuVKontrolaDuplicit").trigger();
    QCOMPARE(harness().numberColumn(),
        QStringList({QStringLiteral("000000004"), QStringLiteral("000000030"), QStringLiteral("000000100")}));
    QVERIFY(harness().header().isSortIndicatorShown());
    QCOMPARE(harness().header().sortIndicatorSection(), 0);
    QCOMPARE(harness().header().sortIndicatorOrder(), Qt::AscendingOrder);
    harness().clickHeader(SourceListModel::NumberColumn);
    QCOMPARE(harness().numberColumn().first(), QStringLiteral("000000100"));
}

void SourceCommandsTest::duplicateCheckKeepsTheMarksThatWereThere()
{
    harness().fillWithNumbers({5, 9, 9});
    harness().mark(QStringLiteral("X--"));
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().item("mnuVKontrolaDuplicit").trigger();
    QCOMPARE(
        describe(harness().boxes.shown().value(0)), note(duplicateTitle, QStringLiteral("Bylo nalezeno 1 duplicit.")));
    QCOMPARE(harness().marks(), QStringLiteral("X-X"));
}

void SourceCommandsTest::duplicateCheckComparesNeighboursOnly()
{
    harness().append(cBodovyZdroj, 7);
    harness().append(cPlosnyZdroj, 7);
    harness().append(cBodovyZdroj, 7);
    harness().window().refill();
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().item("mnuVKontrolaDuplicit").trigger();
    QCOMPARE(describe(harness().boxes.shown().value(0)), note(duplicateTitle, noDuplicates));
}

void SourceCommandsTest::duplicateCheckShowsItsStatusTextAndClearsItBeforeTheMessage()
{
    harness().fillWithNumbers({1, 2});
    harness().show();
    const StatusSpy spy(harness().window());
    QString whileShown = QStringLiteral("not shown");
    harness().boxes.answerNext(BoxAnswer::Ok, [&] { whileShown = harness().status().text(); });
    harness().item("mnuVKontrolaDuplicit").trigger();
    QCOMPARE(spy.texts().value(0), QStringLiteral("Kontroluji duplicity…"));
    QCOMPARE(whileShown, QString());
}

void SourceCommandsTest::duplicateCheckDoesNotSetTheModifiedFlag()
{
    harness().fillWithNumbers({1, 1});
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().item("mnuVKontrolaDuplicit").trigger();
    QVERIFY(!harness().set().modified());
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::SourceCommandsTest)

#include "source_commands_test.moc"
