// The air pressure dialog: its texts, what Ok, Storno, Escape and the close box leave, and its quick ways.
#include "pressure_dialog.h"

#include "dialog_checks.h"
#include "window_harness.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <functional>

namespace korvex {
namespace {

QLineEdit& field(QDialog& dialog)
{
    return child<QLineEdit>(dialog, "txtTlak");
}

void press(QDialog& dialog, const char* button)
{
    child<QPushButton>(dialog, button).click();
}

}  // namespace

class PressureDialogTest : public ShellTest {
    Q_OBJECT

private slots:
    void captionLabelsAndButtons();
    void bothButtonsCarryTheToolTipOfAnotherCalculation();
    void fieldHoldsTheNormalPressureAtFirst();
    void dialogIsModalToItsOwnerOnly();

    void isNotConfirmedWhenItLoads();
    void okConfirmsAndTakesTheValueOver();
    void leavingWithoutOkDoesNotConfirm_data();
    void leavingWithoutOkDoesNotConfirm();
    void valueCanBeReadAfterTheDialogIsClosed();
    void enterInTheFieldConfirms();
    void currentAirPressureIsNotTouchedByTheDialog();

    void valueIsShownWithTheUsersSeparator_data();
    void valueIsShownWithTheUsersSeparator();
    void valueIsReadWithTheUsersSeparatorOrAPoint_data();
    void valueIsReadWithTheUsersSeparatorOrAPoint();
    void zeroIsAccepted_data();
    void zeroIsAccepted();
    void negativeValueIsAccepted();
    void everyCharacterCanBeTyped();
    void numberOutOfRangeIsARunTimeErrorAndTheDialogStays();

    void doubleClickSetsTheNormalPressure();
    void fieldHasTheFocusAtFirstAndIsSelected();
    void fieldSelectsItsTextWhenAClickBringsTheFocus();
    void tabKeyGoesFromTheFieldToTheButtons();
    void mnemonicsAreUnique();
    void okIsTheOnlyDefaultButton();
    void everyFocusableWidgetHasAName();

private:
    struct Outcome {
        bool confirmed;
        float pressure;
    };
    /// Opens the dialog with a pressure and does this in it.
    Outcome inDialog(float pressure, std::function<void(frmTlak&)> use)
    {
        frmTlak dialog(harness().window().shell(), harness().window());
        dialog.Tlak(pressure);
        harness().dialogs.useNext(QStringLiteral("frmTlak"), [&](QDialog&) { use(dialog); });
        dialog.exec();
        return {dialog.confirmed(), dialog.Tlak()};
    }
    Outcome confirmedWith(const QString& text)
    {
        return inDialog(1, [&](frmTlak& dialog) {
            field(dialog).setText(text);
            press(dialog, "cmdOk");
        });
    }
    void separator(const char* text)
    {
        static_cast<void>(harness().window());
        harness().globals.decimalSeparator = text;
    }
};

void PressureDialogTest::captionLabelsAndButtons()
{
    inDialog(101325, [](frmTlak& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("frmTlak"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Nastavení tlaku vzduchu"));
        QCOMPARE(captionOf(dialog, field(dialog)), QStringLiteral("Tlak vzduchu 'p':"));
        QStringList labels;
        for (const QLabel* const label : dialog.findChildren<QLabel*>())
            labels << label->text();
        QCOMPARE(labels, QStringList({QStringLiteral("Tlak vzduchu 'p':"), QStringLiteral("[Pa]")}));
        for (const QLabel* const label : dialog.findChildren<QLabel*>())
            QCOMPARE(label->geometry().center().x() < field(dialog).geometry().center().x(),
                label->buddy() == &field(dialog));
        QCOMPARE(child<QPushButton>(dialog, "cmdOk").text(), QStringLiteral("&Ok"));
        QCOMPARE(child<QPushButton>(dialog, "cmdCancel").text(), QStringLiteral("&Storno"));
        press(dialog, "cmdCancel");
    });
}

void PressureDialogTest::bothButtonsCarryTheToolTipOfAnotherCalculation()
{
    inDialog(101325, [](frmTlak& dialog) {
        QCOMPARE(child<QPushButton>(dialog, "cmdOk").toolTip(), QStringLiteral("Vypočítej (Vs)"));
        QCOMPARE(child<QPushButton>(dialog, "cmdCancel").toolTip(), QStringLiteral("Vypočítej (Vs)"));
        press(dialog, "cmdCancel");
    });
}

void PressureDialogTest::fieldHoldsTheNormalPressureAtFirst()
{
    frmTlak dialog(harness().window().shell(), harness().window());
    QCOMPARE(field(dialog).text(), QStringLiteral("101325"));
}

void PressureDialogTest::dialogIsModalToItsOwnerOnly()
{
    harness().show();
    inDialog(101325, [this](frmTlak& dialog) {
        // The help window takes input beside it.
        QCOMPARE(dialog.windowModality(), Qt::WindowModal);
        QCOMPARE(dialog.parentWidget(), &harness().window());
        press(dialog, "cmdCancel");
    });
}

void PressureDialogTest::isNotConfirmedWhenItLoads()
{
    inDialog(101325, [](frmTlak& dialog) {
        QVERIFY(!dialog.confirmed());
        press(dialog, "cmdCancel");
    });
}

void PressureDialogTest::okConfirmsAndTakesTheValueOver()
{
    const Outcome outcome = confirmedWith(QStringLiteral("98000"));
    QVERIFY(outcome.confirmed);
    QCOMPARE(outcome.pressure, 98000.0F);
}

void PressureDialogTest::leavingWithoutOkDoesNotConfirm_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("Storno") << 0;
    QTest::newRow("Escape") << 1;
    QTest::newRow("close box") << 2;
}

void PressureDialogTest::leavingWithoutOkDoesNotConfirm()
{
    QFETCH(const int, way);
    const Outcome outcome = inDialog(97000, [way](frmTlak& dialog) {
        field(dialog).setText(QStringLiteral("98000"));
        if (way == 0)
            press(dialog, "cmdCancel");
        else if (way == 1)
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else
            QVERIFY(dialog.close());
        QVERIFY(!dialog.isVisible());
    });
    QVERIFY(!outcome.confirmed);
    QCOMPARE(outcome.pressure, 97000.0F);
}

void PressureDialogTest::valueCanBeReadAfterTheDialogIsClosed()
{
    frmTlak dialog(harness().window().shell(), harness().window());
    dialog.Tlak(97000);
    QCOMPARE(dialog.Tlak(), 97000.0F);
    harness().dialogs.useNext(QStringLiteral("frmTlak"), [](QDialog& shown) {
        field(shown).setText(QStringLiteral("96000"));
        press(shown, "cmdOk");
    });
    dialog.exec();
    QVERIFY(!dialog.isVisible());
    QVERIFY(dialog.confirmed());
    QCOMPARE(dialog.Tlak(), 96000.0F);
}

void PressureDialogTest::enterInTheFieldConfirms()
{
    const Outcome outcome = inDialog(97000, [](frmTlak& dialog) {
        field(dialog).setText(QStringLiteral("98000"));
        QTest::keyClick(&field(dialog), Qt::Key_Return);
        QVERIFY(!dialog.isVisible());
    });
    QVERIFY(outcome.confirmed);
    QCOMPARE(outcome.pressure, 98000.0F);
}

// Who opened the dialog decides what to do with its value.
void PressureDialogTest::currentAirPressureIsNotTouchedByTheDialog()
{
    static_cast<void>(harness().window());
    harness().globals.airPressure = 95000;
    QVERIFY(confirmedWith(QStringLiteral("98000")).confirmed);
    QCOMPARE(harness().globals.airPressure, 95000.0F);
}

void PressureDialogTest::valueIsShownWithTheUsersSeparator_data()
{
    QTest::addColumn<float>("pressure");
    QTest::addColumn<QString>("withComma");
    QTest::addColumn<QString>("withPoint");
    QTest::newRow("normal") << 101325.0F << QStringLiteral("101325") << QStringLiteral("101325");
    QTest::newRow("fraction") << 2.5F << QStringLiteral("2,5") << QStringLiteral("2.5");
    QTest::newRow("six digits") << 98000.5F << QStringLiteral("98000,5") << QStringLiteral("98000.5");
    QTest::newRow("more than seven digits") << 101325.047F << QStringLiteral("101325") << QStringLiteral("101325");
    QTest::newRow("zero") << 0.0F << QStringLiteral("0") << QStringLiteral("0");
}

void PressureDialogTest::valueIsShownWithTheUsersSeparator()
{
    QFETCH(const float, pressure);
    QFETCH(const QString, withComma);
    QFETCH(const QString, withPoint);
    separator(",");
    inDialog(pressure, [&](frmTlak& dialog) {
        QCOMPARE(field(dialog).text(), withComma);
        press(dialog, "cmdCancel");
    });
    separator(".");
    inDialog(pressure, [&](frmTlak& dialog) {
        QCOMPARE(field(dialog).text(), withPoint);
        press(dialog, "cmdCancel");
    });
}

void PressureDialogTest::valueIsReadWithTheUsersSeparatorOrAPoint_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("withComma");
    QTest::addColumn<float>("withPoint");
    QTest::newRow("comma") << QStringLiteral("98000,5") << 98000.5F << 98000.0F;
    QTest::newRow("point") << QStringLiteral("98000.5") << 98000.5F << 98000.5F;
    QTest::newRow("two commas") << QStringLiteral("1,2,3") << 1.2F << 1.0F;
    QTest::newRow("unit behind") << QStringLiteral("98000 Pa") << 98000.0F << 98000.0F;
}

void PressureDialogTest::valueIsReadWithTheUsersSeparatorOrAPoint()
{
    QFETCH(const QString, text);
    QFETCH(const float, withComma);
    QFETCH(const float, withPoint);
    separator(",");
    QCOMPARE(confirmedWith(text).pressure, withComma);
    separator(".");
    QCOMPARE(confirmedWith(text).pressure, withPoint);
}

void PressureDialogTest::zeroIsAccepted_data()
{
    QTest::addColumn<QString>("text");
    for (const char* const text : {"0", "", " ", "abc", "0,0"})
        QTest::addRow("'%s'", text) << QString::fromUtf8(text);
}

void PressureDialogTest::zeroIsAccepted()
{
    QFETCH(const QString, text);
    const Outcome outcome = confirmedWith(text);
    QVERIFY(outcome.confirmed);
    QCOMPARE(outcome.pressure, 0.0F);
    QVERIFY(harness().boxes.shown().isEmpty());
}

void PressureDialogTest::negativeValueIsAccepted()
{
    const Outcome outcome = confirmedWith(QStringLiteral("-5"));
    QVERIFY(outcome.confirmed);
    QCOMPARE(outcome.pressure, -5.0F);
}

// The key filter belongs to the parameter fields of the editors.
void PressureDialogTest::everyCharacterCanBeTyped()
{
    inDialog(1, [](frmTlak& dialog) {
        field(dialog).clear();
        QTest::keyClicks(&field(dialog), QStringLiteral("-1e3x"));
        QCOMPARE(field(dialog).text(), QStringLiteral("-1e3x"));
        press(dialog, "cmdCancel");
    });
}

void PressureDialogTest::numberOutOfRangeIsARunTimeErrorAndTheDialogStays()
{
    const Outcome outcome = inDialog(97000, [this](frmTlak& dialog) {
        harness().boxes.answerNext(BoxAnswer::Ok);
        field(dialog).setText(QStringLiteral("1E39"));
        press(dialog, "cmdOk");
        QVERIFY(dialog.isVisible());
        QVERIFY(!dialog.confirmed());
        QCOMPARE(field(dialog).text(), QStringLiteral("1E39"));
        QCOMPARE(dialog.Tlak(), 97000.0F);
        press(dialog, "cmdCancel");
    });
    QVERIFY(!outcome.confirmed);
    QCOMPARE(outcome.pressure, 97000.0F);
    QCOMPARE(harness().boxes.shown().size(), 1);
    const BoxRequest& box = harness().boxes.shown().first();
    QCOMPARE(box.title, QStringLiteral("Chyba při běhu programu"));
    QCOMPARE(box.icon, BoxIcon::Critical);
    QCOMPARE(box.buttons, BoxButtons::Ok);
    QVERIFY2(box.text.startsWith(QStringLiteral("Číslo je mimo rozsah: ")), qPrintable(box.text));
    QVERIFY2(box.text.contains(QStringLiteral("1E39")), qPrintable(box.text));
}

void PressureDialogTest::doubleClickSetsTheNormalPressure()
{
    separator(",");
    harness().show();
    const Outcome outcome = inDialog(98000.5F, [](frmTlak& dialog) {
        QVERIFY(waitUntilActive(dialog));
        const QPoint place(6, 6);
        QTest::mouseClick(&field(dialog), Qt::LeftButton, {}, place);
        QTest::mouseDClick(&field(dialog), Qt::LeftButton, {}, place);
        QCOMPARE(field(dialog).text(), QStringLiteral("101325"));
        QCoreApplication::processEvents();
        QCOMPARE(field(dialog).text(), QStringLiteral("101325"));
        // Nothing is taken over yet.
        QCOMPARE(dialog.Tlak(), 98000.5F);
        press(dialog, "cmdOk");
    });
    QVERIFY(outcome.confirmed);
    QCOMPARE(outcome.pressure, 101325.0F);
}

void PressureDialogTest::fieldHasTheFocusAtFirstAndIsSelected()
{
    harness().show();
    inDialog(98000, [](frmTlak& dialog) {
        QVERIFY(waitUntilActive(dialog));
        QCOMPARE(QApplication::focusWidget(), &field(dialog));
        QTRY_COMPARE(field(dialog).selectedText(), QStringLiteral("98000"));
        press(dialog, "cmdCancel");
    });
}

void PressureDialogTest::fieldSelectsItsTextWhenAClickBringsTheFocus()
{
    harness().show();
    inDialog(98000, [](frmTlak& dialog) {
        QVERIFY(waitUntilActive(dialog));
        child<QPushButton>(dialog, "cmdOk").setFocus();
        field(dialog).deselect();
        clickInto(field(dialog));
        QCOMPARE(QApplication::focusWidget(), &field(dialog));
        QTRY_COMPARE(field(dialog).selectedText(), QStringLiteral("98000"));
        press(dialog, "cmdCancel");
    });
}

void PressureDialogTest::tabKeyGoesFromTheFieldToTheButtons()
{
    harness().show();
    inDialog(98000, [](frmTlak& dialog) {
        QVERIFY(waitUntilActive(dialog));
        QCOMPARE(
            tabOrder(), QStringList({QStringLiteral("txtTlak"), QStringLiteral("cmdOk"), QStringLiteral("cmdCancel")}));
        press(dialog, "cmdCancel");
    });
}

void PressureDialogTest::mnemonicsAreUnique()
{
    inDialog(98000, [](frmTlak& dialog) {
        QCOMPARE(mnemonics(dialog), QStringLiteral("OS"));
        press(dialog, "cmdCancel");
    });
}

void PressureDialogTest::okIsTheOnlyDefaultButton()
{
    inDialog(98000, [](frmTlak& dialog) {
        QCOMPARE(defaultButtons(dialog), QStringList{QStringLiteral("cmdOk")});
        press(dialog, "cmdCancel");
    });
}

void PressureDialogTest::everyFocusableWidgetHasAName()
{
    inDialog(98000, [](frmTlak& dialog) {
        QCOMPARE(namelessWidgets(dialog).join(QStringLiteral(", ")), QString());
        press(dialog, "cmdCancel");
    });
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::PressureDialogTest)

#include "pressure_dialog_test.moc"
