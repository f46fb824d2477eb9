// What assistive technology sees of the source list: the type and name of a row, which rows are marked, how it is
// sorted. What it is told of changes, screen_reader.sh listens to: only a real display has listeners.
#include "window_harness.h"

#include <QAccessible>
#include <QHeaderView>

namespace korvex {
namespace {

constexpr int columns = SourceListModel::ColumnCount;

/// The place among the children of the number of a row, behind the two of the header.
int numberChild(int row)
{
    return (row + 1) * columns + SourceListModel::NumberColumn;
}

}  // namespace

class SourceListAccessTest : public ShellTest {
    Q_OBJECT

private slots:
    void numberSpeaksTheTypeAndIsDescribedByTheName_data();
    void numberSpeaksTheTypeAndIsDescribedByTheName();
    void nameSpeaksTheName();
    void markedRowIsSelected();
    void rowsAreSelectedAsTheyAreShown();
    void selectingARowMarksIt();
    void headerSpeaksTheColumnsAndTheSorting();
    void headerSortsWhenPressed();
    void actionsOfARowGoThereAndMarkIt();
    void actionsThatACellLacksDoNothing();
    void everyChildKnowsItsPlace();
    void cellBeyondTheRowsIsNone();
    void cellsAreWhereTheyAreDrawn();
    void cellOutsideTheViewportIsOffscreen();
    void refilledListForgetsItsCells();
    void rowAddedBehindLeavesTheCellsBefore();
    void currentRowHasTheFocus();
    void listWithoutRowsHasTheHeaderOnly();

private:
    [[nodiscard]] QAccessibleInterface& list() { return *QAccessible::queryAccessibleInterface(&harness().view()); }
    [[nodiscard]] QAccessibleTableInterface& table() { return *list().tableInterface(); }
    [[nodiscard]] QAccessibleInterface& number(int row) { return *list().child(numberChild(row)); }
    [[nodiscard]] QAccessibleInterface& header(int column) { return *list().child(column); }
    void showNumbers(const QList<int>& numbers)
    {
        harness().fillWithNumbers(numbers);
        harness().show();
    }
};

void SourceListAccessTest::numberSpeaksTheTypeAndIsDescribedByTheName_data()
{
    QTest::addColumn<int>("typeId");
    QTest::addColumn<QString>("spoken");
    QTest::newRow("stack") << cBodovyZdroj.TypZdrojeId << QStringLiteral("Bodový zdroj, 000000042");
    QTest::newRow("area") << cPlosnyZdroj.TypZdrojeId << QStringLiteral("Plošný zdroj, 000000042");
    QTest::newRow("line") << cLiniovyZdroj.TypZdrojeId << QStringLiteral("Liniový zdroj, 000000042");
}

void SourceListAccessTest::numberSpeaksTheTypeAndIsDescribedByTheName()
{
    QFETCH(const int, typeId);
    QFETCH(const QString, spoken);
    harness().append(*sourceTypeOf(typeId), 42, QStringLiteral("Skládka Říčany"));
    harness().model().refill();
    QCOMPARE(number(0).text(QAccessible::Name), spoken);
    QCOMPARE(number(0).text(QAccessible::Description), QStringLiteral("Skládka Říčany"));
    QCOMPARE(number(0).role(), QAccessible::Cell);
}

void SourceListAccessTest::nameSpeaksTheName()
{
    harness().fillWithNames({QStringLiteral("Žďár"), QStringLiteral("Aš")});
    QCOMPARE(table().cellAt(1, SourceListModel::NameColumn)->text(QAccessible::Name), QStringLiteral("Aš"));
    QCOMPARE(table().cellAt(1, SourceListModel::NameColumn)->text(QAccessible::Description), QString());
}

void SourceListAccessTest::markedRowIsSelected()
{
    showNumbers({1, 2, 3});
    harness().mark(QStringLiteral("-X-"));
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < columns; ++column) {
            QAccessibleInterface* const cell = table().cellAt(row, column);
            QVERIFY(cell->state().selectable);
            QCOMPARE(static_cast<bool>(cell->state().selected), row == 1);
            QCOMPARE(cell->tableCellInterface()->isSelected(), row == 1);
        }
        QCOMPARE(table().isRowSelected(row), row == 1);
    }
    QVERIFY(list().state().multiSelectable);
}

void SourceListAccessTest::rowsAreSelectedAsTheyAreShown()
{
    showNumbers({3, 1, 2});
    harness().mark(QStringLiteral("X-X"));
    harness().clickHeader(SourceListModel::NumberColumn);
    QCOMPARE(harness().marks(), QStringLiteral("-XX"));
    QCOMPARE(table().selectedRows(), QList<int>({1, 2}));
    QCOMPARE(table().selectedRowCount(), 2);
    QCOMPARE(table().selectedCellCount(), 4);
    const QList<QAccessibleInterface*> cells(
        {table().cellAt(1, 0), table().cellAt(1, 1), table().cellAt(2, 0), table().cellAt(2, 1)});
    QCOMPARE(table().selectedCells(), cells);
    QCOMPARE(table().selectedColumnCount(), 0);
}

void SourceListAccessTest::selectingARowMarksIt()
{
    showNumbers({1, 2, 3});
    QVERIFY(table().selectRow(2));
    QCOMPARE(harness().marks(), QStringLiteral("--X"));
    QVERIFY(table().unselectRow(2));
    QCOMPARE(harness().marks(), QStringLiteral("---"));
    QVERIFY(!table().selectRow(3));
    QVERIFY(!table().unselectRow(-1));
    QVERIFY(!table().selectColumn(0));
}

void SourceListAccessTest::headerSpeaksTheColumnsAndTheSorting()
{
    showNumbers({2, 1});
    QCOMPARE(header(0).role(), QAccessible::ColumnHeader);
    QCOMPARE(header(0).text(QAccessible::Name), QStringLiteral("Zdroj"));
    QCOMPARE(header(1).text(QAccessible::Name), QStringLiteral("Název zdroje"));
    QCOMPARE(header(0).text(QAccessible::Description), QString());
    QCOMPARE(table().cellAt(1, 1)->tableCellInterface()->columnHeaderCells(), {&header(1)});
    harness().clickHeader(0);
    QCOMPARE(header(0).text(QAccessible::Description), QStringLiteral("seřazeno vzestupně"));
    QCOMPARE(header(1).text(QAccessible::Description), QString());
    harness().clickHeader(0);
    QCOMPARE(header(0).text(QAccessible::Description), QStringLiteral("seřazeno sestupně"));
}

void SourceListAccessTest::headerSortsWhenPressed()
{
    showNumbers({2, 1});
    header(0).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(harness().numberColumn(), QStringList({QStringLiteral("000000001"), QStringLiteral("000000002")}));
}

void SourceListAccessTest::actionsOfARowGoThereAndMarkIt()
{
    showNumbers({1, 2, 3});
    number(2).actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    QCOMPARE(harness().view().currentRow(), 2);
    QCOMPARE(harness().marks(), QStringLiteral("---"));
    number(1).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QCOMPARE(harness().marks(), QStringLiteral("-X-"));
    number(1).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QCOMPARE(harness().marks(), QStringLiteral("---"));
}

void SourceListAccessTest::actionsThatACellLacksDoNothing()
{
    showNumbers({2, 1});
    number(1).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    header(0).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QCOMPARE(harness().marks(), QStringLiteral("--"));
    QVERIFY(harness().view().currentRow() != 1);
    QCOMPARE(harness().numberColumn().first(), QStringLiteral("000000002"));
}

void SourceListAccessTest::everyChildKnowsItsPlace()
{
    showNumbers({1, 2, 3});
    QCOMPARE(list().childCount(), (3 + 1) * columns);
    for (int index = 0; index < list().childCount(); ++index) {
        QAccessibleInterface* const cell = list().child(index);
        QVERIFY(cell != nullptr && cell->isValid());
        QCOMPARE(list().indexOfChild(cell), index);
        QCOMPARE(cell->parent(), &list());
        QCOMPARE(list().child(index), cell);
        if (index < columns)
            continue;
        QCOMPARE(cell->tableCellInterface()->rowIndex(), index / columns - 1);
        QCOMPARE(cell->tableCellInterface()->columnIndex(), index % columns);
        QCOMPARE(cell->tableCellInterface()->table(), &list());
    }
    QCOMPARE(table().rowCount(), 3);
    QCOMPARE(table().columnCount(), columns);
    QCOMPARE(list().indexOfChild(&list()), -1);
}

void SourceListAccessTest::cellBeyondTheRowsIsNone()
{
    showNumbers({1, 2, 3});
    QCOMPARE(list().child(-1), nullptr);
    QCOMPARE(list().child((3 + 1) * columns), nullptr);
    QCOMPARE(table().cellAt(3, 0), nullptr);
    QCOMPARE(table().cellAt(-1, 0), nullptr);
    QCOMPARE(table().cellAt(0, columns), nullptr);
}

void SourceListAccessTest::cellsAreWhereTheyAreDrawn()
{
    showNumbers({1, 2, 3});
    const QPoint place = harness().view().viewport()->mapToGlobal(harness().rowCentre(2));
    QCOMPARE(list().childAt(place.x(), place.y()), &number(2));
    QVERIFY(number(2).rect().contains(place));
    const QPoint above = harness().header().viewport()->mapToGlobal(QPoint(3, 3));
    QCOMPARE(list().childAt(above.x(), above.y()), &header(0));
    QVERIFY(header(0).rect().contains(above));
    QVERIFY(!header(1).rect().contains(above));
    const QPoint below = harness().view().viewport()->mapToGlobal(harness().view().viewport()->rect().bottomLeft());
    QCOMPARE(list().childAt(below.x() + 3, below.y() - 3), nullptr);
}

void SourceListAccessTest::cellOutsideTheViewportIsOffscreen()
{
    QList<int> numbers;
    for (int number = 1; number <= 500; ++number)
        numbers.append(number);
    showNumbers(numbers);
    QVERIFY(!number(0).state().offscreen);
    QVERIFY(number(499).state().offscreen);
}

void SourceListAccessTest::refilledListForgetsItsCells()
{
    showNumbers({1, 2, 3});
    QAccessibleInterface& cell = number(2);
    const QAccessible::Id before = QAccessible::uniqueId(&cell);
    harness().set().clear();
    harness().model().refill();
    QVERIFY(!cell.isValid());
    QVERIFY(cell.state().invalid);
    QCOMPARE(cell.text(QAccessible::Name), QString());
    QCOMPARE(list().childCount(), columns);
    QAccessibleTableModelChangeEvent reset(&harness().view(), QAccessibleTableModelChangeEvent::ModelReset);
    table().modelChange(&reset);
    QCOMPARE(QAccessible::accessibleInterface(before), nullptr);
}

void SourceListAccessTest::rowAddedBehindLeavesTheCellsBefore()
{
    showNumbers({1, 2});
    QAccessibleInterface* const before = &number(1);
    harness().append(cBodovyZdroj, 3);
    harness().model().addRow(false);
    QCOMPARE(&number(1), before);
    QCOMPARE(number(2).text(QAccessible::Name), QStringLiteral("Bodový zdroj, 000000003"));
}

void SourceListAccessTest::currentRowHasTheFocus()
{
    showNumbers({1, 2, 3});
    harness().view().setFocus();
    harness().view().makeCurrent(1);
    QCOMPARE(list().focusChild(), &number(1));
    QVERIFY(number(1).state().focused);
    QVERIFY(!number(0).state().focused);
    QVERIFY(!table().cellAt(1, SourceListModel::NameColumn)->state().focused);
}

void SourceListAccessTest::listWithoutRowsHasTheHeaderOnly()
{
    harness().show();
    QCOMPARE(list().childCount(), columns);
    QCOMPARE(list().focusChild(), nullptr);
    QCOMPARE(table().selectedRows(), QList<int>());
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::SourceListAccessTest)

#include "source_list_access_test.moc"
