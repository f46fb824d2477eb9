// The batch calculation of Vs, d and w0: the dialog's texts, its runs with log, progress and faults, and its placement.
#include "dialog_checks.h"
#include "number_text.h"
#include "option_index.h"
#include "window_harness.h"
#include "window_progress.h"

#include <QAbstractItemModel>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>

#include <array>
#include <cmath>
#include <cstddef>
#include <ctime>
#include <functional>
#include <utility>

namespace korvex {
namespace {

const QString title = QStringLiteral("Výpočet hodnot bodových zdrojů");
const QString done = QStringLiteral("Hotovo.");

QLineEdit& field(QDialog& dialog)
{
    return child<QLineEdit>(dialog, "txtTlak");
}

QProgressBar& bar(QDialog& dialog)
{
    return child<QProgressBar>(dialog, "ProgressBar1");
}

QRadioButton& option(QDialog& dialog, int index)
{
    return child<QRadioButton>(dialog, qPrintable(QStringLiteral("optVypocet%1").arg(index)));
}

void press(QDialog& dialog, const char* button)
{
    child<QPushButton>(dialog, button).click();
}

void run(QDialog& dialog, int index)
{
    option(dialog, index).setChecked(true);
    press(dialog, "cbStart");
}

QStringList log(QDialog& dialog)
{
    const QAbstractItemModel& model = *child<QListView>(dialog, "lstLog").model();
    QStringList lines;
    for (int row = 0; row < model.rowCount(); ++row)
        lines << model.index(row, 0).data().toString();
    return lines;
}

bool hourglass()
{
    const QCursor* const pointer = QGuiApplication::overrideCursor();
    return pointer != nullptr && pointer->shape() == Qt::WaitCursor;
}

QString zeroPressureBox()
{
    return describe({title, QStringLiteral("Tlak 'p' nesmí být nulový."), BoxIcon::Exclamation, BoxButtons::Ok, {}});
}

QString faultBox(const QString& text)
{
    return describe({QStringLiteral("Chyba při běhu programu"), text, BoxIcon::Critical, BoxButtons::Ok, {}});
}

}  // namespace

class BatchDialogTest : public ShellTest {
    Q_OBJECT

private slots:
    void captionsAndToolTips();
    void framesHoldTheirControls();
    void memberFieldsAreFoundByTheirNames();
    void firstOptionIsOnAtEachOpening();
    void pressureStartsAtTheNormalOneWhateverTheCurrentOne();
    void pressureTypedBeforeIsForgotten();
    void logIsEmptyAndTheBarAtItsBeginningAtFirst();
    void dialogIsModalToItsOwnerOnly();
    void onlyOneOptionCanBeOn();
    void optionIndexIsThatOfTheFirstOptionThatIsOn();

    void optionChoosesTheQuantity();
    void enterInThePressureFieldStartsTheRun();
    void pressureOfTheDialogActsOnVsOnly();
    void pressureIsReadWithTheUsersSeparator();
    void dAndW0UseTheCurrentPressure();
    void currentPressureIsNeverChanged();
    void onlyMarkedPointsAreComputed();
    void rowsAreTakenByTheirTagsAfterSorting();

    void zeroPressureIsRefusedForEveryOption_data();
    void zeroPressureIsRefusedForEveryOption();
    void pressureOutOfRangeIsARunTimeError();

    void zeroDivisorIsLoggedAndTheRunGoesOn();
    void logIsClearedAtEachRun();
    void withoutMarkedPointsTheLogHoldsOnlyTheClosingLine();
    void logCannotBeEdited();

    void progressGoesThroughAllRowsAndFallsBack();
    void pointerIsTheHourglassDuringTheRunOnly();
    void faultNamesTheSourceAndKeepsResultsAndLog();
    void faultLeavesTheBarAtItsBeginningAndThePointerNormal();
    void zeroCurrentPressureIsARunTimeErrorOfADAndAW0Run();
    void barCountsMoreStepsThanItHas();

    void focusGoesToTheBackButtonAfterARunAndEnterThenCloses();
    void focusGoesToTheBackButtonAlsoAfterARefusedRun();
    void backEscapeAndCloseBoxClose_data();
    void backEscapeAndCloseBoxClose();
    void listMarksAndModifiedFlagAreLeftAlone();

    void pressureSelectsItsTextWhenAClickBringsTheFocus();
    void pressureSelectsItsTextWhenTheTabKeyBringsTheFocus();
    void tabKeyGoesFromTopToBottom();
    void mnemonicsAreUnique();
    void startIsTheOnlyDefaultButton();
    void everyFocusableWidgetHasAName();
    void helpButtonSendsF1AndLeavesTheDialogOpen();

    void firstOpensAtTheTopLeftCornerOfItsOwner();
    void reopensWhereItWasLeftBesideItsOwner_data();
    void reopensWhereItWasLeftBesideItsOwner();

    void aMillionMarkedPointsTakeASecondOrLittleMore();

private:
    /// A point source with these parameters 2 to 5.
    void addPoint(int number, float Vs, float ts, float d, float w0) { add(cBodovyZdroj, number, Vs, ts, d, w0); }
    void add(const SourceType& type, int number, float Vs, float ts, float d, float w0)
    {
        harness().append(type, number);
        cZdroje& source = harness().set().last();
        source.Parameters(2, Vs);
        source.Parameters(3, ts);
        source.Parameters(4, d);
        source.Parameters(5, w0);
    }
    void show(const QString& marks)
    {
        harness().window().refill();
        harness().mark(marks);
    }
    /// One marked stack of which every quantity can be computed.
    void showOne()
    {
        addPoint(12, 10, 20, 2, 5);
        show(QStringLiteral("X"));
    }
    /// Opens the dialog by its command, does this and leaves it by the back button if it is still open.
    void inDialog(const std::function<void(QDialog&)>& use)
    {
        harness().dialogs.useNext(QStringLiteral("frmVypocetVsDw0"), [&use](QDialog& dialog) {
            use(dialog);
            if (dialog.isVisible())
                press(dialog, "cbStorno");
        });
        harness().item("mnuVypocetVsDw0").trigger();
    }
    QString parameter(std::size_t position, int index)
    {
        return QString::fromStdString(singleText(harness().set().at(position).Parameters(index)));
    }
    QStringList boxes()
    {
        QStringList texts;
        for (const BoxRequest& box : harness().boxes.shown())
            texts << describe(box);
        return texts;
    }
};

void BatchDialogTest::captionsAndToolTips()
{
    showOne();
    inDialog([](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), title);
        QCOMPARE(child<QGroupBox>(dialog, "Frame1").title(), QStringLiteral("Počítaná hodnota"));
        QCOMPARE(option(dialog, 0).text(), QStringLiteral("Výpočet hodnoty 'Vs'"));
        QCOMPARE(option(dialog, 1).text(), QStringLiteral("Výpočet hodnoty 'd'"));
        QCOMPARE(option(dialog, 2).text(), QStringLiteral("Výpočet hodnoty 'w0'"));
        QCOMPARE(child<QGroupBox>(dialog, "Frame2").title(), QStringLiteral("Tlak vzduchu 'p'"));
        QCOMPARE(child<QLabel>(dialog, "Label1").text(), QStringLiteral("[Pa]"));
        QCOMPARE(
            child<QLabel>(dialog, "Label3").text(), QStringLiteral("Hodnota bude použita pouze pro tento výpočet."));
        QCOMPARE(child<QLabel>(dialog, "Label2").text(), QStringLiteral("Záznam o chybách:"));
        QCOMPARE(child<QPushButton>(dialog, "cbStart").text(), QStringLiteral("&Start"));
        QCOMPARE(child<QPushButton>(dialog, "cbStart").toolTip(), QStringLiteral("Spuštění výpočtu."));
        QCOMPARE(child<QPushButton>(dialog, "cbStorno").text(), QStringLiteral("&Zpět"));
        QCOMPARE(child<QPushButton>(dialog, "cbStorno").toolTip(), QStringLiteral("Zpět."));
        QCOMPARE(child<QPushButton>(dialog, "cbHelp").text(), QStringLiteral("&Nápověda…"));
        QCOMPARE(child<QPushButton>(dialog, "cbHelp").toolTip(), QStringLiteral("Nápověda k programu."));
    });
}

void BatchDialogTest::framesHoldTheirControls()
{
    showOne();
    inDialog([](QDialog& dialog) {
        const auto& Frame1 = child<QGroupBox>(dialog, "Frame1");
        for (int index = 0; index < 3; ++index)
            QVERIFY(Frame1.isAncestorOf(&option(dialog, index)));
        const auto& Frame2 = child<QGroupBox>(dialog, "Frame2");
        QVERIFY(Frame2.isAncestorOf(&field(dialog)));
        QVERIFY(Frame2.isAncestorOf(&child<QLabel>(dialog, "Label1")));
        QVERIFY(Frame2.isAncestorOf(&child<QLabel>(dialog, "Label3")));
        // The unit stands behind the field, the heading above the log.
        QVERIFY(placeOf(child<QLabel>(dialog, "Label1")).x() > placeOf(field(dialog)).x());
        QVERIFY(placeOf(child<QLabel>(dialog, "Label2")).y() < placeOf(child<QListView>(dialog, "lstLog")).y());
    });
}

void BatchDialogTest::memberFieldsAreFoundByTheirNames()
{
    showOne();
    inDialog([](QDialog& dialog) {
        for (const char* const name : {"Frame1", "optVypocet0", "optVypocet1", "optVypocet2", "Frame2", "txtTlak",
                 "Label1", "Label2", "Label3", "lstLog", "ProgressBar1", "cbStart", "cbStorno", "cbHelp"})
            QCOMPARE(dialog.findChildren<QWidget*>(QLatin1String(name)).size(), 1);
    });
}

void BatchDialogTest::firstOptionIsOnAtEachOpening()
{
    showOne();
    for (int opening = 0; opening < 2; ++opening) {
        inDialog([](QDialog& dialog) {
            QVERIFY(option(dialog, 0).isChecked());
            QVERIFY(!option(dialog, 1).isChecked());
            QVERIFY(!option(dialog, 2).isChecked());
            option(dialog, 2).setChecked(true);
        });
    }
}

void BatchDialogTest::pressureStartsAtTheNormalOneWhateverTheCurrentOne()
{
    showOne();
    harness().globals.airPressure = 98000;
    inDialog([](QDialog& dialog) { QCOMPARE(field(dialog).text(), QStringLiteral("101325")); });
}

void BatchDialogTest::pressureTypedBeforeIsForgotten()
{
    showOne();
    inDialog([](QDialog& dialog) {
        field(dialog).setText(QStringLiteral("98000"));
        run(dialog, 0);
    });
    inDialog([](QDialog& dialog) { QCOMPARE(field(dialog).text(), QStringLiteral("101325")); });
}

void BatchDialogTest::logIsEmptyAndTheBarAtItsBeginningAtFirst()
{
    showOne();
    for (int opening = 0; opening < 2; ++opening) {
        inDialog([](QDialog& dialog) {
            QCOMPARE(log(dialog), QStringList());
            QCOMPARE(bar(dialog).value(), 0);
            run(dialog, 0);
        });
    }
}

void BatchDialogTest::dialogIsModalToItsOwnerOnly()
{
    showOne();
    harness().show();
    inDialog([this](QDialog& dialog) {
        QVERIFY(dialog.isModal());
        // The help window takes input beside it.
        QCOMPARE(dialog.windowModality(), Qt::WindowModal);
        QCOMPARE(dialog.parentWidget(), &harness().window());
    });
}

void BatchDialogTest::onlyOneOptionCanBeOn()
{
    showOne();
    inDialog([](QDialog& dialog) {
        for (int chosen = 2; chosen >= 0; --chosen) {
            option(dialog, chosen).click();
            for (int index = 0; index < 3; ++index)
                QCOMPARE(option(dialog, index).isChecked(), index == chosen);
        }
    });
}

void BatchDialogTest::optionIndexIsThatOfTheFirstOptionThatIsOn()
{
    QRadioButton first;
    QRadioButton second;
    QRadioButton third;
    const std::array<QRadioButton*, 3> options{&first, &second, &third};
    QCOMPARE(OptionIndex(options), 0U);
    third.setChecked(true);
    QCOMPARE(OptionIndex(options), 2U);
    second.setChecked(true);
    QCOMPARE(OptionIndex(options), 1U);
    first.setChecked(true);
    QCOMPARE(OptionIndex(options), 0U);
    QCOMPARE(OptionIndex({}), 0U);
}

void BatchDialogTest::optionChoosesTheQuantity()
{
    for (int number = 1; number <= 3; ++number)
        addPoint(number, 10, 20, 2, 5);
    show(QStringLiteral("---"));
    inDialog([this](QDialog& dialog) {
        const QStringList marks{QStringLiteral("X--"), QStringLiteral("-X-"), QStringLiteral("--X")};
        for (int index = 0; index < 3; ++index) {
            harness().mark(marks.at(index));
            run(dialog, index);
            QCOMPARE(log(dialog), QStringList{done});
        }
    });
    const auto quantities = [this](std::size_t position) {
        return QStringList{
            parameter(position, 2), parameter(position, 3), parameter(position, 4), parameter(position, 5)};
    };
    const auto words = [](const char* text) { return QString::fromUtf8(text).split(QLatin1Char(' ')); };
    QCOMPARE(quantities(1), words("14.6363 20 2 5"));
    QCOMPARE(quantities(2), words("10 20 1.653158 5"));
    QCOMPARE(quantities(3), words("10 20 2 3.416165"));
}

void BatchDialogTest::enterInThePressureFieldStartsTheRun()
{
    showOne();
    inDialog([this](QDialog& dialog) {
        field(dialog).setText(QStringLiteral("98000"));
        QTest::keyClick(&field(dialog), Qt::Key_Return);
        QVERIFY(dialog.isVisible());
        QCOMPARE(log(dialog), QStringList{done});
        QCOMPARE(parameter(1, 2), QStringLiteral("14.156"));
    });
}

void BatchDialogTest::pressureOfTheDialogActsOnVsOnly()
{
    for (int number = 1; number <= 3; ++number)
        addPoint(number, 10, 20, 2, 5);
    show(QStringLiteral("---"));
    inDialog([this](QDialog& dialog) {
        for (const char* const pressure : {"101325", "98000", "-1"}) {
            field(dialog).setText(QLatin1String(pressure));
            harness().mark(QStringLiteral("-X-"));
            run(dialog, 1);
            QCOMPARE(parameter(2, 4), QStringLiteral("1.653158"));
            harness().mark(QStringLiteral("--X"));
            run(dialog, 2);
            QCOMPARE(parameter(3, 5), QStringLiteral("3.416165"));
        }
        harness().mark(QStringLiteral("X--"));
        field(dialog).setText(QStringLiteral("101325"));
        run(dialog, 0);
        QCOMPARE(parameter(1, 2), QStringLiteral("14.6363"));
        field(dialog).setText(QStringLiteral("98000"));
        run(dialog, 0);
        QCOMPARE(parameter(1, 2), QStringLiteral("14.156"));
    });
}

void BatchDialogTest::pressureIsReadWithTheUsersSeparator()
{
    showOne();
    // A pressure of decimals only: without them it is zero.
    for (const char* const separator : {",", "."}) {
        harness().globals.decimalSeparator = separator;
        inDialog([&](QDialog& dialog) {
            field(dialog).setText(QStringLiteral("0,5"));
            if (*separator == '.')
                harness().boxes.answerNext(BoxAnswer::Ok);
            harness().set().at(1).Parameters(2, 77);
            run(dialog, 0);
        });
        QCOMPARE(parameter(1, 2), *separator == '.' ? QStringLiteral("77") : QStringLiteral("7.22245E-05"));
    }
    QCOMPARE(boxes(), QStringList{zeroPressureBox()});
}

void BatchDialogTest::dAndW0UseTheCurrentPressure()
{
    addPoint(1, 10, 20, 2, 5);
    addPoint(2, 10, 20, 2, 5);
    show(QStringLiteral("X-"));
    harness().globals.airPressure = 98000;
    inDialog([this](QDialog& dialog) {
        run(dialog, 1);
        harness().mark(QStringLiteral("-X"));
        run(dialog, 2);
    });
    QCOMPARE(harness().set().at(1).Parameters(4), 1.68096888F);
    QCOMPARE(harness().set().at(2).Parameters(5), 3.5320704F);
}

void BatchDialogTest::currentPressureIsNeverChanged()
{
    showOne();
    harness().globals.airPressure = 97000;
    inDialog([](QDialog& dialog) {
        field(dialog).setText(QStringLiteral("98000"));
        for (int index = 0; index < 3; ++index)
            run(dialog, index);
    });
    QCOMPARE(harness().globals.airPressure, 97000.0F);
}

void BatchDialogTest::onlyMarkedPointsAreComputed()
{
    addPoint(1, 10, 20, 2, 5);
    addPoint(2, 10, 20, 2, 5);
    add(cPlosnyZdroj, 3, 10, 20, 2, 5);
    add(cLiniovyZdroj, 4, 10, 20, 2, 0);
    show(QStringLiteral("X-XX"));
    inDialog([](QDialog& dialog) {
        for (int index = 0; index < 3; ++index) {
            run(dialog, index);
            QCOMPARE(log(dialog), QStringList{done});
        }
    });
    QCOMPARE(parameter(1, 2), QStringLiteral("14.6363"));
    for (const std::size_t position : {2U, 3U, 4U}) {
        QCOMPARE(parameter(position, 2), QStringLiteral("10"));
        QCOMPARE(parameter(position, 4), QStringLiteral("2"));
        QCOMPARE(parameter(position, 5), position == 4 ? QStringLiteral("0") : QStringLiteral("5"));
    }
}

void BatchDialogTest::rowsAreTakenByTheirTagsAfterSorting()
{
    addPoint(9, 10, 20, 2, 0);
    addPoint(5, 10, 20, 2, 0);
    show(QStringLiteral("--"));
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().mark(QStringLiteral("XX"));
    inDialog([](QDialog& dialog) {
        run(dialog, 1);
        QCOMPARE(log(dialog),
            QStringList({QStringLiteral("Pro zdroj 5 nelze vypočítat 'd', protože 'w0'=0"),
                QStringLiteral("Pro zdroj 9 nelze vypočítat 'd', protože 'w0'=0"), done}));
    });
}

void BatchDialogTest::zeroPressureIsRefusedForEveryOption_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("pressure");
    for (int index = 0; index < 3; ++index) {
        for (const char* const text : {"", "0", "-0", "0,0", " ", "abc", ","})
            QTest::addRow("option %d, '%s'", index, text) << index << QString::fromUtf8(text);
    }
}

void BatchDialogTest::zeroPressureIsRefusedForEveryOption()
{
    QFETCH(const int, index);
    QFETCH(const QString, pressure);
    addPoint(12, 10, 20, 2, 5);
    addPoint(13, 10, 20, 0, 0);
    show(QStringLiteral("XX"));
    inDialog([&](QDialog& dialog) {
        harness().mark(QStringLiteral("-X"));
        run(dialog, 2);
        const QStringList earlierLog = log(dialog);
        harness().mark(QStringLiteral("XX"));
        QSignalSpy progress(&bar(dialog), &QProgressBar::valueChanged);
        field(dialog).setText(pressure);
        harness().boxes.answerNext(BoxAnswer::Ok, [] { QVERIFY(!hourglass()); });
        run(dialog, index);
        QCOMPARE(boxes(), QStringList{zeroPressureBox()});
        // The run ended before it cleared anything.
        QCOMPARE(log(dialog), earlierLog);
        QCOMPARE(earlierLog.size(), 2);
        QCOMPARE(progress.count(), 0);
        QCOMPARE(field(dialog).text(), pressure);
        QVERIFY(dialog.isVisible());
    });
    QCOMPARE(parameter(1, 2), QStringLiteral("10"));
    QCOMPARE(parameter(1, 4), QStringLiteral("2"));
    QCOMPARE(parameter(1, 5), QStringLiteral("5"));
}

void BatchDialogTest::pressureOutOfRangeIsARunTimeError()
{
    showOne();
    inDialog([this](QDialog& dialog) {
        field(dialog).setText(QStringLiteral("1E39"));
        harness().boxes.answerNext(BoxAnswer::Ok);
        run(dialog, 0);
        QVERIFY(dialog.isVisible());
        QCOMPARE(log(dialog), QStringList());
    });
    QCOMPARE(parameter(1, 2), QStringLiteral("10"));
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(harness().boxes.shown().first().title, QStringLiteral("Chyba při běhu programu"));
    QVERIFY(harness().boxes.shown().first().text.contains(QStringLiteral("1E39")));
}

void BatchDialogTest::zeroDivisorIsLoggedAndTheRunGoesOn()
{
    addPoint(12, 10, 20, 99, 5);
    addPoint(15, 10, 20, 3, 0);
    addPoint(16, 10, 20, 0, 4);
    show(QStringLiteral("XX-"));
    inDialog([this](QDialog& dialog) {
        run(dialog, 1);
        QCOMPARE(log(dialog), QStringList({QStringLiteral("Pro zdroj 15 nelze vypočítat 'd', protože 'w0'=0"), done}));
        QCOMPARE(parameter(1, 4), QStringLiteral("1.653158"));
        QCOMPARE(parameter(2, 4), QStringLiteral("3"));
        harness().mark(QStringLiteral("--X"));
        run(dialog, 2);
        QCOMPARE(log(dialog), QStringList({QStringLiteral("Pro zdroj 16 nelze vypočítat 'w0', protože 'd'=0"), done}));
        QCOMPARE(parameter(3, 5), QStringLiteral("4"));
    });
    QVERIFY(harness().boxes.shown().isEmpty());
}

void BatchDialogTest::logIsClearedAtEachRun()
{
    addPoint(15, 10, 20, 3, 0);
    show(QStringLiteral("X"));
    inDialog([](QDialog& dialog) {
        run(dialog, 1);
        run(dialog, 1);
        QCOMPARE(log(dialog).size(), 2);
        run(dialog, 0);
        QCOMPARE(log(dialog), QStringList{done});
    });
}

void BatchDialogTest::withoutMarkedPointsTheLogHoldsOnlyTheClosingLine()
{
    addPoint(15, 10, 20, 0, 0);
    add(cPlosnyZdroj, 16, 10, 20, 0, 0);
    show(QStringLiteral("--"));
    inDialog([this](QDialog& dialog) {
        for (const QString& marks : {QStringLiteral("--"), QStringLiteral("-X")}) {
            harness().mark(marks);
            for (int index = 0; index < 3; ++index) {
                run(dialog, index);
                QCOMPARE(log(dialog), QStringList{done});
            }
        }
    });
}

void BatchDialogTest::logCannotBeEdited()
{
    showOne();
    inDialog([](QDialog& dialog) {
        run(dialog, 0);
        auto& list = child<QListView>(dialog, "lstLog");
        QCOMPARE(list.editTriggers(), QAbstractItemView::NoEditTriggers);
    });
}

void BatchDialogTest::progressGoesThroughAllRowsAndFallsBack()
{
    addPoint(1, 10, 20, 2, 5);
    addPoint(2, 10, 20, 2, 5);
    add(cLiniovyZdroj, 3, 10, 20, 2, 5);
    show(QStringLiteral("-X-"));
    inDialog([](QDialog& dialog) {
        for (int index = 0; index < 3; ++index) {
            QList<int> values;
            QList<int> maxima;
            const auto connection = connect(&bar(dialog), &QProgressBar::valueChanged, &dialog, [&](int value) {
                values << value;
                maxima << bar(dialog).maximum();
            });
            run(dialog, index);
            disconnect(connection);
            QCOMPARE(values, QList<int>({1, 2, 3, 0}));
            QCOMPARE(maxima, QList<int>({4, 4, 4, 4}));
            QCOMPARE(bar(dialog).minimum(), 0);
            QCOMPARE(bar(dialog).value(), 0);
        }
    });
}

void BatchDialogTest::pointerIsTheHourglassDuringTheRunOnly()
{
    showOne();
    inDialog([](QDialog& dialog) {
        QList<bool> pointers;
        connect(&bar(dialog), &QProgressBar::valueChanged, &dialog, [&](int value) {
            if (value > 0)
                pointers << hourglass();
        });
        QVERIFY(!hourglass());
        run(dialog, 0);
        QCOMPARE(pointers, QList<bool>{true});
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    });
}

void BatchDialogTest::faultNamesTheSourceAndKeepsResultsAndLog()
{
    addPoint(11, 10, 20, 3, 0);
    addPoint(12, 10, 20, 99, 5);
    addPoint(13, -10, 20, 99, 5);
    addPoint(14, 10, 20, 99, 5);
    show(QStringLiteral("XXXX"));
    inDialog([this](QDialog& dialog) {
        harness().boxes.answerNext(BoxAnswer::Ok);
        run(dialog, 1);
        QCOMPARE(boxes(), QStringList{faultBox(QStringLiteral("Neplatná operace: zdroj 13."))});
        QCOMPARE(log(dialog), QStringList{QStringLiteral("Pro zdroj 11 nelze vypočítat 'd', protože 'w0'=0")});
        QVERIFY(dialog.isVisible());
    });
    QCOMPARE(parameter(2, 4), QStringLiteral("1.653158"));
    QCOMPARE(parameter(3, 4), QStringLiteral("99"));
    QCOMPARE(parameter(4, 4), QStringLiteral("99"));
}

void BatchDialogTest::faultLeavesTheBarAtItsBeginningAndThePointerNormal()
{
    addPoint(1, 10, 20, 2, 5);
    addPoint(2, 10, -273.15F, 2, 5);
    addPoint(3, 10, 20, 2, 5);
    show(QStringLiteral("XXX"));
    inDialog([this](QDialog& dialog) {
        // Already while the box is open.
        harness().boxes.answerNext(BoxAnswer::Ok, [&dialog] {
            QCOMPARE(bar(dialog).value(), 0);
            QVERIFY(QGuiApplication::overrideCursor() == nullptr);
        });
        run(dialog, 0);
        QCOMPARE(boxes(), QStringList{faultBox(QStringLiteral("Dělení nulou: zdroj 2."))});
        // And the next run is like any other.
        harness().mark(QStringLiteral("--X"));
        run(dialog, 0);
        QCOMPARE(log(dialog), QStringList{done});
        QCOMPARE(bar(dialog).value(), 0);
    });
    QCOMPARE(parameter(3, 2), QStringLiteral("14.6363"));
}

void BatchDialogTest::zeroCurrentPressureIsARunTimeErrorOfADAndAW0Run()
{
    showOne();
    harness().globals.airPressure = 0;
    inDialog([this](QDialog& dialog) {
        for (int index = 1; index < 3; ++index) {
            harness().boxes.answerNext(BoxAnswer::Ok);
            run(dialog, index);
        }
        QCOMPARE(boxes(),
            QStringList({faultBox(QStringLiteral("Dělení nulou: zdroj 12.")),
                faultBox(QStringLiteral("Dělení nulou: zdroj 12."))}));
        run(dialog, 0);
        QCOMPARE(log(dialog), QStringList{done});
    });
    QCOMPARE(parameter(1, 2), QStringLiteral("14.6363"));
}

void BatchDialogTest::barCountsMoreStepsThanItHas()
{
    constexpr std::size_t steps = 5'000'000'000;
    QProgressBar many;
    {
        BarProgress progress(many);
        QVERIFY(hourglass());
        progress.progressMaximum(steps);
        QVERIFY(many.maximum() > 0);
        progress.progressValue(steps / 2);
        QVERIFY(std::abs(many.value() - many.maximum() / 2) <= 1);
        progress.progressValue(steps);
        QCOMPARE(many.value(), many.maximum());
    }
    QCOMPARE(many.value(), 0);
    QVERIFY(!hourglass());
}

void BatchDialogTest::focusGoesToTheBackButtonAfterARunAndEnterThenCloses()
{
    showOne();
    harness().show();
    inDialog([](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        run(dialog, 0);
        QCOMPARE(QApplication::focusWidget(), &child<QPushButton>(dialog, "cbStorno"));
        QCOMPARE(log(dialog), QStringList{done});
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(!dialog.isVisible());
    });
}

void BatchDialogTest::focusGoesToTheBackButtonAlsoAfterARefusedRun()
{
    showOne();
    harness().show();
    inDialog([this](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        field(dialog).clear();
        harness().boxes.answerNext(BoxAnswer::Ok);
        run(dialog, 0);
        QCOMPARE(QApplication::focusWidget(), &child<QPushButton>(dialog, "cbStorno"));
    });
}

void BatchDialogTest::backEscapeAndCloseBoxClose_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("Zpět") << 0;
    QTest::newRow("Escape") << 1;
    QTest::newRow("close box") << 2;
}

void BatchDialogTest::backEscapeAndCloseBoxClose()
{
    QFETCH(const int, way);
    showOne();
    inDialog([way](QDialog& dialog) {
        run(dialog, 0);
        if (way == 0)
            press(dialog, "cbStorno");
        else if (way == 1)
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else
            QVERIFY(dialog.close());
        QVERIFY(!dialog.isVisible());
    });
    // There is no way back.
    QCOMPARE(parameter(1, 2), QStringLiteral("14.6363"));
}

void BatchDialogTest::listMarksAndModifiedFlagAreLeftAlone()
{
    addPoint(1, 10, 20, 2, 5);
    addPoint(2, 10, 20, 2, 5);
    show(QStringLiteral("-X"));
    for (const bool modified : {false, true}) {
        harness().set().modified(modified);
        const QSignalSpy resets(&harness().model(), &QAbstractItemModel::modelReset);
        const QSignalSpy changes(&harness().model(), &QAbstractItemModel::dataChanged);
        const QSignalSpy layouts(&harness().model(), &QAbstractItemModel::layoutChanged);
        inDialog([](QDialog& dialog) {
            for (int index = 0; index < 3; ++index)
                run(dialog, index);
        });
        QCOMPARE(resets.count() + changes.count() + layouts.count(), 0);
        QCOMPARE(harness().marks(), QStringLiteral("-X"));
        QCOMPARE(harness().set().modified(), modified);
    }
}

void BatchDialogTest::pressureSelectsItsTextWhenAClickBringsTheFocus()
{
    showOne();
    harness().show();
    inDialog([](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        child<QPushButton>(dialog, "cbStorno").setFocus();
        clickInto(field(dialog));
        QCOMPARE(QApplication::focusWidget(), &field(dialog));
        QTRY_COMPARE(field(dialog).selectedText(), QStringLiteral("101325"));
    });
}

void BatchDialogTest::pressureSelectsItsTextWhenTheTabKeyBringsTheFocus()
{
    showOne();
    harness().show();
    inDialog([](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        option(dialog, 0).setFocus();
        field(dialog).setText(QStringLiteral("98000"));
        QTest::keyClick(&option(dialog, 0), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), &field(dialog));
        QTRY_COMPARE(field(dialog).selectedText(), QStringLiteral("98000"));
    });
}

void BatchDialogTest::tabKeyGoesFromTopToBottom()
{
    showOne();
    harness().show();
    inDialog([](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        QCOMPARE(tabOrder(),
            QStringList({QStringLiteral("optVypocet0"), QStringLiteral("txtTlak"), QStringLiteral("lstLog"),
                QStringLiteral("cbStart"), QStringLiteral("cbStorno"), QStringLiteral("cbHelp")}));
    });
}

void BatchDialogTest::mnemonicsAreUnique()
{
    showOne();
    inDialog([](QDialog& dialog) { QCOMPARE(mnemonics(dialog), QStringLiteral("NSZ")); });
}

void BatchDialogTest::startIsTheOnlyDefaultButton()
{
    showOne();
    inDialog([](QDialog& dialog) { QCOMPARE(defaultButtons(dialog), QStringList{QStringLiteral("cbStart")}); });
}

void BatchDialogTest::everyFocusableWidgetHasAName()
{
    showOne();
    inDialog([](QDialog& dialog) {
        QCOMPARE(namelessWidgets(dialog).join(QStringLiteral(", ")), QString());
        QCOMPARE(captionOf(dialog, child<QListView>(dialog, "lstLog")), QStringLiteral("Záznam o chybách:"));
        QVERIFY(!bar(dialog).accessibleName().isEmpty());
    });
}

void BatchDialogTest::helpButtonSendsF1AndLeavesTheDialogOpen()
{
    showOne();
    inDialog([](QDialog& dialog) {
        const HelpKeySpy spy(dialog);
        press(dialog, "cbHelp");
        QTRY_COMPARE(spy.presses(), 1);
        QVERIFY(dialog.isVisible());
    });
}

void BatchDialogTest::firstOpensAtTheTopLeftCornerOfItsOwner()
{
    showOne();
    harness().show();
    harness().window().move(120, 90);
    inDialog([this](QDialog& dialog) { QCOMPARE(dialog.pos(), harness().window().pos()); });
}

void BatchDialogTest::reopensWhereItWasLeftBesideItsOwner_data()
{
    QTest::addColumn<bool>("byCloseBox");
    QTest::newRow("back button") << false;
    QTest::newRow("close box") << true;
}

void BatchDialogTest::reopensWhereItWasLeftBesideItsOwner()
{
    QFETCH(const bool, byCloseBox);
    showOne();
    harness().show();
    harness().window().move(100, 80);
    QSize left;
    inDialog([&](QDialog& dialog) {
        dialog.move(harness().window().pos() + QPoint(20, 30));
        dialog.resize(dialog.size() + QSize(40, 25));
        left = dialog.size();
        if (byCloseBox)
            dialog.close();
        else
            press(dialog, "cbStorno");
    });
    const QString section = QStringLiteral("SubForm:frmVypocetVsDw0");
    const auto stored = [&](const char* key) { return harness().settings.get(section, QLatin1String(key), {}); };
    QCOMPARE(stored("RelLeft"), QStringLiteral("300"));
    QCOMPARE(stored("RelTop"), QStringLiteral("450"));
    QCOMPARE(stored("Width"), QString::number(left.width() * 15));
    QCOMPARE(stored("Height"), QString::number(left.height() * 15));
    harness().window().move(60, 50);
    inDialog([&](QDialog& dialog) {
        QCOMPARE(dialog.pos(), harness().window().pos() + QPoint(20, 30));
        QCOMPARE(dialog.size(), left);
    });
}

void BatchDialogTest::aMillionMarkedPointsTakeASecondOrLittleMore()
{
    constexpr int sourceCount = 1'000'000;
    SourceSet& set = harness().set();
    set.reserve(sourceCount);
    for (int number = 1; number <= sourceCount; ++number) {
        cZdroje source(cBodovyZdroj);
        source.Parameters(3, 20);
        source.Parameters(4, 2);
        source.Parameters(5, 5);
        set.append(std::move(source));
    }
    harness().window().refill();
    harness().model().markAll(true);
    harness().show();
    inDialog([](QDialog& dialog) {
        const std::clock_t start = std::clock();
        run(dialog, 0);
        const auto taken = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        QCOMPARE(log(dialog), QStringList{done});
        QTest::setBenchmarkResult(taken * 1000, QTest::WalltimeMilliseconds);
        // Time of the processor, for the machine may be busy with other things; slow ones get their share of patience.
        QVERIFY2(taken < 3.0, qPrintable(QString::number(taken)));
    });
    QCOMPARE(parameter(1, 2), QStringLiteral("14.6363"));
    QCOMPARE(parameter(sourceCount, 2), QStringLiteral("14.6363"));
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::BatchDialogTest)

#include "batch_dialog_test.moc"
