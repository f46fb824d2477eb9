// The options dialog: its texts, what its choices show at opening and what Ok makes of them.
#include "dialog_checks.h"
#include "window_harness.h"

#include "version.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include <functional>

namespace korvex {
namespace {

const QString runTimeError = QStringLiteral("Chyba při běhu programu");

void press(QDialog& dialog, const char* button)
{
    child<QAbstractButton>(dialog, button).click();
}

QLineEdit& startNumber(QDialog& dialog)
{
    return child<QLineEdit>(dialog, "tbMinNewID");
}

}  // namespace

class OptionsDialogTest : public ShellTest {
    Q_OBJECT

private slots:
    void titleTabsCaptionsAndToolTips();
    void programNameVersionAndLegalNoticeAreShown();
    void controlsStandOnTheirTabs();
    void dialogIsModalToItsOwnerOnly();

    void firstStartShowsTheDefaults();
    void controlsShowTheSettings();
    void startNumberIsShownInPlainDecimal_data();
    void startNumberIsShownInPlainDecimal();

    void startNumberIsTheLeadingNumberWithoutItsSign_data();
    void startNumberIsTheLeadingNumberWithoutItsSign();
    void startNumberBeyondTheRangeIsARunTimeErrorAndLeavesTheDialogOpen_data();
    void startNumberBeyondTheRangeIsARunTimeErrorAndLeavesTheDialogOpen();
    void raisingTakesEffectAtOnce();
    void loweringTakesEffectWhenTheSetBecomesEmpty();
    void sameNumberLeavesTheCounter();
    void emptySetTakesALoweredNumberAtOnce();
    void textWithoutDigitsMakesTheNextNewSourceOneOnceTheSetIsEmpty();

    void acceptingMissingDescriptionsIsTakenOver_data();
    void acceptingMissingDescriptionsIsTakenOver();
    void noDustIsTakenOver_data();
    void noDustIsTakenOver();
    void dustGroupsCommandAppearsAfterNoDustIsCleared();
    void noDustReachesTheLoadDialog();
    void noDustIsHiddenInCommandLineModeWithoutADustGroupsFile_data();
    void noDustIsHiddenInCommandLineModeWithoutADustGroupsFile();
    void okInCommandLineModeKeepsTheHiddenNoDust();

    void stornoChangesNothing_data();
    void stornoChangesNothing();
    void valuesAreStoredOnlyWhenTheProgramEnds();
    void placementIsNotStored();

    void startNumberHasTheFocusAtFirstAndIsSelected();
    void startNumberSelectsItsTextWhenAClickBringsTheFocus();
    void tabKeyGoesFromTopToBottom();
    void mnemonicsAreUnique();
    void everyFocusableWidgetHasAName();
    void okIsTheOnlyDefaultButton();
    void enterConfirms();
    void helpButtonSendsF1AndLeavesTheDialogOpen();

private:
    void inDialog(std::function<void(QDialog&)> use)
    {
        harness().dialogs.useNext(QStringLiteral("frmOptions"), std::move(use));
        harness().item("mnuMoznosti").trigger();
    }
    void confirm(const QString& number)
    {
        inDialog([&](QDialog& dialog) {
            startNumber(dialog).setText(number);
            press(dialog, "cmdOk");
        });
    }
    void setting(const char* section, const char* key, const char* text)
    {
        harness().settings.save(QLatin1String(section), QLatin1String(key), QLatin1String(text));
    }
    SourceNumberCounter& counter() { return harness().window().sourceNumbers(); }
};

void OptionsDialogTest::titleTabsCaptionsAndToolTips()
{
    inDialog([](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Možnosti"));
        const auto* const tabs = dialog.findChild<QTabWidget*>();
        QVERIFY(tabs != nullptr);
        QCOMPARE(tabs->count(), 2);
        QCOMPARE(tabs->tabText(0), QStringLiteral("Obecné"));
        QCOMPARE(tabs->tabText(1), QStringLiteral("Soubory"));
        QCOMPARE(tabs->currentIndex(), 0);
        QCOMPARE(captionOf(dialog, startNumber(dialog)),
            QStringLiteral("Počáteční hodnota čísla manuálně zadávaných stanic (standardně 50000)."));
        QCOMPARE(startNumber(dialog).toolTip(), QString());
        QCOMPARE(child<QCheckBox>(dialog, "chbNoPrach").text(), QStringLiteral("Nenabízej možnost práce s prachem"));
        QCOMPARE(child<QCheckBox>(dialog, "chbNoPrach").toolTip(),
            QStringLiteral("Pokud nepracujete s prachem zatrhněte tuto volbu."));
        // With the blank at its end.
        QCOMPARE(child<QCheckBox>(dialog, "chZaradit").text(),
            QStringLiteral("Při čtení zdrojů ze souboru akceptovat i zdroje s chybějícím popisem. "));
        QCOMPARE(child<QCheckBox>(dialog, "chZaradit").toolTip(), QString());
        QCOMPARE(child<QPushButton>(dialog, "cmdOk").toolTip(), QStringLiteral("Zpět s provedením změn"));
        QCOMPARE(child<QPushButton>(dialog, "Storno").text(), QStringLiteral("&Storno"));
        QCOMPARE(child<QPushButton>(dialog, "Storno").toolTip(), QStringLiteral("Zpět bez provedení změn"));
        QCOMPARE(child<QPushButton>(dialog, "cbHelp").text(), QStringLiteral("&Nápověda"));
        QCOMPARE(child<QPushButton>(dialog, "cbHelp").toolTip(), QStringLiteral("Nápověda k programu"));
        press(dialog, "Storno");
    });
}

void OptionsDialogTest::programNameVersionAndLegalNoticeAreShown()
{
    inDialog([](QDialog& dialog) {
        QCOMPARE(child<QLabel>(dialog, "lblNazev").text(), QStringLiteral("KORVEXv2001 - Zdroje"));
        QCOMPARE(child<QLabel>(dialog, "lblVerze").text(),
            QStringLiteral("Verze %1.%2.%3").arg(version::major).arg(version::minor).arg(version::revision));
        QCOMPARE(child<QLabel>(dialog, "lblVerze").text(), QStringLiteral("Verze ") + QLatin1String(version::number));
        QCOMPARE(child<QLabel>(dialog, "lblCopyright").text(), QString::fromUtf8(version::legalNotice));
        for (const char* const name : {"lblNazev", "lblVerze", "lblCopyright"})
            QVERIFY(child<QLabel>(dialog, name).isVisible());
        press(dialog, "Storno");
    });
}

void OptionsDialogTest::controlsStandOnTheirTabs()
{
    inDialog([](QDialog& dialog) {
        auto* const tabs = dialog.findChild<QTabWidget*>();
        QVERIFY(tabs != nullptr);
        QVERIFY(tabs->widget(0)->isAncestorOf(&startNumber(dialog)));
        QVERIFY(tabs->widget(0)->isAncestorOf(&child<QWidget>(dialog, "chbNoPrach")));
        QVERIFY(tabs->widget(1)->isAncestorOf(&child<QWidget>(dialog, "chZaradit")));
        QVERIFY(!child<QWidget>(dialog, "chZaradit").isVisible());
        tabs->setCurrentIndex(1);
        QVERIFY(child<QWidget>(dialog, "chZaradit").isVisible());
        press(dialog, "Storno");
    });
}

void OptionsDialogTest::dialogIsModalToItsOwnerOnly()
{
    inDialog([this](QDialog& dialog) {
        QVERIFY(dialog.isModal());
        // The help window takes input beside it.
        QCOMPARE(dialog.windowModality(), Qt::WindowModal);
        QCOMPARE(dialog.parentWidget(), &harness().window());
        press(dialog, "Storno");
    });
}

void OptionsDialogTest::firstStartShowsTheDefaults()
{
    inDialog([](QDialog& dialog) {
        QCOMPARE(startNumber(dialog).text(), QStringLiteral("50000"));
        QVERIFY(child<QCheckBox>(dialog, "chbNoPrach").isChecked());
        QVERIFY(child<QCheckBox>(dialog, "chZaradit").isChecked());
        press(dialog, "Storno");
    });
}

void OptionsDialogTest::controlsShowTheSettings()
{
    setting("Ostatni", "MinNewID", "70000");
    setting("Ostatni", "NoPrach", "0");
    setting("Soubory", "ZdrojeBezPopisu", "False");
    inDialog([](QDialog& dialog) {
        QCOMPARE(startNumber(dialog).text(), QStringLiteral("70000"));
        QVERIFY(!child<QCheckBox>(dialog, "chbNoPrach").isChecked());
        QVERIFY(!child<QCheckBox>(dialog, "chZaradit").isChecked());
        press(dialog, "Storno");
    });
}

void OptionsDialogTest::startNumberIsShownInPlainDecimal_data()
{
    QTest::addColumn<QString>("stored");
    QTest::newRow("0") << QStringLiteral("0");
    QTest::newRow("many digits") << QStringLiteral("1234567890");
    QTest::newRow("negative") << QStringLiteral("-5");
}

void OptionsDialogTest::startNumberIsShownInPlainDecimal()
{
    QFETCH(const QString, stored);
    setting("Ostatni", "MinNewID", qPrintable(stored));
    inDialog([&](QDialog& dialog) {
        QCOMPARE(startNumber(dialog).text(), stored);
        press(dialog, "Storno");
    });
}

void OptionsDialogTest::startNumberIsTheLeadingNumberWithoutItsSign_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("number");
    QTest::newRow("plain") << QStringLiteral("60000") << 60000;
    QTest::newRow("minus") << QStringLiteral("-60000") << 60000;
    QTest::newRow("plus") << QStringLiteral("+60000") << 60000;
    QTest::newRow("letters") << QStringLiteral("abc") << 0;
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("blanks") << QStringLiteral("  ") << 0;
    QTest::newRow("zero") << QStringLiteral("0") << 0;
    QTest::newRow("letters behind") << QStringLiteral("123abc4") << 123;
    QTest::newRow("blanks inside") << QStringLiteral(" 60 000 ") << 60000;
    QTest::newRow("half to the even number below") << QStringLiteral("2.5") << 2;
    QTest::newRow("half to the even number above") << QStringLiteral("3.5") << 4;
    QTest::newRow("negative half") << QStringLiteral("-2.5") << 2;
    QTest::newRow("less than a half") << QStringLiteral("2.49") << 2;
    QTest::newRow("more than a half") << QStringLiteral("2.51") << 3;
    QTest::newRow("exponent") << QStringLiteral("6E4") << 60000;
    QTest::newRow("a comma ends the number") << QStringLiteral("2,9") << 2;
    QTest::newRow("more than the counter takes") << QStringLiteral("100000") << 100000;
    QTest::newRow("the largest number") << QStringLiteral("2147483647") << 2147483647;
    QTest::newRow("the largest number, negative") << QStringLiteral("-2147483647") << 2147483647;
}

void OptionsDialogTest::startNumberIsTheLeadingNumberWithoutItsSign()
{
    QFETCH(const QString, typed);
    QFETCH(const int, number);
    confirm(typed);
    QCOMPARE(harness().globals.minNewId, number);
    inDialog([number](QDialog& dialog) {
        QCOMPARE(startNumber(dialog).text(), QString::number(number));
        press(dialog, "Storno");
    });
}

void OptionsDialogTest::startNumberBeyondTheRangeIsARunTimeErrorAndLeavesTheDialogOpen_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("eleven digits") << QStringLiteral("99999999999");
    QTest::newRow("one too many") << QStringLiteral("2147483648");
    QTest::newRow("the smallest number") << QStringLiteral("-2147483648");
    QTest::newRow("beyond any real") << QStringLiteral("1E999");
    QTest::newRow("hundreds of digits") << QString(400, QLatin1Char('9'));
}

void OptionsDialogTest::startNumberBeyondTheRangeIsARunTimeErrorAndLeavesTheDialogOpen()
{
    QFETCH(const QString, typed);
    harness().fillWithNumbers({7});
    const std::int32_t last = counter().last();
    harness().boxes.answerNext(BoxAnswer::Ok);
    inDialog([&](QDialog& dialog) {
        startNumber(dialog).setText(typed);
        child<QCheckBox>(dialog, "chbNoPrach").setChecked(false);
        child<QCheckBox>(dialog, "chZaradit").setChecked(false);
        press(dialog, "cmdOk");
        QCOMPARE(harness().boxes.shown().size(), 1);
        QCOMPARE(harness().boxes.shown().first().title, runTimeError);
        QCOMPARE(harness().boxes.shown().first().icon, BoxIcon::Critical);
        QVERIFY(dialog.isVisible());
        QCOMPARE(startNumber(dialog).text(), typed);
        press(dialog, "Storno");
    });
    QCOMPARE(harness().globals.minNewId, 50000);
    QCOMPARE(harness().globals.noDust, 1);
    QVERIFY(harness().globals.acceptMissingDescription);
    QCOMPARE(counter().last(), last);
}

void OptionsDialogTest::raisingTakesEffectAtOnce()
{
    harness().fillWithNumbers({7});
    confirm(QStringLiteral("60000"));
    QCOMPARE(counter().next().value_or(0), 60001);
}

void OptionsDialogTest::loweringTakesEffectWhenTheSetBecomesEmpty()
{
    harness().fillWithNumbers({7});
    QCOMPARE(counter().next().value_or(0), 50001);
    confirm(QStringLiteral("100"));
    QCOMPARE(counter().next().value_or(0), 50002);
    harness().mark(QStringLiteral("X"));
    harness().item("mnuVZrusVybrane").trigger();
    QCOMPARE(counter().next().value_or(0), 101);
}

void OptionsDialogTest::sameNumberLeavesTheCounter()
{
    harness().fillWithNumbers({7});
    QCOMPARE(counter().next().value_or(0), 50001);
    confirm(QStringLiteral("50000"));
    QCOMPARE(counter().next().value_or(0), 50002);
}

void OptionsDialogTest::emptySetTakesALoweredNumberAtOnce()
{
    confirm(QStringLiteral("100"));
    QCOMPARE(counter().next().value_or(0), 101);
}

void OptionsDialogTest::textWithoutDigitsMakesTheNextNewSourceOneOnceTheSetIsEmpty()
{
    harness().fillWithNumbers({7});
    confirm(QStringLiteral("abc"));
    QCOMPARE(counter().last(), 50000);
    harness().mark(QStringLiteral("X"));
    harness().item("mnuVZrusVybrane").trigger();
    QCOMPARE(counter().next().value_or(0), 1);
}

void OptionsDialogTest::acceptingMissingDescriptionsIsTakenOver_data()
{
    QTest::addColumn<bool>("accept");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void OptionsDialogTest::acceptingMissingDescriptionsIsTakenOver()
{
    QFETCH(const bool, accept);
    setting("Soubory", "ZdrojeBezPopisu", accept ? "False" : "True");
    inDialog([accept](QDialog& dialog) {
        child<QCheckBox>(dialog, "chZaradit").setChecked(accept);
        press(dialog, "cmdOk");
    });
    QCOMPARE(harness().globals.acceptMissingDescription, accept);
}

void OptionsDialogTest::noDustIsTakenOver_data()
{
    QTest::addColumn<bool>("noDust");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void OptionsDialogTest::noDustIsTakenOver()
{
    QFETCH(const bool, noDust);
    setting("Ostatni", "NoPrach", noDust ? "0" : "1");
    inDialog([noDust](QDialog& dialog) {
        child<QCheckBox>(dialog, "chbNoPrach").setChecked(noDust);
        press(dialog, "cmdOk");
    });
    QCOMPARE(harness().globals.noDust, noDust ? 1 : 0);
}

void OptionsDialogTest::dustGroupsCommandAppearsAfterNoDustIsCleared()
{
    QVERIFY(!harness().item("mnuSkupinyPrachu").isVisible());
    for (const bool noDust : {false, true}) {
        inDialog([noDust](QDialog& dialog) {
            child<QCheckBox>(dialog, "chbNoPrach").setChecked(noDust);
            press(dialog, "cmdOk");
        });
        QCOMPARE(harness().item("mnuSkupinyPrachu").isVisible(), !noDust);
    }
}

void OptionsDialogTest::noDustReachesTheLoadDialog()
{
    inDialog([](QDialog& dialog) {
        child<QCheckBox>(dialog, "chbNoPrach").setChecked(false);
        press(dialog, "cmdOk");
    });
    harness().dialogs.useNext(QStringLiteral("frmLoadZdroje"), [](QDialog& dialog) {
        QVERIFY(!child<QCheckBox>(dialog, "chNoPrach").isChecked());
        press(dialog, "cbStorno");
    });
    harness().item("mnuVLoad").trigger();
}

void OptionsDialogTest::noDustIsHiddenInCommandLineModeWithoutADustGroupsFile_data()
{
    QTest::addColumn<bool>("commandLineMode");
    QTest::addColumn<QString>("dustGroups");
    QTest::addColumn<bool>("visible");
    QTest::newRow("command line") << true << QString() << false;
    QTest::newRow("command line with dust groups") << true << QStringLiteral("/skupiny.spr") << true;
    QTest::newRow("interactive") << false << QString() << true;
    QTest::newRow("interactive with dust groups") << false << QStringLiteral("/skupiny.spr") << true;
}

void OptionsDialogTest::noDustIsHiddenInCommandLineModeWithoutADustGroupsFile()
{
    QFETCH(const bool, commandLineMode);
    QFETCH(const QString, dustGroups);
    QFETCH(const bool, visible);
    static_cast<void>(harness().window());
    harness().globals.commandLineMode = commandLineMode;
    harness().globals.dustGroupsPath = dustGroups.toStdString();
    inDialog([visible](QDialog& dialog) {
        QCOMPARE(child<QCheckBox>(dialog, "chbNoPrach").isVisible(), visible);
        QVERIFY(startNumber(dialog).isVisible());
        press(dialog, "Storno");
    });
}

void OptionsDialogTest::okInCommandLineModeKeepsTheHiddenNoDust()
{
    static_cast<void>(harness().window());
    harness().globals.commandLineMode = true;
    harness().globals.noDust = 1;
    confirm(QStringLiteral("60000"));
    QCOMPARE(harness().globals.noDust, 1);
    QVERIFY(!harness().item("mnuSkupinyPrachu").isVisible());
}

void OptionsDialogTest::stornoChangesNothing_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("Storno") << 0;
    QTest::newRow("Escape") << 1;
    QTest::newRow("close box") << 2;
}

void OptionsDialogTest::stornoChangesNothing()
{
    QFETCH(const int, way);
    harness().fillWithNumbers({7});
    inDialog([way](QDialog& dialog) {
        startNumber(dialog).setText(QStringLiteral("60000"));
        child<QCheckBox>(dialog, "chbNoPrach").setChecked(false);
        child<QCheckBox>(dialog, "chZaradit").setChecked(false);
        if (way == 0)
            press(dialog, "Storno");
        else if (way == 1)
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else
            dialog.close();
    });
    QCOMPARE(harness().globals.minNewId, 50000);
    QCOMPARE(harness().globals.noDust, 1);
    QVERIFY(harness().globals.acceptMissingDescription);
    QCOMPARE(counter().last(), 50000);
    QVERIFY(harness().settings.texts().isEmpty());
}

void OptionsDialogTest::valuesAreStoredOnlyWhenTheProgramEnds()
{
    harness().show();
    inDialog([](QDialog& dialog) {
        startNumber(dialog).setText(QStringLiteral("60000"));
        child<QCheckBox>(dialog, "chbNoPrach").setChecked(false);
        child<QCheckBox>(dialog, "chZaradit").setChecked(false);
        press(dialog, "cmdOk");
    });
    QVERIFY(harness().settings.texts().isEmpty());
    QVERIFY(harness().window().close());
    const QMap<QString, QString>& texts = harness().settings.texts();
    QCOMPARE(texts.value(QStringLiteral("Ostatni/MinNewID")), QStringLiteral("60000"));
    QCOMPARE(texts.value(QStringLiteral("Ostatni/NoPrach")), QStringLiteral("0"));
    QCOMPARE(texts.value(QStringLiteral("Soubory/ZdrojeBezPopisu")), QStringLiteral("False"));
}

void OptionsDialogTest::placementIsNotStored()
{
    confirm(QStringLiteral("60000"));
    QVERIFY(harness().settings.texts().isEmpty());
}

void OptionsDialogTest::startNumberHasTheFocusAtFirstAndIsSelected()
{
    harness().show();
    inDialog([](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        QCOMPARE(QApplication::focusWidget(), &startNumber(dialog));
        QTRY_COMPARE(startNumber(dialog).selectedText(), QStringLiteral("50000"));
        press(dialog, "Storno");
    });
}

void OptionsDialogTest::startNumberSelectsItsTextWhenAClickBringsTheFocus()
{
    harness().show();
    inDialog([](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        child<QCheckBox>(dialog, "chbNoPrach").setFocus();
        startNumber(dialog).deselect();
        clickInto(startNumber(dialog));
        QCOMPARE(QApplication::focusWidget(), &startNumber(dialog));
        QTRY_COMPARE(startNumber(dialog).selectedText(), QStringLiteral("50000"));
        press(dialog, "Storno");
    });
}

void OptionsDialogTest::tabKeyGoesFromTopToBottom()
{
    harness().show();
    inDialog([](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        QCOMPARE(tabOrder(),
            QStringList({QStringLiteral("tbMinNewID"), QStringLiteral("chbNoPrach"), QStringLiteral("cmdOk"),
                QStringLiteral("Storno"), QStringLiteral("cbHelp"), QStringLiteral("qt_tabwidget_tabbar")}));
        press(dialog, "Storno");
    });
}

void OptionsDialogTest::mnemonicsAreUnique()
{
    inDialog([](QDialog& dialog) {
        QCOMPARE(mnemonics(dialog), QStringLiteral("NOS"));
        press(dialog, "Storno");
    });
}

void OptionsDialogTest::everyFocusableWidgetHasAName()
{
    inDialog([](QDialog& dialog) {
        QCOMPARE(namelessWidgets(dialog), QStringList());
        press(dialog, "Storno");
    });
}

void OptionsDialogTest::okIsTheOnlyDefaultButton()
{
    inDialog([](QDialog& dialog) {
        QCOMPARE(defaultButtons(dialog), QStringList{QStringLiteral("cmdOk")});
        press(dialog, "Storno");
    });
}

void OptionsDialogTest::enterConfirms()
{
    inDialog([](QDialog& dialog) {
        startNumber(dialog).setText(QStringLiteral("60000"));
        QTest::keyClick(&startNumber(dialog), Qt::Key_Return);
    });
    QCOMPARE(harness().globals.minNewId, 60000);
}

void OptionsDialogTest::helpButtonSendsF1AndLeavesTheDialogOpen()
{
    inDialog([](QDialog& dialog) {
        const HelpKeySpy spy(dialog);
        press(dialog, "cbHelp");
        QTRY_COMPARE(spy.presses(), 1);
        QVERIFY(dialog.isVisible());
        press(dialog, "Storno");
    });
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::OptionsDialogTest)

#include "options_dialog_test.moc"
