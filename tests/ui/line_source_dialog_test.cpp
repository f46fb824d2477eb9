// What sets the line source editor apart: its parameters, the minus sign, and the midpoint of the segment.
#include "source_editor_test.h"

namespace korvex {
namespace {

QCheckBox& automatic(const QWidget& editor)
{
    return child<QCheckBox>(editor, "chbAutoCalcXY");
}

QPushButton& midpointButton(const QWidget& editor)
{
    return child<QPushButton>(editor, "cmdCalcXY");
}

void setEnds(const QWidget& editor, const QStringList& texts)
{
    for (int i = 0; i < texts.size(); ++i)
        parameterField(editor, i + 1).setText(texts.at(i));
}

/// X and Y as the first page shows them.
QString shownPlace(const QWidget& editor)
{
    return field(editor, "txtX").text() + QLatin1Char(' ') + field(editor, "txtY").text();
}

QString placeOf(const cZdroje& source)
{
    return QStringLiteral("%1 %2").arg(source.X()).arg(source.Y());
}

}  // namespace

class LineSourceDialogTest : public SourceEditorTest {
    Q_OBJECT

private slots:
    void parametersHaveTheirLabels_data();
    void parametersHaveTheirLabels();
    void midpointControlsHaveTheirCaptions();
    void tabKeyGoesDownTheParametersAndThenToTheMidpoint_data();
    void tabKeyGoesDownTheParametersAndThenToTheMidpoint();
    void keysOfTheParameters_data();
    void keysOfTheParameters();
    void typedNegativeCoordinatesAreStored();

    void buttonPutsTheMidpointOnTheFirstPage_data();
    void buttonPutsTheMidpointOnTheFirstPage();
    void buttonReadsACommaAsTheEndOfTheNumber_data();
    void buttonReadsACommaAsTheEndOfTheNumber();
    void buttonChangesNothingElse();
    void buttonAloneStoresNothing();
    void midpointBeyondTheRangeIsARunTimeErrorAndTheEditorStays();
    void endOutOfRangeIsBroughtBeforeTheUser();

    void boxShowsTheSetting_data();
    void boxShowsTheSetting();
    void buttonIsVisibleOnlyWhileTheBoxIsUnchecked();
    void checkingTheBoxCalculatesNothing();
    void settingTakesTheBoxHoweverTheEditorIsLeft_data();
    void settingTakesTheBoxHoweverTheEditorIsLeft();
    void settingIsUntouchedWhileTheEditorIsOpen();
    void boxIsKeptForTheNextEditor();

    void automaticMidpointWinsOverWhatWasTyped();
    void automaticMidpointIsReadLikeTheButtons();
    void automaticMidpointWinsOverAPlaceThatIsNoPlace();
    void automaticMidpointBeyondTheRangeKeepsTheEditorOpen();
    void automaticMidpointIsNotCalculatedWithoutOk();
    void withoutTheBoxTypedPlaceIsKept();
    void boxAsItIsOnOkCounts_data();
    void boxAsItIsOnOkCounts();

private:
    void look(const std::function<void(QDialog&)>& at) { SourceEditorTest::look(cLiniovyZdroj, at); }
    /// Ok with these ends and a place typed on the first page.
    cZdroje confirmedWith(const QStringList& ends)
    {
        cZdroje source = sampleSource(cLiniovyZdroj);
        edit(source, [&ends](QDialog& editor) {
            setEnds(editor, ends);
            setText(editor, "txtX", QStringLiteral("11"));
            setText(editor, "txtY", QStringLiteral("-22"));
            press(editor, "cbOK");
        });
        return source;
    }
    void automaticMidpoint(bool on) { globals().autoCalcXY = on ? 1 : 0; }
};

void LineSourceDialogTest::parametersHaveTheirLabels_data()
{
    QTest::addColumn<QString>("label");
    const auto row = [](const char* name, const char* label) { QTest::newRow(name) << QString::fromUtf8(label); };
    row("tPar0", "Množství látky [g/s/m] (ML):");
    row("tPar1", "X-sourad počátečního bodu úseku [m] (X1el):");
    row("tPar2", "Y-sourad počátečního bodu úseku [m] (Y1el):");
    row("tPar3", "X-sourad konečného bodu úseku [m] (X2el):");
    row("tPar4", "Y-sourad konečného bodu úseku [m] (Y2el):");
    row("tPar5", "Šířka úseku [m] (X0el):");
    row("tPar6", "Výška úseku [m] (Z0el):");
    row("tPar7", "Relativní roční využití maximálního výkonu [%/100] (Alfa):");
    row("tPar8", "Počet hodin za den, kdy je zdroj v činnosti [hod] (Pd):");
}

void LineSourceDialogTest::parametersHaveTheirLabels()
{
    QFETCH(const QString, label);
    look([&label](QDialog& editor) {
        const QByteArray index = QByteArray(QTest::currentDataTag()).right(1);
        QCOMPARE(captionOf(editor, field(editor, QTest::currentDataTag())), label);
        QCOMPARE(child<QLabel>(editor, ("lbPar" + index).constData()).text(), label);
    });
}

void LineSourceDialogTest::midpointControlsHaveTheirCaptions()
{
    look([](QDialog& editor) {
        QCOMPARE(midpointButton(editor).text(), QStringLiteral("Vypočítej střed úseku (X,Y)"));
        QCOMPARE(automatic(editor).text(), QStringLiteral("Automatický výpočet středu úseku (X,Y)"));
        const QWidget* const page = tabs(editor).widget(ParametersTab);
        QVERIFY(page->isAncestorOf(&midpointButton(editor)));
        QVERIFY(page->isAncestorOf(&automatic(editor)));
    });
}

void LineSourceDialogTest::tabKeyGoesDownTheParametersAndThenToTheMidpoint_data()
{
    QTest::addColumn<bool>("isAutomatic");
    QTest::addColumn<QString>("midpoint");
    QTest::newRow("by the button") << false << QStringLiteral("chbAutoCalcXY cmdCalcXY");
    QTest::newRow("automatic") << true << QStringLiteral("chbAutoCalcXY");
}

void LineSourceDialogTest::tabKeyGoesDownTheParametersAndThenToTheMidpoint()
{
    QFETCH(const bool, isAutomatic);
    QFETCH(const QString, midpoint);
    automaticMidpoint(isAutomatic);
    SourceEditorTest::lookActive(cLiniovyZdroj, ParametersTab, [&midpoint](QDialog& editor) {
        parameterField(editor, 0).setFocus();
        QCOMPARE(tabOrder().join(QLatin1Char(' ')),
            QStringLiteral("tPar0 tPar1 tPar2 tPar3 tPar4 tPar5 tPar6 tPar7 tPar8 %1 cbOK cbStorno cbHelp "
                           "qt_tabwidget_tabbar")
                .arg(midpoint));
    });
}

void LineSourceDialogTest::keysOfTheParameters_data()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < 9; ++index)
        QTest::newRow(parameterName(index).constData()) << index;
}

void LineSourceDialogTest::keysOfTheParameters()
{
    QFETCH(const int, index);
    look([index](QDialog& editor) {
        QLineEdit& typed = parameterField(editor, index);
        typed.clear();
        QTest::keyClicks(&typed, QStringLiteral("-1a2,+3.4 eE5;6-7890"));
        QCOMPARE(typed.text(), QStringLiteral("-12,3.456-7890"));
        QTest::keyClick(&typed, Qt::Key_Backspace);
        QCOMPARE(typed.text(), QStringLiteral("-12,3.456-789"));
    });
}

void LineSourceDialogTest::typedNegativeCoordinatesAreStored()
{
    decimalSeparator(",");
    cZdroje source = sampleSource(cLiniovyZdroj);
    QVERIFY(edit(source, [](QDialog& editor) {
        for (const int index : {1, 2, 3, 4}) {
            parameterField(editor, index).clear();
            QTest::keyClicks(&parameterField(editor, index), QStringLiteral("-%1,5").arg(index));
        }
        press(editor, "cbOK");
    }));
    QCOMPARE(QString::fromStdString(source.LineParameters()),
        QStringLiteral("000000042, 0.25, -1.5, -2.5, -3.5, -4.5, 7, 0.5, 0.8, 24"));
}

void LineSourceDialogTest::buttonPutsTheMidpointOnTheFirstPage_data()
{
    QTest::addColumn<QStringList>("ends");  // X1el, Y1el, X2el, Y2el
    QTest::addColumn<QString>("place");
    const auto row = [](const char* name, const char* ends, const char* place) {
        QTest::newRow(name) << QString::fromLatin1(ends).split(QLatin1Char(' ')) << QString::fromLatin1(place);
    };
    row("whole", "100 200 300 500", "200 350");
    row("half to even", "1 2 2 3", "2 2");
    row("half to even above", "3 100 4 301", "4 200");
    row("negative half to even", "-3 -5 0 0", "-2 -2");
    row("equal ends", "7.4 -7.6 7.4 -7.6", "7 -8");
    row("point as decimal point", "100.6 1.5 200.9 1.6", "151 2");
    row("nothing typed", "   ", "0 0");
    row("no numbers", "abc - x10 .", "0 0");
    row("number in front", "12m 12-3 12m 12-3", "12 12");
    row("sum beyond 32 bits", "2000000000 -2000000000 2000000000 -2000000000", "2000000000 -2000000000");
}

void LineSourceDialogTest::buttonPutsTheMidpointOnTheFirstPage()
{
    QFETCH(const QStringList, ends);
    QFETCH(const QString, place);
    look([&](QDialog& editor) {
        setEnds(editor, ends);
        midpointButton(editor).click();
        QCOMPARE(shownPlace(editor), place);
    });
}

void LineSourceDialogTest::buttonReadsACommaAsTheEndOfTheNumber_data()
{
    QTest::addColumn<QByteArray>("separator");
    QTest::newRow("comma") << QByteArray(",");
    QTest::newRow("point") << QByteArray(".");
}

void LineSourceDialogTest::buttonReadsACommaAsTheEndOfTheNumber()
{
    QFETCH(const QByteArray, separator);
    decimalSeparator(separator.constData());
    look([](QDialog& editor) {
        setEnds(
            editor, {QStringLiteral("100,6"), QStringLiteral("12,7"), QStringLiteral("200"), QStringLiteral("12,7")});
        midpointButton(editor).click();
        QCOMPARE(shownPlace(editor), QStringLiteral("150 12"));
        // With the decimals it would be 101, and 100 without either.
        setEnds(editor, {QStringLiteral("100,9"), {}, QStringLiteral("100,9"), {}});
        midpointButton(editor).click();
        QCOMPARE(shownPlace(editor), QStringLiteral("100 0"));
    });
}

void LineSourceDialogTest::buttonChangesNothingElse()
{
    look([](QDialog& editor) {
        tabs(editor).setCurrentIndex(ParametersTab);
        const auto others = [&editor] {
            QStringList texts;
            for (const QLineEdit* const shown : editor.findChildren<QLineEdit*>()) {
                if (shown->objectName() != QStringLiteral("txtX") && shown->objectName() != QStringLiteral("txtY"))
                    texts << shown->text();
            }
            return texts;
        };
        const QStringList before = others();
        midpointButton(editor).click();
        QCOMPARE(shownPlace(editor), QStringLiteral("200 300"));
        QCOMPARE(others(), before);
        QCOMPARE(tabs(editor).currentIndex(), static_cast<int>(ParametersTab));
        QVERIFY(!automatic(editor).isChecked());
    });
    QVERIFY(harness().boxes.shown().isEmpty());
}

void LineSourceDialogTest::buttonAloneStoresNothing()
{
    cZdroje source = sampleSource(cLiniovyZdroj);
    const QStringList before = recordsOf(source);
    QVERIFY(!edit(source, [](QDialog& editor) {
        midpointButton(editor).click();
        press(editor, "cbStorno");
    }));
    QCOMPARE(recordsOf(source), before);
    QVERIFY(!harness().set().modified());
    QVERIFY(edit(source, [](QDialog& editor) {
        midpointButton(editor).click();
        press(editor, "cbOK");
    }));
    QCOMPARE(placeOf(source), QStringLiteral("200 300"));
}

void LineSourceDialogTest::midpointBeyondTheRangeIsARunTimeErrorAndTheEditorStays()
{
    harness().boxes.answerNext(BoxAnswer::Ok);
    look([](QDialog& editor) {
        setEnds(editor,
            {QStringLiteral("1"), QStringLiteral("3000000000"), QStringLiteral("1"), QStringLiteral("3000000000")});
        midpointButton(editor).click();
        QVERIFY(editor.isVisible());
        // Neither of the two, although X alone would fit.
        QCOMPARE(shownPlace(editor), QStringLiteral("1234 -567"));
    });
    QCOMPARE(harness().boxes.shown().size(), 1);
    QVERIFY2(isOutOfRange(harness().boxes.shown().first()), qPrintable(describe(harness().boxes.shown().first())));
}

void LineSourceDialogTest::endOutOfRangeIsBroughtBeforeTheUser()
{
    harness().boxes.answerNext(BoxAnswer::Ok);
    SourceEditorTest::lookActive(cLiniovyZdroj, ParametersTab, [](QDialog& editor) {
        setText(editor, "tPar3", QStringLiteral("1E39"));
        midpointButton(editor).click();
        QCOMPARE(focusName(), QStringLiteral("tPar3"));
        QCOMPARE(shownPlace(editor), QStringLiteral("1234 -567"));
    });
    QCOMPARE(harness().boxes.shown().size(), 1);
    QVERIFY(isOutOfRange(harness().boxes.shown().first()));
    QVERIFY(harness().boxes.shown().first().text.contains(QStringLiteral("1E39")));
}

void LineSourceDialogTest::boxShowsTheSetting_data()
{
    QTest::addColumn<int>("setting");
    QTest::addColumn<bool>("checked");
    QTest::newRow("0") << 0 << false;
    QTest::newRow("1") << 1 << true;
    QTest::newRow("-1") << -1 << true;
    QTest::newRow("2") << 2 << true;
}

void LineSourceDialogTest::boxShowsTheSetting()
{
    QFETCH(const int, setting);
    QFETCH(const bool, checked);
    globals().autoCalcXY = setting;
    SourceEditorTest::lookActive(cLiniovyZdroj, ParametersTab, [checked](QDialog& editor) {
        QCOMPARE(automatic(editor).isChecked(), checked);
        QCOMPARE(midpointButton(editor).isVisible(), !checked);
    });
}

void LineSourceDialogTest::buttonIsVisibleOnlyWhileTheBoxIsUnchecked()
{
    SourceEditorTest::lookActive(cLiniovyZdroj, ParametersTab, [](QDialog& editor) {
        const QPoint place = automatic(editor).pos();
        for (const bool checked : {true, false, true}) {
            automatic(editor).click();
            QCoreApplication::processEvents();
            QCOMPARE(automatic(editor).isChecked(), checked);
            QCOMPARE(midpointButton(editor).isVisible(), !checked);
            QCOMPARE(automatic(editor).pos(), place);
        }
    });
}

void LineSourceDialogTest::checkingTheBoxCalculatesNothing()
{
    look([](QDialog& editor) {
        automatic(editor).click();
        QCOMPARE(shownPlace(editor), QStringLiteral("1234 -567"));
    });
}

void LineSourceDialogTest::settingTakesTheBoxHoweverTheEditorIsLeft_data()
{
    addWaysToLeave(true);
}

void LineSourceDialogTest::settingTakesTheBoxHoweverTheEditorIsLeft()
{
    QFETCH(const Leaving, leaving);
    for (const int expected : {1, 0}) {
        cZdroje source = sampleSource(cLiniovyZdroj);
        edit(source, [leaving](QDialog& editor) {
            automatic(editor).click();
            leave(editor, leaving);
            QVERIFY(!editor.isVisible());
        });
        QCOMPARE(globals().autoCalcXY, expected);
    }
}

void LineSourceDialogTest::settingIsUntouchedWhileTheEditorIsOpen()
{
    look([this](QDialog& editor) {
        automatic(editor).click();
        QCOMPARE(globals().autoCalcXY, 0);
    });
    QCOMPARE(globals().autoCalcXY, 1);
}

void LineSourceDialogTest::boxIsKeptForTheNextEditor()
{
    look([](QDialog& editor) { automatic(editor).click(); });
    look([](QDialog& editor) { QVERIFY(automatic(editor).isChecked()); });
}

void LineSourceDialogTest::automaticMidpointWinsOverWhatWasTyped()
{
    automaticMidpoint(true);
    const cZdroje source
        = confirmedWith({QStringLiteral("100"), QStringLiteral("200"), QStringLiteral("301"), QStringLiteral("400")});
    // 200.5 becomes even.
    QCOMPARE(placeOf(source), QStringLiteral("200 300"));
    QCOMPARE(QString::fromStdString(source.LineParameters()),
        QStringLiteral("000000042, 0.25, 100, 200, 301, 400, 7, 0.5, 0.8, 24"));
}

// The ends themselves are stored with their decimals.
void LineSourceDialogTest::automaticMidpointIsReadLikeTheButtons()
{
    decimalSeparator(",");
    automaticMidpoint(true);
    const cZdroje source
        = confirmedWith({QStringLiteral("100,9"), QStringLiteral("1"), QStringLiteral("100,9"), QStringLiteral("2")});
    QCOMPARE(placeOf(source), QStringLiteral("100 2"));
    QCOMPARE(source.Parameters(1), 100.9F);
    QCOMPARE(source.Parameters(3), 100.9F);
}

void LineSourceDialogTest::automaticMidpointWinsOverAPlaceThatIsNoPlace()
{
    automaticMidpoint(true);
    cZdroje source = sampleSource(cLiniovyZdroj);
    QVERIFY(edit(source, [](QDialog& editor) {
        setText(editor, "txtX", QStringLiteral("99999999999"));
        setText(editor, "txtY", QString());
        press(editor, "cbOK");
    }));
    QCOMPARE(placeOf(source), QStringLiteral("200 300"));
}

void LineSourceDialogTest::automaticMidpointBeyondTheRangeKeepsTheEditorOpen()
{
    automaticMidpoint(true);
    harness().boxes.answerNext(BoxAnswer::Ok);
    cZdroje source = sampleSource(cLiniovyZdroj);
    const QStringList before = recordsOf(source);
    QVERIFY(!edit(source, [](QDialog& editor) {
        setText(editor, "txtNazevZdroje", QStringLiteral("Silnice"));
        setEnds(editor, {QStringLiteral("3000000000"), {}, QStringLiteral("3000000000"), {}});
        press(editor, "cbOK");
        QVERIFY(editor.isVisible());
        QCOMPARE(field(editor, "txtNazevZdroje").text(), QStringLiteral("Silnice"));
        QCOMPARE(shownPlace(editor), QStringLiteral("1234 -567"));
        press(editor, "cbStorno");
    }));
    QCOMPARE(harness().boxes.shown().size(), 1);
    QVERIFY(isOutOfRange(harness().boxes.shown().first()));
    QCOMPARE(recordsOf(source), before);
    QVERIFY(!harness().set().modified());
}

void LineSourceDialogTest::automaticMidpointIsNotCalculatedWithoutOk()
{
    automaticMidpoint(true);
    cZdroje source = sampleSource(cLiniovyZdroj);
    const QStringList before = recordsOf(source);
    QVERIFY(!edit(source, [](QDialog& editor) { press(editor, "cbStorno"); }));
    QCOMPARE(recordsOf(source), before);
    QVERIFY(!harness().set().modified());
}

void LineSourceDialogTest::withoutTheBoxTypedPlaceIsKept()
{
    const cZdroje source
        = confirmedWith({QStringLiteral("100"), QStringLiteral("200"), QStringLiteral("301"), QStringLiteral("400")});
    QCOMPARE(placeOf(source), QStringLiteral("11 -22"));
}

void LineSourceDialogTest::boxAsItIsOnOkCounts_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<QString>("place");
    QTest::newRow("checked in the editor") << false << QStringLiteral("200 300");
    QTest::newRow("unchecked in the editor") << true << QStringLiteral("1234 -567");
}

void LineSourceDialogTest::boxAsItIsOnOkCounts()
{
    QFETCH(const bool, before);
    QFETCH(const QString, place);
    automaticMidpoint(before);
    cZdroje source = sampleSource(cLiniovyZdroj);
    QVERIFY(edit(source, [](QDialog& editor) {
        automatic(editor).click();
        press(editor, "cbOK");
    }));
    QCOMPARE(placeOf(source), place);
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::LineSourceDialogTest)

#include "line_source_dialog_test.moc"
