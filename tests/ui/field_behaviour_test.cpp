// How text fields behave: which keys they take, what gets in past the keys, what focus selects, and their numbers.
#include "field_behaviour.h"

#include "arithmetic_fault.h"
#include "dialog_checks.h"
#include "window_harness.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <string>

namespace korvex {
namespace {

/// A window with the field and another one that can have the focus.
class FieldWindow : public QWidget {
public:
    FieldWindow()
    {
        auto* const layout = new QVBoxLayout(this);
        layout->addWidget(&other);
        layout->addWidget(&field);
    }

    [[nodiscard]] bool showActive()
    {
        show();
        return QTest::qWaitForWindowActive(this);
    }

    QLineEdit other;
    QLineEdit field;
};

/// A key press with its text, also one that the test library has no key for.
void type(QLineEdit& field, const QString& text, Qt::KeyboardModifiers modifiers = {})
{
    QKeyEvent press(QEvent::KeyPress, 0, modifiers, text);
    QCoreApplication::sendEvent(&field, &press);
}

/// What an input method or a dead key puts together.
void commit(QLineEdit& field, const QString& text)
{
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(&field, &event);
}

int cursorPlace(const QLineEdit& field)
{
    return field.inputMethodQuery(Qt::ImCursorRectangle).toRect().x();
}

void paste(QLineEdit& field, const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
}

}  // namespace

class FieldBehaviourTest : public ShellTest {
    Q_OBJECT

private slots:
    void rangeIncludesBothItsEnds();
    void digitKeysAreTheDigitsAndBackspace();
    void numberKeysAreDigitKeysPointAndComma();
    void signedKeysAlsoTakeTheMinus();

    void typedNumberKeysAreTaken();
    void otherTypedCharactersAreSwallowed_data();
    void otherTypedCharactersAreSwallowed();
    void swallowedKeyLeavesSelectionAndCursor();
    void digitsOfTheNumericPadAreTaken();
    void characterOfTheThirdLevelIsSwallowed();
    void minusIsTakenByASignedFilterOnly();
    void pasteByTheKeyboardPassesTheFilter();
    void pasteByShiftInsertPassesTheFilter();
    void pasteByTheMenuPassesTheFilter();
    void shortcutsWithCtrlPassTheFilter();
    void backspaceDeleteAndCursorKeysWork();
    void enterAndTabPassTheFilter();
    void textOfADeadKeyIsSwallowed();
    void textOfADeadKeyThatIsAcceptedIsTaken();
    void textOfADeadKeyIsTakenWholeOrNotAtAll();
    void swallowedTextOfADeadKeyLeavesNoPreviewBehind();
    void unfilteredFieldTakesEverything();

    void focusByTheTabKeySelectsTheWholeText();
    void focusByAClickSelectsTheWholeTextAndSurvivesTheClick();
    void clickInAFieldThatHasTheFocusSelectsNothing();
    void focusSelectsAnewEachTime();
    void typingReplacesWhatFocusSelected();
    void backFromAnotherWindowTypingGoesOn();

    void fieldIsReadWithTheUsersSeparator();
    void fieldWithoutANumberIsZero();
    void fieldOutOfRangeIsAFault();
    void numberIsShownWithTheUsersSeparator();
};

void FieldBehaviourTest::rangeIncludesBothItsEnds()
{
    QVERIFY(InRange(48, 48, 57));
    QVERIFY(InRange(57, 48, 57));
    QVERIFY(!InRange(47, 48, 57));
    QVERIFY(!InRange(58, 48, 57));
    QVERIFY(InRange(0.5, 0.5, 0.5));
    QVERIFY(!InRange(50, 57, 48));
}

void FieldBehaviourTest::digitKeysAreTheDigitsAndBackspace()
{
    for (int code = 0; code < 256; ++code)
        QCOMPARE(IsDigitKey(code), (code >= 48 && code <= 57) || code == 8);
}

void FieldBehaviourTest::numberKeysAreDigitKeysPointAndComma()
{
    for (int code = 0; code < 256; ++code)
        QCOMPARE(IsNumberKey(code), (code >= 48 && code <= 57) || code == 8 || code == 46 || code == 44);
}

void FieldBehaviourTest::signedKeysAlsoTakeTheMinus()
{
    for (int code = 0; code < 256; ++code) {
        QCOMPARE(IsSignedDigitKey(code), IsDigitKey(code) || code == 45);
        QCOMPARE(IsSignedNumberKey(code), IsNumberKey(code) || code == 45);
    }
}

void FieldBehaviourTest::typedNumberKeysAreTaken()
{
    QLineEdit field;
    filterKeys(field, IsNumberKey);
    QTest::keyClicks(&field, QStringLiteral("0123456789.,"));
    QCOMPARE(field.text(), QStringLiteral("0123456789.,"));

    QLineEdit digits;
    filterKeys(digits, IsDigitKey);
    QTest::keyClicks(&digits, QStringLiteral("0.1,2"));
    QCOMPARE(digits.text(), QStringLiteral("012"));
}

void FieldBehaviourTest::otherTypedCharactersAreSwallowed_data()
{
    QTest::addColumn<QString>("character");
    for (const char* const character : {"a", "E", "e", "-", "+", " ", ";", ":", "/", "á", "ž", "€", "²", "½"})
        QTest::newRow(character) << QString::fromUtf8(character);
    QTest::newRow("arabic digit") << QStringLiteral("\u0663");
    QTest::newRow("no-break space") << QStringLiteral("\u00A0");
    QTest::newRow("minus sign") << QStringLiteral("\u2212");
    QTest::newRow("soft hyphen") << QStringLiteral("\u00AD");
    QTest::newRow("two code units") << QStringLiteral("\U0001F600");
    QTest::newRow("two characters") << QStringLiteral("1a");
}

void FieldBehaviourTest::otherTypedCharactersAreSwallowed()
{
    QFETCH(const QString, character);
    QLineEdit field(QStringLiteral("12"));
    filterKeys(field, IsNumberKey);
    type(field, character);
    QCOMPARE(field.text(), QStringLiteral("12"));
    type(field, character.toUpper(), Qt::ShiftModifier);
    QCOMPARE(field.text(), QStringLiteral("12"));
}

void FieldBehaviourTest::swallowedKeyLeavesSelectionAndCursor()
{
    QLineEdit field(QStringLiteral("12345"));
    filterKeys(field, IsNumberKey);
    field.setSelection(1, 2);
    type(field, QStringLiteral("x"));
    QCOMPARE(field.text(), QStringLiteral("12345"));
    QCOMPARE(field.selectedText(), QStringLiteral("23"));
    QCOMPARE(field.cursorPosition(), 3);
}

void FieldBehaviourTest::digitsOfTheNumericPadAreTaken()
{
    QLineEdit field;
    filterKeys(field, IsNumberKey);
    type(field, QStringLiteral("7"), Qt::KeypadModifier);
    type(field, QStringLiteral(","), Qt::KeypadModifier);
    type(field, QStringLiteral("+"), Qt::KeypadModifier);
    QCOMPARE(field.text(), QStringLiteral("7,"));
}

void FieldBehaviourTest::characterOfTheThirdLevelIsSwallowed()
{
    QLineEdit field;
    filterKeys(field, IsNumberKey);
    type(field, QStringLiteral("#"), Qt::GroupSwitchModifier);
    type(field, QStringLiteral("x"), Qt::AltModifier);
    QCOMPARE(field.text(), QString());
}

void FieldBehaviourTest::minusIsTakenByASignedFilterOnly()
{
    QLineEdit field;
    filterKeys(field, IsSignedNumberKey);
    QTest::keyClicks(&field, QStringLiteral("-1x2,5"));
    QCOMPARE(field.text(), QStringLiteral("-12,5"));

    QLineEdit unsignedField;
    filterKeys(unsignedField, IsNumberKey);
    QTest::keyClicks(&unsignedField, QStringLiteral("-1x2,5"));
    QCOMPARE(unsignedField.text(), QStringLiteral("12,5"));
}

void FieldBehaviourTest::pasteByTheKeyboardPassesTheFilter()
{
    QLineEdit field;
    filterKeys(field, IsNumberKey);
    paste(field, QStringLiteral("-1,5E3 m³"));
    QCOMPARE(field.text(), QStringLiteral("-1,5E3 m³"));
}

void FieldBehaviourTest::pasteByShiftInsertPassesTheFilter()
{
    QLineEdit field;
    filterKeys(field, IsDigitKey);
    QGuiApplication::clipboard()->setText(QStringLiteral("-7"));
    QTest::keyClick(&field, Qt::Key_Insert, Qt::ShiftModifier);
    QCOMPARE(field.text(), QStringLiteral("-7"));
}

void FieldBehaviourTest::pasteByTheMenuPassesTheFilter()
{
    QLineEdit field;
    filterKeys(field, IsDigitKey);
    QGuiApplication::clipboard()->setText(QStringLiteral("-8,5"));
    field.paste();
    QCOMPARE(field.text(), QStringLiteral("-8,5"));
}

void FieldBehaviourTest::shortcutsWithCtrlPassTheFilter()
{
    QLineEdit field(QStringLiteral("12,5"));
    filterKeys(field, IsNumberKey);
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(field.selectedText(), QStringLiteral("12,5"));
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(&field, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("12,5"));
    QTest::keyClick(&field, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(field.text(), QString());
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(field.text(), QStringLiteral("12,5"));
}

void FieldBehaviourTest::backspaceDeleteAndCursorKeysWork()
{
    QLineEdit field(QStringLiteral("1234"));
    filterKeys(field, IsDigitKey);
    QTest::keyClick(&field, Qt::Key_Backspace);
    QCOMPARE(field.text(), QStringLiteral("123"));
    QTest::keyClick(&field, Qt::Key_Home);
    QTest::keyClick(&field, Qt::Key_Delete);
    QCOMPARE(field.text(), QStringLiteral("23"));
    QTest::keyClick(&field, Qt::Key_Right);
    QCOMPARE(field.cursorPosition(), 1);
    QTest::keyClick(&field, Qt::Key_End, Qt::ShiftModifier);
    QCOMPARE(field.selectedText(), QStringLiteral("3"));
    // As the system sends them: with the texts of control characters.
    type(field, QStringLiteral("\b"));
    QKeyEvent backspace(QEvent::KeyPress, Qt::Key_Backspace, Qt::NoModifier, QStringLiteral("\b"));
    QCoreApplication::sendEvent(&field, &backspace);
    QCOMPARE(field.text(), QStringLiteral("2"));
}

void FieldBehaviourTest::enterAndTabPassTheFilter()
{
    FieldWindow window;
    filterKeys(window.other, IsDigitKey);
    QVERIFY(window.showActive());
    window.other.setFocus();
    QSignalSpy returnPressed(&window.other, &QLineEdit::returnPressed);
    QTest::keyClick(&window.other, Qt::Key_Return);
    QTest::keyClick(&window.other, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(returnPressed.count(), 2);
    QTest::keyClick(&window.other, Qt::Key_Tab);
    QVERIFY(window.field.hasFocus());
}

void FieldBehaviourTest::textOfADeadKeyIsSwallowed()
{
    QLineEdit field(QStringLiteral("12"));
    filterKeys(field, IsNumberKey);
    for (const QString& text : {QStringLiteral("á"), QStringLiteral("´"), QStringLiteral("-"), QStringLiteral("~")}) {
        commit(field, text);
        QCOMPARE(field.text(), QStringLiteral("12"));
    }
}

void FieldBehaviourTest::textOfADeadKeyThatIsAcceptedIsTaken()
{
    QLineEdit field(QStringLiteral("12"));
    filterKeys(field, IsNumberKey);
    commit(field, QStringLiteral(","));
    commit(field, QStringLiteral("34"));
    QCOMPARE(field.text(), QStringLiteral("12,34"));
}

void FieldBehaviourTest::textOfADeadKeyIsTakenWholeOrNotAtAll()
{
    QLineEdit field(QStringLiteral("12"));
    filterKeys(field, IsNumberKey);
    commit(field, QStringLiteral("3a4"));
    QCOMPARE(field.text(), QStringLiteral("12"));
}

// An input method shows the dead key until its letter comes; the event that brings the letter takes it away again.
void FieldBehaviourTest::swallowedTextOfADeadKeyLeavesNoPreviewBehind()
{
    FieldWindow window;
    window.field.setText(QStringLiteral("12"));
    filterKeys(window.field, IsNumberKey);
    QVERIFY(window.showActive());
    window.field.setFocus();
    QVERIFY(window.field.hasFocus());
    window.field.end(false);
    const int before = cursorPlace(window.field);

    QInputMethodEvent preview(
        QStringLiteral("´´´"), {QInputMethodEvent::Attribute(QInputMethodEvent::Cursor, 3, 1, QVariant())});
    QCoreApplication::sendEvent(&window.field, &preview);
    QVERIFY2(cursorPlace(window.field) > before, "the preview is not shown");
    commit(window.field, QStringLiteral("á"));
    QCOMPARE(window.field.text(), QStringLiteral("12"));
    QCOMPARE(cursorPlace(window.field), before);
}

void FieldBehaviourTest::unfilteredFieldTakesEverything()
{
    QLineEdit field;
    type(field, QStringLiteral("a"));
    type(field, QStringLiteral("-"));
    commit(field, QStringLiteral("á"));
    QCOMPARE(field.text(), QStringLiteral("a-á"));
}

void FieldBehaviourTest::focusByTheTabKeySelectsTheWholeText()
{
    FieldWindow window;
    window.field.setText(QStringLiteral("101325"));
    SelectAllText(window.field);
    QVERIFY(window.showActive());
    window.other.setFocus();
    window.field.deselect();
    QTest::keyClick(&window.other, Qt::Key_Tab);
    QVERIFY(window.field.hasFocus());
    QTRY_COMPARE(window.field.selectedText(), QStringLiteral("101325"));
    QCOMPARE(window.field.selectionStart(), 0);
}

void FieldBehaviourTest::focusByAClickSelectsTheWholeTextAndSurvivesTheClick()
{
    FieldWindow window;
    window.field.setText(QStringLiteral("101325"));
    SelectAllText(window.field);
    QVERIFY(window.showActive());
    window.other.setFocus();
    clickInto(window.field);
    QVERIFY(window.field.hasFocus());
    QTRY_COMPARE(window.field.selectedText(), QStringLiteral("101325"));
    QCoreApplication::processEvents();
    QCOMPARE(window.field.selectedText(), QStringLiteral("101325"));
}

void FieldBehaviourTest::clickInAFieldThatHasTheFocusSelectsNothing()
{
    FieldWindow window;
    window.field.setText(QStringLiteral("101325"));
    SelectAllText(window.field);
    QVERIFY(window.showActive());
    window.other.setFocus();
    clickInto(window.field);
    QTRY_COMPARE(window.field.selectedText(), QStringLiteral("101325"));
    // To the field itself: a second click through the window system may count as a double one.
    QTest::mouseClick(&window.field, Qt::LeftButton, {}, QPoint(6, 6));
    QCoreApplication::processEvents();
    QCOMPARE(window.field.selectedText(), QString());
}

void FieldBehaviourTest::focusSelectsAnewEachTime()
{
    FieldWindow window;
    window.field.setText(QStringLiteral("1"));
    SelectAllText(window.field);
    QVERIFY(window.showActive());
    for (const QString& text : {QStringLiteral("12"), QStringLiteral("345")}) {
        window.other.setFocus();
        window.field.setText(text);
        window.field.setFocus();
        QTRY_COMPARE(window.field.selectedText(), text);
    }
}

void FieldBehaviourTest::typingReplacesWhatFocusSelected()
{
    FieldWindow window;
    window.field.setText(QStringLiteral("101325"));
    SelectAllText(window.field);
    filterKeys(window.field, IsNumberKey);
    QVERIFY(window.showActive());
    window.other.setFocus();
    clickInto(window.field);
    QTRY_COMPARE(window.field.selectedText(), QStringLiteral("101325"));
    QTest::keyClicks(&window.field, QStringLiteral("98000"));
    QCOMPARE(window.field.text(), QStringLiteral("98000"));
}

void FieldBehaviourTest::backFromAnotherWindowTypingGoesOn()
{
    FieldWindow window;
    SelectAllText(window.field);
    QVERIFY(window.showActive());
    window.field.setFocus();
    QCoreApplication::processEvents();
    QTest::keyClicks(&window.field, QStringLiteral("1013"));
    QWidget help;
    help.show();
    help.activateWindow();
    QTRY_VERIFY(help.isActiveWindow());
    window.activateWindow();
    QTRY_VERIFY(window.field.hasFocus());
    QCoreApplication::processEvents();
    QTest::keyClicks(&window.field, QStringLiteral("25"));
    QCOMPARE(window.field.text(), QStringLiteral("101325"));
}

void FieldBehaviourTest::fieldIsReadWithTheUsersSeparator()
{
    QLineEdit field(QStringLiteral("12,5"));
    QCOMPARE(fieldSingle(field, ","), 12.5F);
    QCOMPARE(fieldSingle(field, "."), 12.0F);
    QCOMPARE(fieldSingle(field, "\u066B"), 12.0F);
    field.setText(QStringLiteral("12.5"));
    QCOMPARE(fieldSingle(field, ","), 12.5F);
    field.setText(QStringLiteral("1,2,3"));
    QCOMPARE(fieldSingle(field, ","), 1.2F);
    field.setText(QStringLiteral("12\u066B5"));
    QCOMPARE(fieldSingle(field, "\u066B"), 12.5F);
}

void FieldBehaviourTest::fieldWithoutANumberIsZero()
{
    for (const QString& text : {QString(), QStringLiteral(" "), QStringLiteral("abc"), QStringLiteral(",")}) {
        QLineEdit field(text);
        QCOMPARE(fieldSingle(field, ","), 0.0F);
    }
}

void FieldBehaviourTest::fieldOutOfRangeIsAFault()
{
    QLineEdit field(QStringLiteral("1E39"));
    QVERIFY_EXCEPTION_THROWN(static_cast<void>(fieldSingle(field, ",")), ArithmeticFault);
}

void FieldBehaviourTest::numberIsShownWithTheUsersSeparator()
{
    QCOMPARE(singleFieldText(2.5F, ","), QStringLiteral("2,5"));
    QCOMPARE(singleFieldText(2.5F, "."), QStringLiteral("2.5"));
    QCOMPARE(singleFieldText(2.5F, "\u066B"), QStringLiteral("2\u066B5"));
    QCOMPARE(singleFieldText(101325.0F, ","), QStringLiteral("101325"));
    QCOMPARE(singleFieldText(5.06986904F, ","), QStringLiteral("5,069869"));
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::FieldBehaviourTest)

#include "field_behaviour_test.moc"
