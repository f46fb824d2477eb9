// The stack gas calculations and the air pressure in the point source editor.
#include "point_source_test.h"

#include <QScreen>

#include <cmath>
#include <cstdlib>
#include <utility>

namespace korvex {
namespace {

/// The fields of Vs, ts, d and w0.
void fillGas(const QWidget& editor, const QString& texts)
{
    const QStringList values = texts.split(QLatin1Char(' '));
    for (int i = 0; i < values.size(); ++i)
        setText(editor, qPrintable(QStringLiteral("tPar%1").arg(i + 2)), values.at(i));
}

QStringList parametersOf(const QWidget& editor)
{
    QStringList texts;
    for (int i = 0; i < 8; ++i)
        texts << field(editor, qPrintable(QStringLiteral("tPar%1").arg(i))).text();
    return texts;
}

QString pressureToolTip(const QWidget& editor)
{
    return child<QPushButton>(editor, "cmdNastavitTlak").toolTip();
}

}  // namespace

class PointSourceCalculationsTest : public PointSourceTest {
    Q_OBJECT

private slots:
    void resultIsWrittenAndTheFocusMovesOn_data();
    void resultIsWrittenAndTheFocusMovesOn();
    void clickedCalculationMovesTheFocusOn();
    void resultIsShownAndInputsReadInTheUsersForm_data();
    void resultIsShownAndInputsReadInTheUsersForm();
    void currentAirPressureIsUsed_data();
    void currentAirPressureIsUsed();
    void volumeIsCalculatedFromZerosToo_data();
    void volumeIsCalculatedFromZerosToo();

    void divisorThatIsZeroIsRefused_data();
    void divisorThatIsZeroIsRefused();
    void zeroIsWhatReadsAsExactlyZero_data();
    void zeroIsWhatReadsAsExactlyZero();
    void arithmeticFaultIsARunTimeErrorAndTheFieldsStay_data();
    void arithmeticFaultIsARunTimeErrorAndTheFieldsStay();
    void inputOutOfRangeIsARunTimeErrorAtItsField_data();
    void inputOutOfRangeIsARunTimeErrorAtItsField();
    void stornoAfterACalculationLeavesTheSource();
    void okAfterACalculationStoresTheResult();

    void pressureButtonTellsThePressure_data();
    void pressureButtonTellsThePressure();
    void pressureDialogStandsOverTheButton();
    void pressureDialogStaysOnTheScreen();
    void pressureDialogShowsTheCurrentPressure();
    void confirmedPressureIsTheCurrentOne();
    void pressureDialogThatIsNotConfirmedChangesNothing_data();
    void pressureDialogThatIsNotConfirmedChangesNothing();
    void pressureStaysAfterStornoInTheEditor();
    void pressureOfZeroIsAcceptedAndRefusedByTheCalculations();

private:
    /// Presses the button and answers the pressure dialog.
    void setPressure(QDialog& editor, const QString& text)
    {
        harness().dialogs.useNext(QStringLiteral("frmTlak"), [text](QDialog& dialog) {
            setText(dialog, "txtTlak", text);
            press(dialog, "cmdOk");
        });
        press(editor, "cmdNastavitTlak");
    }
};

void PointSourceCalculationsTest::resultIsWrittenAndTheFocusMovesOn_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("gas");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("focus");
    const auto row
        = [](const char* button, const char* gas, const char* target, const char* result, const char* focus) {
              QTest::addRow("%s of %s", button, gas)
                  << QString::fromLatin1(button) << QString::fromLatin1(gas) << QString::fromLatin1(target)
                  << QString::fromLatin1(result) << QString::fromLatin1(focus);
          };
    row("cmdCalcVs", "9 150 1 10", "tPar2", "5.069869", "tPar3");
    row("cmdCalcVs", "9 0 2 5", "tPar2", "15.70796", "tPar3");
    row("cmdCalcD", "5.069869 150 9 10", "tPar4", "1", "tPar5");
    row("cmdCalcD", "10 20 9 5", "tPar4", "1.653158", "tPar5");
    row("cmdCalcW0", "5.069869 150 1 9", "tPar5", "10", "tPar6");
    row("cmdCalcW0", "10 20 2 9", "tPar5", "3.416165", "tPar6");
}

void PointSourceCalculationsTest::resultIsWrittenAndTheFocusMovesOn()
{
    QFETCH(const QString, button);
    QFETCH(const QString, gas);
    QFETCH(const QString, target);
    QFETCH(const QString, result);
    QFETCH(const QString, focus);
    decimalSeparator(".");
    lookActive(ParametersTab, [&](QDialog& editor) {
        fillGas(editor, gas);
        setText(editor, qPrintable(target), result);
        const QStringList expected = parametersOf(editor);
        setText(editor, qPrintable(target), QStringLiteral("77"));
        press(editor, qPrintable(button));
        QCOMPARE(parametersOf(editor), expected);
        QCOMPARE(focusName(), focus);
    });
}

void PointSourceCalculationsTest::clickedCalculationMovesTheFocusOn()
{
    lookActive(ParametersTab, [](QDialog& editor) {
        QTest::mouseClick(editor.windowHandle(), Qt::LeftButton, {}, placeOf(child<QPushButton>(editor, "cmdCalcW0")));
        QCOMPARE(focusName(), QStringLiteral("tPar6"));
        QTRY_COMPARE(field(editor, "tPar6").selectedText(), field(editor, "tPar6").text());
    });
}

void PointSourceCalculationsTest::resultIsShownAndInputsReadInTheUsersForm_data()
{
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QString>("diameter");
    QTest::addColumn<QString>("result");
    QTest::newRow("comma read with comma") << QStringLiteral(",") << QStringLiteral("1,5") << QStringLiteral("8,83573");
    QTest::newRow("point read with comma") << QStringLiteral(",") << QStringLiteral("1.5") << QStringLiteral("8,83573");
    QTest::newRow("point read with point") << QStringLiteral(".") << QStringLiteral("1.5") << QStringLiteral("8.83573");
    QTest::newRow("comma read with point")
        << QStringLiteral(".") << QStringLiteral("1,5") << QStringLiteral("3.926991");
}

void PointSourceCalculationsTest::resultIsShownAndInputsReadInTheUsersForm()
{
    QFETCH(const QString, separator);
    QFETCH(const QString, diameter);
    QFETCH(const QString, result);
    decimalSeparator(separator.toLatin1().constData());
    look([&](QDialog& editor) {
        fillGas(editor, QStringLiteral("9 0 %1 5").arg(diameter));
        press(editor, "cmdCalcVs");
        QCOMPARE(field(editor, "tPar2").text(), result);
    });
}

void PointSourceCalculationsTest::currentAirPressureIsUsed_data()
{
    QTest::addColumn<QString>("gas");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("result");
    QTest::newRow("cmdCalcVs") << QStringLiteral("9 20 2 5") << QStringLiteral("tPar2") << QStringLiteral("14.156");
    QTest::newRow("cmdCalcD") << QStringLiteral("14.156 20 9 5") << QStringLiteral("tPar4") << QStringLiteral("2");
    QTest::newRow("cmdCalcW0") << QStringLiteral("14.156 20 2 9") << QStringLiteral("tPar5") << QStringLiteral("5");
}

void PointSourceCalculationsTest::currentAirPressureIsUsed()
{
    QFETCH(const QString, gas);
    QFETCH(const QString, target);
    QFETCH(const QString, result);
    decimalSeparator(".");
    globals().airPressure = 98000;
    look([&](QDialog& editor) {
        fillGas(editor, gas);
        press(editor, QTest::currentDataTag());
        // The example is rounded: it is the same number to five digits.
        const double calculated = field(editor, qPrintable(target)).text().toDouble();
        const double expected = result.toDouble();
        QVERIFY2(std::abs(calculated - expected) < expected * 1E-5, qPrintable(QString::number(calculated, 'g', 9)));
    });
}

void PointSourceCalculationsTest::volumeIsCalculatedFromZerosToo_data()
{
    QTest::addColumn<QString>("gas");
    QTest::addColumn<float>("pressure");
    QTest::newRow("d") << QStringLiteral("9 150 0 10") << 101325.0F;
    QTest::newRow("w0") << QStringLiteral("9 150 1 0") << 101325.0F;
    QTest::newRow("empty d") << QStringLiteral("9 150  10") << 101325.0F;
    QTest::newRow("p") << QStringLiteral("9 150 1 10") << 0.0F;
}

void PointSourceCalculationsTest::volumeIsCalculatedFromZerosToo()
{
    QFETCH(const QString, gas);
    QFETCH(const float, pressure);
    globals().airPressure = pressure;
    look([&gas](QDialog& editor) {
        fillGas(editor, gas);
        press(editor, "cmdCalcVs");
        QCOMPARE(field(editor, "tPar2").text(), QStringLiteral("0"));
    });
    QVERIFY(harness().boxes.shown().isEmpty());
}

void PointSourceCalculationsTest::divisorThatIsZeroIsRefused_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("gas");
    QTest::addColumn<float>("pressure");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const char* button, const char* gas, float pressure, const char* title,
                         const char* text) {
        QTest::newRow(name) << QString::fromLatin1(button) << QString::fromLatin1(gas) << pressure
                            << QString::fromUtf8(title) << QString::fromUtf8(text);
    };
    row("d: w0", "cmdCalcD", "10 20 2 0", 101325, "Vypočet (d)", "Parametr 'w0' nesmí být nulový.");
    row("d: pressure", "cmdCalcD", "10 20 2 5", 0, "Vypočet (d)", "Tlak vzduchu nesmí být nulový.");
    row("d: both", "cmdCalcD", "10 20 2 0", 0, "Vypočet (d)", "Parametr 'w0' nesmí být nulový.");
    row("w0: d", "cmdCalcW0", "10 20 0 5", 101325, "Vypočet (w0)", "Parametr 'd' nesmí být nulový.");
    row("w0: pressure", "cmdCalcW0", "10 20 2 5", 0, "Vypočet (w0)", "Tlak vzduchu nesmí být nulový.");
    row("w0: both", "cmdCalcW0", "10 20 0 5", 0, "Vypočet (w0)", "Parametr 'd' nesmí být nulový.");
}

void PointSourceCalculationsTest::divisorThatIsZeroIsRefused()
{
    QFETCH(const QString, button);
    QFETCH(const QString, gas);
    QFETCH(const float, pressure);
    QFETCH(const QString, title);
    QFETCH(const QString, text);
    globals().airPressure = pressure;
    harness().boxes.answerNext(BoxAnswer::Ok);
    lookActive(ParametersTab, [&](QDialog& editor) {
        fillGas(editor, gas);
        field(editor, "tPar1").setFocus();
        const QStringList before = parametersOf(editor);
        press(editor, qPrintable(button));
        QCOMPARE(parametersOf(editor), before);
        QCOMPARE(focusName(), QStringLiteral("tPar1"));
    });
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(
        describe(harness().boxes.shown().first()), QStringLiteral("[Exclamation] %1 | %2 | Ok | ").arg(title, text));
}

void PointSourceCalculationsTest::zeroIsWhatReadsAsExactlyZero_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isRefused");
    for (const char* const text : {"", "abc", "0", "-0", "0,0", "x5", "1E-60"})
        QTest::addRow("'%s'", text) << QString::fromLatin1(text) << true;
    for (const char* const text : {"0,001", "-1", "1E-20", "5x"})
        QTest::addRow("'%s'", text) << QString::fromLatin1(text) << false;
}

void PointSourceCalculationsTest::zeroIsWhatReadsAsExactlyZero()
{
    QFETCH(const QString, text);
    QFETCH(const bool, isRefused);
    decimalSeparator(",");
    if (isRefused)
        harness().boxes.answerNext(BoxAnswer::Ok);
    look([&text](QDialog& editor) {
        // Small enough that a divisor near zero does not overflow.
        fillGas(editor, QStringLiteral("1E-20 20 %1 9").arg(text));
        press(editor, "cmdCalcW0");
    });
    QCOMPARE(harness().boxes.shown().size(), isRefused ? 1 : 0);
}

void PointSourceCalculationsTest::arithmeticFaultIsARunTimeErrorAndTheFieldsStay_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("gas");
    QTest::newRow("absolute zero") << QStringLiteral("cmdCalcVs") << QStringLiteral("9 -273.15 1 10");
    QTest::newRow("root of a negative") << QStringLiteral("cmdCalcD") << QStringLiteral("-10 20 2 5");
    QTest::newRow("overflow of Vs") << QStringLiteral("cmdCalcVs") << QStringLiteral("9 0 1E30 1");
    QTest::newRow("overflow of w0") << QStringLiteral("cmdCalcW0") << QStringLiteral("1E30 20 1E-10 5");
}

void PointSourceCalculationsTest::arithmeticFaultIsARunTimeErrorAndTheFieldsStay()
{
    QFETCH(const QString, button);
    QFETCH(const QString, gas);
    decimalSeparator(".");
    harness().boxes.answerNext(BoxAnswer::Ok);
    lookActive(ParametersTab, [&](QDialog& editor) {
        fillGas(editor, gas);
        field(editor, "tPar1").setFocus();
        const QStringList before = parametersOf(editor);
        press(editor, qPrintable(button));
        QCOMPARE(parametersOf(editor), before);
        QCOMPARE(focusName(), QStringLiteral("tPar1"));
        QVERIFY(editor.isVisible());
    });
    QCOMPARE(harness().boxes.shown().size(), 1);
    const BoxRequest& box = harness().boxes.shown().first();
    QCOMPARE(box.title, QStringLiteral("Chyba při běhu programu"));
    QCOMPARE(box.icon, BoxIcon::Critical);
    QVERIFY(!box.text.isEmpty());
}

void PointSourceCalculationsTest::inputOutOfRangeIsARunTimeErrorAtItsField_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("input");
    const std::pair<const char*, QStringList> inputs[]{
        {"cmdCalcVs", {QStringLiteral("tPar3"), QStringLiteral("tPar4"), QStringLiteral("tPar5")}},
        {"cmdCalcD", {QStringLiteral("tPar3"), QStringLiteral("tPar2"), QStringLiteral("tPar5")}},
        {"cmdCalcW0", {QStringLiteral("tPar3"), QStringLiteral("tPar2"), QStringLiteral("tPar4")}},
    };
    for (const auto& [button, fields] : inputs) {
        for (const QString& input : fields)
            QTest::addRow("%s of %s", button, qPrintable(input)) << QString::fromLatin1(button) << input;
    }
}

void PointSourceCalculationsTest::inputOutOfRangeIsARunTimeErrorAtItsField()
{
    QFETCH(const QString, button);
    QFETCH(const QString, input);
    harness().boxes.answerNext(BoxAnswer::Ok);
    lookActive(ParametersTab, [&](QDialog& editor) {
        setText(editor, qPrintable(input), QStringLiteral("1E39"));
        const QStringList before = parametersOf(editor);
        press(editor, qPrintable(button));
        QCOMPARE(parametersOf(editor), before);
        QCOMPARE(focusName(), input);
    });
    QCOMPARE(describe(harness().boxes.shown().first()),
        QStringLiteral("[Critical] Chyba při běhu programu | Číslo je mimo rozsah: „1E39“. | Ok | "));
}

void PointSourceCalculationsTest::stornoAfterACalculationLeavesTheSource()
{
    cZdroje source = stack();
    const QStringList before = recordsOf(source);
    const bool isConfirmed = edit(source, [](QDialog& editor) {
        const QString shown = field(editor, "tPar2").text();
        press(editor, "cmdCalcVs");
        QVERIFY(field(editor, "tPar2").text() != shown);
        press(editor, "cbStorno");
    });
    QVERIFY(!isConfirmed);
    QCOMPARE(recordsOf(source), before);
    QVERIFY(!harness().set().modified());
}

void PointSourceCalculationsTest::okAfterACalculationStoresTheResult()
{
    decimalSeparator(",");
    cZdroje source = stack();
    QVERIFY(edit(source, [](QDialog& editor) {
        fillGas(editor, QStringLiteral("9 150 1 10"));
        press(editor, "cmdCalcVs");
        press(editor, "cbOK");
    }));
    QCOMPARE(source.Parameters(2), 5.069869F);
}

void PointSourceCalculationsTest::pressureButtonTellsThePressure_data()
{
    QTest::addColumn<float>("pressure");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QString>("toolTip");
    QTest::newRow("normal") << 101325.0F << QStringLiteral(",") << QStringLiteral("Tlak (p) = 101325 Pa");
    QTest::newRow("comma") << 98000.5F << QStringLiteral(",") << QStringLiteral("Tlak (p) = 98000,5 Pa");
    QTest::newRow("point") << 98000.5F << QStringLiteral(".") << QStringLiteral("Tlak (p) = 98000.5 Pa");
    QTest::newRow("zero") << 0.0F << QStringLiteral(",") << QStringLiteral("Tlak (p) = 0 Pa");
}

void PointSourceCalculationsTest::pressureButtonTellsThePressure()
{
    QFETCH(const float, pressure);
    QFETCH(const QString, separator);
    QFETCH(const QString, toolTip);
    decimalSeparator(separator.toLatin1().constData());
    globals().airPressure = pressure;
    look([&](QDialog& editor) { QCOMPARE(pressureToolTip(editor), toolTip); });
}

void PointSourceCalculationsTest::pressureDialogStandsOverTheButton()
{
    lookActive(ParametersTab, [this](QDialog& editor) {
        editor.move(100, 150);
        const QPushButton& button = child<QPushButton>(editor, "cmdNastavitTlak");
        const QPoint top = button.mapToGlobal(QPoint(button.width() / 2, 0));
        harness().dialogs.useNext(QStringLiteral("frmTlak"), [&](QDialog& dialog) {
            QVERIFY2(editor.screen()->availableGeometry().contains(dialog.geometry()), "the rule needs room");
            QVERIFY(std::abs(dialog.frameGeometry().center().x() - top.x()) <= 2);
            QCOMPARE(dialog.y(), top.y());
            QCOMPARE(dialog.parentWidget(), &editor);
            press(dialog, "cmdCancel");
        });
        press(editor, "cmdNastavitTlak");
    });
}

void PointSourceCalculationsTest::pressureDialogStaysOnTheScreen()
{
    lookActive(ParametersTab, [this](QDialog& editor) {
        const QRect screen = editor.screen()->availableGeometry();
        const QPoint place = placeOf(child<QPushButton>(editor, "cmdNastavitTlak"));
        for (const QPoint corner : {screen.topLeft(), screen.bottomRight()}) {
            editor.move(corner - place);
            harness().dialogs.useNext(QStringLiteral("frmTlak"), [&screen](QDialog& dialog) {
                QCOMPARE(screen.united(dialog.frameGeometry()), screen);
                press(dialog, "cmdCancel");
            });
            press(editor, "cmdNastavitTlak");
        }
    });
}

void PointSourceCalculationsTest::pressureDialogShowsTheCurrentPressure()
{
    decimalSeparator(",");
    globals().airPressure = 98000.5F;
    look([this](QDialog& editor) {
        harness().dialogs.useNext(QStringLiteral("frmTlak"), [](QDialog& dialog) {
            QCOMPARE(field(dialog, "txtTlak").text(), QStringLiteral("98000,5"));
            press(dialog, "cmdCancel");
        });
        press(editor, "cmdNastavitTlak");
    });
}

void PointSourceCalculationsTest::confirmedPressureIsTheCurrentOne()
{
    decimalSeparator(",");
    look([this](QDialog& editor) {
        const QStringList before = parametersOf(editor);
        setPressure(editor, QStringLiteral("98000,5"));
        QCOMPARE(globals().airPressure, 98000.5F);
        QCOMPARE(pressureToolTip(editor), QStringLiteral("Tlak (p) = 98000,5 Pa"));
        QCOMPARE(parametersOf(editor), before);
        QVERIFY(editor.isVisible());
        setPressure(editor, QStringLiteral("98000"));
        fillGas(editor, QStringLiteral("9 20 2 5"));
        press(editor, "cmdCalcVs");
        QVERIFY(field(editor, "tPar2").text().startsWith(QStringLiteral("14,15")));
    });
}

void PointSourceCalculationsTest::pressureDialogThatIsNotConfirmedChangesNothing_data()
{
    QTest::addColumn<Leaving>("leaving");
    QTest::newRow("Storno") << Leaving::Storno;
    QTest::newRow("Escape") << Leaving::Escape;
    QTest::newRow("close box") << Leaving::CloseBox;
}

void PointSourceCalculationsTest::pressureDialogThatIsNotConfirmedChangesNothing()
{
    QFETCH(const Leaving, leaving);
    look([this, leaving](QDialog& editor) {
        harness().dialogs.useNext(QStringLiteral("frmTlak"), [leaving](QDialog& dialog) {
            setText(dialog, "txtTlak", QStringLiteral("98000"));
            if (leaving == Leaving::Storno)
                press(dialog, "cmdCancel");
            else
                leave(dialog, leaving);
        });
        press(editor, "cmdNastavitTlak");
        QVERIFY(editor.isVisible());
        QCOMPARE(pressureToolTip(editor), QStringLiteral("Tlak (p) = 101325 Pa"));
    });
    QCOMPARE(globals().airPressure, 101325.0F);
}

void PointSourceCalculationsTest::pressureStaysAfterStornoInTheEditor()
{
    look([this](QDialog& editor) { setPressure(editor, QStringLiteral("98000")); });
    QCOMPARE(globals().airPressure, 98000.0F);
    look([](QDialog& editor) { QCOMPARE(pressureToolTip(editor), QStringLiteral("Tlak (p) = 98000 Pa")); });
    QVERIFY(!harness().set().modified());
}

void PointSourceCalculationsTest::pressureOfZeroIsAcceptedAndRefusedByTheCalculations()
{
    look([this](QDialog& editor) {
        setPressure(editor, QStringLiteral("0"));
        fillGas(editor, QStringLiteral("9 20 2 5"));
        harness().boxes.answerNext(BoxAnswer::Ok);
        press(editor, "cmdCalcD");
        harness().boxes.answerNext(BoxAnswer::Ok);
        press(editor, "cmdCalcW0");
        press(editor, "cmdCalcVs");
        QCOMPARE(field(editor, "tPar2").text(), QStringLiteral("0"));
    });
    QCOMPARE(globals().airPressure, 0.0F);
    for (const BoxRequest& box : harness().boxes.shown())
        QCOMPARE(box.text, QStringLiteral("Tlak vzduchu nesmí být nulový."));
    QCOMPARE(harness().boxes.shown().size(), 2);
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::PointSourceCalculationsTest)

#include "point_source_calculations_test.moc"
