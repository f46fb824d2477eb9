// The point source editor as a window: its captions and keys, the ways to leave it, and its place.
#include "point_source_test.h"

#include <cstdlib>
#include <utility>

namespace korvex {
namespace {

/// Top, left, width and height as stored, in twips.
QStringList storedPlace(const MemorySettings& settings)
{
    QStringList texts;
    for (const char* const key : {"Top", "Left", "Width", "Height", "WindowState"})
        texts << settings.texts().value(QStringLiteral("Form:frmBodovyZdroj/") + QLatin1String(key));
    return texts;
}

}  // namespace

class PointSourceDialogTest : public PointSourceTest {
    Q_OBJECT

private slots:
    void captionAndTabs();
    void parametersHaveTheirLabelsAndToolTips_data();
    void parametersHaveTheirLabelsAndToolTips();
    void buttonsHaveTheirCaptionsAndToolTips_data();
    void buttonsHaveTheirCaptionsAndToolTips();
    void mnemonicsAreUnique();
    void everyFocusableWidgetHasAName();
    void calculationsStandBesideTheirTargets();
    void dialogIsModalToItsOwnerOnly();

    void okIsTheOnlyDefaultButton();
    void enterInAFieldIsOk_data();
    void enterInAFieldIsOk();
    void enterOnACalculationCalculates();
    void helpButtonSendsF1();
    void leavingWithoutOkTakesNothingOver_data();
    void leavingWithoutOkTakesNothingOver();
    void okSetsTheModifiedFlagAlsoWithNothingChanged();

    void opensAtTheTopLeftCornerAtFirst();
    void opensWhereItWasLeft();
    void placeIsStoredHoweverTheEditorIsLeft_data();
    void placeIsStoredHoweverTheEditorIsLeft();
    void nothingButThePlaceIsStored();
};

void PointSourceDialogTest::captionAndTabs()
{
    globals().noDust = 0;
    look([](QDialog& editor) {
        QCOMPARE(editor.windowTitle(), QStringLiteral("Bodový zdroj"));
        QTabWidget& pages = tabs(editor);
        QCOMPARE(pages.count(), 3);
        QCOMPARE(pages.tabText(DescriptionTab), QStringLiteral("Popis"));
        QCOMPARE(pages.tabText(ParametersTab), QStringLiteral("Parametry"));
        QCOMPARE(pages.tabText(DustTab), QStringLiteral("Prach"));
        QCOMPARE(pages.widget(DescriptionTab)->objectName(), QStringLiteral("uscPopis1"));
        QVERIFY(pages.widget(ParametersTab)->isAncestorOf(&field(editor, "tPar7")));
        QVERIFY(pages.widget(DustTab)->isAncestorOf(&child<QWidget>(editor, "uscPrach1")));
    });
}

void PointSourceDialogTest::parametersHaveTheirLabelsAndToolTips_data()
{
    QTest::addColumn<QString>("label");
    const auto row = [](const char* name, const char* label) { QTest::newRow(name) << QString::fromUtf8(label); };
    row("tPar0", "Množství látky odcházející komínem [g/s] (M):");
    row("tPar1", "Výška koruny komína nad terénem [m] (H):");
    row("tPar2", "Objem spalin za normálních podmínek [m3/s] (Vs):");
    row("tPar3", "Teplota spalin [°C] (ts):");
    row("tPar4", "Vnitřní průměr komína [m] (d):");
    row("tPar5", "Výstupní rychlost spalin [m/s] (w0):");
    row("tPar6", "Relativní roční využití maximálního výkonu [%/100] (Alfa):");
    row("tPar7", "Počet hodin za den, kdy je zdroj v činnosti [hod] (Pd):");
}

void PointSourceDialogTest::parametersHaveTheirLabelsAndToolTips()
{
    QFETCH(const QString, label);
    look([&label](QDialog& editor) {
        const QLineEdit& shown = field(editor, QTest::currentDataTag());
        QCOMPARE(captionOf(editor, shown), label);
        QCOMPARE(shown.toolTip(), QStringLiteral("Parametry zdroje"));
        QVERIFY(editor.findChild<QLineEdit*>(QStringLiteral("tPar8")) == nullptr);
    });
}

void PointSourceDialogTest::buttonsHaveTheirCaptionsAndToolTips_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("toolTip");
    const auto row = [](const char* name, const char* caption, const char* toolTip) {
        QTest::newRow(name) << QString::fromUtf8(caption) << QString::fromUtf8(toolTip);
    };
    row("cbOK", "&Ok", "Zpět s provedením změn");
    row("cbStorno", "&Storno", "Zpět bez provedení změn");
    row("cbHelp", "&Nápověda", "Nápověda k programu");
    row("cmdCalcVs", "Vypočítej (Vs)", "");
    row("cmdCalcD", "Vypočítej (d)", "");
    row("cmdCalcW0", "Vypočítej (w0)", "");
    row("cmdNastavitTlak", "Nastavit &tlak", "Tlak (p) = 101325 Pa");
}

void PointSourceDialogTest::buttonsHaveTheirCaptionsAndToolTips()
{
    QFETCH(const QString, caption);
    QFETCH(const QString, toolTip);
    look([&](QDialog& editor) {
        const QPushButton& button = child<QPushButton>(editor, QTest::currentDataTag());
        QCOMPARE(button.text(), caption);
        QCOMPARE(button.toolTip(), toolTip);
    });
}

void PointSourceDialogTest::mnemonicsAreUnique()
{
    globals().noDust = 0;
    look([](QDialog& editor) { QCOMPARE(mnemonics(editor), QStringLiteral("NOST")); });
}

void PointSourceDialogTest::everyFocusableWidgetHasAName()
{
    globals().noDust = 0;
    look([](QDialog& editor) {
        // The tabs speak by themselves, and give the focus to their bar.
        QCOMPARE(namelessWidgets(editor).join(QStringLiteral(", ")), QString());
    });
}

void PointSourceDialogTest::calculationsStandBesideTheirTargets()
{
    lookActive(ParametersTab, [](QDialog& editor) {
        const std::pair<const char*, const char*> pairs[]{
            {"cmdCalcVs", "tPar2"}, {"cmdCalcD", "tPar4"}, {"cmdCalcW0", "tPar5"}};
        for (const auto& [button, target] : pairs) {
            const QPoint place = placeOf(child<QPushButton>(editor, button));
            QVERIFY2(std::abs(place.y() - placeOf(field(editor, target)).y()) <= 1, button);
            QVERIFY2(place.x() > placeOf(field(editor, target)).x(), button);
        }
    });
}

void PointSourceDialogTest::dialogIsModalToItsOwnerOnly()
{
    look([this](QDialog& editor) {
        // The help window takes input beside it.
        QCOMPARE(editor.windowModality(), Qt::WindowModal);
        QCOMPARE(editor.parentWidget(), &harness().window());
    });
}

void PointSourceDialogTest::okIsTheOnlyDefaultButton()
{
    globals().noDust = 0;
    look([](QDialog& editor) { QCOMPARE(defaultButtons(editor), QStringList{QStringLiteral("cbOK")}); });
}

void PointSourceDialogTest::enterInAFieldIsOk_data()
{
    QTest::addColumn<EditorTab>("tab");
    QTest::newRow("txtNazevZdroje") << DescriptionTab;
    QTest::newRow("txtZ") << DescriptionTab;
    QTest::newRow("tPar0") << ParametersTab;
    QTest::newRow("tPar7") << ParametersTab;
}

void PointSourceDialogTest::enterInAFieldIsOk()
{
    QFETCH(const EditorTab, tab);
    harness().show();
    globals().lastEditorTab = tab;
    cZdroje source = stack();
    const bool isConfirmed = edit(source, [](QDialog& editor) {
        QVERIFY(waitUntilActive(editor));
        clickInto(field(editor, QTest::currentDataTag()));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(!editor.isVisible());
    });
    QVERIFY(isConfirmed);
}

void PointSourceDialogTest::enterOnACalculationCalculates()
{
    lookActive(ParametersTab, [](QDialog& editor) {
        setText(editor, "tPar4", QStringLiteral("0"));
        child<QPushButton>(editor, "cmdCalcVs").setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(editor.isVisible());
        QCOMPARE(field(editor, "tPar2").text(), QStringLiteral("0"));
        QCOMPARE(focusName(), QStringLiteral("tPar3"));
    });
}

void PointSourceDialogTest::helpButtonSendsF1()
{
    look([](QDialog& editor) {
        const HelpKeySpy spy(editor);
        press(editor, "cbHelp");
        QTRY_COMPARE(spy.presses(), 1);
        QVERIFY(editor.isVisible());
    });
}

void PointSourceDialogTest::leavingWithoutOkTakesNothingOver_data()
{
    addWaysToLeave(false);
}

void PointSourceDialogTest::leavingWithoutOkTakesNothingOver()
{
    QFETCH(const Leaving, leaving);
    globals().noDust = 0;
    cZdroje source = stack();
    const QStringList before = recordsOf(source);
    const bool isConfirmed = edit(source, [this, leaving](QDialog& editor) {
        for (const char* const name : {"txtNazevZdroje", "txtSkupina", "txtShluk", "txtX", "txtY", "txtZ", "tPar0",
                 "tPar1", "tPar2", "tPar3", "tPar4", "tPar5", "tPar6", "tPar7", "txtHustota"})
            setText(editor, name, QStringLiteral("99"));
        leaveChanged(harness().boxes, editor, leaving);
        QVERIFY(!editor.isVisible());
    });
    QVERIFY(!isConfirmed);
    QCOMPARE(recordsOf(source), before);
    QVERIFY(!harness().set().modified());
}

void PointSourceDialogTest::okSetsTheModifiedFlagAlsoWithNothingChanged()
{
    cZdroje source = stack();
    QVERIFY(edit(source, [](QDialog& editor) { press(editor, "cbOK"); }));
    QVERIFY(harness().set().modified());
}

void PointSourceDialogTest::opensAtTheTopLeftCornerAtFirst()
{
    look([](QDialog& editor) { QCOMPARE(editor.pos(), QPoint(0, 0)); });
}

void PointSourceDialogTest::opensWhereItWasLeft()
{
    QSize size;
    look([&size](QDialog& editor) {
        size = editor.size() + QSize(40, 30);
        editor.move(120, 60);
        editor.resize(size);
        QCoreApplication::processEvents();
    });
    look([&size](QDialog& editor) {
        QCOMPARE(editor.pos(), QPoint(120, 60));
        QCOMPARE(editor.size(), size);
    });
}

void PointSourceDialogTest::placeIsStoredHoweverTheEditorIsLeft_data()
{
    addWaysToLeave(true);
}

void PointSourceDialogTest::placeIsStoredHoweverTheEditorIsLeft()
{
    QFETCH(const Leaving, leaving);
    cZdroje source = stack();
    QSize size;
    edit(source, [&size, leaving](QDialog& editor) {
        editor.move(120, 60);
        size = editor.size();
        leave(editor, leaving);
    });
    const auto twips = [](int pixels) { return QString::number(pixels * 15); };
    QCOMPARE(storedPlace(harness().settings),
        QStringList({twips(60), twips(120), twips(size.width()), twips(size.height()), QStringLiteral("0")}));
}

// The last tab is forgotten at the end of the run.
void PointSourceDialogTest::nothingButThePlaceIsStored()
{
    static_cast<void>(harness().window());
    const QStringList before = harness().settings.texts().keys();
    look([](QDialog& editor) { tabs(editor).setCurrentIndex(ParametersTab); });
    QStringList stored;
    for (const QString& key : harness().settings.texts().keys()) {
        if (!before.contains(key))
            stored << key.section(QLatin1Char('/'), 0, 0);
    }
    stored.removeDuplicates();
    QCOMPARE(stored, QStringList{QStringLiteral("Form:frmBodovyZdroj")});
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::PointSourceDialogTest)

#include "point_source_dialog_test.moc"
