// The description panel of the source editors: its labels, how it shows and reads values, its keys and its focus.
#include "description_panel.h"

#include "arithmetic_fault.h"
#include "dialog_checks.h"
#include "window_harness.h"

#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QVBoxLayout>

#include <cstdint>
#include <limits>

namespace korvex {
namespace {

using Get = std::int32_t (uscPopis::*)() const;
using Set = void (uscPopis::*)(std::int32_t);

struct NumberField {
    const char* name;
    Get get;
    Set set;
};

/// The fields that numbers are typed into.
const NumberField typedNumbers[]{
    {"txtSkupina", &uscPopis::Skupina, &uscPopis::Skupina},
    {"txtShluk", &uscPopis::Shluk, &uscPopis::Shluk},
    {"txtX", &uscPopis::X, &uscPopis::X},
    {"txtY", &uscPopis::Y, &uscPopis::Y},
    {"txtZ", &uscPopis::Z, &uscPopis::Z},
};

const char* const allFields[]{
    "txtCisloZdroje", "txtCisloKomina", "txtNazevZdroje", "txtSkupina", "txtShluk", "txtX", "txtY", "txtZ"};

constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();

void paste(QLineEdit& field, const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
}

}  // namespace

class DescriptionPanelTest : public ShellTest {
    Q_OBJECT

private slots:
    void labelsAndToolTips_data();
    void labelsAndToolTips();
    void positionsAreInMetres();
    void noCaptionHasAMnemonic();
    void everyFocusableWidgetHasAName();
    void fieldsStandInTheOrderOfTheTabKey();

    void sourceNumberIsPaddedToFiveDigits_data();
    void sourceNumberIsPaddedToFiveDigits();
    void stackNumberIsPaddedToFourDigits_data();
    void stackNumberIsPaddedToFourDigits();
    void otherNumbersAreShownPlain_data();
    void otherNumbersAreShownPlain();
    void eachPropertyHasItsOwnField();
    void nameIsShownAndReadUnchanged_data();
    void nameIsShownAndReadUnchanged();
    void longNameIsShownFromItsStart();
    void pastedNameIsOneLine_data();
    void pastedNameIsOneLine();

    void numbersAreReadLeniently_data();
    void numbersAreReadLeniently();
    void numberBeyondThirtyTwoBitsIsAFaultOfItsField_data();
    void numberBeyondThirtyTwoBitsIsAFaultOfItsField();

    void keysOfTheFields_data();
    void keysOfTheFields();
    void minusIsTakenInTheMiddleOfAPosition();
    void pastePassesTheKeyFilter();
    void numberFieldsCannotBeTyped_data();
    void numberFieldsCannotBeTyped();
    void sourceNumberIsTypedWhenItIsLet();

    void typedFieldsSelectTheirTextOnFocus_data();
    void typedFieldsSelectTheirTextOnFocus();
    void numberFieldsDoNotSelectOnFocus();

private:
    /// In a window of its own, which goes with the main window at the end of the test.
    [[nodiscard]] uscPopis& panel()
    {
        if (m_panel == nullptr) {
            auto* const host = new QWidget(&harness().window(), Qt::Window);
            m_panel = new uscPopis(host);
            auto* const layout = new QVBoxLayout(host);
            layout->addWidget(m_panel);
            host->show();
            if (!QTest::qWaitForWindowActive(host))
                QTest::qFail("the host window does not become active", __FILE__, __LINE__);
        }
        return *m_panel;
    }
    [[nodiscard]] QLineEdit& field(const char* name) { return child<QLineEdit>(panel(), name); }

    QPointer<uscPopis> m_panel;
};

void DescriptionPanelTest::labelsAndToolTips_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("toolTip");
    const auto row = [](const char* name, const char* label, const char* toolTip) {
        QTest::newRow(name) << QString::fromUtf8(label) << QString::fromUtf8(toolTip);
    };
    row("txtCisloZdroje", "Číslo zdroje", "Číslo zdroje");
    row("txtCisloKomina", "Komín", "Číslo komína");
    row("txtNazevZdroje", "Název zdroje", "Orientační název zdroje");
    row("txtSkupina", "Indikace skupiny:", "Indikace skupiny");
    row("txtShluk", "Indikace shluku:", "Indikace shluku");
    row("txtX", "X", "X souřadnice zdroje");
    row("txtY", "Y", "Y souřadnice zdroje");
    row("txtZ", "Z", "Nadmořská výška zdroje");
}

void DescriptionPanelTest::labelsAndToolTips()
{
    QFETCH(const QString, label);
    QFETCH(const QString, toolTip);
    const QLineEdit& shown = field(QTest::currentDataTag());
    QCOMPARE(captionOf(panel(), shown), label);
    QCOMPARE(shown.toolTip(), toolTip);
}

void DescriptionPanelTest::positionsAreInMetres()
{
    QStringList besides;
    for (const QLabel* const label : panel().findChildren<QLabel*>()) {
        if (label->buddy() != nullptr)
            continue;
        for (const char* const name : allFields) {
            if (label->geometry().center().y() == field(name).geometry().center().y()
                && label->geometry().left() >= field(name).geometry().right())
                besides << QLatin1String(name) + label->text();
        }
    }
    QCOMPARE(besides, QStringList({QStringLiteral("txtX[m]"), QStringLiteral("txtY[m]"), QStringLiteral("txtZ[m]")}));
}

void DescriptionPanelTest::noCaptionHasAMnemonic()
{
    QCOMPARE(mnemonics(panel()), QString());
}

void DescriptionPanelTest::everyFocusableWidgetHasAName()
{
    QCOMPARE(namelessWidgets(panel()).join(QLatin1Char(' ')), QString());
}

void DescriptionPanelTest::fieldsStandInTheOrderOfTheTabKey()
{
    field("txtCisloZdroje").setFocus();
    QStringList expected;
    int above = -1;
    for (const char* const name : allFields) {
        expected << QLatin1String(name);
        QVERIFY2(field(name).geometry().top() > above, name);
        above = field(name).geometry().top();
    }
    QCOMPARE(tabOrder(), expected);
}

void DescriptionPanelTest::sourceNumberIsPaddedToFiveDigits_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("two digits") << 42 << QStringLiteral("00042");
    QTest::newRow("zero") << 0 << QStringLiteral("00000");
    QTest::newRow("five digits") << 99999 << QStringLiteral("99999");
    QTest::newRow("more digits") << 123456789 << QStringLiteral("123456789");
    QTest::newRow("negative") << -1 << QStringLiteral("-00001");
    QTest::newRow("least") << least << QStringLiteral("-2147483648");
}

void DescriptionPanelTest::sourceNumberIsPaddedToFiveDigits()
{
    QFETCH(const int, number);
    QFETCH(const QString, text);
    panel().CisloZdroje(number);
    QCOMPARE(field("txtCisloZdroje").text(), text);
    QCOMPARE(panel().CisloZdroje(), number);
}

void DescriptionPanelTest::stackNumberIsPaddedToFourDigits_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("one digit") << 7 << QStringLiteral("0007");
    QTest::newRow("zero") << 0 << QStringLiteral("0000");
    QTest::newRow("four digits") << 9999 << QStringLiteral("9999");
    QTest::newRow("more digits") << 12345 << QStringLiteral("12345");
    QTest::newRow("negative") << -7 << QStringLiteral("-0007");
}

void DescriptionPanelTest::stackNumberIsPaddedToFourDigits()
{
    QFETCH(const int, number);
    QFETCH(const QString, text);
    panel().CisloKomina(number);
    QCOMPARE(field("txtCisloKomina").text(), text);
    QCOMPARE(panel().CisloKomina(), number);
}

void DescriptionPanelTest::otherNumbersAreShownPlain_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << 0 << QStringLiteral("0");
    QTest::newRow("small") << 7 << QStringLiteral("7");
    QTest::newRow("negative") << -567 << QStringLiteral("-567");
    QTest::newRow("thousands") << 1234567 << QStringLiteral("1234567");
    QTest::newRow("least") << least << QStringLiteral("-2147483648");
    QTest::newRow("most") << most << QStringLiteral("2147483647");
}

void DescriptionPanelTest::otherNumbersAreShownPlain()
{
    QFETCH(const int, number);
    QFETCH(const QString, text);
    for (const NumberField& shown : typedNumbers) {
        (panel().*shown.set)(number);
        QVERIFY2(field(shown.name).text() == text, shown.name);
        QVERIFY2((panel().*shown.get)() == number, shown.name);
    }
}

void DescriptionPanelTest::eachPropertyHasItsOwnField()
{
    int number = 0;
    panel().CisloZdroje(++number);
    panel().CisloKomina(++number);
    for (const NumberField& shown : typedNumbers)
        (panel().*shown.set)(++number);
    panel().NazevZdroje("Kotelna");
    QStringList texts;
    for (const char* const name : allFields)
        texts << field(name).text();
    QCOMPARE(texts.join(QLatin1Char(' ')), QStringLiteral("00001 0002 Kotelna 3 4 5 6 7"));
}

void DescriptionPanelTest::nameIsShownAndReadUnchanged_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << QString();
    QTest::newRow("Czech") << QStringLiteral("Příliš žluťoučký kůň");
    QTest::newRow("blanks at both ends") << QStringLiteral("  Kotelna ");
    QTest::newRow("separators of the files") << QStringLiteral("a, b; \"c\" 'd' &e");
    QTest::newRow("long") << QString(1000, QLatin1Char('x'));
}

void DescriptionPanelTest::nameIsShownAndReadUnchanged()
{
    QFETCH(const QString, name);
    panel().NazevZdroje(name.toStdString());
    QCOMPARE(field("txtNazevZdroje").text(), name);
    QCOMPARE(QString::fromStdString(panel().NazevZdroje()), name);
}

void DescriptionPanelTest::longNameIsShownFromItsStart()
{
    panel().NazevZdroje(std::string(1000, 'x'));
    QCOMPARE(field("txtNazevZdroje").cursorPosition(), 0);
}

void DescriptionPanelTest::pastedNameIsOneLine_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("read");
    QTest::newRow("LF") << QStringLiteral("a\nb") << QStringLiteral("a b");
    QTest::newRow("CR") << QStringLiteral("a\rb") << QStringLiteral("a b");
    QTest::newRow("CR LF") << QStringLiteral("a\r\nb") << QStringLiteral("a  b");
    QTest::newRow("at the end") << QStringLiteral("a\n") << QStringLiteral("a ");
}

void DescriptionPanelTest::pastedNameIsOneLine()
{
    QFETCH(const QString, pasted);
    QFETCH(const QString, read);
    paste(field("txtNazevZdroje"), pasted);
    QCOMPARE(QString::fromStdString(panel().NazevZdroje()), read);
}

void DescriptionPanelTest::numbersAreReadLeniently_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    const auto row
        = [](const char* text, int number) { QTest::addRow("'%s'", text) << QString::fromUtf8(text) << number; };
    row("", 0);
    row("abc", 0);
    row("-", 0);
    row("12abc", 12);
    row("12-3", 12);
    row("-12", -12);
    row("00012", 12);
    // Halves go to the even neighbour.
    row("0.5", 0);
    row("1.5", 2);
    row("2.5", 2);
    row("3.5", 4);
    row("-2.5", -2);
    row("-3.5", -4);
    row("2.51", 3);
    row("2.49", 2);
    // Whole numbers are typed here: a comma is no decimal point, whatever the user's locale has.
    row("3,9", 3);
    row("2147483647.4", most);
    row("-2147483648", least);
}

void DescriptionPanelTest::numbersAreReadLeniently()
{
    QFETCH(const QString, text);
    QFETCH(const int, number);
    static_cast<void>(harness().window());
    harness().globals.decimalSeparator = ",";
    for (const NumberField& typed : typedNumbers) {
        field(typed.name).setText(text);
        QVERIFY2((panel().*typed.get)() == number, typed.name);
    }
    for (const char* const name : {"txtCisloZdroje", "txtCisloKomina"})
        field(name).setText(text);
    QCOMPARE(panel().CisloZdroje(), number);
    QCOMPARE(panel().CisloKomina(), number);
}

void DescriptionPanelTest::numberBeyondThirtyTwoBitsIsAFaultOfItsField_data()
{
    QTest::addColumn<QString>("text");
    for (const char* const text : {"2147483648", "-2147483649", "2147483647.5", "99999999999", "1E39"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void DescriptionPanelTest::numberBeyondThirtyTwoBitsIsAFaultOfItsField()
{
    QFETCH(const QString, text);
    for (const NumberField& typed : typedNumbers) {
        field("txtNazevZdroje").setFocus();
        field(typed.name).setText(text);
        QVERIFY_THROWS_EXCEPTION(ArithmeticFault, static_cast<void>((panel().*typed.get)()));
        QVERIFY2(field(typed.name).hasFocus(), typed.name);
        QCOMPARE(field(typed.name).text(), text);
    }
}

void DescriptionPanelTest::keysOfTheFields_data()
{
    QTest::addColumn<QString>("taken");
    QTest::newRow("txtNazevZdroje") << QStringLiteral("1a-2.3,4 +5");
    for (const char* const name : {"txtSkupina", "txtShluk", "txtZ"})
        QTest::newRow(name) << QStringLiteral("12345");
    for (const char* const name : {"txtX", "txtY"})
        QTest::newRow(name) << QStringLiteral("1-2345");
}

void DescriptionPanelTest::keysOfTheFields()
{
    QFETCH(const QString, taken);
    QLineEdit& typed = field(QTest::currentDataTag());
    QTest::keyClicks(&typed, QStringLiteral("1a-2.3,4 +5"));
    QCOMPARE(typed.text(), taken);
    QTest::keyClick(&typed, Qt::Key_Backspace);
    QCOMPARE(typed.text(), taken.chopped(1));
}

void DescriptionPanelTest::minusIsTakenInTheMiddleOfAPosition()
{
    panel().X(123);
    field("txtX").setCursorPosition(2);
    QTest::keyClicks(&field("txtX"), QStringLiteral("-"));
    QCOMPARE(field("txtX").text(), QStringLiteral("12-3"));
    QCOMPARE(panel().X(), 12);
}

void DescriptionPanelTest::pastePassesTheKeyFilter()
{
    for (const NumberField& typed : typedNumbers) {
        paste(field(typed.name), QStringLiteral("-3.5abc"));
        QCOMPARE(field(typed.name).text(), QStringLiteral("-3.5abc"));
        QCOMPARE((panel().*typed.get)(), -4);
    }
}

void DescriptionPanelTest::numberFieldsCannotBeTyped_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("txtCisloZdroje") << QStringLiteral("00042");
    QTest::newRow("txtCisloKomina") << QStringLiteral("0007");
}

void DescriptionPanelTest::numberFieldsCannotBeTyped()
{
    QFETCH(const QString, text);
    panel().CisloZdroje(42);
    panel().CisloKomina(7);
    QLineEdit& shown = field(QTest::currentDataTag());
    QTest::keyClicks(&shown, QStringLiteral("123"));
    QTest::keyClick(&shown, Qt::Key_Backspace);
    paste(shown, QStringLiteral("99"));
    QCOMPARE(shown.text(), text);
    QVERIFY(shown.isEnabled());  // so that it can be copied
}

void DescriptionPanelTest::sourceNumberIsTypedWhenItIsLet()
{
    panel().CisloZdroje(-1);
    panel().CisloKomina(7);
    panel().letNumberBeTyped();
    field("txtX").setFocus();
    clickInto(field("txtCisloZdroje"));
    QTRY_COMPARE(field("txtCisloZdroje").selectedText(), QStringLiteral("-00001"));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("123"));
    QTest::keyClicks(&field("txtCisloKomina"), QStringLiteral("123"));
    QCOMPARE(panel().CisloZdroje(), 123);
    QCOMPARE(panel().CisloKomina(), 7);
}

void DescriptionPanelTest::typedFieldsSelectTheirTextOnFocus_data()
{
    QTest::addColumn<QString>("name");
    for (const char* const name : {"txtNazevZdroje", "txtSkupina", "txtShluk", "txtX", "txtY", "txtZ"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void DescriptionPanelTest::typedFieldsSelectTheirTextOnFocus()
{
    QFETCH(const QString, name);
    field("txtCisloZdroje").setFocus();
    QLineEdit& typed = field(name.toLatin1().constData());
    typed.setText(QStringLiteral("123"));
    clickInto(typed);
    QVERIFY(typed.hasFocus());
    QTRY_COMPARE(typed.selectedText(), QStringLiteral("123"));
}

void DescriptionPanelTest::numberFieldsDoNotSelectOnFocus()
{
    panel().CisloZdroje(42);
    panel().CisloKomina(7);
    for (const char* const name : {"txtCisloZdroje", "txtCisloKomina"}) {
        field("txtX").setFocus();
        clickInto(field(name));
        QVERIFY(field(name).hasFocus());
        QCoreApplication::processEvents();
        QCOMPARE(field(name).selectedText(), QString());
    }
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::DescriptionPanelTest)

#include "description_panel_test.moc"
