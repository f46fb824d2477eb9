// Marking rows of the list by mouse and keyboard, and the menu of the right button.
#include "window_harness.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>

namespace korvex {

class SourceListMarksTest : public ShellTest {
    Q_OBJECT

private slots:
    void clickMarksOneRowAndMakesItCurrent();
    void clickShowsNumberThreeBlanksAndName();
    void controlClickAddsAndTakesAway();
    void shiftClickExtendsFromTheLastClick();
    void controlShiftClickAddsTheRange();
    void draggingMarksTheRowsPassed();
    void clickBelowTheRowsUnmarksAll();
    void clickOnTheNameColumnWorksAsOnTheNumberColumn();

    void arrowKeysMarkTheRowTheyReach();
    void shiftArrowExtendsTheMarks();
    void controlArrowMovesWithoutMarking();
    void homeAndEndReachTheFirstAndLastRow();
    void leftAndRightArrowStayInTheRow();
    void spaceMarksTheCurrentRowAlone();
    void controlSpaceTogglesTheCurrentRow();
    void controlAMarksAllRows();
    void keysInAnEmptyListDoNothing();

    void rightClickOpensTheSourcesMenuOnTheRelease();
    void rightClickUpdatesTheMenuState();
    void rightClickOnAMarkedRowKeepsTheMarks();
    void rightClickOnAnUnmarkedRowMarksItAlone();
    void contextMenuEventOfTheMouseOpensNothing();
    void contextMenuEventOfTheKeyboardOpensTheSourcesMenu();

private:
    void showNumbers(const QList<int>& numbers);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
};

void SourceListMarksTest::showNumbers(const QList<int>& numbers)
{
    harness().fillWithNumbers(numbers);
    harness().show();
}

void SourceListMarksTest::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&harness().view(), key, modifiers);
}

void SourceListMarksTest::clickMarksOneRowAndMakesItCurrent()
{
    showNumbers({1, 2, 3});
    harness().mark(QStringLiteral("X-X"));
    harness().clickRow(1);
    QCOMPARE(harness().marks(), QStringLiteral("-X-"));
    QCOMPARE(harness().view().currentRow(), 1);
}

void SourceListMarksTest::clickShowsNumberThreeBlanksAndName()
{
    harness().fillWithNames({QStringLiteral("Kotelna"), QStringLiteral("Obec Žďár")});
    harness().show();
    harness().clickRow(1);
    QCOMPARE(harness().status().text(), QStringLiteral("000000002   Obec Žďár"));
    harness().clickRow(0, Qt::ControlModifier, Qt::LeftButton, SourceListModel::NameColumn);
    QCOMPARE(harness().status().text(), QStringLiteral("000000001   Kotelna"));
}

void SourceListMarksTest::controlClickAddsAndTakesAway()
{
    showNumbers({1, 2, 3});
    harness().clickRow(0);
    harness().clickRow(2, Qt::ControlModifier);
    QCOMPARE(harness().marks(), QStringLiteral("X-X"));
    harness().clickRow(0, Qt::ControlModifier);
    QCOMPARE(harness().marks(), QStringLiteral("--X"));
    QCOMPARE(harness().view().currentRow(), 0);
}

void SourceListMarksTest::shiftClickExtendsFromTheLastClick()
{
    showNumbers({1, 2, 3, 4, 5});
    harness().clickRow(2);
    harness().clickRow(4, Qt::ShiftModifier);
    QCOMPARE(harness().marks(), QStringLiteral("--XXX"));
    harness().clickRow(1, Qt::ShiftModifier);
    QCOMPARE(harness().marks(), QStringLiteral("-XX--"));
}

void SourceListMarksTest::controlShiftClickAddsTheRange()
{
    showNumbers({1, 2, 3, 4, 5});
    harness().clickRow(0);
    harness().clickRow(3, Qt::ControlModifier);
    harness().clickRow(4, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(harness().marks(), QStringLiteral("X--XX"));
}

void SourceListMarksTest::draggingMarksTheRowsPassed()
{
    showNumbers({1, 2, 3, 4, 5});
    QWidget* const viewport = harness().view().viewport();
    QTest::mousePress(viewport, Qt::LeftButton, {}, harness().rowCentre(1));
    QTest::mouseMove(viewport, harness().rowCentre(3));
    QCOMPARE(harness().marks(), QStringLiteral("-XXX-"));
    QTest::mouseMove(viewport, harness().rowCentre(2));
    QCOMPARE(harness().marks(), QStringLiteral("-XX--"));
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, harness().rowCentre(2));
    QCOMPARE(harness().marks(), QStringLiteral("-XX--"));
    QCOMPARE(harness().view().currentRow(), 2);
}

void SourceListMarksTest::clickBelowTheRowsUnmarksAll()
{
    showNumbers({1, 2});
    harness().mark(QStringLiteral("XX"));
    const QPoint below = harness().rowCentre(1) + QPoint(0, 3 * harness().view().rowHeight(1));
    QTest::mouseClick(harness().view().viewport(), Qt::LeftButton, Qt::ControlModifier, below);
    QCOMPARE(harness().marks(), QStringLiteral("XX"));
    QTest::mouseClick(harness().view().viewport(), Qt::LeftButton, {}, below);
    QCOMPARE(harness().marks(), QStringLiteral("--"));
}

void SourceListMarksTest::clickOnTheNameColumnWorksAsOnTheNumberColumn()
{
    showNumbers({1, 2, 3});
    harness().clickRow(1, {}, Qt::LeftButton, SourceListModel::NameColumn);
    QCOMPARE(harness().marks(), QStringLiteral("-X-"));
    QCOMPARE(harness().view().currentRow(), 1);
}

void SourceListMarksTest::arrowKeysMarkTheRowTheyReach()
{
    showNumbers({1, 2, 3});
    harness().clickRow(0);
    key(Qt::Key_Down);
    QCOMPARE(harness().marks(), QStringLiteral("-X-"));
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    QCOMPARE(harness().marks(), QStringLiteral("--X"));
    key(Qt::Key_Up);
    QCOMPARE(harness().marks(), QStringLiteral("-X-"));
    QCOMPARE(harness().view().currentRow(), 1);
}

void SourceListMarksTest::shiftArrowExtendsTheMarks()
{
    showNumbers({1, 2, 3, 4});
    harness().clickRow(1);
    key(Qt::Key_Down, Qt::ShiftModifier);
    key(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(harness().marks(), QStringLiteral("-XXX"));
    key(Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(harness().marks(), QStringLiteral("-XX-"));
}

void SourceListMarksTest::controlArrowMovesWithoutMarking()
{
    showNumbers({1, 2, 3});
    harness().clickRow(0);
    key(Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(harness().view().currentRow(), 1);
    QCOMPARE(harness().marks(), QStringLiteral("X--"));
}

void SourceListMarksTest::homeAndEndReachTheFirstAndLastRow()
{
    showNumbers({1, 2, 3});
    harness().clickRow(1);
    key(Qt::Key_End);
    QCOMPARE(harness().marks(), QStringLiteral("--X"));
    key(Qt::Key_Home);
    QCOMPARE(harness().marks(), QStringLiteral("X--"));
}

void SourceListMarksTest::leftAndRightArrowStayInTheRow()
{
    showNumbers({1, 2, 3});
    harness().clickRow(1);
    key(Qt::Key_Right);
    key(Qt::Key_Left);
    QCOMPARE(harness().view().currentRow(), 1);
    QCOMPARE(harness().marks(), QStringLiteral("-X-"));
}

void SourceListMarksTest::spaceMarksTheCurrentRowAlone()
{
    showNumbers({1, 2, 3});
    harness().clickRow(0);
    key(Qt::Key_Down, Qt::ControlModifier);
    key(Qt::Key_Space);
    QCOMPARE(harness().marks(), QStringLiteral("-X-"));
}

void SourceListMarksTest::controlSpaceTogglesTheCurrentRow()
{
    showNumbers({1, 2, 3});
    harness().clickRow(0);
    key(Qt::Key_Down, Qt::ControlModifier);
    key(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(harness().marks(), QStringLiteral("XX-"));
    key(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(harness().marks(), QStringLiteral("X--"));
}

void SourceListMarksTest::controlAMarksAllRows()
{
    showNumbers({1, 2, 3});
    key(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(harness().marks(), QStringLiteral("XXX"));
}

void SourceListMarksTest::keysInAnEmptyListDoNothing()
{
    showNumbers({});
    for (const Qt::Key pressed : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End, Qt::Key_PageDown, Qt::Key_PageUp,
             Qt::Key_Space, Qt::Key_5, Qt::Key_Asterisk}) {
        for (const Qt::KeyboardModifier modifier :
            {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::KeypadModifier})
            key(pressed, modifier);
    }
    key(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(harness().view().currentRow(), -1);
    QCOMPARE(harness().model().rowCount(), 0);
    QCOMPARE(harness().status().text(), QString());
}

void SourceListMarksTest::rightClickOpensTheSourcesMenuOnTheRelease()
{
    showNumbers({1, 2});
    QMenu& menu = harness().menu("mnuVybraneZdrojeZnecisteni");
    QTest::mousePress(harness().view().viewport(), Qt::RightButton, {}, harness().rowCentre(0));
    QVERIFY(!menu.isVisible());
    QTest::mouseRelease(harness().view().viewport(), Qt::RightButton, {}, harness().rowCentre(0));
    QTRY_VERIFY(menu.isVisible());
    menu.close();
}

void SourceListMarksTest::rightClickUpdatesTheMenuState()
{
    harness().show();
    harness().append(cBodovyZdroj, 1);
    QTest::mouseClick(harness().view().viewport(), Qt::RightButton, {}, QPoint(20, 20));
    QMenu& menu = harness().menu("mnuVybraneZdrojeZnecisteni");
    QTRY_VERIFY(menu.isVisible());
    QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: 1"));
    QVERIFY(harness().item("mnuVZrus").isEnabled());
    menu.close();
}

void SourceListMarksTest::rightClickOnAMarkedRowKeepsTheMarks()
{
    showNumbers({1, 2, 3});
    harness().mark(QStringLiteral("XX-"));
    harness().clickRow(1, {}, Qt::RightButton);
    QCOMPARE(harness().marks(), QStringLiteral("XX-"));
    QCOMPARE(harness().view().currentRow(), 1);
    harness().menu("mnuVybraneZdrojeZnecisteni").close();
}

void SourceListMarksTest::rightClickOnAnUnmarkedRowMarksItAlone()
{
    showNumbers({1, 2, 3});
    harness().mark(QStringLiteral("XX-"));
    harness().clickRow(2, {}, Qt::RightButton);
    QCOMPARE(harness().marks(), QStringLiteral("--X"));
    harness().menu("mnuVybraneZdrojeZnecisteni").close();
}

void SourceListMarksTest::contextMenuEventOfTheMouseOpensNothing()
{
    showNumbers({1});
    const QPoint place = harness().rowCentre(0);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, harness().view().viewport()->mapToGlobal(place));
    QApplication::sendEvent(harness().view().viewport(), &event);
    QVERIFY(!harness().menu("mnuVybraneZdrojeZnecisteni").isVisible());
}

void SourceListMarksTest::contextMenuEventOfTheKeyboardOpensTheSourcesMenu()
{
    showNumbers({1, 2});
    harness().append(cBodovyZdroj, 3);
    harness().clickRow(1);
    // What a platform with a desktop makes of the Menu key and of Shift+F10.
    const QPoint place = harness().rowCentre(1);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, place, harness().view().mapToGlobal(place));
    QApplication::sendEvent(&harness().view(), &event);
    QMenu& menu = harness().menu("mnuVybraneZdrojeZnecisteni");
    QTRY_VERIFY(menu.isVisible());
    QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: 3"));
    menu.close();
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::SourceListMarksTest)

#include "source_list_marks_test.moc"
