// The load dialog: its fields and choices, what it hands to the loader, and what a cancelled or failing load leaves.
#include "dialog_checks.h"
#include "window_harness.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

#include <functional>
#include <string>

namespace korvex {
namespace {

const QString loadTitle = QStringLiteral("Načtení seznamu zdrojů");
const QString noSuchFile = QStringLiteral("Soubor nebo složka neexistuje.");
const QString saveChanges = QStringLiteral("Uložit změny ?");

void press(QDialog& dialog, const char* button)
{
    child<QAbstractButton>(dialog, button).click();
}

void type(QDialog& dialog, const char* field, const QString& text)
{
    auto& line = child<QLineEdit>(dialog, field);
    line.clear();
    QTest::keyClicks(&line, text);
}

QString text(QDialog& dialog, const char* field)
{
    return child<QLineEdit>(dialog, field).text();
}

QString toQString(const std::string& path)
{
    return QFile::decodeName(QByteArray::fromStdString(path));
}

}  // namespace

class LoadDialogTest : public ShellTest {
    Q_OBJECT

private slots:
    void titleCaptionsAndToolTips();
    void memberFieldsAreFoundByTheirNames();
    void fieldsShowTheCurrentNames();
    void appendIsUncheckedAtFirst();
    void noDustFileStartsAsTheNoDustFlagSays_data();
    void noDustFileStartsAsTheNoDustFlagSays();
    void dialogIsModalToItsOwnerOnly();

    void noDustFileDisablesFieldBrowseButtonAndLabelOfTheDustFile();
    void noDustFileCheckedAtOpeningDisablesTheDustFileToo();
    void confirmingWithNoDustFileLoadsWithoutADustFileWhateverTheFieldHolds();
    void confirmingWithAnEmptyDustNameLoadsWithoutADustFile();
    void confirmingWithADustNameLoadsTheDust();
    void namesAreTrimmed();
    void loadedFilesBecomeTheCurrentOnes();
    void okIsAvailableAlsoWithoutNames();
    void emptyNamesAreAnErrorOfTheLoad();

    void browseButtonsOpenTheFileDialogsWithTheirTitles_data();
    void browseButtonsOpenTheFileDialogsWithTheirTitles();
    void chosenPathIsPutIntoItsFieldOnly_data();
    void chosenPathIsPutIntoItsFieldOnly();
    void cancelledBrowsingLeavesFieldAndComment();
    void browsingIsRememberedApartForEachFile();
    void browsingTwiceProposesTheFileChosenLast();
    void browsingAloneLeavesTheCurrentNames();

    void commentOfTheChosenPointsFileIsShownInRightCzechLetters();
    void commentIsEmptyForAFileWithoutACommentLine();
    void commentIsEmptyForAFileThatCannotBeRead();
    void commentIsShownAsPlainText();
    void commentIsEmptyUntilAPointsFileIsChosen();
    void choosingAnotherFileThanThePointsFileLeavesTheComment();
    void commentStaysWhenANameIsTyped();

    void appendingKeepsTheSourcesAndJoinsTheComments();
    void appendingMarksDuplicatesAndSaysHowMany();
    void appendingWithoutDuplicatesSaysNothing();
    void replacingDoesNotLookForDuplicates();
    void appendingWithUnsavedChangesAsksNothing();
    void replacingWithUnsavedChangesAsksFirst();
    void replacingWithUnsavedChangesAnsweredCancelLeavesEverything();
    void replacingWithUnsavedChangesAnsweredNoThrowsThemAway();
    void replacingWithUnsavedChangesAnsweredYesSavesThemFirst();
    void cancellingTheSaveDialogCancelsTheLoad();
    void failingSaveCancelsTheLoad();
    void replacingWithoutUnsavedChangesAsksNothing();

    void badNameIsReportedAndLeavesTheListAndIsProposedAgain_data();
    void badNameIsReportedAndLeavesTheListAndIsProposedAgain();
    void namesWithBlanksCzechLettersAndOfGreatLengthAreLoaded_data();
    void namesWithBlanksCzechLettersAndOfGreatLengthAreLoaded();

    void cancellingLeavesNoTrace_data();
    void cancellingLeavesNoTrace();

    void mnemonicsAreUniqueButForTheTwoFixedOnes();
    void mnemonicOfALabelBringsTheFocusToItsField_data();
    void mnemonicOfALabelBringsTheFocusToItsField();
    void tabKeyGoesFromTopToBottom();
    void tabKeyLeavesOutTheDisabledDustFile();
    void pointsFileHasTheFocusAtFirstAndIsSelected();
    void fieldSelectsItsTextWhenTheTabKeyBringsTheFocus();
    void fieldSelectsItsTextWhenAClickBringsTheFocus();
    void everyFocusableWidgetHasAName();
    void okIsTheOnlyDefaultButton();
    void enterInAFieldConfirms();
    void enterStillConfirmsAfterABrowseButtonWasUsed();
    void helpButtonSendsF1AndLeavesTheDialogOpen();

    void firstOpensAtTheTopLeftCornerOfItsOwner();
    void reopensWhereItWasLeftBesideItsOwner_data();
    void reopensWhereItWasLeftBesideItsOwner();

private:
    /// Chooses the load command and does this in its dialog.
    void inDialog(std::function<void(QDialog&)> use)
    {
        harness().dialogs.useNext(QStringLiteral("frmLoadZdroje"), std::move(use));
        harness().item("mnuVLoad").trigger();
    }
    void loadFiles(const SourceFiles& files, const std::function<void(QDialog&)>& more = {})
    {
        inDialog([&](QDialog& dialog) {
            child<QCheckBox>(dialog, "chNoPrach").setChecked(false);
            child<QLineEdit>(dialog, "tbBOD").setText(toQString(files.points));
            child<QLineEdit>(dialog, "tbPOP").setText(toQString(files.description));
            child<QLineEdit>(dialog, "tbPRA").setText(toQString(files.dust));
            if (more)
                more(dialog);
            press(dialog, "cbOk");
        });
    }
    SourceFiles inventory() { return harness().writeInventory({pointsRecord(cBodovyZdroj, 1, QStringLiteral("X"))}); }
    void noDust(const char* text)
    {
        harness().settings.save(QStringLiteral("Ostatni"), QStringLiteral("NoPrach"), QLatin1String(text));
    }
    void currentFiles(const SourceFiles& files)
    {
        static_cast<void>(harness().window());
        harness().globals.files = files;
    }
    QString dustOfFirstSource()
    {
        return harness().set().empty() ? QStringLiteral("no source")
                                       : QString::fromStdString(harness().set().at(1).LineDust());
    }
};

void LoadDialogTest::titleCaptionsAndToolTips()
{
    inDialog([](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), loadTitle);
        QCOMPARE(captionOf(dialog, child<QLineEdit>(dialog, "tbBOD")), QStringLiteral("Soubor s &body:"));
        QCOMPARE(captionOf(dialog, child<QLineEdit>(dialog, "tbPOP")), QStringLiteral("Soubor s pop&isem:"));
        QCOMPARE(captionOf(dialog, child<QLineEdit>(dialog, "tbPRA")), QStringLiteral("Soubor s pr&achem:"));
        QCOMPARE(child<QCheckBox>(dialog, "chNoPrach").text(), QStringLiteral("&Nepoužívej soubor s prachem"));
        QCOMPARE(child<QCheckBox>(dialog, "chAddData").text(), QStringLiteral("&Připoj data k stávajícím"));
        QCOMPARE(child<QPushButton>(dialog, "cbOk").text(), QStringLiteral("&Ok"));
        QCOMPARE(child<QPushButton>(dialog, "cbStorno").text(), QStringLiteral("&Storno"));
        QCOMPARE(child<QPushButton>(dialog, "cbHelp").text(), QStringLiteral("Nápo&věda"));
        QCOMPARE(child<QPushButton>(dialog, "cbOk").toolTip(), QStringLiteral("Zpět s provedením změn"));
        QCOMPARE(child<QPushButton>(dialog, "cbStorno").toolTip(), QStringLiteral("Zpět bez provedení změn"));
        QCOMPARE(child<QPushButton>(dialog, "cbHelp").toolTip(), QStringLiteral("Nápověda k programu"));
        QCOMPARE(child<QToolButton>(dialog, "cbOpenBOD").toolTip(), QStringLiteral("Otevři soubor s body"));
        QCOMPARE(child<QToolButton>(dialog, "cbOpenPOP").toolTip(), QStringLiteral("Otevři soubor s popisem"));
        QCOMPARE(child<QToolButton>(dialog, "cbOpenPRA").toolTip(), QStringLiteral("Otevři soubor s prachem"));
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::memberFieldsAreFoundByTheirNames()
{
    inDialog([](QDialog& dialog) {
        for (const char* const name : {"tbBOD", "tbPOP", "tbPRA", "cbOpenBOD", "cbOpenPOP", "cbOpenPRA", "chNoPrach",
                 "chAddData", "lbKomentarBOD", "cbOk", "cbStorno", "cbHelp"})
            QCOMPARE(dialog.findChildren<QWidget*>(QLatin1String(name)).size(), 1);
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::fieldsShowTheCurrentNames()
{
    currentFiles({"/data/á b.txt", "/data/b.txt", "/data/c.txt"});
    inDialog([](QDialog& dialog) {
        QCOMPARE(text(dialog, "tbBOD"), QStringLiteral("/data/á b.txt"));
        QCOMPARE(text(dialog, "tbPOP"), QStringLiteral("/data/b.txt"));
        QCOMPARE(text(dialog, "tbPRA"), QStringLiteral("/data/c.txt"));
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::appendIsUncheckedAtFirst()
{
    inDialog([](QDialog& dialog) {
        QVERIFY(!child<QCheckBox>(dialog, "chAddData").isChecked());
        child<QCheckBox>(dialog, "chAddData").setChecked(true);
        press(dialog, "cbStorno");
    });
    inDialog([](QDialog& dialog) {
        QVERIFY(!child<QCheckBox>(dialog, "chAddData").isChecked());
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::noDustFileStartsAsTheNoDustFlagSays_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("checked");
    QTest::newRow("0") << QStringLiteral("0") << false;
    QTest::newRow("1") << QStringLiteral("1") << true;
}

void LoadDialogTest::noDustFileStartsAsTheNoDustFlagSays()
{
    QFETCH(const QString, stored);
    QFETCH(const bool, checked);
    noDust(qPrintable(stored));
    inDialog([checked](QDialog& dialog) {
        QCOMPARE(child<QCheckBox>(dialog, "chNoPrach").isChecked(), checked);
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::dialogIsModalToItsOwnerOnly()
{
    harness().show();
    inDialog([this](QDialog& dialog) {
        QVERIFY(dialog.isModal());
        // The help window takes input beside it.
        QCOMPARE(dialog.windowModality(), Qt::WindowModal);
        QCOMPARE(dialog.parentWidget(), &harness().window());
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::noDustFileDisablesFieldBrowseButtonAndLabelOfTheDustFile()
{
    noDust("0");
    inDialog([](QDialog& dialog) {
        auto& choice = child<QCheckBox>(dialog, "chNoPrach");
        const auto& field = child<QLineEdit>(dialog, "tbPRA");
        const auto& browse = child<QToolButton>(dialog, "cbOpenPRA");
        const QLabel* label = nullptr;
        for (const QLabel* const each : dialog.findChildren<QLabel*>()) {
            if (each->buddy() == &field)
                label = each;
        }
        QVERIFY(label != nullptr);
        for (const bool isUsed : {true, false, true}) {
            choice.setChecked(!isUsed);
            QCOMPARE(field.isEnabled(), isUsed);
            QCOMPARE(browse.isEnabled(), isUsed);
            QCOMPARE(label->isEnabled(), isUsed);
            QVERIFY(child<QLineEdit>(dialog, "tbBOD").isEnabled());
            QVERIFY(child<QLineEdit>(dialog, "tbPOP").isEnabled());
        }
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::noDustFileCheckedAtOpeningDisablesTheDustFileToo()
{
    noDust("1");
    inDialog([](QDialog& dialog) {
        QVERIFY(!child<QLineEdit>(dialog, "tbPRA").isEnabled());
        QVERIFY(!child<QToolButton>(dialog, "cbOpenPRA").isEnabled());
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::confirmingWithNoDustFileLoadsWithoutADustFileWhateverTheFieldHolds()
{
    const SourceFiles files = inventory();
    loadFiles(files, [](QDialog& dialog) {
        child<QCheckBox>(dialog, "chNoPrach").setChecked(true);
        QVERIFY(!text(dialog, "tbPRA").isEmpty());
    });
    QCOMPARE(harness().numberColumn(), QStringList{QStringLiteral("000000001")});
    QCOMPARE(dustOfFirstSource(), QStringLiteral("000000001,0,0,0"));
    QCOMPARE(harness().globals.files.points, files.points);
    QCOMPARE(harness().globals.files.dust, std::string());
}

void LoadDialogTest::confirmingWithAnEmptyDustNameLoadsWithoutADustFile()
{
    SourceFiles files = inventory();
    files.dust = "   ";
    loadFiles(files);
    QCOMPARE(dustOfFirstSource(), QStringLiteral("000000001,0,0,0"));
    QCOMPARE(harness().globals.files.dust, std::string());
}

void LoadDialogTest::confirmingWithADustNameLoadsTheDust()
{
    loadFiles(inventory());
    QCOMPARE(dustOfFirstSource(), QStringLiteral("000000001,2000,0,1,10,1"));
}

void LoadDialogTest::namesAreTrimmed()
{
    const SourceFiles files = inventory();
    loadFiles({"  " + files.points + " ", "\t" + files.description, files.dust + "  "});
    QCOMPARE(harness().globals.files.points, files.points);
    QCOMPARE(harness().globals.files.description, files.description);
    QCOMPARE(harness().globals.files.dust, files.dust);
    QCOMPARE(harness().set().size(), std::size_t{1});
}

void LoadDialogTest::loadedFilesBecomeTheCurrentOnes()
{
    const SourceFiles files = inventory();
    loadFiles(files);
    inDialog([&](QDialog& dialog) {
        QCOMPARE(text(dialog, "tbBOD"), toQString(files.points));
        QCOMPARE(text(dialog, "tbPOP"), toQString(files.description));
        QCOMPARE(text(dialog, "tbPRA"), toQString(files.dust));
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::okIsAvailableAlsoWithoutNames()
{
    inDialog([](QDialog& dialog) {
        QCOMPARE(text(dialog, "tbBOD"), QString());
        QVERIFY(child<QPushButton>(dialog, "cbOk").isEnabled());
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::emptyNamesAreAnErrorOfTheLoad()
{
    harness().fillWithNumbers({7});
    harness().boxes.answerNext(BoxAnswer::Ok);
    loadFiles({});
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(harness().boxes.shown().first().title, loadTitle);
    QCOMPARE(harness().boxes.shown().first().icon, BoxIcon::Critical);
    QCOMPARE(harness().numberColumn(), QStringList{QStringLiteral("000000007")});
}

void LoadDialogTest::browseButtonsOpenTheFileDialogsWithTheirTitles_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("title");
    QTest::newRow("points") << QByteArray("cbOpenBOD") << QStringLiteral("Otevři soubor s body");
    QTest::newRow("description") << QByteArray("cbOpenPOP") << QStringLiteral("Otevři soubor s popisem");
    QTest::newRow("dust") << QByteArray("cbOpenPRA") << QStringLiteral("Otevři soubor s prachem");
}

void LoadDialogTest::browseButtonsOpenTheFileDialogsWithTheirTitles()
{
    QFETCH(const QByteArray, button);
    QFETCH(const QString, title);
    noDust("0");
    harness().chooser.answerNext({});
    inDialog([&](QDialog& dialog) {
        press(dialog, button);
        press(dialog, "cbStorno");
    });
    QCOMPARE(harness().chooser.shown().size(), 1);
    const AnsweringFileChooser::Shown& shown = harness().chooser.shown().first();
    QVERIFY(!shown.isSave);
    QCOMPARE(shown.question.title, title);
    QCOMPARE(shown.question.filter, QStringLiteral("Datové soubory KORVEX (*.txt)| *.txt|Všechny soubory (*.*)|*.*"));
    QCOMPARE(shown.question.folder, QDir::currentPath() + QLatin1Char('/'));
    QCOMPARE(shown.question.name, QString());
}

void LoadDialogTest::chosenPathIsPutIntoItsFieldOnly_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QByteArray>("field");
    QTest::newRow("points") << QByteArray("cbOpenBOD") << QByteArray("tbBOD");
    QTest::newRow("description") << QByteArray("cbOpenPOP") << QByteArray("tbPOP");
    QTest::newRow("dust") << QByteArray("cbOpenPRA") << QByteArray("tbPRA");
}

void LoadDialogTest::chosenPathIsPutIntoItsFieldOnly()
{
    QFETCH(const QByteArray, button);
    QFETCH(const QByteArray, field);
    noDust("0");
    currentFiles({"old", "old", "old"});
    const QString chosen = harness().path(QStringLiteral("žlutý kůň.txt"));
    harness().chooser.answerNext(chosen);
    inDialog([&](QDialog& dialog) {
        press(dialog, button);
        for (const char* const each : {"tbBOD", "tbPOP", "tbPRA"})
            QCOMPARE(text(dialog, each), field == each ? chosen : QStringLiteral("old"));
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::cancelledBrowsingLeavesFieldAndComment()
{
    currentFiles({"old", "old", "old"});
    harness().chooser.answerNext(toQString(harness().writeFile(QStringLiteral("a.txt"), {QStringLiteral(";Obec")})));
    harness().chooser.answerNext({});
    inDialog([&](QDialog& dialog) {
        press(dialog, "cbOpenBOD");
        press(dialog, "cbOpenBOD");
        QCOMPARE(text(dialog, "tbBOD"), harness().path(QStringLiteral("a.txt")));
        QCOMPARE(child<QLabel>(dialog, "lbKomentarBOD").text(), QStringLiteral("Obec"));
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::browsingIsRememberedApartForEachFile()
{
    noDust("0");
    harness().chooser.answerNext(QStringLiteral("/one/body.txt"));
    for (int i = 0; i < 3; ++i)
        harness().chooser.answerNext({});
    inDialog([](QDialog& dialog) {
        press(dialog, "cbOpenBOD");
        for (const char* const button : {"cbOpenPOP", "cbOpenPRA", "cbOpenBOD"})
            press(dialog, button);
        press(dialog, "cbStorno");
    });
    QStringList proposed;
    for (const AnsweringFileChooser::Shown& shown : harness().chooser.shown())
        proposed << shown.question.name;
    QCOMPARE(proposed, QStringList({QString(), QString(), QString(), QStringLiteral("body.txt")}));
    QCOMPARE(harness().chooser.shown().last().question.folder, QStringLiteral("/one/"));
}

void LoadDialogTest::browsingTwiceProposesTheFileChosenLast()
{
    harness().chooser.answerNext(QStringLiteral("/one/a.txt"));
    harness().chooser.answerNext(QStringLiteral("/two/b.txt"));
    harness().chooser.answerNext({});
    inDialog([](QDialog& dialog) {
        for (int i = 0; i < 3; ++i)
            press(dialog, "cbOpenPOP");
        press(dialog, "cbStorno");
    });
    QCOMPARE(harness().chooser.shown().last().question.folder, QStringLiteral("/two/"));
    QCOMPARE(harness().chooser.shown().last().question.name, QStringLiteral("b.txt"));
}

void LoadDialogTest::browsingAloneLeavesTheCurrentNames()
{
    currentFiles({"old", "old", "old"});
    harness().chooser.answerNext(QStringLiteral("/one/popis.txt"));
    inDialog([](QDialog& dialog) {
        press(dialog, "cbOpenPOP");
        press(dialog, "cbStorno");
    });
    QCOMPARE(harness().globals.files.description, std::string("old"));
}

void LoadDialogTest::commentOfTheChosenPointsFileIsShownInRightCzechLetters()
{
    const QString comment = QStringLiteral("Příliš žluťoučký kůň úpěl ďábelské ódy – ČŘŽŠŤ");
    harness().chooser.answerNext(toQString(harness().writeFile(QStringLiteral("a.txt"),
        {pointsRecord(cBodovyZdroj, 1, QStringLiteral("X")), QStringLiteral("  ; ") + comment + QLatin1Char(' '),
            QStringLiteral(";druhý")})));
    inDialog([&](QDialog& dialog) {
        press(dialog, "cbOpenBOD");
        QCOMPARE(child<QLabel>(dialog, "lbKomentarBOD").text(), comment);
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::commentIsEmptyForAFileWithoutACommentLine()
{
    harness().chooser.answerNext(toQString(harness().writeFile(QStringLiteral("a.txt"), {QStringLiteral(";Obec")})));
    harness().chooser.answerNext(toQString(
        harness().writeFile(QStringLiteral("b.txt"), {QString(), pointsRecord(cBodovyZdroj, 1, QStringLiteral("X"))})));
    inDialog([](QDialog& dialog) {
        press(dialog, "cbOpenBOD");
        QCOMPARE(child<QLabel>(dialog, "lbKomentarBOD").text(), QStringLiteral("Obec"));
        press(dialog, "cbOpenBOD");
        QCOMPARE(child<QLabel>(dialog, "lbKomentarBOD").text(), QString());
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::commentIsEmptyForAFileThatCannotBeRead()
{
    harness().chooser.answerNext(toQString(harness().writeFile(QStringLiteral("a.txt"), {QStringLiteral(";Obec")})));
    harness().chooser.answerNext(harness().path(QStringLiteral("chybi.txt")));
    inDialog([](QDialog& dialog) {
        press(dialog, "cbOpenBOD");
        press(dialog, "cbOpenBOD");
        QCOMPARE(child<QLabel>(dialog, "lbKomentarBOD").text(), QString());
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::commentIsShownAsPlainText()
{
    const QString comment = QStringLiteral("<b>Obec</b> &amp; <img src=\"x\">");
    harness().chooser.answerNext(toQString(harness().writeFile(QStringLiteral("a.txt"), {QLatin1Char(';') + comment})));
    inDialog([&](QDialog& dialog) {
        press(dialog, "cbOpenBOD");
        QCOMPARE(child<QLabel>(dialog, "lbKomentarBOD").text(), comment);
        QCOMPARE(child<QLabel>(dialog, "lbKomentarBOD").textFormat(), Qt::PlainText);
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::commentIsEmptyUntilAPointsFileIsChosen()
{
    currentFiles(harness().writeInventory({}, QStringLiteral("Obec")));
    inDialog([](QDialog& dialog) {
        QCOMPARE(child<QLabel>(dialog, "lbKomentarBOD").text(), QString());
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::choosingAnotherFileThanThePointsFileLeavesTheComment()
{
    noDust("0");
    const QString other = toQString(harness().writeFile(QStringLiteral("b.txt"), {QStringLiteral(";jiný")}));
    harness().chooser.answerNext(toQString(harness().writeFile(QStringLiteral("a.txt"), {QStringLiteral(";Obec")})));
    harness().chooser.answerNext(other);
    harness().chooser.answerNext(other);
    inDialog([](QDialog& dialog) {
        for (const char* const button : {"cbOpenBOD", "cbOpenPOP", "cbOpenPRA"})
            press(dialog, button);
        QCOMPARE(child<QLabel>(dialog, "lbKomentarBOD").text(), QStringLiteral("Obec"));
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::commentStaysWhenANameIsTyped()
{
    harness().chooser.answerNext(toQString(harness().writeFile(QStringLiteral("a.txt"), {QStringLiteral(";Obec")})));
    inDialog([](QDialog& dialog) {
        press(dialog, "cbOpenBOD");
        type(dialog, "tbBOD", QStringLiteral("jiny.txt"));
        const QString comment = child<QLabel>(dialog, "lbKomentarBOD").text();
        press(dialog, "cbStorno");
        QCOMPARE(comment, QStringLiteral("Obec"));
    });
}

void LoadDialogTest::appendingKeepsTheSourcesAndJoinsTheComments()
{
    harness().fillWithNumbers({7});
    harness().window().comment(QStringLiteral(" A "));
    const auto append = [](QDialog& dialog) { child<QCheckBox>(dialog, "chAddData").setChecked(true); };
    loadFiles(
        harness().writeInventory({pointsRecord(cBodovyZdroj, 1, QStringLiteral("X"))}, QStringLiteral("B")), append);
    // The duplicate check leaves the list sorted by number.
    QCOMPARE(harness().numberColumn(), QStringList({QStringLiteral("000000001"), QStringLiteral("000000007")}));
    QCOMPARE(harness().window().comment(), QStringLiteral("A * B"));
    QVERIFY(!harness().set().modified());
}

void LoadDialogTest::appendingMarksDuplicatesAndSaysHowMany()
{
    harness().fillWithNumbers({7, 1});
    harness().boxes.answerNext(BoxAnswer::Ok);
    loadFiles(inventory(), [](QDialog& dialog) { child<QCheckBox>(dialog, "chAddData").setChecked(true); });
    QCOMPARE(harness().marks(), QStringLiteral("-X-"));
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(harness().boxes.shown().first().title, QStringLiteral("Kontrola duplicit"));
}

void LoadDialogTest::appendingWithoutDuplicatesSaysNothing()
{
    harness().fillWithNumbers({7, 8});
    loadFiles(inventory(), [](QDialog& dialog) { child<QCheckBox>(dialog, "chAddData").setChecked(true); });
    QCOMPARE(harness().marks(), QStringLiteral("---"));
    QVERIFY(harness().boxes.shown().isEmpty());
}

void LoadDialogTest::replacingDoesNotLookForDuplicates()
{
    const QString record = pointsRecord(cBodovyZdroj, 1, QStringLiteral("X"));
    loadFiles(harness().writeInventory({record, record}));
    QCOMPARE(harness().marks(), QStringLiteral("--"));
    QVERIFY(harness().boxes.shown().isEmpty());
}

void LoadDialogTest::appendingWithUnsavedChangesAsksNothing()
{
    harness().fillWithNumbers({7});
    harness().set().modified(true);
    loadFiles(inventory(), [](QDialog& dialog) { child<QCheckBox>(dialog, "chAddData").setChecked(true); });
    QVERIFY(harness().boxes.shown().isEmpty());
    QCOMPARE(harness().set().size(), std::size_t{2});
}

void LoadDialogTest::replacingWithUnsavedChangesAsksFirst()
{
    harness().fillWithNumbers({7});
    harness().set().modified(true);
    harness().boxes.answerNext(BoxAnswer::Cancel);
    loadFiles(inventory());
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(describe(harness().boxes.shown().first()),
        describe({{}, saveChanges, BoxIcon::Question, BoxButtons::YesNoCancel, {}}));
}

void LoadDialogTest::replacingWithUnsavedChangesAnsweredCancelLeavesEverything()
{
    harness().fillWithNumbers({7, 8});
    harness().mark(QStringLiteral("-X"));
    harness().set().modified(true);
    currentFiles({"old", "old", "old"});
    harness().boxes.answerNext(BoxAnswer::Cancel);
    loadFiles(inventory());
    QCOMPARE(harness().numberColumn(), QStringList({QStringLiteral("000000007"), QStringLiteral("000000008")}));
    QCOMPARE(harness().marks(), QStringLiteral("-X"));
    QVERIFY(harness().set().modified());
    QCOMPARE(harness().globals.files.points, std::string("old"));
    QCOMPARE(harness().globals.files.dust, std::string("old"));
}

void LoadDialogTest::replacingWithUnsavedChangesAnsweredNoThrowsThemAway()
{
    harness().fillWithNumbers({7, 8});
    harness().set().modified(true);
    harness().boxes.answerNext(BoxAnswer::No);
    loadFiles(inventory());
    QCOMPARE(harness().numberColumn(), QStringList{QStringLiteral("000000001")});
    QVERIFY(!harness().set().modified());
}

void LoadDialogTest::replacingWithUnsavedChangesAnsweredYesSavesThemFirst()
{
    harness().fillWithNumbers({7});
    harness().set().modified(true);
    const SourceFiles files = inventory();
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().dialogs.useNext(QStringLiteral("frmLoadZdroje"), [&](QDialog& dialog) {
        child<QLineEdit>(dialog, "tbBOD").setText(toQString(files.points));
        child<QLineEdit>(dialog, "tbPOP").setText(toQString(files.description));
        child<QCheckBox>(dialog, "chNoPrach").setChecked(true);
        press(dialog, "cbOk");
    });
    harness().dialogs.useNext(QStringLiteral("frmSaveZdroje"), [&](QDialog& dialog) {
        child<QLineEdit>(dialog, "tbBOD").setText(harness().path(QStringLiteral("old-body.txt")));
        child<QLineEdit>(dialog, "tbPOP").setText(harness().path(QStringLiteral("old-popis.txt")));
        press(dialog, "cbOk");
    });
    harness().item("mnuVLoad").trigger();
    QVERIFY(harness().bytes(QStringLiteral("old-body.txt")).startsWith("000000007"));
    QCOMPARE(harness().numberColumn(), QStringList{QStringLiteral("000000001")});
    // The names loaded from, not those that the changes were saved to.
    QCOMPARE(harness().globals.files.points, files.points);
}

void LoadDialogTest::cancellingTheSaveDialogCancelsTheLoad()
{
    harness().fillWithNumbers({7});
    harness().set().modified(true);
    currentFiles({"old", "old", "old"});
    harness().boxes.answerNext(BoxAnswer::Yes);
    const SourceFiles files = inventory();
    harness().dialogs.useNext(QStringLiteral("frmLoadZdroje"), [&](QDialog& dialog) {
        child<QLineEdit>(dialog, "tbBOD").setText(toQString(files.points));
        press(dialog, "cbOk");
    });
    harness().dialogs.useNext(QStringLiteral("frmSaveZdroje"), [](QDialog& dialog) {
        // The unsaved inventory is proposed under its own names, not under those to be loaded.
        QCOMPARE(text(dialog, "tbBOD"), QStringLiteral("old"));
        press(dialog, "cbStorno");
    });
    harness().item("mnuVLoad").trigger();
    QCOMPARE(harness().numberColumn(), QStringList{QStringLiteral("000000007")});
    QVERIFY(harness().set().modified());
    QCOMPARE(harness().globals.files.points, std::string("old"));
}

void LoadDialogTest::failingSaveCancelsTheLoad()
{
    harness().fillWithNumbers({7});
    harness().set().modified(true);
    const SourceFiles files = inventory();
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().dialogs.useNext(QStringLiteral("frmLoadZdroje"), [&](QDialog& dialog) {
        child<QLineEdit>(dialog, "tbBOD").setText(toQString(files.points));
        child<QLineEdit>(dialog, "tbPOP").setText(toQString(files.description));
        press(dialog, "cbOk");
    });
    harness().dialogs.useNext(QStringLiteral("frmSaveZdroje"), [&](QDialog& dialog) {
        child<QLineEdit>(dialog, "tbBOD").setText(harness().path(QStringLiteral("chybi/body.txt")));
        child<QLineEdit>(dialog, "tbPOP").setText(harness().path(QStringLiteral("popis2.txt")));
        press(dialog, "cbOk");
    });
    harness().item("mnuVLoad").trigger();
    QCOMPARE(harness().boxes.shown().last().title, QStringLiteral("Uložení seznamu zdrojů"));
    QCOMPARE(harness().numberColumn(), QStringList{QStringLiteral("000000007")});
    QVERIFY(harness().set().modified());
}

void LoadDialogTest::replacingWithoutUnsavedChangesAsksNothing()
{
    harness().fillWithNumbers({7});
    loadFiles(inventory());
    QVERIFY(harness().boxes.shown().isEmpty());
    QCOMPARE(harness().numberColumn(), QStringList{QStringLiteral("000000001")});
}

void LoadDialogTest::badNameIsReportedAndLeavesTheListAndIsProposedAgain_data()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("words");
    const QString longName
        = QStringLiteral("zařízení č. 1 ").leftJustified(246, QLatin1Char('x')) + QStringLiteral(".txt");
    const QString tooLongName = QString(300, QLatin1Char('x'));
    QTest::newRow("no points file") << 0 << QStringLiteral("chybi.txt") << noSuchFile;
    QTest::newRow("no description file") << 1 << QStringLiteral("chybi.txt") << noSuchFile;
    QTest::newRow("no dust file") << 2 << QStringLiteral("chybi.txt") << noSuchFile;
    QTest::newRow("no folder") << 0 << QStringLiteral("chybi/body.txt") << noSuchFile;
    QTest::newRow("a folder as points file")
        << 0 << QStringLiteral(".") << QStringLiteral("Místo souboru je zde složka.");
    QTest::newRow("a folder as description file")
        << 1 << QStringLiteral(".") << QStringLiteral("Místo souboru je zde složka.");
    QTest::newRow("blanks and Czech letters, 250 characters") << 0 << longName << noSuchFile;
    QTest::newRow("too long") << 2 << tooLongName << QStringLiteral("Název souboru je příliš dlouhý.");
    QTest::newRow("markup") << 0 << QStringLiteral("<b>%1 %L1 100%.txt") << noSuchFile;
}

void LoadDialogTest::badNameIsReportedAndLeavesTheListAndIsProposedAgain()
{
    QFETCH(const int, file);
    QFETCH(const QString, name);
    QFETCH(const QString, words);
    harness().fillWithNumbers({8, 7});
    harness().window().comment(QStringLiteral("A"));
    SourceFiles files = inventory();
    const QString bad = harness().path(name);
    const std::string badPath = QFile::encodeName(bad).toStdString();
    (file == 0 ? files.points : file == 1 ? files.description : files.dust) = badPath;
    harness().boxes.answerNext(BoxAnswer::Ok);
    loadFiles(files);

    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(describe(harness().boxes.shown().first()),
        describe({loadTitle, words + QStringLiteral("\n\n") + bad, BoxIcon::Critical, BoxButtons::Ok, {}}));
    QCOMPARE(harness().numberColumn(), QStringList({QStringLiteral("000000008"), QStringLiteral("000000007")}));
    QCOMPARE(harness().window().comment(), QStringLiteral("A"));
    QCOMPARE(harness().globals.files.points, files.points);
    inDialog([&](QDialog& dialog) {
        QCOMPARE(text(dialog, "tbBOD"), toQString(files.points));
        QCOMPARE(text(dialog, "tbPOP"), toQString(files.description));
        QCOMPARE(text(dialog, "tbPRA"), toQString(files.dust));
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::namesWithBlanksCzechLettersAndOfGreatLengthAreLoaded_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << QStringLiteral("moje body.txt");
    QTest::newRow("Czech letters") << QStringLiteral("žluťoučký kůň.txt");
    QTest::newRow("250 characters") << QStringLiteral("zařízení ").leftJustified(246, QLatin1Char('x'))
            + QStringLiteral(".txt");
    QTest::newRow("no dot") << QStringLiteral("body");
    QTest::newRow("semicolon and comma") << QStringLiteral("a;b,c.txt");
}

void LoadDialogTest::namesWithBlanksCzechLettersAndOfGreatLengthAreLoaded()
{
    QFETCH(const QString, name);
    SourceFiles files = inventory();
    files.points = harness().writeFile(name, {pointsRecord(cBodovyZdroj, 1, QStringLiteral("X"))});
    loadFiles(files);
    QVERIFY(harness().boxes.shown().isEmpty());
    QCOMPARE(harness().set().size(), std::size_t{1});
    QCOMPARE(toQString(harness().globals.files.points), harness().path(name));
}

void LoadDialogTest::cancellingLeavesNoTrace_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("Storno") << 0;
    QTest::newRow("Escape") << 1;
    QTest::newRow("close box") << 2;
}

void LoadDialogTest::cancellingLeavesNoTrace()
{
    QFETCH(const int, way);
    harness().fillWithNumbers({8, 7});
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().mark(QStringLiteral("X-"));
    harness().set().modified(true);
    harness().window().comment(QStringLiteral("A"));
    currentFiles({"old", "old", "old"});
    const QStringList before = harness().numberColumn();
    inDialog([way](QDialog& dialog) {
        for (const char* const field : {"tbBOD", "tbPOP", "tbPRA"})
            child<QLineEdit>(dialog, field).setText(QStringLiteral("new"));
        child<QCheckBox>(dialog, "chNoPrach").toggle();
        child<QCheckBox>(dialog, "chAddData").toggle();
        if (way == 0)
            press(dialog, "cbStorno");
        else if (way == 1)
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else
            dialog.close();
    });
    QCOMPARE(harness().numberColumn(), before);
    QCOMPARE(harness().marks(), QStringLiteral("X-"));
    QVERIFY(harness().set().modified());
    QCOMPARE(harness().window().comment(), QStringLiteral("A"));
    QCOMPARE(harness().globals.files.points, std::string("old"));
    QCOMPARE(harness().globals.files.description, std::string("old"));
    QCOMPARE(harness().globals.files.dust, std::string("old"));
    QCOMPARE(harness().globals.noDust, 1);
    for (const QString& key : harness().settings.texts().keys())
        QVERIFY2(key.startsWith(QStringLiteral("SubForm:frmLoadZdroje/")), qPrintable(key));
    inDialog([](QDialog& dialog) {
        QCOMPARE(text(dialog, "tbBOD"), QStringLiteral("old"));
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::mnemonicsAreUniqueButForTheTwoFixedOnes()
{
    inDialog([](QDialog& dialog) {
        // Both captions with N are fixed: "no dust file" and "help".
        QCOMPARE(mnemonics(dialog), QStringLiteral("ABINOPSV"));
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::mnemonicOfALabelBringsTheFocusToItsField_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QByteArray>("field");
    QTest::newRow("description") << static_cast<int>(Qt::Key_I) << QByteArray("tbPOP");
    QTest::newRow("dust") << static_cast<int>(Qt::Key_A) << QByteArray("tbPRA");
}

void LoadDialogTest::mnemonicOfALabelBringsTheFocusToItsField()
{
    QFETCH(const int, key);
    QFETCH(const QByteArray, field);
    noDust("0");
    harness().show();
    inDialog([&](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        QTest::keyClick(&dialog, static_cast<Qt::Key>(key), Qt::AltModifier);
        QCOMPARE(QApplication::focusWidget(), &child<QWidget>(dialog, field));
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::tabKeyGoesFromTopToBottom()
{
    noDust("0");
    harness().show();
    inDialog([](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        QCOMPARE(tabOrder(),
            QStringList({QStringLiteral("tbBOD"), QStringLiteral("cbOpenBOD"), QStringLiteral("tbPOP"),
                QStringLiteral("cbOpenPOP"), QStringLiteral("tbPRA"), QStringLiteral("cbOpenPRA"),
                QStringLiteral("chNoPrach"), QStringLiteral("chAddData"), QStringLiteral("cbOk"),
                QStringLiteral("cbStorno"), QStringLiteral("cbHelp")}));
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::tabKeyLeavesOutTheDisabledDustFile()
{
    noDust("1");
    harness().show();
    inDialog([](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        const QStringList order = tabOrder();
        QVERIFY(order.contains(QStringLiteral("chNoPrach")));
        QVERIFY(!order.contains(QStringLiteral("tbPRA")));
        QVERIFY(!order.contains(QStringLiteral("cbOpenPRA")));
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::pointsFileHasTheFocusAtFirstAndIsSelected()
{
    currentFiles({"/data/body.txt", "/data/popis.txt", {}});
    harness().show();
    inDialog([](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        const auto& field = child<QLineEdit>(dialog, "tbBOD");
        QCOMPARE(QApplication::focusWidget(), &field);
        QTRY_COMPARE(field.selectedText(), QStringLiteral("/data/body.txt"));
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::fieldSelectsItsTextWhenTheTabKeyBringsTheFocus()
{
    currentFiles({"/data/body.txt", "/data/popis.txt", {}});
    harness().show();
    inDialog([](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        auto& field = child<QLineEdit>(dialog, "tbPOP");
        field.deselect();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(field.selectedText(), QString());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), &field);
        QTRY_COMPARE(field.selectedText(), QStringLiteral("/data/popis.txt"));
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::fieldSelectsItsTextWhenAClickBringsTheFocus()
{
    noDust("0");
    currentFiles({"/data/body.txt", "/data/popis.txt", "/data/prach.txt"});
    harness().show();
    inDialog([](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        for (const char* const name : {"tbPRA", "tbPOP", "tbBOD"}) {
            const auto& field = child<QLineEdit>(dialog, name);
            clickInto(field);
            QCOMPARE(QApplication::focusWidget(), &field);
            QTRY_COMPARE(field.selectedText(), field.text());
        }
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::everyFocusableWidgetHasAName()
{
    inDialog([](QDialog& dialog) {
        QCOMPARE(namelessWidgets(dialog), QStringList());
        QCOMPARE(child<QToolButton>(dialog, "cbOpenBOD").accessibleName(), QStringLiteral("Otevři soubor s body"));
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::okIsTheOnlyDefaultButton()
{
    harness().show();
    inDialog([](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        QCOMPARE(defaultButtons(dialog), QStringList{QStringLiteral("cbOk")});
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::enterInAFieldConfirms()
{
    const SourceFiles files = inventory();
    harness().show();
    inDialog([&](QDialog& dialog) {
        child<QLineEdit>(dialog, "tbBOD").setText(toQString(files.points));
        child<QLineEdit>(dialog, "tbPOP").setText(toQString(files.description));
        QTest::keyClick(&child<QLineEdit>(dialog, "tbPOP"), Qt::Key_Return);
    });
    QCOMPARE(harness().set().size(), std::size_t{1});
}

void LoadDialogTest::enterStillConfirmsAfterABrowseButtonWasUsed()
{
    const SourceFiles files = inventory();
    currentFiles({files.points, "old", {}});
    harness().chooser.answerNext(toQString(files.description));
    harness().show();
    inDialog([&](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        child<QToolButton>(dialog, "cbOpenPOP").setFocus();
        press(dialog, "cbOpenPOP");
        QTest::keyClick(&child<QLineEdit>(dialog, "tbBOD"), Qt::Key_Return);
    });
    QCOMPARE(harness().set().size(), std::size_t{1});
}

void LoadDialogTest::helpButtonSendsF1AndLeavesTheDialogOpen()
{
    inDialog([](QDialog& dialog) {
        const HelpKeySpy spy(dialog);
        press(dialog, "cbHelp");
        QTRY_COMPARE(spy.presses(), 1);
        QVERIFY(dialog.isVisible());
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::firstOpensAtTheTopLeftCornerOfItsOwner()
{
    harness().show();
    harness().window().move(120, 90);
    inDialog([this](QDialog& dialog) {
        QCOMPARE(dialog.pos(), harness().window().pos());
        press(dialog, "cbStorno");
    });
}

void LoadDialogTest::reopensWhereItWasLeftBesideItsOwner_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::newRow("confirmed") << QByteArray("cbOk");
    QTest::newRow("cancelled") << QByteArray("cbStorno");
}

void LoadDialogTest::reopensWhereItWasLeftBesideItsOwner()
{
    QFETCH(const QByteArray, button);
    const SourceFiles files = inventory();
    currentFiles({files.points, files.description, {}});
    harness().show();
    harness().window().move(100, 80);
    QSize left;
    inDialog([&](QDialog& dialog) {
        dialog.move(harness().window().pos() + QPoint(20, 30));
        dialog.resize(dialog.size() + QSize(40, 25));
        left = dialog.size();
        press(dialog, button);
    });
    harness().window().move(60, 50);
    inDialog([&](QDialog& dialog) {
        QCOMPARE(dialog.pos(), harness().window().pos() + QPoint(20, 30));
        QCOMPARE(dialog.size(), left);
        press(dialog, "cbStorno");
    });
    QCOMPARE(harness().settings.get(QStringLiteral("SubForm:frmLoadZdroje"), QStringLiteral("RelLeft"), {}),
        QStringLiteral("300"));
    QCOMPARE(harness().settings.get(QStringLiteral("SubForm:frmLoadZdroje"), QStringLiteral("RelTop"), {}),
        QStringLiteral("450"));
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::LoadDialogTest)

#include "load_dialog_test.moc"
