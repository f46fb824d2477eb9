// What sets the area source editor apart: its parameters, and the choice between a temperature and a plume rise.
#include "source_editor_test.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>

#include <cstdlib>

namespace korvex {
namespace {

enum Choice { Temperature, PlumeRise };

QComboBox& choice(const QWidget& editor)
{
    return child<QComboBox>(editor, "cboTeplotaVznos");
}

/// As the user chooses in a list that is not open.
void choose(const QWidget& editor, Choice wanted)
{
    QTest::keyClick(&choice(editor), wanted == Temperature ? Qt::Key_Up : Qt::Key_Down);
    QCOMPARE(choice(editor).currentIndex(), static_cast<int>(wanted));
}

/// A letter for the labels and fields of d and w0: "X" enabled, "-" not.
QString enabledParts(const QWidget& editor)
{
    QString parts;
    for (const char* const name : {"lbPar4", "tPar4", "lbPar5", "tPar5"})
        parts += child<QWidget>(editor, name).isEnabled() ? QLatin1Char('X') : QLatin1Char('-');
    return parts;
}

}  // namespace

class AreaSourceDialogTest : public SourceEditorTest {
    Q_OBJECT

private slots:
    void parametersHaveTheirLabels_data();
    void parametersHaveTheirLabels();
    void choiceStandsInPlaceOfTheFourthLabel();
    void fourthFieldIsNamedByTheChoice();
    void tabKeyGoesDownTheParametersWithTheChoiceBeforeItsField();
    void keysOfTheParameters_data();
    void keysOfTheParameters();
    void pasteIsTheWayToANegativeParameter();

    void choiceFollowsTheStoredDiameterAndVelocity_data();
    void choiceFollowsTheStoredDiameterAndVelocity();
    void diameterAndVelocityAreEnabledExactlyWithTheTemperature();
    void noOtherParameterDependsOnTheChoice();
    void textsStayWhenTheChoiceChangesThereAndBack();
    void typingDoesNotChangeTheChoice();

    void plumeRiseStoresZerosForDiameterAndVelocity_data();
    void plumeRiseStoresZerosForDiameterAndVelocity();
    void plumeRiseStoresAllOtherParameters();
    void temperatureStoresDiameterAndVelocityAsTyped();
    void temperatureWithoutDiameterAndVelocityReopensAsPlumeRise();
    void storedPlumeRiseReopensAsPlumeRise();
    void choiceLeftByStornoChangesNothing();

private:
    void look(const std::function<void(QDialog&)>& at) { SourceEditorTest::look(cPlosnyZdroj, at); }
    /// Opens the editor once more and says what is chosen.
    int choiceOf(cZdroje& source)
    {
        int found = -1;
        edit(source, [&found](QDialog& editor) {
            found = choice(editor).currentIndex();
            press(editor, "cbStorno");
        });
        return found;
    }
};

void AreaSourceDialogTest::parametersHaveTheirLabels_data()
{
    QTest::addColumn<QString>("label");
    const auto row = [](const char* name, const char* label) { QTest::newRow(name) << QString::fromUtf8(label); };
    row("tPar0", "Množství látky odcházející komínem [g/s] (ME):");
    row("tPar1", "Výška koruny komína nad terénem [m] (H):");
    row("tPar2", "Objem spalin za normálních podmínek [m3/s] (Vs):");
    row("tPar4", "Vnitřní průměr komína (pokud je zadáno ts) [m] (d):");
    row("tPar5", "Výstupní rychlost spalin (pokud je zadáno ts) [m/s] (w0):");
    row("tPar6", "Relativní roční využití maximálního výkonu [%/100] (Alfa):");
    row("tPar7", "Počet hodin za den, kdy je zdroj v činnosti [hod] (Pd):");
    row("tPar8", "Vzdálenost elementů zdroje od sebe [m] (Y0):");
}

void AreaSourceDialogTest::parametersHaveTheirLabels()
{
    QFETCH(const QString, label);
    look([&label](QDialog& editor) {
        const QByteArray index = QByteArray(QTest::currentDataTag()).right(1);
        QCOMPARE(captionOf(editor, field(editor, QTest::currentDataTag())), label);
        QCOMPARE(child<QLabel>(editor, ("lbPar" + index).constData()).text(), label);
    });
}

void AreaSourceDialogTest::choiceStandsInPlaceOfTheFourthLabel()
{
    SourceEditorTest::lookActive(cPlosnyZdroj, ParametersTab, [](QDialog& editor) {
        QStringList items;
        for (int i = 0; i < choice(editor).count(); ++i)
            items << choice(editor).itemText(i);
        QCOMPARE(items,
            QStringList({QStringLiteral("Teplota spalin [°C] (ts)"), QStringLiteral("Vznos vlečky [m] (Delta h)")}));
        QVERIFY(!choice(editor).isEditable());
        QVERIFY(editor.findChild<QLabel*>(QStringLiteral("lbPar3")) == nullptr);
        QCOMPARE(captionOf(editor, parameterField(editor, 3)), QString());
        QVERIFY(std::abs(placeOf(choice(editor)).y() - placeOf(parameterField(editor, 3)).y()) <= 1);
        QVERIFY(placeOf(choice(editor)).x() < placeOf(parameterField(editor, 3)).x());
        const int left = placeOf(child<QLabel>(editor, "lbPar2")).x() - child<QLabel>(editor, "lbPar2").width() / 2;
        QVERIFY(std::abs(placeOf(choice(editor)).x() - choice(editor).width() / 2 - left) <= 1);
    });
}

void AreaSourceDialogTest::fourthFieldIsNamedByTheChoice()
{
    look([](QDialog& editor) {
        const auto spoken = [&editor] {
            return QAccessible::queryAccessibleInterface(&parameterField(editor, 3))->text(QAccessible::Name);
        };
        QCOMPARE(spoken(), QStringLiteral("Teplota spalin [°C] (ts)"));
        choose(editor, PlumeRise);
        QCOMPARE(spoken(), QStringLiteral("Vznos vlečky [m] (Delta h)"));
    });
}

void AreaSourceDialogTest::tabKeyGoesDownTheParametersWithTheChoiceBeforeItsField()
{
    SourceEditorTest::lookActive(cPlosnyZdroj, ParametersTab, [](QDialog& editor) {
        parameterField(editor, 0).setFocus();
        QCOMPARE(tabOrder().join(QLatin1Char(' ')),
            QStringLiteral("tPar0 tPar1 tPar2 cboTeplotaVznos tPar3 tPar4 tPar5 tPar6 tPar7 tPar8 cbOK cbStorno cbHelp "
                           "qt_tabwidget_tabbar"));
        // Fields that the choice disables are passed over.
        choose(editor, PlumeRise);
        parameterField(editor, 3).setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("tPar6"));
    });
}

void AreaSourceDialogTest::keysOfTheParameters_data()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < 9; ++index)
        QTest::newRow(parameterName(index).constData()) << index;
}

// A minus sign can be typed for lines only, whose coordinates can be negative.
void AreaSourceDialogTest::keysOfTheParameters()
{
    QFETCH(const int, index);
    look([index](QDialog& editor) {
        QLineEdit& typed = parameterField(editor, index);
        typed.clear();
        QTest::keyClicks(&typed, QStringLiteral("-1a2,+3.4 eE5;67890"));
        QCOMPARE(typed.text(), QStringLiteral("12,3.4567890"));
        QTest::keyClick(&typed, Qt::Key_Backspace);
        QCOMPARE(typed.text(), QStringLiteral("12,3.456789"));
    });
}

void AreaSourceDialogTest::pasteIsTheWayToANegativeParameter()
{
    cZdroje source = sampleSource(cPlosnyZdroj);
    QVERIFY(edit(source, [](QDialog& editor) {
        QGuiApplication::clipboard()->setText(QStringLiteral("-2.5"));
        parameterField(editor, 3).selectAll();
        QTest::keyClick(&parameterField(editor, 3), Qt::Key_V, Qt::ControlModifier);
        press(editor, "cbOK");
    }));
    QCOMPARE(source.Parameters(3), -2.5F);
}

void AreaSourceDialogTest::choiceFollowsTheStoredDiameterAndVelocity_data()
{
    QTest::addColumn<float>("d");
    QTest::addColumn<float>("w0");
    QTest::addColumn<Choice>("expected");
    QTest::newRow("both zero") << 0.0F << 0.0F << PlumeRise;
    QTest::newRow("diameter alone") << 1.5F << 0.0F << Temperature;
    QTest::newRow("velocity alone") << 0.0F << 1.5F << Temperature;
    QTest::newRow("both") << 1.5F << 2.0F << Temperature;
    QTest::newRow("negative") << -1.5F << 0.0F << Temperature;
    QTest::newRow("opposite") << -2.0F << 2.0F << Temperature;
}

void AreaSourceDialogTest::choiceFollowsTheStoredDiameterAndVelocity()
{
    QFETCH(const float, d);
    QFETCH(const float, w0);
    QFETCH(const Choice, expected);
    cZdroje source = sampleSource(cPlosnyZdroj);
    source.Parameters(4, d);
    source.Parameters(5, w0);
    edit(source, [expected](QDialog& editor) {
        QCOMPARE(choice(editor).currentIndex(), static_cast<int>(expected));
        QCOMPARE(enabledParts(editor), expected == Temperature ? QStringLiteral("XXXX") : QStringLiteral("----"));
        press(editor, "cbStorno");
    });
}

void AreaSourceDialogTest::diameterAndVelocityAreEnabledExactlyWithTheTemperature()
{
    look([](QDialog& editor) {
        choose(editor, PlumeRise);
        QCOMPARE(enabledParts(editor), QStringLiteral("----"));
        choose(editor, Temperature);
        QCOMPARE(enabledParts(editor), QStringLiteral("XXXX"));
    });
}

void AreaSourceDialogTest::noOtherParameterDependsOnTheChoice()
{
    look([](QDialog& editor) {
        for (const Choice chosen : {PlumeRise, Temperature}) {
            choose(editor, chosen);
            for (const int index : {0, 1, 2, 3, 6, 7, 8})
                QVERIFY2(parameterField(editor, index).isEnabled(), parameterName(index).constData());
        }
    });
}

void AreaSourceDialogTest::textsStayWhenTheChoiceChangesThereAndBack()
{
    decimalSeparator(",");
    look([](QDialog& editor) {
        const auto texts = [&editor] {
            QStringList found;
            for (const int index : {3, 4, 5})
                found << parameterField(editor, index).text();
            return found;
        };
        const QStringList before({QStringLiteral("150"), QStringLiteral("1,2"), QStringLiteral("8,5")});
        choose(editor, PlumeRise);
        QCOMPARE(texts(), before);
        choose(editor, Temperature);
        QCOMPARE(texts(), before);
        QCOMPARE(enabledParts(editor), QStringLiteral("XXXX"));
    });
}

// Only opening the editor and the user choose.
void AreaSourceDialogTest::typingDoesNotChangeTheChoice()
{
    look([](QDialog& editor) {
        for (const int index : {4, 5}) {
            parameterField(editor, index).selectAll();
            QTest::keyClicks(&parameterField(editor, index), QStringLiteral("0"));
        }
        QCOMPARE(choice(editor).currentIndex(), static_cast<int>(Temperature));
    });
}

void AreaSourceDialogTest::plumeRiseStoresZerosForDiameterAndVelocity_data()
{
    QTest::addColumn<QString>("d");
    QTest::addColumn<QString>("w0");
    QTest::newRow("as stored") << QStringLiteral("1.2") << QStringLiteral("8.5");
    QTest::newRow("diameter alone") << QStringLiteral("2") << QString();
    QTest::newRow("velocity alone") << QString() << QStringLiteral("2");
    QTest::newRow("no numbers") << QStringLiteral("abc") << QStringLiteral("-");
    QTest::newRow("beyond any number") << QStringLiteral("1E39") << QStringLiteral("1E99");
}

void AreaSourceDialogTest::plumeRiseStoresZerosForDiameterAndVelocity()
{
    QFETCH(const QString, d);
    QFETCH(const QString, w0);
    cZdroje source = sampleSource(cPlosnyZdroj);
    QVERIFY(edit(source, [&](QDialog& editor) {
        setText(editor, "tPar4", d);
        setText(editor, "tPar5", w0);
        choose(editor, PlumeRise);
        press(editor, "cbOK");
    }));
    QCOMPARE(source.Parameters(4), 0.0F);
    QCOMPARE(source.Parameters(5), 0.0F);
}

void AreaSourceDialogTest::plumeRiseStoresAllOtherParameters()
{
    cZdroje source = sampleSource(cPlosnyZdroj);
    QVERIFY(edit(source, [](QDialog& editor) {
        choose(editor, PlumeRise);
        setText(editor, "tPar3", QStringLiteral("35.5"));
        press(editor, "cbOK");
    }));
    QCOMPARE(QString::fromStdString(source.LineParameters()),
        QStringLiteral("000000042, 1.5, 40, 3.2, 35.5, 0, 0, 0.8, 24, 12"));
}

void AreaSourceDialogTest::temperatureStoresDiameterAndVelocityAsTyped()
{
    cZdroje source = sampleSource(cPlosnyZdroj);
    source.LineParameters("42, 1, 2, 3, 4, 0, 0, 7, 8, 9");
    QVERIFY(edit(source, [](QDialog& editor) {
        choose(editor, Temperature);
        setText(editor, "tPar4", QStringLiteral("2"));
        setText(editor, "tPar5", QStringLiteral("0.25"));
        press(editor, "cbOK");
    }));
    QCOMPARE(
        QString::fromStdString(source.LineParameters()), QStringLiteral("000000042, 1, 2, 3, 4, 2, 0.25, 7, 8, 9"));
    QCOMPARE(choiceOf(source), static_cast<int>(Temperature));
}

// The choice is not stored by itself.
void AreaSourceDialogTest::temperatureWithoutDiameterAndVelocityReopensAsPlumeRise()
{
    cZdroje source = sampleSource(cPlosnyZdroj);
    QVERIFY(edit(source, [](QDialog& editor) {
        setText(editor, "tPar4", QStringLiteral("0"));
        setText(editor, "tPar5", QString());
        QCOMPARE(choice(editor).currentIndex(), static_cast<int>(Temperature));
        press(editor, "cbOK");
    }));
    QCOMPARE(source.Parameters(3), 150.0F);
    QCOMPARE(choiceOf(source), static_cast<int>(PlumeRise));
}

void AreaSourceDialogTest::storedPlumeRiseReopensAsPlumeRise()
{
    cZdroje source = sampleSource(cPlosnyZdroj);
    QVERIFY(edit(source, [](QDialog& editor) {
        choose(editor, PlumeRise);
        press(editor, "cbOK");
    }));
    edit(source, [](QDialog& editor) {
        QCOMPARE(choice(editor).currentIndex(), static_cast<int>(PlumeRise));
        QCOMPARE(parameterField(editor, 4).text(), QStringLiteral("0"));
        QCOMPARE(parameterField(editor, 5).text(), QStringLiteral("0"));
        press(editor, "cbStorno");
    });
}

void AreaSourceDialogTest::choiceLeftByStornoChangesNothing()
{
    cZdroje source = sampleSource(cPlosnyZdroj);
    const QStringList before = recordsOf(source);
    QVERIFY(!edit(source, [](QDialog& editor) {
        choose(editor, PlumeRise);
        press(editor, "cbStorno");
    }));
    QCOMPARE(recordsOf(source), before);
    QVERIFY(!harness().set().modified());
    QCOMPARE(choiceOf(source), static_cast<int>(Temperature));
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::AreaSourceDialogTest)

#include "area_source_dialog_test.moc"
