// The main window as it opens: caption, menu tree, columns, labels, and what is available with how many sources.
#include "window_harness.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QApplication>
#include <QFile>
#include <QFont>
#include <QFontMetrics>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>

namespace korvex {
namespace {

/// A line an item, "name|caption", submenus indented, a separator's caption "-".
void describeMenu(const QList<QAction*>& actions, const QString& indent, QStringList& lines)
{
    for (const QAction* const action : actions) {
        const QMenu* const menu = action->menu();
        const QString name = menu != nullptr ? menu->objectName() : action->objectName();
        lines << indent + name + QLatin1Char('|') + (action->isSeparator() ? QStringLiteral("-") : action->text());
        if (menu != nullptr)
            describeMenu(menu->actions(), indent + QStringLiteral("  "), lines);
    }
}

/// A line for each difference, for QCOMPARE tells of the first one only by its index.
QStringList differences(const QStringList& actual, const QStringList& expected)
{
    QStringList lines;
    for (int i = 0; i < std::max(actual.size(), expected.size()); ++i) {
        if (actual.value(i) != expected.value(i))
            lines << QStringLiteral("line %1: '%2' instead of '%3'").arg(i).arg(actual.value(i), expected.value(i));
    }
    return lines;
}

/// What cannot be chosen while the set is empty.
const QStringList dependentItems{QStringLiteral("mnuVSave"), QStringLiteral("mnuVSaveMark"), QStringLiteral("mnuVZrus"),
    QStringLiteral("mnuVZrusVybrane"), QStringLiteral("mnuVNastavZdroj"), QStringLiteral("mnuVybraneZdrojeSchranka"),
    QStringLiteral("mnuVypocetXY"), QStringLiteral("mnuVypocetVsDw0"), QStringLiteral("mnuVKontrolaDuplicit")};

const QStringList itemsHiddenInCommandLineMode{QStringLiteral("mnuVLoad"), QStringLiteral("mnuSD2"),
    QStringLiteral("mnuVSaveMark"), QStringLiteral("mnuVSave"), QStringLiteral("mnuVDelimiter1"),
    QStringLiteral("mnuSkupinyPrachu")};

}  // namespace

class MainWindowTest : public ShellTest {
    Q_OBJECT

private slots:
    void captionIsTheProductName();
    void objectNameIsTheNameOfTheForm();
    void menuTreeHasEveryItemInOrderByNameAndCaption();
    void memberNamesOfTheMenuAreTheObjectNames();
    void columnTitles();
    void columnWidthsComeFromTheSettingsInTwips();
    void columnWidthsByDefault();
    void numbersAreWholeInALargeFontUnlessTheUserChoseAWidth();
    void columnWidthTooSmallToGrabIsWidened();
    void fileFilterIsTheSameForAllThreeFiles();
    void defaultExtensionOfAllThreeFilesIsTxt();

    void listIsEmptyAtFirst();
    void statusTextAndProgressBarAreEmptyAndHiddenAtFirst();
    void listHasTheFocusAtFirst();
    void commentIsLabelled();
    void commentSelectsItsWholeTextWhenTheTabKeyBringsTheFocus();
    void commentSelectsItsWholeTextWhenAClickBringsTheFocus();
    void editingTheCommentDoesNotSetTheModifiedFlag();

    void emptySetDisablesAllDependentCommands();
    void emptySetResetsTheNextSourceNumber();
    void setWithSourcesLeavesTheNextSourceNumber();
    void oneSourceEnablesAllButTheDuplicateCheck();
    void twoSourcesEnableTheDuplicateCheckToo();
    void countLabelIsInPlainDecimal();
    void dustGroupsCommandIsVisibleOnlyWithoutTheNoDustFlag_data();
    void dustGroupsCommandIsVisibleOnlyWithoutTheNoDustFlag();
    void dustGroupsCommandFollowsTheFlagAtEachUpdate();
    void commandLineModeHidesLoadSaveAndDustGroups();
    void interactiveModeHidesNothingElse();
    void openingTheSourcesMenuUpdatesTheMenuState();

    void refillShowsOneUnmarkedRowASourceInSetOrder();
    void refillShowsAndClearsItsStatusText();
    void refillUpdatesTheMenuState();
    void longStatusTextDoesNotWidenTheWindow();
    void statusTextIsShownLetterByLetter();

    void everyFocusableWidgetHasAnAccessibleName();
    void accessibleNamesOfTheList_theCommentAndTheProgressBar();
};

void MainWindowTest::captionIsTheProductName()
{
    QCOMPARE(harness().window().windowTitle(), QStringLiteral("KORVEXv2001 - Zdroje"));
}

void MainWindowTest::objectNameIsTheNameOfTheForm()
{
    QCOMPARE(harness().window().objectName(), QStringLiteral("frmKORVEXZDR"));
}

void MainWindowTest::menuTreeHasEveryItemInOrderByNameAndCaption()
{
    const QStringList expected{
        QStringLiteral("mnuSoubor|&Soubor"),
        QStringLiteral("  mnuVLoad|&Otevři"),
        QStringLiteral("  mnuSD2|-"),
        QStringLiteral("  mnuSkupinyPrachu|Skupiny prachu"),
        QStringLiteral("  mnuMoznosti|&Možnosti"),
        QStringLiteral("  mnuSD1|-"),
        QStringLiteral("  mnuExit|&Konec"),
        QStringLiteral("mnuVybraneZdrojeZnecisteni|&Zdroje"),
        QStringLiteral("  mnuVSaveMark|Ulož označené zdroje"),
        QStringLiteral("  mnuVSave|Ulož všechny zdroje"),
        QStringLiteral("  mnuVDelimiter1|-"),
        QStringLiteral("  mnuVNovyZdrojX|Nový zdroj"),
        QStringLiteral("    mnuVBodovyZdroj|&1. Bodový zdroj"),
        QStringLiteral("    mnuVPlosnyZdroj|&2. Plošný zdroj"),
        QStringLiteral("    mnuVLiniovyZdroj|&3. Liniový zdroj"),
        QStringLiteral("  mnuVNastavZdroj|Nastav zdroj"),
        QStringLiteral("  mnuVDelimiter2|-"),
        QStringLiteral("  mnuVZrusVybrane|Zruš označené"),
        QStringLiteral("  mnuVZrus|Zruš všechny"),
        QStringLiteral("mnuVypocty|&Výpočty a kontroly"),
        QStringLiteral("  mnuVypocetXY|&Výpočet středového bodu úseku pro vybrané liniové zdroje"),
        QStringLiteral("  mnuVypocetVsDw0|&Výpočet 'Vs', 'd', 'w0' pro vybrané bodové zdroje"),
        QStringLiteral("  mnuD11|-"),
        QStringLiteral("  mnuVKontrolaDuplicit|Kontrola duplicit"),
        QStringLiteral("mnuSelect|&Označ zdroje"),
        QStringLiteral("  mnuSelectBodove|&Bodové"),
        QStringLiteral("  mnuSelectLiniove|&Liniové"),
        QStringLiteral("  mnuSelectPlosne|&Plošné"),
        QStringLiteral("  mnuD10|-"),
        QStringLiteral("  mnuVSelectAll|Označ vše"),
        QStringLiteral("  mnuVybraneZdrojeSchranka|Kopíruj do schránky"),
        QStringLiteral("mnuNapoveda|Nápo&věda"),
        QStringLiteral("  mnuNHelp|Nápověda pro KORVEXv2001 - Zdroje"),
        QStringLiteral("  mnuNDelim1|-"),
        QStringLiteral("  mnuNOAplikaci|&O aplikaci"),
    };
    QStringList actual;
    describeMenu(harness().window().menuBar()->actions(), {}, actual);
    QCOMPARE(differences(actual, expected), QStringList());
}

void MainWindowTest::memberNamesOfTheMenuAreTheObjectNames()
{
    MainMenu& menu = harness().window().menu();
    QCOMPARE(menu.mnuSoubor, &harness().menu("mnuSoubor"));
    QCOMPARE(menu.mnuVybraneZdrojeZnecisteni, &harness().menu("mnuVybraneZdrojeZnecisteni"));
    QCOMPARE(menu.mnuVNovyZdrojX, &harness().menu("mnuVNovyZdrojX"));
    QCOMPARE(menu.mnuVKontrolaDuplicit, &harness().item("mnuVKontrolaDuplicit"));
    QCOMPARE(menu.mnuSelectLiniove, &harness().item("mnuSelectLiniove"));
    QCOMPARE(menu.mnuSelectPlosne, &harness().item("mnuSelectPlosne"));
    QCOMPARE(menu.mnuNOAplikaci, &harness().item("mnuNOAplikaci"));
}

void MainWindowTest::columnTitles()
{
    const SourceListModel& model = harness().model();
    QCOMPARE(model.columnCount(), 2);
    QCOMPARE(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Zdroj"));
    QCOMPARE(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Název zdroje"));
    QVERIFY(!harness().header().isHidden());
    QVERIFY(harness().view().verticalHeader()->isHidden());
}

void MainWindowTest::columnWidthsComeFromTheSettingsInTwips()
{
    harness().settings.save(QStringLiteral("Tabulky"), QStringLiteral("Tab1Sl1"), QStringLiteral("1500"));
    harness().settings.save(QStringLiteral("Tabulky"), QStringLiteral("Tab1Sl2"), QStringLiteral("3000"));
    QCOMPARE(harness().header().sectionSize(0), 100);
    QCOMPARE(harness().header().sectionSize(1), 200);
}

void MainWindowTest::columnWidthsByDefault()
{
    QCOMPARE(harness().header().sectionSize(0), 1755 / 15);
    QCOMPARE(harness().header().sectionSize(1), 3360 / 15);
}

void MainWindowTest::numbersAreWholeInALargeFontUnlessTheUserChoseAWidth()
{
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSize(20);
    QApplication::setFont(large);
    const auto restore = qScopeGuard([&usual] { QApplication::setFont(usual); });
    const int needed = QFontMetrics(large).horizontalAdvance(QStringLiteral("000000000"));
    QVERIFY(needed > 1755 / 15);
    QVERIFY(harness().header().sectionSize(SourceListModel::NumberColumn) > needed);

    WindowHarness chosen;
    chosen.settings.save(QStringLiteral("Tabulky"), QStringLiteral("Tab1Sl1"), QStringLiteral("1500"));
    QCOMPARE(chosen.header().sectionSize(SourceListModel::NumberColumn), 100);
}

void MainWindowTest::columnWidthTooSmallToGrabIsWidened()
{
    harness().settings.save(QStringLiteral("Tabulky"), QStringLiteral("Tab1Sl1"), QStringLiteral("0"));
    harness().settings.save(QStringLiteral("Tabulky"), QStringLiteral("Tab1Sl2"), QStringLiteral("-1500"));
    const int smallest = harness().header().minimumSectionSize();
    QVERIFY(smallest > 0);
    QCOMPARE(harness().header().sectionSize(0), smallest);
    QCOMPARE(harness().header().sectionSize(1), smallest);
}

void MainWindowTest::fileFilterIsTheSameForAllThreeFiles()
{
    static_cast<void>(harness().window());
    for (const std::string& filter : harness().globals.fileFilters)
        QCOMPARE(QString::fromStdString(filter),
            QStringLiteral("Datové soubory KORVEX (*.txt)| *.txt|Všechny soubory (*.*)|*.*"));
}

void MainWindowTest::defaultExtensionOfAllThreeFilesIsTxt()
{
    static_cast<void>(harness().window());
    for (const std::string& extension : harness().globals.defaultExtensions)
        QCOMPARE(extension, std::string("txt"));
}

void MainWindowTest::listIsEmptyAtFirst()
{
    QCOMPARE(harness().model().rowCount(), 0);
    QVERIFY(harness().set().empty());
    QVERIFY(!harness().set().modified());
    QCOMPARE(harness().window().comment(), QString());
}

void MainWindowTest::statusTextAndProgressBarAreEmptyAndHiddenAtFirst()
{
    harness().show();
    QCOMPARE(harness().status().text(), QString());
    QVERIFY(!harness().find<QProgressBar>("paProgress").isVisible());
}

void MainWindowTest::listHasTheFocusAtFirst()
{
    harness().show();
    QCOMPARE(QApplication::focusWidget(), &harness().view());
}

void MainWindowTest::commentIsLabelled()
{
    const auto& comment = harness().find<QLineEdit>("tbKomentar");
    QStringList labels;
    for (const QLabel* const label : harness().window().findChildren<QLabel*>()) {
        if (label->buddy() == &comment)
            labels << label->text();
    }
    QCOMPARE(labels, QStringList{QStringLiteral("Komentář (je uložen v hlavičce datového souboru)")});
}

void MainWindowTest::commentSelectsItsWholeTextWhenTheTabKeyBringsTheFocus()
{
    harness().window().comment(QStringLiteral("Obec Čáslav"));
    harness().show();
    QTest::keyClick(&harness().view(), Qt::Key_Tab);
    auto& comment = harness().find<QLineEdit>("tbKomentar");
    QCOMPARE(QApplication::focusWidget(), &comment);
    QTRY_COMPARE(comment.selectedText(), QStringLiteral("Obec Čáslav"));
}

void MainWindowTest::commentSelectsItsWholeTextWhenAClickBringsTheFocus()
{
    harness().window().comment(QStringLiteral("Obec Čáslav"));
    harness().show();
    auto& comment = harness().find<QLineEdit>("tbKomentar");
    // To the window, for only then does the press bring the focus.
    QTest::mouseClick(
        harness().window().windowHandle(), Qt::LeftButton, {}, comment.mapTo(&harness().window(), QPoint(20, 8)));
    QCOMPARE(QApplication::focusWidget(), &comment);
    QTRY_COMPARE(comment.selectedText(), QStringLiteral("Obec Čáslav"));
}

void MainWindowTest::editingTheCommentDoesNotSetTheModifiedFlag()
{
    harness().show();
    QTest::keyClicks(&harness().find<QLineEdit>("tbKomentar"), QStringLiteral("abc"));
    QCOMPARE(harness().window().comment(), QStringLiteral("abc"));
    QVERIFY(!harness().set().modified());
}

void MainWindowTest::emptySetDisablesAllDependentCommands()
{
    for (const QString& name : dependentItems)
        QVERIFY2(!harness().find<QAction>(name.toLatin1().constData()).isEnabled(), qPrintable(name));
    QVERIFY(!harness().menu("mnuSelect").menuAction()->isEnabled());
    QVERIFY(!harness().menu("mnuVypocty").menuAction()->isEnabled());
    QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: 0"));
    for (const char* const name : {"mnuSoubor", "mnuVybraneZdrojeZnecisteni", "mnuVNovyZdrojX", "mnuNapoveda"})
        QVERIFY2(harness().menu(name).menuAction()->isEnabled(), name);
    QVERIFY(harness().item("mnuExit").isEnabled());
}

void MainWindowTest::emptySetResetsTheNextSourceNumber()
{
    harness().settings.save(QStringLiteral("Ostatni"), QStringLiteral("MinNewID"), QStringLiteral("700"));
    SourceNumberCounter& numbers = harness().window().sourceNumbers();
    QCOMPARE(numbers.last(), 700);
    QCOMPARE(numbers.next().value_or(0), 701);
    QCOMPARE(numbers.next().value_or(0), 702);
    harness().window().updateMenuState();
    QCOMPARE(numbers.last(), 700);
}

void MainWindowTest::setWithSourcesLeavesTheNextSourceNumber()
{
    SourceNumberCounter& numbers = harness().window().sourceNumbers();
    QCOMPARE(numbers.next().value_or(0), 50001);
    harness().fillWithNumbers({60000});
    QCOMPARE(numbers.last(), 50001);
}

void MainWindowTest::oneSourceEnablesAllButTheDuplicateCheck()
{
    harness().fillWithNumbers({7});
    for (const char* const name :
        {"mnuVZrus", "mnuVZrusVybrane", "mnuSelectBodove", "mnuSelectLiniove", "mnuSelectPlosne", "mnuVSelectAll"})
        QVERIFY2(harness().item(name).isEnabled(), name);
    QVERIFY(harness().menu("mnuSelect").menuAction()->isEnabled());
    QVERIFY(harness().menu("mnuVypocty").menuAction()->isEnabled());
    QVERIFY(!harness().item("mnuVKontrolaDuplicit").isEnabled());
    QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: 1"));
}

void MainWindowTest::twoSourcesEnableTheDuplicateCheckToo()
{
    harness().fillWithNumbers({7, 8});
    QVERIFY(harness().item("mnuVKontrolaDuplicit").isEnabled());
    QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: 2"));
}

void MainWindowTest::countLabelIsInPlainDecimal()
{
    for (int i = 0; i < 1234; ++i)
        harness().append(cLiniovyZdroj, i);
    harness().window().refill();
    QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: 1234"));
}

void MainWindowTest::dustGroupsCommandIsVisibleOnlyWithoutTheNoDustFlag_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("visible");
    QTest::newRow("first start") << QString() << false;
    QTest::newRow("1") << QStringLiteral("1") << false;
    QTest::newRow("0") << QStringLiteral("0") << true;
}

void MainWindowTest::dustGroupsCommandIsVisibleOnlyWithoutTheNoDustFlag()
{
    QFETCH(const QString, stored);
    QFETCH(const bool, visible);
    if (!stored.isEmpty())
        harness().settings.save(QStringLiteral("Ostatni"), QStringLiteral("NoPrach"), stored);
    QCOMPARE(harness().item("mnuSkupinyPrachu").isVisible(), visible);
}

void MainWindowTest::dustGroupsCommandFollowsTheFlagAtEachUpdate()
{
    QVERIFY(!harness().item("mnuSkupinyPrachu").isVisible());
    harness().globals.noDust = 0;
    harness().window().updateMenuState();
    QVERIFY(harness().item("mnuSkupinyPrachu").isVisible());
    harness().globals.noDust = 1;
    harness().window().updateMenuState();
    QVERIFY(!harness().item("mnuSkupinyPrachu").isVisible());
}

void MainWindowTest::commandLineModeHidesLoadSaveAndDustGroups()
{
    harness().settings.save(QStringLiteral("Ostatni"), QStringLiteral("NoPrach"), QStringLiteral("0"));
    harness().fillWithNumbers({1, 2});
    harness().globals.commandLineMode = true;
    harness().window().updateMenuState();
    QStringList hidden;
    for (const QAction* const action : harness().window().findChildren<QAction*>()) {
        if (action->objectName().startsWith(QLatin1String("mnu")) && !action->isVisible())
            hidden << action->objectName();
    }
    hidden.sort();
    QStringList expected = itemsHiddenInCommandLineMode;
    expected.sort();
    QCOMPARE(hidden, expected);
}

void MainWindowTest::interactiveModeHidesNothingElse()
{
    QStringList hidden;
    for (const QAction* const action : harness().window().findChildren<QAction*>()) {
        if (action->objectName().startsWith(QLatin1String("mnu")) && !action->isVisible())
            hidden << action->objectName();
    }
    QCOMPARE(hidden, QStringList{QStringLiteral("mnuSkupinyPrachu")});
}

void MainWindowTest::openingTheSourcesMenuUpdatesTheMenuState()
{
    harness().show();
    harness().append(cBodovyZdroj, 1);
    harness().append(cBodovyZdroj, 2);
    QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: 0"));
    QMenu& menu = harness().menu("mnuVybraneZdrojeZnecisteni");
    menu.popup(harness().window().mapToGlobal(QPoint(10, 10)));
    QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: 2"));
    QVERIFY(harness().item("mnuVZrus").isEnabled());
    QVERIFY(harness().item("mnuVKontrolaDuplicit").isEnabled());
    menu.close();
}

void MainWindowTest::refillShowsOneUnmarkedRowASourceInSetOrder()
{
    harness().fillWithNumbers({3, 1, 2});
    harness().mark(QStringLiteral("X-X"));
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().append(cPlosnyZdroj, 9);
    harness().window().refill();
    QCOMPARE(harness().numberColumn(),
        QStringList({QStringLiteral("000000003"), QStringLiteral("000000001"), QStringLiteral("000000002"),
            QStringLiteral("000000009")}));
    QCOMPARE(harness().marks(), QStringLiteral("----"));
    QVERIFY(!harness().header().isSortIndicatorShown());
}

void MainWindowTest::refillShowsAndClearsItsStatusText()
{
    harness().show();
    const StatusSpy spy(harness().window());
    harness().window().refill();
    QCOMPARE(harness().status().text(), QString());
    harness().window().showStatus(QStringLiteral("Hotovo"));
    QCOMPARE(spy.texts(), QStringList({QStringLiteral("Zobrazuji zdroje…"), QString(), QStringLiteral("Hotovo")}));
}

void MainWindowTest::refillUpdatesTheMenuState()
{
    harness().append(cBodovyZdroj, 1);
    harness().window().refill();
    QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: 1"));
    QVERIFY(harness().item("mnuVZrus").isEnabled());
}

void MainWindowTest::longStatusTextDoesNotWidenTheWindow()
{
    harness().show();
    const QSize before = harness().window().size();
    harness().window().showStatus(QStringLiteral("Otevírám ") + QString(2000, QLatin1Char('x')));
    QCoreApplication::processEvents();
    QCOMPARE(harness().window().size(), before);
    QVERIFY(harness().window().minimumSizeHint().width() <= before.width());
}

void MainWindowTest::statusTextIsShownLetterByLetter()
{
    harness().window().showStatus(QStringLiteral("<b>a</b> & b"));
    QCOMPARE(harness().status().text(), QStringLiteral("<b>a</b> & b"));
    QCOMPARE(harness().status().textFormat(), Qt::PlainText);
}

void MainWindowTest::everyFocusableWidgetHasAnAccessibleName()
{
    harness().show();
    QStringList nameless;
    int focusable = 0;
    for (QWidget* const widget : harness().window().findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->focusProxy() != nullptr)
            continue;
        ++focusable;
        const QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(widget);
        if (interface == nullptr || interface->text(QAccessible::Name).isEmpty())
            nameless << QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') + widget->objectName();
    }
    QCOMPARE(nameless, QStringList());
    QVERIFY2(focusable >= 2, "the list and the comment at least");
}

void MainWindowTest::accessibleNamesOfTheList_theCommentAndTheProgressBar()
{
    const auto name = [](QWidget& widget) {
        const QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&widget);
        return interface == nullptr ? QString() : interface->text(QAccessible::Name);
    };
    QCOMPARE(name(harness().view()), QStringLiteral("Seznam zdrojů"));
    QCOMPARE(name(harness().find<QLineEdit>("tbKomentar")),
        QStringLiteral("Komentář (je uložen v hlavičce datového souboru)"));
    QCOMPARE(name(harness().find<QProgressBar>("paProgress")), QStringLiteral("Průběh"));
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::MainWindowTest)

#include "main_window_test.moc"
