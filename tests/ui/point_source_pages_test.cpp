// The pages of the point source editor: which one opens, where the focus goes, and the dust, also when it is off.
#include "dust_panel.h"
#include "point_source_test.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QTabBar>

#include <utility>

namespace korvex {
namespace {

void clickTab(const QWidget& editor, EditorTab tab)
{
    const QTabBar& bar = *tabs(editor).tabBar();
    const QPoint place = bar.mapTo(&editor, bar.tabRect(tab).center());
    QTest::mouseClick(editor.windowHandle(), Qt::LeftButton, {}, place);
}

}  // namespace

class PointSourcePagesTest : public PointSourceTest {
    Q_OBJECT

private slots:
    void tabIsRememberedHoweverTheEditorIsLeft_data();
    void tabIsRememberedHoweverTheEditorIsLeft();
    void tabIsSharedWithTheEditorsOfOtherTypes();
    void tabKeyGoesDownAPageAndThenToTheButtons_data();
    void tabKeyGoesDownAPageAndThenToTheButtons();

    void firstFieldOfTheOpenedTabHasTheFocus_data();
    void firstFieldOfTheOpenedTabHasTheFocus();
    void clickedTabHasTheFocusInItsFirstField();
    void pagesAreTurnedByKeysFromAnyField();
    void notePageIsPassedWithoutLosingTheFields_data();
    void notePageIsPassedWithoutLosingTheFields();
    void arrowKeysOnTheTabsGoOnTurningThem();

    void withDustOffTheTabShowsOnlyTheNote();
    void withDustOnTheTabShowsOnlyThePanel();
    void withDustOffTheDustSurvivesOk_data();
    void withDustOffTheDustSurvivesOk();
    void particleIsAddedByEnterAndStoredOnOk();
    void chosenGroupIsStoredOnOk();
    void groupsEditedFromTheEditorAreTheCurrentOnes();
    void dustGroupsPathIsTakenBackHoweverTheEditorIsLeft_data();
    void dustGroupsPathIsTakenBackHoweverTheEditorIsLeft();
    void dustGroupsPathStaysWhenTheFileCouldNotBeRead_data();
    void dustGroupsPathStaysWhenTheFileCouldNotBeRead();

private:
    std::string groupsFile(const char* name = "skupiny.spr")
    {
        return harness().writeFile(
            QString::fromLatin1(name), {QStringLiteral(";k"), QStringLiteral("3,1,10,1;Škvára")});
    }
};

void PointSourcePagesTest::tabIsRememberedHoweverTheEditorIsLeft_data()
{
    addWaysToLeave(true);
}

void PointSourcePagesTest::tabIsRememberedHoweverTheEditorIsLeft()
{
    QFETCH(const Leaving, leaving);
    cZdroje source = stack();
    edit(source, [leaving](QDialog& editor) {
        QCOMPARE(tabs(editor).currentIndex(), static_cast<int>(DescriptionTab));
        tabs(editor).setCurrentIndex(ParametersTab);
        leave(editor, leaving);
    });
    QCOMPARE(harness().globals.lastEditorTab, static_cast<int>(ParametersTab));
    look([](QDialog& editor) { QCOMPARE(tabs(editor).currentIndex(), static_cast<int>(ParametersTab)); });
}

void PointSourcePagesTest::tabIsSharedWithTheEditorsOfOtherTypes()
{
    cZdroje area(cPlosnyZdroj);
    SourceWindows windows(harness().window().shell(), harness().set(), harness().window());
    harness().dialogs.useNext(QStringLiteral("frmPlosnyZdroj"), [](QDialog& editor) {
        tabs(editor).setCurrentIndex(ParametersTab);
        press(editor, "cbStorno");
    });
    area.Edit(windows);
    look([](QDialog& editor) { QCOMPARE(tabs(editor).currentIndex(), static_cast<int>(ParametersTab)); });
}

void PointSourcePagesTest::tabKeyGoesDownAPageAndThenToTheButtons_data()
{
    QTest::addColumn<EditorTab>("tab");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("order");
    // The bar of tabs has the toolkit's own name.
    const auto row = [](EditorTab tab, const char* name, const char* order) {
        const QString names = QLatin1String(order) + QStringLiteral(" cbOK cbStorno cbHelp qt_tabwidget_tabbar");
        QTest::newRow(name) << tab << names.section(QLatin1Char(' '), 0, 0) << names;
    };
    row(DescriptionTab, "Popis", "txtCisloZdroje txtCisloKomina txtNazevZdroje txtSkupina txtShluk txtX txtY txtZ");
    row(ParametersTab, "Parametry",
        "tPar0 tPar1 tPar2 tPar3 tPar4 tPar5 tPar6 tPar7 cmdCalcVs cmdCalcD cmdCalcW0 cmdNastavitTlak");
    row(DustTab, "Prach", "txtHustota cboPrachoveSkupiny cmdSkupinyPrachu lsvPrach txtPrumer txtZastoupeni cmdAdd");
}

void PointSourcePagesTest::tabKeyGoesDownAPageAndThenToTheButtons()
{
    QFETCH(const EditorTab, tab);
    QFETCH(const QString, first);
    QFETCH(const QString, order);
    globals().noDust = 0;
    lookActive(tab, [&](QDialog& editor) {
        field(editor, first.toLatin1().constData()).setFocus();
        QCOMPARE(tabOrder().join(QLatin1Char(' ')), order);
    });
}

void PointSourcePagesTest::firstFieldOfTheOpenedTabHasTheFocus_data()
{
    QTest::addColumn<EditorTab>("tab");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("selected");
    // Not the source number above the name, which cannot be typed.
    QTest::newRow("Popis") << DescriptionTab << QStringLiteral("txtNazevZdroje") << QStringLiteral("Kotelna Říčany");
    QTest::newRow("Parametry") << ParametersTab << QStringLiteral("tPar0") << QStringLiteral("1.5");
    QTest::newRow("Prach") << DustTab << QStringLiteral("txtHustota") << QStringLiteral("2500");
}

void PointSourcePagesTest::firstFieldOfTheOpenedTabHasTheFocus()
{
    QFETCH(const EditorTab, tab);
    QFETCH(const QString, name);
    QFETCH(const QString, selected);
    globals().noDust = 0;
    decimalSeparator(".");
    lookActive(tab, [&](QDialog& editor) {
        QCOMPARE(tabs(editor).currentIndex(), static_cast<int>(tab));
        QCOMPARE(focusName(), name);
        QTRY_COMPARE(field(editor, name.toLatin1().constData()).selectedText(), selected);
    });
}

void PointSourcePagesTest::clickedTabHasTheFocusInItsFirstField()
{
    globals().noDust = 0;
    lookActive(DescriptionTab, [](QDialog& editor) {
        const std::pair<EditorTab, const char*> pages[]{
            {DustTab, "txtHustota"}, {ParametersTab, "tPar0"}, {DescriptionTab, "txtNazevZdroje"}};
        for (const auto& [tab, name] : pages) {
            clickTab(editor, tab);
            QCOMPARE(tabs(editor).currentIndex(), static_cast<int>(tab));
            QCOMPARE(focusName(), QLatin1String(name));
        }
    });
}

void PointSourcePagesTest::pagesAreTurnedByKeysFromAnyField()
{
    globals().noDust = 0;
    lookActive(DescriptionTab, [](QDialog& editor) {
        QStringList turned;
        const auto turn = [&](Qt::Key key) {
            QTest::keyClick(QApplication::focusWidget(), key, Qt::ControlModifier);
            turned << tabs(editor).tabText(tabs(editor).currentIndex()) + QLatin1Char(' ') + focusName();
        };
        for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_PageUp})
            turn(key);
        QCOMPARE(turned,
            QStringList({QStringLiteral("Parametry tPar0"), QStringLiteral("Prach txtHustota"),
                QStringLiteral("Popis txtNazevZdroje"), QStringLiteral("Prach txtHustota"),
                QStringLiteral("Parametry tPar0")}));
    });
}

// The page with the note has no field to type into: passing it must not end the typing on the pages behind it.
void PointSourcePagesTest::notePageIsPassedWithoutLosingTheFields_data()
{
    QTest::addColumn<bool>("byKeys");
    QTest::newRow("keys") << true;
    QTest::newRow("mouse") << false;
}

void PointSourcePagesTest::notePageIsPassedWithoutLosingTheFields()
{
    QFETCH(const bool, byKeys);
    globals().noDust = 1;
    lookActive(ParametersTab, [byKeys](QDialog& editor) {
        for (const EditorTab tab : {DustTab, DescriptionTab}) {
            if (byKeys)
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown, Qt::ControlModifier);
            else
                clickTab(editor, tab);
            QCOMPARE(tabs(editor).currentIndex(), static_cast<int>(tab));
        }
        QCOMPARE(focusName(), QStringLiteral("txtNazevZdroje"));
    });
}

void PointSourcePagesTest::arrowKeysOnTheTabsGoOnTurningThem()
{
    lookActive(DescriptionTab, [](QDialog& editor) {
        tabs(editor).tabBar()->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        QCOMPARE(tabs(editor).currentIndex(), static_cast<int>(ParametersTab));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        QCOMPARE(tabs(editor).currentIndex(), static_cast<int>(DustTab));
        QVERIFY(tabs(editor).tabBar()->hasFocus());
    });
}

void PointSourcePagesTest::withDustOffTheTabShowsOnlyTheNote()
{
    globals().noDust = 1;
    lookActive(DustTab, [](QDialog& editor) {
        QCOMPARE(tabs(editor).tabText(DustTab), QStringLiteral("(Prach)"));
        const QLabel& note = child<QLabel>(editor, "Label1");
        QCOMPARE(note.text(), QStringLiteral("Použití prachu bylo vypnuto v okně Soubor / Možnosti…"));
        QStringList shown;
        for (const QWidget* const widget : tabs(editor).widget(DustTab)->findChildren<QWidget*>()) {
            if (widget->isVisible())
                shown << widget->objectName();
        }
        QCOMPARE(shown, QStringList{QStringLiteral("Label1")});
        // The keyboard still works the editor.
        QVERIFY(QApplication::focusWidget() != nullptr && QApplication::focusWidget()->isVisible());
    });
}

void PointSourcePagesTest::withDustOnTheTabShowsOnlyThePanel()
{
    globals().noDust = 0;
    lookActive(DustTab, [](QDialog& editor) {
        QCOMPARE(tabs(editor).tabText(DustTab), QStringLiteral("Prach"));
        QVERIFY(!child<QLabel>(editor, "Label1").isVisible());
        QVERIFY(child<QWidget>(editor, "uscPrach1").isVisible());
        QCOMPARE(field(editor, "txtHustota").text(), QStringLiteral("2500"));
    });
}

void PointSourcePagesTest::withDustOffTheDustSurvivesOk_data()
{
    QTest::addColumn<QString>("dust");
    for (const char* const dust : {"2500,3", "2500,0,2,10,0.6,50,0.4", "0,0,0"})
        QTest::newRow(dust) << QString::fromLatin1(dust);
}

void PointSourcePagesTest::withDustOffTheDustSurvivesOk()
{
    QFETCH(const QString, dust);
    globals().noDust = 1;
    globals().dustGroupsPath = groupsFile();
    cZdroje source = stack();
    source.LineDust(dust.toStdString());
    QVERIFY(edit(source, [](QDialog& editor) { press(editor, "cbOK"); }));
    QCOMPARE(QString::fromStdString(source.LineDust()), QStringLiteral("000000042,") + dust);
}

void PointSourcePagesTest::particleIsAddedByEnterAndStoredOnOk()
{
    harness().show();
    globals().noDust = 0;
    globals().lastEditorTab = DustTab;
    cZdroje source = stack();
    QVERIFY(edit(source, [](QDialog& editor) {
        QVERIFY(waitUntilActive(editor));
        setText(editor, "txtPrumer", QStringLiteral("100"));
        setText(editor, "txtZastoupeni", QStringLiteral("1"));
        field(editor, "txtZastoupeni").setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(editor.isVisible());
        QCOMPARE(focusName(), QStringLiteral("txtPrumer"));
        press(editor, "cbOK");
    }));
    QCOMPARE(QString::fromStdString(source.LineDust()), QStringLiteral("000000042,2500,0,3,10,0.6,50,0.4,100,1"));
}

void PointSourcePagesTest::chosenGroupIsStoredOnOk()
{
    globals().noDust = 0;
    globals().dustGroupsPath = groupsFile();
    cZdroje source = stack();
    QVERIFY(edit(source, [](QDialog& editor) {
        child<QComboBox>(editor, "cboPrachoveSkupiny").setCurrentIndex(1);
        press(editor, "cbOK");
    }));
    QCOMPARE(QString::fromStdString(source.LineDust()), QStringLiteral("000000042,2500,3"));
}

void PointSourcePagesTest::groupsEditedFromTheEditorAreTheCurrentOnes()
{
    globals().noDust = 0;
    globals().dustGroupsPath = groupsFile();
    const std::string other = groupsFile("jine.spr");
    look([&](QDialog& editor) {
        harness().dialogs.useNext(QStringLiteral("frmSkupinyPrachu"), [&](QDialog& groups) {
            harness().chooser.answerNext(QFile::decodeName(other.c_str()));
            press(groups, "cmdOpenFile");
            groups.reject();
        });
        press(editor, "cmdSkupinyPrachu");
    });
    QCOMPARE(globals().dustGroupsPath, other);
    look([](QDialog& editor) {
        QVERIFY(child<QPushButton>(editor, "cmdSkupinyPrachu").toolTip().contains(QStringLiteral("jine.spr")));
    });
}

void PointSourcePagesTest::dustGroupsPathIsTakenBackHoweverTheEditorIsLeft_data()
{
    addWaysToLeave(true);
}

void PointSourcePagesTest::dustGroupsPathIsTakenBackHoweverTheEditorIsLeft()
{
    QFETCH(const Leaving, leaving);
    globals().noDust = 0;
    const std::string first = groupsFile();
    const std::string second = groupsFile("jine.spr");
    globals().dustGroupsPath = first;
    cZdroje source = stack();
    edit(source, [&](QDialog& editor) {
        auto& panel = child<uscPrach>(editor, "uscPrach1");
        QCOMPARE(panel.SouborSkupinyPrachu(), first);
        QCOMPARE(child<QComboBox>(editor, "cboPrachoveSkupiny").count(), 2);
        panel.SouborSkupinyPrachu(second);
        QCOMPARE(globals().dustGroupsPath, first);
        leave(editor, leaving);
    });
    QCOMPARE(globals().dustGroupsPath, second);
}

void PointSourcePagesTest::dustGroupsPathStaysWhenTheFileCouldNotBeRead_data()
{
    addWaysToLeave(true);
}

void PointSourcePagesTest::dustGroupsPathStaysWhenTheFileCouldNotBeRead()
{
    QFETCH(const Leaving, leaving);
    const QString missing = harness().path(QStringLiteral("chybi.spr"));
    globals().dustGroupsPath = QFile::encodeName(missing).toStdString();
    harness().boxes.answerNext(BoxAnswer::Ok);
    cZdroje source = stack();
    edit(source, [leaving](QDialog& editor) { leave(editor, leaving); });
    QCOMPARE(QFile::decodeName(globals().dustGroupsPath.c_str()), missing);
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(harness().boxes.shown().first().title, QStringLiteral("Čtení skupin prachu ze souboru"));
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::PointSourcePagesTest)

#include "point_source_pages_test.moc"
