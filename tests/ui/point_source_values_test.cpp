// The values in the point source editor: how it shows them, what Ok reads back, and numbers out of range.
#include "point_source_test.h"

#include <QClipboard>
#include <QGuiApplication>

#include <utility>

namespace korvex {
namespace {

const char* const typedFields[]{"txtNazevZdroje", "txtSkupina", "txtShluk", "txtX", "txtY", "txtZ", "tPar0", "tPar1",
    "tPar2", "tPar3", "tPar4", "tPar5", "tPar6", "tPar7"};

QStringList textsOf(const QWidget& editor)
{
    QStringList texts;
    for (const char* const name : typedFields)
        texts << field(editor, name).text();
    return texts;
}

void paste(QLineEdit& field, const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
}

}  // namespace

class PointSourceValuesTest : public PointSourceTest {
    Q_OBJECT

private slots:
    void valuesAreShownInTheUsersForm_data();
    void valuesAreShownInTheUsersForm();
    void numbersAreShownPaddedAndCannotBeTyped();
    void editorWithoutAChangeLeavesTheRecords_data();
    void editorWithoutAChangeLeavesTheRecords();
    void okReadsEverythingBack_data();
    void okReadsEverythingBack();
    void numberAndStackNumberAreNotReadBack();
    void emptyFieldsAreStoredAsZeros();
    void emptyVelocityIsStoredAsZeroWithoutAMessage();
    void parameterIsReadLeniently_data();
    void parameterIsReadLeniently();
    void positionIsReadWithoutTheUsersSeparator();
    void pastedNameStaysOneLine();
    void okAfterOkEditsWhatWasStored();

    void keysOfTheParameters();
    void pasteIsTheWayToANegativeParameter();
    void parametersSelectTheirTextOnFocus();

    void numberOutOfRangeKeepsTheEditorOpenAtItsField_data();
    void numberOutOfRangeKeepsTheEditorOpenAtItsField();
    void editorCanBeLeftByOkOnceTheNumberIsRight();
    void firstOfTwoNumbersOutOfRangeIsShown();
};

void PointSourceValuesTest::valuesAreShownInTheUsersForm_data()
{
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QString>("parameters");
    QTest::newRow("comma") << QStringLiteral(",") << QStringLiteral("1,5 40 3,2 150 1,2 8,5 0,8 24");
    QTest::newRow("point") << QStringLiteral(".") << QStringLiteral("1.5 40 3.2 150 1.2 8.5 0.8 24");
}

void PointSourceValuesTest::valuesAreShownInTheUsersForm()
{
    QFETCH(const QString, separator);
    QFETCH(const QString, parameters);
    decimalSeparator(separator.toLatin1().constData());
    look([&parameters](QDialog& editor) {
        const QStringList common{QStringLiteral("Kotelna Říčany"), QStringLiteral("3"), QStringLiteral("4"),
            QStringLiteral("1234"), QStringLiteral("-567"), QStringLiteral("250")};
        QCOMPARE(textsOf(editor), common + parameters.split(QLatin1Char(' ')));
        QCOMPARE(field(editor, "txtHustota").text(), QStringLiteral("2500"));
    });
}

void PointSourceValuesTest::numbersAreShownPaddedAndCannotBeTyped()
{
    look([](QDialog& editor) {
        for (const char* const name : {"txtCisloZdroje", "txtCisloKomina"}) {
            QTest::keyClicks(&field(editor, name), QStringLiteral("9"));
            paste(field(editor, name), QStringLiteral("9"));
        }
        QCOMPARE(field(editor, "txtCisloZdroje").text(), QStringLiteral("00042"));
        QCOMPARE(field(editor, "txtCisloKomina").text(), QStringLiteral("0001"));
    });
}

void PointSourceValuesTest::editorWithoutAChangeLeavesTheRecords_data()
{
    QTest::addColumn<QString>("points");
    QTest::addColumn<QString>("parameters");
    QTest::addColumn<QString>("dust");
    const auto row = [](const char* name, const char* points, const char* parameters, const char* dust) {
        QTest::newRow(name) << QString::fromUtf8(points) << QString::fromUtf8(parameters) << QString::fromUtf8(dust);
    };
    row("usual", "42, 1234, -567, 250, 1, 3, 4 ;Kotelna Říčany", "42, 1.5, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 0",
        "2500,0,2,10,0.6,50,0.4");
    row("all zero, no name", "0, 0, 0, 0, 1, 0, 0 ;", "0", "0,0,0");
    row("seven digits", "1, 1, 1, 1, 1, 1, 1 ;a", "1, 1.234567, 0.1234567, 123456.7, 9999999, 0.3333333", "2.5,0,0");
    row("more digits than shown", "1, 1, 1, 1, 1, 1, 1 ;a", "1, 5.06986904, 16777217, 8589973000, 0.30000001192",
        "0,0,0");
    row("very large and small", "1, 1, 1, 1, 1, 1, 1 ;a", "1, 3.4E38, 1E-7, 1.2E-38, 1E15, 1E-45", "0,0,0");
    row("negative", "-5, -1, -2, -3, 1, -4, -5 ;a", "-5, -1.5, -1E-7, -273.15", "0,0,0");
    row("ends of the range", "2147483647, -2147483648, 2147483647, -2147483648, 1, 2147483647, -2147483648 ;a", "1",
        "0,0,0");
    row("blanks and marks in the name", "1, 1, 1, 1, 1, 1, 1 ; a, \"b\" ; c  ", "1", "0,0,0");
    row("group of the file", "1, 1, 1, 1, 1, 1, 1 ;a", "1", "2500,3");
}

void PointSourceValuesTest::editorWithoutAChangeLeavesTheRecords()
{
    QFETCH(const QString, points);
    QFETCH(const QString, parameters);
    QFETCH(const QString, dust);
    globals().noDust = 0;
    globals().dustGroupsPath
        = harness().writeFile(QStringLiteral("skupiny.spr"), {QStringLiteral(";k"), QStringLiteral("3,1,10,1;Škvára")});
    for (const char* const separator : {",", "."}) {
        decimalSeparator(separator);
        cZdroje source(cBodovyZdroj);
        source.LineSource(points.toStdString());
        source.LineParameters(parameters.toStdString());
        source.LineDust(dust.toStdString());
        const QStringList before = recordsOf(source);
        QVERIFY(edit(source, [](QDialog& editor) { press(editor, "cbOK"); }));
        QCOMPARE(recordsOf(source), before);
    }
}

void PointSourceValuesTest::okReadsEverythingBack_data()
{
    QTest::addColumn<QString>("separator");
    QTest::newRow("comma") << QStringLiteral(",");
    QTest::newRow("point") << QStringLiteral(".");
}

void PointSourceValuesTest::okReadsEverythingBack()
{
    QFETCH(const QString, separator);
    globals().noDust = 0;
    decimalSeparator(separator.toLatin1().constData());
    cZdroje source = stack();
    const bool isConfirmed = edit(source, [&separator](QDialog& editor) {
        const QStringList texts{QStringLiteral("Výtopna Žďár"), QStringLiteral("5"), QStringLiteral("6"),
            QStringLiteral("-11"), QStringLiteral("22"), QStringLiteral("333"), QStringLiteral("0.25"),
            QStringLiteral("1.5"), QStringLiteral("2.5"), QStringLiteral("3.5"), QStringLiteral("4.5"),
            QStringLiteral("5.5"), QStringLiteral("6.5"), QStringLiteral("7.125")};
        int i = 0;
        for (const char* const name : typedFields)
            setText(editor, name, QString(texts.at(i++)).replace(QLatin1Char('.'), separator));
        setText(editor, "txtHustota", QStringLiteral("1800"));
        press(editor, "cbOK");
        QVERIFY(!editor.isVisible());
    });
    QVERIFY(isConfirmed);
    QVERIFY(harness().set().modified());
    QCOMPARE(recordsOf(source),
        QStringList({QStringLiteral("000000042, -0000011, 0000022, 0333, 1, 5, 6 ;Výtopna Žďár"),
            QStringLiteral("000000042, 0.25, 1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.125, 0"),
            QStringLiteral("000000042,1800,0,2,10,0.6,50,0.4")}));
}

void PointSourceValuesTest::numberAndStackNumberAreNotReadBack()
{
    cZdroje source = stack();
    QVERIFY(edit(source, [](QDialog& editor) {
        setText(editor, "txtCisloZdroje", QStringLiteral("99"));
        setText(editor, "txtCisloKomina", QStringLiteral("99"));
        press(editor, "cbOK");
    }));
    QCOMPARE(source.ICZ(), 42);
    QCOMPARE(source.KOMIN(), 1);
}

void PointSourceValuesTest::emptyFieldsAreStoredAsZeros()
{
    cZdroje source = stack();
    QVERIFY(edit(source, [](QDialog& editor) {
        for (const char* const name : typedFields)
            field(editor, name).clear();
        press(editor, "cbOK");
    }));
    QCOMPARE(
        QString::fromStdString(source.LineSource()), QStringLiteral("000000042, 0000000, 0000000, 0000, 1, 0, 0 ;"));
    QCOMPARE(QString::fromStdString(source.LineParameters()), QStringLiteral("000000042, 0, 0, 0, 0, 0, 0, 0, 0, 0"));
}

void PointSourceValuesTest::emptyVelocityIsStoredAsZeroWithoutAMessage()
{
    cZdroje source = stack();
    QVERIFY(edit(source, [](QDialog& editor) {
        field(editor, "tPar5").clear();
        press(editor, "cbOK");
    }));
    QCOMPARE(QString::fromStdString(source.LineParameters()),
        QStringLiteral("000000042, 1.5, 40, 3.2, 150, 1.2, 0, 0.8, 24, 0"));
    QVERIFY(harness().boxes.shown().isEmpty());
}

void PointSourceValuesTest::parameterIsReadLeniently_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("withComma");
    QTest::addColumn<float>("withPoint");
    QTest::newRow("comma") << QStringLiteral("12,5") << 12.5F << 12.0F;
    QTest::newRow("point") << QStringLiteral("12.5") << 12.5F << 12.5F;
    QTest::newRow("two commas") << QStringLiteral("1,2,3") << 1.2F << 1.0F;
    QTest::newRow("two points") << QStringLiteral("1.2.3") << 1.2F << 1.2F;
    QTest::newRow("text behind") << QStringLiteral("12abc") << 12.0F << 12.0F;
    QTest::newRow("no number") << QStringLiteral("abc") << 0.0F << 0.0F;
    QTest::newRow("negative") << QStringLiteral("-5") << -5.0F << -5.0F;
}

void PointSourceValuesTest::parameterIsReadLeniently()
{
    QFETCH(const QString, text);
    QFETCH(const float, withComma);
    QFETCH(const float, withPoint);
    const std::pair<const char*, float> expected[]{{",", withComma}, {".", withPoint}};
    for (const auto& [separator, value] : expected) {
        decimalSeparator(separator);
        for (int index = 0; index < 8; ++index) {
            cZdroje source = stack();
            QVERIFY(edit(source, [&](QDialog& editor) {
                setText(editor, qPrintable(QStringLiteral("tPar%1").arg(index)), text);
                press(editor, "cbOK");
            }));
            QCOMPARE(source.Parameters(index), value);
        }
    }
}

void PointSourceValuesTest::positionIsReadWithoutTheUsersSeparator()
{
    decimalSeparator(",");
    cZdroje source = stack();
    QVERIFY(edit(source, [](QDialog& editor) {
        setText(editor, "txtX", QStringLiteral("3,9"));
        setText(editor, "txtY", QStringLiteral("3.9"));
        press(editor, "cbOK");
    }));
    QCOMPARE(source.X(), 3);
    QCOMPARE(source.Y(), 4);
}

// A line end in it would tear the source's record in two.
void PointSourceValuesTest::pastedNameStaysOneLine()
{
    cZdroje source = stack();
    QVERIFY(edit(source, [](QDialog& editor) {
        paste(field(editor, "txtNazevZdroje"), QStringLiteral("Kotelna\r\nsever\n"));
        press(editor, "cbOK");
    }));
    QCOMPARE(QString::fromStdString(source.LineSource()),
        QStringLiteral("000000042, 0001234, -0000567, 0250, 1, 3, 4 ;Kotelna  sever "));
}

void PointSourceValuesTest::okAfterOkEditsWhatWasStored()
{
    decimalSeparator(",");
    cZdroje source = stack();
    QVERIFY(edit(source, [](QDialog& editor) {
        setText(editor, "tPar0", QStringLiteral("0,125"));
        press(editor, "cbOK");
    }));
    const bool isConfirmed = edit(source, [](QDialog& editor) {
        QCOMPARE(field(editor, "tPar0").text(), QStringLiteral("0,125"));
        press(editor, "cbStorno");
    });
    QVERIFY(!isConfirmed);
    QVERIFY(harness().set().modified());
    QCOMPARE(source.Parameters(0), 0.125F);
}

void PointSourceValuesTest::keysOfTheParameters()
{
    look([](QDialog& editor) {
        for (int index = 0; index < 8; ++index) {
            QLineEdit& typed = field(editor, qPrintable(QStringLiteral("tPar%1").arg(index)));
            typed.clear();
            QTest::keyClicks(&typed, QStringLiteral("1a-2.e,3+ 4"));
            QCOMPARE(typed.text(), QStringLiteral("12.,34"));
            QTest::keyClick(&typed, Qt::Key_Backspace);
            QCOMPARE(typed.text(), QStringLiteral("12.,3"));
        }
    });
}

void PointSourceValuesTest::pasteIsTheWayToANegativeParameter()
{
    cZdroje source = stack();
    QVERIFY(edit(source, [](QDialog& editor) {
        paste(field(editor, "tPar3"), QStringLiteral("-12"));
        press(editor, "cbOK");
    }));
    QCOMPARE(source.Parameters(3), -12.0F);
}

void PointSourceValuesTest::parametersSelectTheirTextOnFocus()
{
    lookActive(ParametersTab, [](QDialog& editor) {
        for (int index = 7; index >= 0; --index) {
            QLineEdit& typed = field(editor, qPrintable(QStringLiteral("tPar%1").arg(index)));
            typed.setText(QStringLiteral("123456789"));
            clickInto(typed);
            QVERIFY(typed.hasFocus());
            QTRY_COMPARE(typed.selectedText(), QStringLiteral("123456789"));
        }
    });
}

void PointSourceValuesTest::numberOutOfRangeKeepsTheEditorOpenAtItsField_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<EditorTab>("tab");
    QTest::addColumn<EditorTab>("openedOn");
    const auto row = [](const char* name, const char* text, EditorTab tab, EditorTab openedOn) {
        QTest::addRow("%s %s from tab %d", name, text, openedOn)
            << QString::fromLatin1(name) << QString::fromLatin1(text) << tab << openedOn;
    };
    for (const EditorTab openedOn : {DescriptionTab, ParametersTab, DustTab}) {
        row("txtX", "99999999999", DescriptionTab, openedOn);
        row("tPar3", "1E39", ParametersTab, openedOn);
    }
    for (const char* const name : {"txtY", "txtZ", "txtSkupina", "txtShluk"})
        row(name, "-2147483649", DescriptionTab, DustTab);
    for (const char* const name : {"tPar0", "tPar1", "tPar2", "tPar4", "tPar5", "tPar6", "tPar7"})
        row(name, "-3.5E38", ParametersTab, DescriptionTab);
}

void PointSourceValuesTest::numberOutOfRangeKeepsTheEditorOpenAtItsField()
{
    QFETCH(const QString, name);
    QFETCH(const QString, text);
    QFETCH(const EditorTab, tab);
    QFETCH(const EditorTab, openedOn);
    harness().show();
    globals().noDust = 0;
    globals().lastEditorTab = openedOn;
    cZdroje source = stack();
    const QStringList before = recordsOf(source);
    const bool isConfirmed = edit(source, [&](QDialog& editor) {
        QVERIFY(waitUntilActive(editor));
        for (const char* const other : typedFields)
            setText(editor, other, QStringLiteral("7"));
        setText(editor, "txtHustota", QStringLiteral("1800"));
        setText(editor, qPrintable(name), text);
        const QStringList typed = textsOf(editor);
        harness().boxes.answerNext(BoxAnswer::Ok);
        press(editor, "cbOK");
        QVERIFY(editor.isVisible());
        QCOMPARE(tabs(editor).currentIndex(), static_cast<int>(tab));
        QCOMPARE(focusName(), name);
        QTRY_COMPARE(field(editor, qPrintable(name)).selectedText(), text);
        QCOMPARE(textsOf(editor), typed);
        QCOMPARE(field(editor, "txtHustota").text(), QStringLiteral("1800"));
        press(editor, "cbStorno");
    });
    QVERIFY(!isConfirmed);
    QCOMPARE(recordsOf(source), before);
    QVERIFY(!harness().set().modified());
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(describe(harness().boxes.shown().first()),
        QStringLiteral("[Critical] Chyba při běhu programu | Číslo je mimo rozsah: „%1“. | Ok | ").arg(text));
}

void PointSourceValuesTest::editorCanBeLeftByOkOnceTheNumberIsRight()
{
    cZdroje source = stack();
    const bool isConfirmed = edit(source, [this](QDialog& editor) {
        setText(editor, "txtNazevZdroje", QStringLiteral("Nový"));
        setText(editor, "tPar7", QStringLiteral("1E39"));
        harness().boxes.answerNext(BoxAnswer::Ok);
        press(editor, "cbOK");
        setText(editor, "tPar7", QStringLiteral("12"));
        press(editor, "cbOK");
        QVERIFY(!editor.isVisible());
    });
    QVERIFY(isConfirmed);
    QVERIFY(harness().set().modified());
    QCOMPARE(QString::fromUtf8(source.NazevZdroje().data(), static_cast<qsizetype>(source.NazevZdroje().size())),
        QStringLiteral("Nový"));
    QCOMPARE(source.Parameters(7), 12.0F);
}

void PointSourceValuesTest::firstOfTwoNumbersOutOfRangeIsShown()
{
    lookActive(DustTab, [this](QDialog& editor) {
        setText(editor, "txtZ", QStringLiteral("99999999999"));
        setText(editor, "tPar0", QStringLiteral("1E39"));
        harness().boxes.answerNext(BoxAnswer::Ok);
        press(editor, "cbOK");
        QCOMPARE(focusName(), QStringLiteral("txtZ"));
    });
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::PointSourceValuesTest)

#include "point_source_values_test.moc"
