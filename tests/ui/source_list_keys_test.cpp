// The command keys of the list, the search by typing, and when the status text is cleared.
#include "window_harness.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>

#include <limits>

namespace korvex {
namespace {

/// How long after a key the next one continues a search; the one before comes back.
class SearchInterval {
public:
    explicit SearchInterval(int milliseconds) : m_before(QApplication::keyboardInputInterval())
    {
        QApplication::setKeyboardInputInterval(milliseconds);
    }
    SearchInterval(const SearchInterval&) = delete;
    SearchInterval& operator=(const SearchInterval&) = delete;
    ~SearchInterval() { QApplication::setKeyboardInputInterval(m_before); }

private:
    int m_before;
};

constexpr int alwaysContinues = std::numeric_limits<int>::max();
constexpr int alwaysBeginsAnew = 0;

}  // namespace

class SourceListKeysTest : public ShellTest {
    Q_OBJECT

private slots:
    void insertOpensTheNewSourceMenu_data();
    void insertOpensTheNewSourceMenu();
    void insertWithAModifierOpensNothing();
    void deleteKeyDeletesTheMarkedSources_data();
    void deleteKeyDeletesTheMarkedSources();
    void deleteKeyWithAModifierDeletesNothing();
    void keysForAllMarks_data();
    void keysForAllMarks();
    void plainAsteriskPlusAndMinusAreSwallowed_data();
    void plainAsteriskPlusAndMinusAreSwallowed();
    void controlDigitAsksForANewSourceOfTheType_data();
    void controlDigitAsksForANewSourceOfTheType();
    void digitWithoutControlAsksForNoNewSource();

    void controlShiftAndTheLetterOfAColumnSortByIt_data();
    void controlShiftAndTheLetterOfAColumnSortByIt();

    void typedDigitsSearchTheNumberColumn();
    void searchLooksInTheNumberColumnWhereverTheClickWas();
    void searchBeginsAnewAfterAPauseAndGoesOnBehindTheCurrentRow();
    void searchThatFindsNothingLeavesTheRow();

    void everyKeyClearsTheStatusText_data();
    void everyKeyClearsTheStatusText();
    void losingTheFocusClearsTheStatusText();

    void enterOnAnUnmarkedCurrentRowRefills_data();
    void enterOnAnUnmarkedCurrentRowRefills();
    void doubleClickOnAnUnmarkedCurrentRowRefills();
    void enterInAnEmptyListDoesNothing();

private:
    void showNumbers(const QList<int>& numbers);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
};

void SourceListKeysTest::showNumbers(const QList<int>& numbers)
{
    harness().fillWithNumbers(numbers);
    harness().show();
}

void SourceListKeysTest::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&harness().view(), key, modifiers);
}

void SourceListKeysTest::insertOpensTheNewSourceMenu_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Insert") << Qt::KeyboardModifiers();
    QTest::newRow("Insert of the numeric pad") << Qt::KeyboardModifiers(Qt::KeypadModifier);
}

void SourceListKeysTest::insertOpensTheNewSourceMenu()
{
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    harness().show();
    harness().append(cBodovyZdroj, 1);
    key(Qt::Key_Insert, modifiers);
    QMenu& menu = harness().menu("mnuVNovyZdrojX");
    QTRY_VERIFY(menu.isVisible());
    QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: 1"));
    menu.close();
}

void SourceListKeysTest::insertWithAModifierOpensNothing()
{
    showNumbers({1});
    for (const Qt::KeyboardModifier modifier : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
        key(Qt::Key_Insert, modifier);
        QVERIFY(!harness().menu("mnuVNovyZdrojX").isVisible());
    }
}

void SourceListKeysTest::deleteKeyDeletesTheMarkedSources_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Delete") << Qt::KeyboardModifiers();
    QTest::newRow("Delete of the numeric pad") << Qt::KeyboardModifiers(Qt::KeypadModifier);
}

void SourceListKeysTest::deleteKeyDeletesTheMarkedSources()
{
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    showNumbers({1, 2, 3});
    harness().mark(QStringLiteral("X-X"));
    key(Qt::Key_Delete, modifiers);
    QCOMPARE(harness().numberColumn(), QStringList{QStringLiteral("000000002")});
    QVERIFY(harness().set().modified());
    QCOMPARE(harness().status().text(), QString());
}

void SourceListKeysTest::deleteKeyWithAModifierDeletesNothing()
{
    showNumbers({1, 2, 3});
    harness().mark(QStringLiteral("X-X"));
    for (const Qt::KeyboardModifier modifier : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier})
        key(Qt::Key_Delete, modifier);
    QCOMPARE(harness().model().rowCount(), 3);
    QVERIFY(!harness().set().modified());
}

void SourceListKeysTest::keysForAllMarks_data()
{
    QTest::addColumn<Qt::Key>("pressed");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QString>("marks");
    QTest::addColumn<QString>("status");
    const Qt::KeyboardModifiers keypad = Qt::KeypadModifier;
    const Qt::KeyboardModifiers control = Qt::ControlModifier;
    const QString inverting = QStringLiteral("Inveruji vybrané zdroje…");
    const QString unmarking = QStringLiteral("Ruším označení všech zdrojů…");
    QTest::newRow("keypad *") << Qt::Key_Asterisk << keypad << QStringLiteral("-XX") << inverting;
    QTest::newRow("Ctrl+I") << Qt::Key_I << control << QStringLiteral("-XX") << inverting;
    QTest::newRow("keypad +") << Qt::Key_Plus << keypad << QStringLiteral("XXX")
                              << QStringLiteral("Označuji všechny zdroje…");
    QTest::newRow("keypad -") << Qt::Key_Minus << keypad << QStringLiteral("---") << unmarking;
    QTest::newRow("Ctrl+Shift+A") << Qt::Key_A << (control | Qt::ShiftModifier) << QStringLiteral("---") << unmarking;
}

void SourceListKeysTest::keysForAllMarks()
{
    QFETCH(const Qt::Key, pressed);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    QFETCH(const QString, marks);
    QFETCH(const QString, status);
    showNumbers({1, 2, 3});
    harness().mark(QStringLiteral("X--"));
    const StatusSpy spy(harness().window());
    key(pressed, modifiers);
    QCOMPARE(harness().marks(), marks);
    QCOMPARE(spy.texts().value(0), status);
    QCOMPARE(harness().status().text(), QString());
}

void SourceListKeysTest::plainAsteriskPlusAndMinusAreSwallowed_data()
{
    QTest::addColumn<Qt::Key>("pressed");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("asterisk") << Qt::Key_Asterisk << Qt::KeyboardModifiers();
    QTest::newRow("asterisk with Shift") << Qt::Key_Asterisk << Qt::KeyboardModifiers(Qt::ShiftModifier);
    QTest::newRow("plus") << Qt::Key_Plus << Qt::KeyboardModifiers();
    QTest::newRow("plus with Shift") << Qt::Key_Plus << Qt::KeyboardModifiers(Qt::ShiftModifier);
    QTest::newRow("minus") << Qt::Key_Minus << Qt::KeyboardModifiers();
}

void SourceListKeysTest::plainAsteriskPlusAndMinusAreSwallowed()
{
    QFETCH(const Qt::Key, pressed);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    const SearchInterval guard(alwaysContinues);
    showNumbers({20, 21, -1});
    harness().clickRow(0);
    key(pressed, modifiers);
    // "-" would find the negative number; marks would change with the keys of the numeric pad.
    QCOMPARE(harness().view().currentRow(), 0);
    QCOMPARE(harness().marks(), QStringLiteral("X--"));
    // Nor does the character get into the text that the digits behind it continue.
    QTest::keyClicks(&harness().view(), QStringLiteral("000000021"));
    QCOMPARE(harness().view().currentRow(), 1);
}

void SourceListKeysTest::controlDigitAsksForANewSourceOfTheType_data()
{
    QTest::addColumn<int>("pressed");
    QTest::addColumn<quint32>("scanCode");
    QTest::addColumn<int>("typeId");
    QTest::newRow("1") << int(Qt::Key_1) << 10U << 1;
    QTest::newRow("2") << int(Qt::Key_2) << 11U << 2;
    QTest::newRow("3") << int(Qt::Key_3) << 12U << 3;
    QTest::newRow("1 of a Czech keyboard") << int(Qt::Key_Plus) << 10U << 1;
    QTest::newRow("2 of a Czech keyboard") << 0x11A << 11U << 2;
    QTest::newRow("3 of a Czech keyboard") << 0x160 << 12U << 3;
    QTest::newRow("4") << int(Qt::Key_4) << 13U << 0;
}

void SourceListKeysTest::controlDigitAsksForANewSourceOfTheType()
{
    QFETCH(const int, pressed);
    QFETCH(const quint32, scanCode);
    QFETCH(const int, typeId);
    // A list of its own: in the window the answer is an editor.
    SourceListModel model;
    SourceListView view(model);
    const QSignalSpy requests(&view, &SourceListView::newSourceRequested);
    QKeyEvent press(QEvent::KeyPress, pressed, Qt::ControlModifier, scanCode, 0, 0);
    QApplication::sendEvent(&view, &press);
    QCOMPARE(requests.size(), typeId == 0 ? 0 : 1);
    if (typeId != 0)
        QCOMPARE(requests.at(0).at(0).toInt(), typeId);
}

void SourceListKeysTest::digitWithoutControlAsksForNoNewSource()
{
    SourceListModel model;
    SourceListView view(model);
    const QSignalSpy requests(&view, &SourceListView::newSourceRequested);
    for (const Qt::KeyboardModifiers modifiers : {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier),
             Qt::KeyboardModifiers(Qt::AltModifier), Qt::ControlModifier | Qt::ShiftModifier}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_1, modifiers, 10, 0, 0);
        QApplication::sendEvent(&view, &press);
    }
    QCOMPARE(requests.size(), 0);
}

void SourceListKeysTest::controlShiftAndTheLetterOfAColumnSortByIt_data()
{
    QTest::addColumn<int>("letter");
    QTest::addColumn<int>("column");
    QTest::newRow("number") << int(Qt::Key_Z) << int(SourceListModel::NumberColumn);
    QTest::newRow("name") << int(Qt::Key_N) << int(SourceListModel::NameColumn);
}

void SourceListKeysTest::controlShiftAndTheLetterOfAColumnSortByIt()
{
    QFETCH(const int, letter);
    QFETCH(const int, column);
    showNumbers({2, 3, 1});
    const auto sortingKey = [&] { key(static_cast<Qt::Key>(letter), Qt::ControlModifier | Qt::ShiftModifier); };
    sortingKey();
    QCOMPARE(harness().model().sortColumn(), column);
    QCOMPARE(harness().numberColumn(),
        QStringList({QStringLiteral("000000001"), QStringLiteral("000000002"), QStringLiteral("000000003")}));
    sortingKey();
    QCOMPARE(harness().numberColumn().first(), QStringLiteral("000000003"));
    // The header tells the key.
    const QString tip = harness().model().headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString();
    QVERIFY2(tip.endsWith(QStringLiteral("(Ctrl+Shift+%1)").arg(QChar(letter))), qPrintable(tip));
}

void SourceListKeysTest::typedDigitsSearchTheNumberColumn()
{
    const SearchInterval guard(alwaysContinues);
    showNumbers({10, 200, 21, 300});
    harness().clickRow(0);
    QTest::keyClicks(&harness().view(), QStringLiteral("00000002"));
    QCOMPARE(harness().view().currentRow(), 2);
    QCOMPARE(harness().marks(), QStringLiteral("--X-"));
    QTest::keyClicks(&harness().view(), QStringLiteral("1"));
    QCOMPARE(harness().view().currentRow(), 2);
}

void SourceListKeysTest::searchLooksInTheNumberColumnWhereverTheClickWas()
{
    const SearchInterval guard(alwaysContinues);
    harness().append(cBodovyZdroj, 10, QStringLiteral("000000030"));
    harness().append(cBodovyZdroj, 20, QStringLiteral("000000030"));
    harness().append(cBodovyZdroj, 30, QStringLiteral("Kotelna"));
    harness().window().refill();
    harness().show();
    harness().clickRow(0, {}, Qt::LeftButton, SourceListModel::NameColumn);
    QTest::keyClicks(&harness().view(), QStringLiteral("00000003"));
    QCOMPARE(harness().view().currentRow(), 2);
}

void SourceListKeysTest::searchBeginsAnewAfterAPauseAndGoesOnBehindTheCurrentRow()
{
    const SearchInterval guard(alwaysBeginsAnew);
    showNumbers({10, 1000000000, 30});
    harness().clickRow(0);
    key(Qt::Key_0);
    QCOMPARE(harness().view().currentRow(), 2);
    key(Qt::Key_1);
    QCOMPARE(harness().view().currentRow(), 1);
    key(Qt::Key_0);
    QCOMPARE(harness().view().currentRow(), 2);
    key(Qt::Key_0);
    QCOMPARE(harness().view().currentRow(), 0);
}

void SourceListKeysTest::searchThatFindsNothingLeavesTheRow()
{
    const SearchInterval guard(alwaysBeginsAnew);
    showNumbers({10, 20, 30});
    harness().clickRow(1);
    key(Qt::Key_7);
    QCOMPARE(harness().view().currentRow(), 1);
    QCOMPARE(harness().marks(), QStringLiteral("-X-"));
}

void SourceListKeysTest::everyKeyClearsTheStatusText_data()
{
    QTest::addColumn<Qt::Key>("pressed");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Down") << Qt::Key_Down << Qt::KeyboardModifiers();
    QTest::newRow("Up at the top") << Qt::Key_Up << Qt::KeyboardModifiers();
    QTest::newRow("letter") << Qt::Key_X << Qt::KeyboardModifiers();
    QTest::newRow("plus") << Qt::Key_Plus << Qt::KeyboardModifiers();
    QTest::newRow("Escape") << Qt::Key_Escape << Qt::KeyboardModifiers();
    QTest::newRow("Shift alone") << Qt::Key_Shift << Qt::KeyboardModifiers(Qt::ShiftModifier);
    QTest::newRow("Ctrl+A") << Qt::Key_A << Qt::KeyboardModifiers(Qt::ControlModifier);
}

void SourceListKeysTest::everyKeyClearsTheStatusText()
{
    QFETCH(const Qt::Key, pressed);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    showNumbers({1, 2});
    harness().clickRow(0);
    QVERIFY(!harness().status().text().isEmpty());
    key(pressed, modifiers);
    QCOMPARE(harness().status().text(), QString());
}

void SourceListKeysTest::losingTheFocusClearsTheStatusText()
{
    showNumbers({1});
    harness().clickRow(0);
    QVERIFY(!harness().status().text().isEmpty());
    harness().find<QLineEdit>("tbKomentar").setFocus();
    QCOMPARE(harness().status().text(), QString());
}

void SourceListKeysTest::enterOnAnUnmarkedCurrentRowRefills_data()
{
    QTest::addColumn<Qt::Key>("pressed");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Return") << Qt::Key_Return << Qt::KeyboardModifiers();
    QTest::newRow("Enter of the numeric pad") << Qt::Key_Enter << Qt::KeyboardModifiers(Qt::KeypadModifier);
}

void SourceListKeysTest::enterOnAnUnmarkedCurrentRowRefills()
{
    QFETCH(const Qt::Key, pressed);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    showNumbers({3, 1, 2});
    harness().clickHeader(SourceListModel::NumberColumn);
    harness().clickRow(0);
    harness().clickRow(1, Qt::ControlModifier);
    harness().clickRow(1, Qt::ControlModifier);
    QCOMPARE(harness().marks(), QStringLiteral("X--"));
    key(pressed, modifiers);
    QCOMPARE(harness().numberColumn(),
        QStringList({QStringLiteral("000000003"), QStringLiteral("000000001"), QStringLiteral("000000002")}));
    QCOMPARE(harness().marks(), QStringLiteral("---"));
}

void SourceListKeysTest::doubleClickOnAnUnmarkedCurrentRowRefills()
{
    showNumbers({3, 1, 2});
    harness().clickHeader(SourceListModel::NumberColumn);
    harness().mark(QStringLiteral("XX-"));
    // With Ctrl the first click of the two takes the mark away.
    harness().doubleClick(harness().rowCentre(1), Qt::ControlModifier);
    QCOMPARE(harness().numberColumn(),
        QStringList({QStringLiteral("000000003"), QStringLiteral("000000001"), QStringLiteral("000000002")}));
    QCOMPARE(harness().marks(), QStringLiteral("---"));
}

void SourceListKeysTest::enterInAnEmptyListDoesNothing()
{
    harness().show();
    const QSignalSpy refills(&harness().model(), &QAbstractItemModel::modelReset);
    key(Qt::Key_Return);
    QCOMPARE(refills.size(), 0);
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::SourceListKeysTest)

#include "source_list_keys_test.moc"
