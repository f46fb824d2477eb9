// What the editors of areas and lines have in common: captions, the way of the values, the ways to leave, the tabs.
#include "dust_panel.h"
#include "source_editor_test.h"

#include <QFile>

namespace korvex {
namespace {

const char* const commonFields[]{"txtNazevZdroje", "txtSkupina", "txtShluk", "txtX", "txtY", "txtZ"};

void addTypes()
{
    QTest::addColumn<int>("typeId");
    QTest::newRow("area") << cPlosnyZdroj.TypZdrojeId;
    QTest::newRow("line") << cLiniovyZdroj.TypZdrojeId;
}

/// Both types, each left in every way.
void addTypesAndWaysToLeave(bool withOk)
{
    QTest::addColumn<int>("typeId");
    QTest::addColumn<Leaving>("leaving");
    for (const SourceType* const type : {&cPlosnyZdroj, &cLiniovyZdroj}) {
        const char* const name = type == &cPlosnyZdroj ? "area" : "line";
        if (withOk)
            QTest::addRow("%s, Ok", name) << type->TypZdrojeId << Leaving::Ok;
        QTest::addRow("%s, Storno", name) << type->TypZdrojeId << Leaving::Storno;
        QTest::addRow("%s, Escape", name) << type->TypZdrojeId << Leaving::Escape;
        QTest::addRow("%s, close box", name) << type->TypZdrojeId << Leaving::CloseBox;
    }
}

}  // namespace

class AreaAndLineDialogsTest : public SourceEditorTest {
    Q_OBJECT

private slots:
    void captionAndTabs_data() { addTypes(); }
    void captionAndTabs();
    void everyParameterHasItsToolTip_data() { addTypes(); }
    void everyParameterHasItsToolTip();
    void buttonsHaveTheirCaptionsAndToolTips_data() { addTypes(); }
    void buttonsHaveTheirCaptionsAndToolTips();
    void thereAreNoStackGasButtons_data() { addTypes(); }
    void thereAreNoStackGasButtons();
    void mnemonicsAreUnique_data() { addTypes(); }
    void mnemonicsAreUnique();
    void everyFocusableWidgetHasAName_data() { addTypes(); }
    void everyFocusableWidgetHasAName();
    void okIsTheOnlyDefaultButton_data() { addTypes(); }
    void okIsTheOnlyDefaultButton();
    void helpButtonSendsF1_data() { addTypes(); }
    void helpButtonSendsF1();
    void dialogIsModalToItsOwnerOnly_data() { addTypes(); }
    void dialogIsModalToItsOwnerOnly();

    void valuesAreShownInTheUsersForm_data() { addTypes(); }
    void valuesAreShownInTheUsersForm();
    void parametersSelectTheirTextOnFocus_data() { addTypes(); }
    void parametersSelectTheirTextOnFocus();
    void okReadsEverythingBack_data() { addTypes(); }
    void okReadsEverythingBack();
    void okWithNothingChangedKeepsTheRecordsAndSetsTheModifiedFlag_data() { addTypes(); }
    void okWithNothingChangedKeepsTheRecordsAndSetsTheModifiedFlag();
    void emptyFieldsAreStoredAsZerosWithoutAMessage_data() { addTypes(); }
    void emptyFieldsAreStoredAsZerosWithoutAMessage();
    void parameterOutOfRangeKeepsTheEditorOpenAtItsField_data() { addTypes(); }
    void parameterOutOfRangeKeepsTheEditorOpenAtItsField();
    void leavingWithoutOkTakesNothingOver_data() { addTypesAndWaysToLeave(false); }
    void leavingWithoutOkTakesNothingOver();

    void tabIsRememberedHoweverTheEditorIsLeft_data() { addTypesAndWaysToLeave(true); }
    void tabIsRememberedHoweverTheEditorIsLeft();
    void tabIsSharedWithTheEditorsOfOtherTypes_data();
    void tabIsSharedWithTheEditorsOfOtherTypes();
    void dustIsKeptButNotWritten_data() { addTypes(); }
    void dustIsKeptButNotWritten();
    void dustTabShowsThePanelOrTheNote_data();
    void dustTabShowsThePanelOrTheNote();
    void dustGroupsPathIsTakenFromThePanel_data() { addTypes(); }
    void dustGroupsPathIsTakenFromThePanel();
    void placeIsStoredHoweverTheEditorIsLeft_data() { addTypesAndWaysToLeave(true); }
    void placeIsStoredHoweverTheEditorIsLeft();
    void opensWhereItWasLeft_data() { addTypes(); }
    void opensWhereItWasLeft();
};

void AreaAndLineDialogsTest::captionAndTabs()
{
    globals().noDust = 0;
    look(rowType(), [](QDialog& editor) {
        const bool isArea = &rowType() == &cPlosnyZdroj;
        QCOMPARE(editor.windowTitle(), isArea ? QStringLiteral("Plošný zdroj") : QStringLiteral("Liniový zdroj"));
        QTabWidget& pages = tabs(editor);
        QCOMPARE(pages.count(), 3);
        QCOMPARE(pages.tabText(DescriptionTab), QStringLiteral("Popis"));
        QCOMPARE(pages.tabText(ParametersTab), QStringLiteral("Parametry"));
        QCOMPARE(pages.tabText(DustTab), QStringLiteral("Prach"));
        QCOMPARE(pages.widget(DescriptionTab)->objectName(), QStringLiteral("uscPopis1"));
        QVERIFY(pages.widget(ParametersTab)->isAncestorOf(&field(editor, "tPar8")));
        QVERIFY(pages.widget(DustTab)->isAncestorOf(&child<QWidget>(editor, "uscPrach1")));
    });
}

void AreaAndLineDialogsTest::everyParameterHasItsToolTip()
{
    look(rowType(), [](QDialog& editor) {
        for (int index = 0; index < 9; ++index)
            QCOMPARE(parameterField(editor, index).toolTip(), QStringLiteral("Parametry zdroje"));
        QVERIFY(editor.findChild<QLineEdit*>(QStringLiteral("tPar9")) == nullptr);
    });
}

// The help button's ellipsis is missing in the editor of stacks alone.
void AreaAndLineDialogsTest::buttonsHaveTheirCaptionsAndToolTips()
{
    look(rowType(), [](QDialog& editor) {
        const auto texts = [&editor](const char* name) {
            const QPushButton& button = child<QPushButton>(editor, name);
            return button.text() + QStringLiteral(" | ") + button.toolTip();
        };
        QCOMPARE(texts("cbOK"), QStringLiteral("&Ok | Zpět s provedením změn"));
        QCOMPARE(texts("cbStorno"), QStringLiteral("&Storno | Zpět bez provedení změn"));
        QCOMPARE(texts("cbHelp"), QStringLiteral("&Nápověda… | Nápověda k programu"));
    });
}

void AreaAndLineDialogsTest::thereAreNoStackGasButtons()
{
    look(rowType(), [](QDialog& editor) {
        QStringList names;
        for (const QPushButton* const button : tabs(editor).widget(ParametersTab)->findChildren<QPushButton*>())
            names << button->objectName();
        QCOMPARE(names, &rowType() == &cPlosnyZdroj ? QStringList() : QStringList{QStringLiteral("cmdCalcXY")});
    });
}

void AreaAndLineDialogsTest::mnemonicsAreUnique()
{
    globals().noDust = 0;
    look(rowType(), [](QDialog& editor) { QCOMPARE(mnemonics(editor), QStringLiteral("NOS")); });
}

void AreaAndLineDialogsTest::everyFocusableWidgetHasAName()
{
    globals().noDust = 0;
    look(rowType(), [](QDialog& editor) { QCOMPARE(namelessWidgets(editor).join(QStringLiteral(", ")), QString()); });
}

void AreaAndLineDialogsTest::okIsTheOnlyDefaultButton()
{
    globals().noDust = 0;
    look(rowType(), [](QDialog& editor) { QCOMPARE(defaultButtons(editor), QStringList{QStringLiteral("cbOK")}); });
}

void AreaAndLineDialogsTest::helpButtonSendsF1()
{
    look(rowType(), [](QDialog& editor) {
        const HelpKeySpy spy(editor);
        press(editor, "cbHelp");
        QTRY_COMPARE(spy.presses(), 1);
        QVERIFY(editor.isVisible());
    });
}

void AreaAndLineDialogsTest::dialogIsModalToItsOwnerOnly()
{
    look(rowType(), [this](QDialog& editor) {
        // The help window takes input beside it.
        QCOMPARE(editor.windowModality(), Qt::WindowModal);
        QCOMPARE(editor.parentWidget(), &harness().window());
    });
}

void AreaAndLineDialogsTest::valuesAreShownInTheUsersForm()
{
    decimalSeparator(",");
    globals().noDust = 0;
    look(rowType(), [](QDialog& editor) {
        const auto text = [&editor](const char* name) { return field(editor, name).text(); };
        QStringList common;
        for (const char* const name : commonFields)
            common << text(name);
        QCOMPARE(common.join(QLatin1Char('|')), QStringLiteral("Skládka Říčany|3|4|1234|-567|250"));
        // Only stacks have a stack number.
        QCOMPARE(text("txtCisloZdroje") + QLatin1Char(' ') + text("txtCisloKomina"), QStringLiteral("00042 0000"));
        QStringList parameters;
        for (int index = 0; index < 9; ++index)
            parameters << parameterField(editor, index).text();
        QCOMPARE(parameters.join(QLatin1Char(' ')),
            &rowType() == &cPlosnyZdroj ? QStringLiteral("1,5 40 3,2 150 1,2 8,5 0,8 24 12")
                                        : QStringLiteral("0,25 100 200 301 400 7 0,5 0,8 24"));
        QCOMPARE(text("txtHustota"), QStringLiteral("2500"));
    });
}

void AreaAndLineDialogsTest::parametersSelectTheirTextOnFocus()
{
    decimalSeparator(",");
    lookActive(rowType(), ParametersTab, [](QDialog& editor) {
        for (int index = 8; index >= 0; --index) {
            QLineEdit& shown = parameterField(editor, index);
            clickInto(shown);
            QCOMPARE(QApplication::focusWidget(), &shown);
            QTRY_COMPARE(shown.selectedText(), shown.text());
        }
    });
}

void AreaAndLineDialogsTest::okReadsEverythingBack()
{
    decimalSeparator(",");
    cZdroje source = sampleSource(rowType());
    QVERIFY(edit(source, [](QDialog& editor) {
        const char* const texts[]{"Říp, východ", "5", "6", "-70", "80", "90"};
        for (std::size_t i = 0; i < std::size(commonFields); ++i)
            setText(editor, commonFields[i], QString::fromUtf8(texts[i]));
        for (int index = 0; index < 9; ++index)
            parameterField(editor, index).setText(QStringLiteral("%1,%2").arg(index + 10).arg(index + 1));
        press(editor, "cbOK");
    }));
    QCOMPARE(QString::fromStdString(source.LineSource()),
        QStringLiteral("000000042, -0000070, 0000080, 0090, %1, 5, 6 ;Říp, východ").arg(rowType().TypZdrojeId));
    QCOMPARE(QString::fromStdString(source.LineParameters()),
        QStringLiteral("000000042, 10.1, 11.2, 12.3, 13.4, 14.5, 15.6, 16.7, 17.8, 18.9"));
    QCOMPARE(source.KOMIN(), 0);
}

void AreaAndLineDialogsTest::okWithNothingChangedKeepsTheRecordsAndSetsTheModifiedFlag()
{
    cZdroje source = sampleSource(rowType());
    const QStringList before = recordsOf(source);
    QVERIFY(edit(source, [](QDialog& editor) { press(editor, "cbOK"); }));
    QCOMPARE(recordsOf(source), before);
    QVERIFY(harness().set().modified());
}

void AreaAndLineDialogsTest::emptyFieldsAreStoredAsZerosWithoutAMessage()
{
    cZdroje source = sampleSource(rowType());
    QVERIFY(edit(source, [](QDialog& editor) {
        for (const char* const name : commonFields)
            setText(editor, name, {});
        for (int index = 0; index < 9; ++index)
            parameterField(editor, index).clear();
        press(editor, "cbOK");
    }));
    QCOMPARE(QString::fromStdString(source.LineSource()),
        QStringLiteral("000000042, 0000000, 0000000, 0000, %1, 0, 0 ;").arg(rowType().TypZdrojeId));
    QCOMPARE(QString::fromStdString(source.LineParameters()), QStringLiteral("000000042, 0, 0, 0, 0, 0, 0, 0, 0, 0"));
    QVERIFY(harness().boxes.shown().isEmpty());
}

void AreaAndLineDialogsTest::parameterOutOfRangeKeepsTheEditorOpenAtItsField()
{
    harness().show();
    harness().boxes.answerNext(BoxAnswer::Ok);
    cZdroje source = sampleSource(rowType());
    const QStringList before = recordsOf(source);
    QVERIFY(!edit(source, [](QDialog& editor) {
        QVERIFY(waitUntilActive(editor));
        setText(editor, "txtNazevZdroje", QStringLiteral("jiný"));
        setText(editor, "tPar8", QStringLiteral("1E39"));
        press(editor, "cbOK");
        QVERIFY(editor.isVisible());
        QCOMPARE(tabs(editor).currentIndex(), static_cast<int>(ParametersTab));
        QCOMPARE(focusName(), QStringLiteral("tPar8"));
        press(editor, "cbStorno");
    }));
    QCOMPARE(harness().boxes.shown().size(), 1);
    QVERIFY(isOutOfRange(harness().boxes.shown().first()));
    QCOMPARE(recordsOf(source), before);
    QVERIFY(!harness().set().modified());
}

void AreaAndLineDialogsTest::leavingWithoutOkTakesNothingOver()
{
    QFETCH(const Leaving, leaving);
    globals().noDust = 0;
    cZdroje source = sampleSource(rowType());
    const QStringList before = recordsOf(source);
    QVERIFY(!edit(source, [this, leaving](QDialog& editor) {
        for (QLineEdit* const typed : editor.findChildren<QLineEdit*>())
            typed->setText(QStringLiteral("99"));
        press(editor, "cmdAdd");
        leaveChanged(harness().boxes, editor, leaving);
        QVERIFY(!editor.isVisible());
    }));
    QCOMPARE(recordsOf(source), before);
    QVERIFY(!harness().set().modified());
    look(rowType(), [](QDialog& editor) { QCOMPARE(field(editor, "txtHustota").text(), QStringLiteral("2500")); });
}

void AreaAndLineDialogsTest::tabIsRememberedHoweverTheEditorIsLeft()
{
    QFETCH(const Leaving, leaving);
    cZdroje source = sampleSource(rowType());
    edit(source, [leaving](QDialog& editor) {
        QCOMPARE(tabs(editor).currentIndex(), static_cast<int>(DescriptionTab));
        tabs(editor).setCurrentIndex(DustTab);
        leave(editor, leaving);
    });
    look(rowType(), [](QDialog& editor) { QCOMPARE(tabs(editor).currentIndex(), static_cast<int>(DustTab)); });
}

void AreaAndLineDialogsTest::tabIsSharedWithTheEditorsOfOtherTypes_data()
{
    QTest::addColumn<int>("typeId");
    QTest::addColumn<int>("otherId");
    QTest::newRow("area, then line") << cPlosnyZdroj.TypZdrojeId << cLiniovyZdroj.TypZdrojeId;
    QTest::newRow("line, then area") << cLiniovyZdroj.TypZdrojeId << cPlosnyZdroj.TypZdrojeId;
    QTest::newRow("area, then stack") << cPlosnyZdroj.TypZdrojeId << cBodovyZdroj.TypZdrojeId;
    QTest::newRow("line, then stack") << cLiniovyZdroj.TypZdrojeId << cBodovyZdroj.TypZdrojeId;
    QTest::newRow("stack, then area") << cBodovyZdroj.TypZdrojeId << cPlosnyZdroj.TypZdrojeId;
    QTest::newRow("stack, then line") << cBodovyZdroj.TypZdrojeId << cLiniovyZdroj.TypZdrojeId;
}

void AreaAndLineDialogsTest::tabIsSharedWithTheEditorsOfOtherTypes()
{
    QFETCH(const int, otherId);
    look(rowType(), [](QDialog& editor) { tabs(editor).setCurrentIndex(ParametersTab); });
    look(*sourceTypeOf(otherId),
        [](QDialog& editor) { QCOMPARE(tabs(editor).currentIndex(), static_cast<int>(ParametersTab)); });
}

// The files have no place for it.
void AreaAndLineDialogsTest::dustIsKeptButNotWritten()
{
    globals().noDust = 0;
    cZdroje source = sampleSource(rowType());
    QVERIFY(edit(source, [](QDialog& editor) {
        setText(editor, "txtHustota", QStringLiteral("1800"));
        press(editor, "cbOK");
    }));
    QCOMPARE(QString::fromStdString(source.LineDust()), QStringLiteral("000000042"));
    edit(source, [](QDialog& editor) {
        QCOMPARE(field(editor, "txtHustota").text(), QStringLiteral("1800"));
        QCOMPARE(child<QLabel>(editor, "lblCount").text(), QStringLiteral("Počet: 1"));
        press(editor, "cbStorno");
    });
}

void AreaAndLineDialogsTest::dustTabShowsThePanelOrTheNote_data()
{
    QTest::addColumn<int>("typeId");
    QTest::addColumn<int>("noDust");
    QTest::newRow("area, on") << cPlosnyZdroj.TypZdrojeId << 0;
    QTest::newRow("area, off") << cPlosnyZdroj.TypZdrojeId << 1;
    QTest::newRow("line, on") << cLiniovyZdroj.TypZdrojeId << 0;
    QTest::newRow("line, off") << cLiniovyZdroj.TypZdrojeId << 1;
}

void AreaAndLineDialogsTest::dustTabShowsThePanelOrTheNote()
{
    QFETCH(const int, noDust);
    globals().noDust = noDust;
    lookActive(rowType(), DustTab, [noDust](QDialog& editor) {
        QCOMPARE(tabs(editor).tabText(DustTab), noDust != 0 ? QStringLiteral("(Prach)") : QStringLiteral("Prach"));
        const QLabel& note = child<QLabel>(editor, "Label1");
        QCOMPARE(note.text(), QStringLiteral("Použití prachu bylo vypnuto v okně Soubor / Možnosti…"));
        QCOMPARE(note.isVisible(), noDust != 0);
        QCOMPARE(child<QWidget>(editor, "uscPrach1").isVisible(), noDust == 0);
    });
}

void AreaAndLineDialogsTest::dustGroupsPathIsTakenFromThePanel()
{
    globals().noDust = 0;
    const auto groupsFile = [this](const char* name) {
        return harness().writeFile(
            QString::fromLatin1(name), {QStringLiteral(";k"), QStringLiteral("3,1,10,1;Škvára")});
    };
    const std::string first = groupsFile("skupiny.spr");
    const std::string second = groupsFile("jine.spr");
    globals().dustGroupsPath = first;
    cZdroje source = sampleSource(rowType());
    edit(source, [&](QDialog& editor) {
        auto& panel = child<uscPrach>(editor, "uscPrach1");
        QCOMPARE(panel.SouborSkupinyPrachu(), first);
        panel.SouborSkupinyPrachu(second);
        press(editor, "cbOK");
    });
    QCOMPARE(globals().dustGroupsPath, second);
}

void AreaAndLineDialogsTest::placeIsStoredHoweverTheEditorIsLeft()
{
    QFETCH(const Leaving, leaving);
    cZdroje source = sampleSource(rowType());
    edit(source, [leaving](QDialog& editor) {
        editor.move(120, 60);
        leave(editor, leaving);
    });
    const auto stored = [this](const char* key) {
        return harness().settings.texts().value(
            QStringLiteral("Form:%1/%2").arg(editorName(rowType()), QLatin1String(key)));
    };
    // In twips.
    QCOMPARE(stored("Left"), QStringLiteral("1800"));
    QCOMPARE(stored("Top"), QStringLiteral("900"));
}

void AreaAndLineDialogsTest::opensWhereItWasLeft()
{
    look(rowType(), [](QDialog& editor) {
        QCOMPARE(editor.pos(), QPoint(0, 0));
        editor.move(120, 60);
    });
    // Each type's editor has a place of its own.
    look(&rowType() == &cPlosnyZdroj ? cLiniovyZdroj : cPlosnyZdroj,
        [](QDialog& editor) { QCOMPARE(editor.pos(), QPoint(0, 0)); });
    look(rowType(), [](QDialog& editor) { QCOMPARE(editor.pos(), QPoint(120, 60)); });
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::AreaAndLineDialogsTest)

#include "area_and_line_dialogs_test.moc"
