// The save dialog and what the save commands write: names, scope, order, flag and INI file.
#include "dialog_checks.h"
#include "window_harness.h"

#include "code_page.h"

#include <QCheckBox>
#include <QCursor>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QToolButton>

#include <functional>
#include <string>

namespace korvex {
namespace {

const QString saveTitle = QStringLiteral("Uložení seznamu zdrojů");

void press(QDialog& dialog, const char* button)
{
    child<QAbstractButton>(dialog, button).click();
}

void fill(QDialog& dialog, const char* field, const QString& text)
{
    child<QLineEdit>(dialog, field).setText(text);
}

QString text(QDialog& dialog, const char* field)
{
    return child<QLineEdit>(dialog, field).text();
}

bool okIsEnabled(QDialog& dialog)
{
    return child<QPushButton>(dialog, "cbOk").isEnabled();
}

/// The first field of every record of a points, description or dust file.
QStringList numbersIn(const QByteArray& bytes)
{
    QStringList numbers;
    for (const QByteArray& line : bytes.split('\n')) {
        if (!line.trimmed().isEmpty() && !line.startsWith(';'))
            numbers << QString::fromLatin1(line.trimmed().split(',').value(0));
    }
    return numbers;
}

}  // namespace

class SaveDialogTest : public ShellTest {
    Q_OBJECT

private slots:
    void titleCaptionsAndToolTips();
    void hasNeitherAppendNorComment();
    void fieldsShowTheCurrentNames();
    void noDustFileStartsCheckedWhenTheCurrentDustNameIsEmpty_data();
    void noDustFileStartsCheckedWhenTheCurrentDustNameIsEmpty();
    void noDustFileDisablesFieldBrowseButtonAndLabelOfTheDustFile();

    void okIsEnabledOnlyWhileBothNamesTrimmedAreNotEmpty_data();
    void okIsEnabledOnlyWhileBothNamesTrimmedAreNotEmpty();
    void okFollowsEveryChangeOfEitherField();
    void okDoesNotAskForADustName();
    void browsingEnablesOk();
    void enterWithAnEmptyNameLeavesTheDialogOpen();

    void browseButtonsOpenTheFileDialogsWithTheirTitles_data();
    void browseButtonsOpenTheFileDialogsWithTheirTitles();
    void savingAndLoadingShareTheRememberedPaths();
    void cancelledBrowsingLeavesTheField();

    void namesAreTrimmedAndBecomeTheCurrentOnes();
    void emptyDustNameMeansNoDustFile_data();
    void emptyDustNameMeansNoDustFile();
    void dustFileIsWrittenWithItsHeaders();
    void allSourcesAreSavedWhateverIsMarked();
    void onlyMarkedSourcesAreSavedInDisplayOrderAfterASort();
    void withoutAMarkOnlyTheHeaderLinesAreWritten();
    void withoutAMarkAndWithoutACommentTheFilesAreEmpty();
    void emptyCommentWritesNoHeaderLines();
    void bothCommandsClearTheModifiedFlag_data();
    void bothCommandsClearTheModifiedFlag();
    void savingKeepsOrderAndMarksOfTheList();
    void progressGoesFromOneToTheNumberOfRowsAndTwo();

    void iniReceivesTheThreeNames();
    void iniReceivesAnEmptyDustName();
    void iniIsLeftAloneWhenTheSaveFails();
    void withoutAnIniNameNoIniIsWritten();

    void cancellingWritesNothingAndLeavesNoTrace_data();
    void cancellingWritesNothingAndLeavesNoTrace();
    void badNameIsReportedAndKeepsTheFlagAndIsProposedAgain_data();
    void badNameIsReportedAndKeepsTheFlagAndIsProposedAgain();
    void equalNamesForTwoFilesAreRefused_data();
    void equalNamesForTwoFilesAreRefused();
    void namesWithBlanksCzechLettersAndOfGreatLengthAreSaved_data();
    void namesWithBlanksCzechLettersAndOfGreatLengthAreSaved();

    void cancellingTheDialogAtClosingKeepsTheWindowOpen();
    void failureAtClosingKeepsTheWindowOpenWithItsData();
    void savingAtClosingClosesTheWindow();

    void commentWithControlAndUndefinedCharactersSurvivesLoadAndSave();

    void mnemonicsAreUniqueButForTheTwoFixedOnes();
    void tabKeyGoesFromTopToBottom();
    void fieldSelectsItsTextWhenAClickBringsTheFocus();
    void everyFocusableWidgetHasAName();
    void okIsTheOnlyDefaultButton();
    void enterInAFieldConfirms();
    void helpButtonSendsF1AndLeavesTheDialogOpen();
    void reopensWhereItWasLeftBesideItsOwner();

private:
    void inDialog(std::function<void(QDialog&)> use, const char* command = "mnuVSave")
    {
        harness().dialogs.useNext(QStringLiteral("frmSaveZdroje"), std::move(use));
        harness().item(command).trigger();
    }
    /// To "b.txt", "p.txt" and, when wanted, "d.txt".
    enum class Dust { Without, With };
    void saveTo(Dust dust, const char* command = "mnuVSave")
    {
        inDialog(
            [this, dust](QDialog& dialog) {
                fill(dialog, "tbBOD", harness().path(QStringLiteral("b.txt")));
                fill(dialog, "tbPOP", harness().path(QStringLiteral("p.txt")));
                fill(dialog, "tbPRA", harness().path(QStringLiteral("d.txt")));
                child<QCheckBox>(dialog, "chNoPrach").setChecked(dust == Dust::Without);
                press(dialog, "cbOk");
            },
            command);
    }
    [[nodiscard]] QByteArray points() { return harness().bytes(QStringLiteral("b.txt")); }
    [[nodiscard]] QByteArray description() { return harness().bytes(QStringLiteral("p.txt")); }
    [[nodiscard]] QByteArray dust() { return harness().bytes(QStringLiteral("d.txt")); }
    [[nodiscard]] bool exists(const char* name) { return QFileInfo::exists(harness().path(QLatin1String(name))); }
    [[nodiscard]] std::string path(const char* name)
    {
        return QFile::encodeName(harness().path(QLatin1String(name))).toStdString();
    }
    [[nodiscard]] QByteArray encoded(const QString& text)
    {
        return QByteArray::fromStdString(encodeCodePage(text.toStdString()));
    }
};

void SaveDialogTest::titleCaptionsAndToolTips()
{
    harness().fillWithNumbers({1});
    inDialog([](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), saveTitle);
        QCOMPARE(captionOf(dialog, child<QLineEdit>(dialog, "tbBOD")), QStringLiteral("Soubor s &body:"));
        QCOMPARE(captionOf(dialog, child<QLineEdit>(dialog, "tbPOP")), QStringLiteral("Soubor s pop&isem:"));
        QCOMPARE(captionOf(dialog, child<QLineEdit>(dialog, "tbPRA")), QStringLiteral("Soubor s pr&achem:"));
        QCOMPARE(child<QCheckBox>(dialog, "chNoPrach").text(), QStringLiteral("&Nepoužívej soubor s prachem"));
        QCOMPARE(child<QPushButton>(dialog, "cbOk").text(), QStringLiteral("&Ok"));
        QCOMPARE(child<QPushButton>(dialog, "cbStorno").text(), QStringLiteral("&Storno"));
        QCOMPARE(child<QPushButton>(dialog, "cbHelp").text(), QStringLiteral("Nápo&věda"));
        QCOMPARE(child<QToolButton>(dialog, "cbOpenBOD").toolTip(), QStringLiteral("Ulož soubor s body"));
        QCOMPARE(child<QToolButton>(dialog, "cbOpenPOP").toolTip(), QStringLiteral("Ulož soubor s popisem"));
        QCOMPARE(child<QToolButton>(dialog, "cbOpenPRA").toolTip(), QStringLiteral("Ulož soubor s prachem"));
        press(dialog, "cbStorno");
    });
}

void SaveDialogTest::hasNeitherAppendNorComment()
{
    harness().fillWithNumbers({1});
    inDialog([](QDialog& dialog) {
        QVERIFY(dialog.findChild<QWidget*>(QStringLiteral("chAddData")) == nullptr);
        QVERIFY(dialog.findChild<QWidget*>(QStringLiteral("lbKomentarBOD")) == nullptr);
        press(dialog, "cbStorno");
    });
}

void SaveDialogTest::fieldsShowTheCurrentNames()
{
    harness().fillWithNumbers({1});
    harness().globals.files = {"/data/á b.txt", "/data/b.txt", "/data/c.txt"};
    inDialog([](QDialog& dialog) {
        QCOMPARE(text(dialog, "tbBOD"), QStringLiteral("/data/á b.txt"));
        QCOMPARE(text(dialog, "tbPOP"), QStringLiteral("/data/b.txt"));
        QCOMPARE(text(dialog, "tbPRA"), QStringLiteral("/data/c.txt"));
        QVERIFY(okIsEnabled(dialog));
        press(dialog, "cbStorno");
    });
}

void SaveDialogTest::noDustFileStartsCheckedWhenTheCurrentDustNameIsEmpty_data()
{
    QTest::addColumn<QString>("dustName");
    QTest::addColumn<QString>("noDustFlag");
    QTest::addColumn<bool>("checked");
    QTest::newRow("no name") << QString() << QStringLiteral("0") << true;
    QTest::newRow("a name") << QStringLiteral("/d.txt") << QStringLiteral("0") << false;
    QTest::newRow("a name, though dust work is off") << QStringLiteral("/d.txt") << QStringLiteral("1") << false;
}

void SaveDialogTest::noDustFileStartsCheckedWhenTheCurrentDustNameIsEmpty()
{
    QFETCH(const QString, dustName);
    QFETCH(const QString, noDustFlag);
    QFETCH(const bool, checked);
    harness().settings.save(QStringLiteral("Ostatni"), QStringLiteral("NoPrach"), noDustFlag);
    harness().fillWithNumbers({1});
    harness().globals.files = {"/b.txt", "/p.txt", dustName.toStdString()};
    inDialog([checked](QDialog& dialog) {
        QCOMPARE(child<QCheckBox>(dialog, "chNoPrach").isChecked(), checked);
        press(dialog, "cbStorno");
    });
}

void SaveDialogTest::noDustFileDisablesFieldBrowseButtonAndLabelOfTheDustFile()
{
    harness().fillWithNumbers({1});
    inDialog([](QDialog& dialog) {
        const auto& field = child<QLineEdit>(dialog, "tbPRA");
        QList<QLabel*> labels = dialog.findChildren<QLabel*>();
        labels.removeIf([&field](const QLabel* label) { return label->buddy() != &field; });
        QCOMPARE(labels.size(), 1);
        for (const bool isUsed : {true, false, true}) {
            child<QCheckBox>(dialog, "chNoPrach").setChecked(!isUsed);
            QCOMPARE(field.isEnabled(), isUsed);
            QCOMPARE(child<QToolButton>(dialog, "cbOpenPRA").isEnabled(), isUsed);
            QCOMPARE(labels.first()->isEnabled(), isUsed);
        }
        press(dialog, "cbStorno");
    });
}

void SaveDialogTest::okIsEnabledOnlyWhileBothNamesTrimmedAreNotEmpty_data()
{
    QTest::addColumn<QString>("pointsName");
    QTest::addColumn<QString>("descriptionName");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("both") << QStringLiteral("b") << QStringLiteral("p") << true;
    QTest::newRow("none") << QString() << QString() << false;
    QTest::newRow("no points") << QString() << QStringLiteral("p") << false;
    QTest::newRow("no description") << QStringLiteral("b") << QString() << false;
    QTest::newRow("points of blanks") << QStringLiteral("   ") << QStringLiteral("p") << false;
    QTest::newRow("description of blanks") << QStringLiteral("b") << QStringLiteral(" \t ") << false;
    QTest::newRow("blanks around") << QStringLiteral(" b ") << QStringLiteral(" p ") << true;
}

void SaveDialogTest::okIsEnabledOnlyWhileBothNamesTrimmedAreNotEmpty()
{
    QFETCH(const QString, pointsName);
    QFETCH(const QString, descriptionName);
    QFETCH(const bool, enabled);
    harness().fillWithNumbers({1});
    // As they are at opening, and as they become.
    harness().globals.files = {pointsName.toStdString(), descriptionName.toStdString(), {}};
    inDialog([&](QDialog& dialog) {
        QCOMPARE(okIsEnabled(dialog), enabled);
        fill(dialog, "tbBOD", enabled ? QString() : QStringLiteral("x"));
        fill(dialog, "tbPOP", QStringLiteral("y"));
        QCOMPARE(okIsEnabled(dialog), !enabled);
        fill(dialog, "tbBOD", pointsName);
        fill(dialog, "tbPOP", descriptionName);
        QCOMPARE(okIsEnabled(dialog), enabled);
        press(dialog, "cbStorno");
    });
}

void SaveDialogTest::okFollowsEveryChangeOfEitherField()
{
    harness().fillWithNumbers({1});
    inDialog([](QDialog& dialog) {
        QVERIFY(!okIsEnabled(dialog));
        QTest::keyClicks(&child<QLineEdit>(dialog, "tbBOD"), QStringLiteral("b"));
        QVERIFY(!okIsEnabled(dialog));
        QTest::keyClicks(&child<QLineEdit>(dialog, "tbPOP"), QStringLiteral(" p"));
        QVERIFY(okIsEnabled(dialog));
        QTest::keyClick(&child<QLineEdit>(dialog, "tbPOP"), Qt::Key_Backspace);
        QVERIFY(!okIsEnabled(dialog));
        QTest::keyClicks(&child<QLineEdit>(dialog, "tbPOP"), QStringLiteral("q"));
        QVERIFY(okIsEnabled(dialog));
        QTest::keyClick(&child<QLineEdit>(dialog, "tbBOD"), Qt::Key_Backspace);
        QVERIFY(!okIsEnabled(dialog));
        press(dialog, "cbStorno");
    });
}

void SaveDialogTest::okDoesNotAskForADustName()
{
    harness().fillWithNumbers({1});
    inDialog([](QDialog& dialog) {
        fill(dialog, "tbBOD", QStringLiteral("b"));
        fill(dialog, "tbPOP", QStringLiteral("p"));
        for (const bool noDustFile : {true, false}) {
            child<QCheckBox>(dialog, "chNoPrach").setChecked(noDustFile);
            QVERIFY(okIsEnabled(dialog));
        }
        press(dialog, "cbStorno");
    });
}

void SaveDialogTest::browsingEnablesOk()
{
    harness().fillWithNumbers({1});
    harness().chooser.answerNext(QStringLiteral("/b.txt"));
    harness().chooser.answerNext(QStringLiteral("/p.txt"));
    inDialog([](QDialog& dialog) {
        press(dialog, "cbOpenBOD");
        QVERIFY(!okIsEnabled(dialog));
        press(dialog, "cbOpenPOP");
        QVERIFY(okIsEnabled(dialog));
        press(dialog, "cbStorno");
    });
}

void SaveDialogTest::enterWithAnEmptyNameLeavesTheDialogOpen()
{
    harness().fillWithNumbers({1});
    harness().show();
    inDialog([](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        fill(dialog, "tbBOD", QStringLiteral("   "));
        fill(dialog, "tbPOP", QStringLiteral("p"));
        QTest::keyClick(&child<QLineEdit>(dialog, "tbPOP"), Qt::Key_Return);
        QVERIFY(dialog.isVisible());
        press(dialog, "cbStorno");
    });
    QCOMPARE(harness().globals.files.description, std::string());
}

void SaveDialogTest::browseButtonsOpenTheFileDialogsWithTheirTitles_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("title");
    QTest::newRow("points") << QByteArray("cbOpenBOD") << QByteArray("tbBOD") << QStringLiteral("Ulož soubor s body");
    QTest::newRow("description") << QByteArray("cbOpenPOP") << QByteArray("tbPOP")
                                 << QStringLiteral("Ulož soubor s popisem");
    QTest::newRow("dust") << QByteArray("cbOpenPRA") << QByteArray("tbPRA") << QStringLiteral("Ulož soubor s prachem");
}

void SaveDialogTest::browseButtonsOpenTheFileDialogsWithTheirTitles()
{
    QFETCH(const QByteArray, button);
    QFETCH(const QByteArray, field);
    QFETCH(const QString, title);
    harness().fillWithNumbers({1});
    harness().chooser.answerNext(QStringLiteral("/one/žluť.txt"));
    inDialog([&](QDialog& dialog) {
        child<QCheckBox>(dialog, "chNoPrach").setChecked(false);
        press(dialog, button);
        QCOMPARE(text(dialog, field), QStringLiteral("/one/žluť.txt"));
        press(dialog, "cbStorno");
    });
    QCOMPARE(harness().chooser.shown().size(), 1);
    QVERIFY(harness().chooser.shown().first().isSave);
    QCOMPARE(harness().chooser.shown().first().question.title, title);
    QCOMPARE(harness().chooser.shown().first().question.filter,
        QStringLiteral("Datové soubory KORVEX (*.txt)| *.txt|Všechny soubory (*.*)|*.*"));
}

void SaveDialogTest::savingAndLoadingShareTheRememberedPaths()
{
    harness().fillWithNumbers({1});
    harness().chooser.answerNext(QStringLiteral("/one/b.txt"));
    harness().chooser.answerNext({});
    inDialog([](QDialog& dialog) {
        press(dialog, "cbOpenBOD");
        press(dialog, "cbStorno");
    });
    harness().dialogs.useNext(QStringLiteral("frmLoadZdroje"), [](QDialog& dialog) {
        press(dialog, "cbOpenBOD");
        press(dialog, "cbStorno");
    });
    harness().item("mnuVLoad").trigger();
    QCOMPARE(harness().chooser.shown().last().question.folder, QStringLiteral("/one/"));
    QCOMPARE(harness().chooser.shown().last().question.name, QStringLiteral("b.txt"));
}

void SaveDialogTest::cancelledBrowsingLeavesTheField()
{
    harness().fillWithNumbers({1});
    harness().globals.files = {"old", "old", "old"};
    harness().chooser.answerNext({});
    inDialog([](QDialog& dialog) {
        press(dialog, "cbOpenBOD");
        QCOMPARE(text(dialog, "tbBOD"), QStringLiteral("old"));
        press(dialog, "cbStorno");
    });
}

void SaveDialogTest::namesAreTrimmedAndBecomeTheCurrentOnes()
{
    harness().fillWithNumbers({1});
    inDialog([this](QDialog& dialog) {
        child<QCheckBox>(dialog, "chNoPrach").setChecked(false);
        fill(dialog, "tbBOD", QStringLiteral("  ") + harness().path(QStringLiteral("b.txt")) + QLatin1Char(' '));
        fill(dialog, "tbPOP", harness().path(QStringLiteral("p.txt")) + QStringLiteral(" \t"));
        fill(dialog, "tbPRA", QLatin1Char(' ') + harness().path(QStringLiteral("d.txt")));
        press(dialog, "cbOk");
    });
    QCOMPARE(harness().globals.files.points, path("b.txt"));
    QCOMPARE(harness().globals.files.description, path("p.txt"));
    QCOMPARE(harness().globals.files.dust, path("d.txt"));
    QCOMPARE(numbersIn(dust()), QStringList{QStringLiteral("000000001")});
}

void SaveDialogTest::emptyDustNameMeansNoDustFile_data()
{
    QTest::addColumn<bool>("checked");
    QTest::addColumn<QString>("name");
    QTest::newRow("checked, whatever the field holds") << true << QStringLiteral("d.txt");
    QTest::newRow("empty name") << false << QString();
    QTest::newRow("blanks") << false << QStringLiteral("   ");
}

void SaveDialogTest::emptyDustNameMeansNoDustFile()
{
    QFETCH(const bool, checked);
    QFETCH(const QString, name);
    harness().fillWithNumbers({1});
    harness().window().comment(QStringLiteral("Obec"));
    harness().writeFile(QStringLiteral("d.txt"), {QStringLiteral("untouched")});
    inDialog([&](QDialog& dialog) {
        fill(dialog, "tbBOD", harness().path(QStringLiteral("b.txt")));
        fill(dialog, "tbPOP", harness().path(QStringLiteral("p.txt")));
        fill(dialog, "tbPRA", name.trimmed().isEmpty() ? name : harness().path(name));
        child<QCheckBox>(dialog, "chNoPrach").setChecked(checked);
        press(dialog, "cbOk");
    });
    QCOMPARE(harness().globals.files.dust, std::string());
    QCOMPARE(dust(), QByteArray("untouched\r\n"));
    QVERIFY(!points().contains(";Soubor s prachem"));
    QVERIFY(!description().contains(";Soubor s prachem"));
    QVERIFY(points().contains(";SOUBOR S BODY\r\n"));
}

void SaveDialogTest::dustFileIsWrittenWithItsHeaders()
{
    harness().append(cBodovyZdroj, 1);
    harness().append(cPlosnyZdroj, 2);
    harness().window().refill();
    harness().window().comment(QStringLiteral(" Obec Čáslav "));
    saveTo(Dust::With);
    const QString b = harness().path(QStringLiteral("b.txt"));
    const QString p = harness().path(QStringLiteral("p.txt"));
    const QString d = harness().path(QStringLiteral("d.txt"));
    const QString end = QStringLiteral("\r\n");
    QVERIFY(points().startsWith(encoded(QStringLiteral(";Obec Čáslav\r\n;SOUBOR S BODY\r\n;Soubor s popisem: ") + p
        + end + QStringLiteral(";Soubor s prachem: ") + d + end + QStringLiteral("000000001, "))));
    QVERIFY(
        description().startsWith(encoded(QStringLiteral(";Obec Čáslav\r\n;SOUBOR S POPISEM (bodů)\r\n;Soubor s body: ")
            + b + end + QStringLiteral(";Soubor s prachem: ") + d + end + QStringLiteral("000000001, "))));
    QCOMPARE(dust(),
        encoded(QStringLiteral(";Obec Čáslav\r\n;SOUBOR S PRACHEM\r\n;Soubor s popisem: ") + p + end
            + QStringLiteral(";Soubor s body: ") + b + end + QStringLiteral("000000001,0,0,0\r\n000000002\r\n")));
}

void SaveDialogTest::allSourcesAreSavedWhateverIsMarked()
{
    harness().fillWithNumbers({3, 1, 2});
    harness().mark(QStringLiteral("-X-"));
    saveTo(Dust::With);
    const QStringList expected{QStringLiteral("000000003"), QStringLiteral("000000001"), QStringLiteral("000000002")};
    QCOMPARE(numbersIn(points()), expected);
    QCOMPARE(numbersIn(description()), expected);
    QCOMPARE(numbersIn(dust()), expected);
}

void SaveDialogTest::onlyMarkedSourcesAreSavedInDisplayOrderAfterASort()
{
    harness().fillWithNumbers({3, 1, 4, 2});
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    QCOMPARE(harness().numberColumn().value(0), QStringLiteral("000000004"));
    harness().mark(QStringLiteral("X-XX"));
    saveTo(Dust::With, "mnuVSaveMark");
    const QStringList expected{QStringLiteral("000000004"), QStringLiteral("000000002"), QStringLiteral("000000001")};
    QCOMPARE(numbersIn(points()), expected);
    QCOMPARE(numbersIn(description()), expected);
    QCOMPARE(numbersIn(dust()), expected);
}

void SaveDialogTest::withoutAMarkOnlyTheHeaderLinesAreWritten()
{
    harness().fillWithNumbers({1, 2});
    harness().window().comment(QStringLiteral("Obec"));
    harness().set().modified(true);
    saveTo(Dust::With, "mnuVSaveMark");
    QCOMPARE(points(),
        encoded(QStringLiteral(";Obec\r\n;SOUBOR S BODY\r\n;Soubor s popisem: %1\r\n;Soubor s prachem: %2\r\n")
                    .arg(harness().path(QStringLiteral("p.txt")), harness().path(QStringLiteral("d.txt")))));
    QCOMPARE(numbersIn(description()), QStringList());
    QCOMPARE(numbersIn(dust()), QStringList());
    QVERIFY(dust().startsWith(";Obec\r\n;SOUBOR S PRACHEM\r\n"));
    QVERIFY(!harness().set().modified());
    QCOMPARE(harness().set().size(), std::size_t{2});
}

void SaveDialogTest::withoutAMarkAndWithoutACommentTheFilesAreEmpty()
{
    harness().fillWithNumbers({1, 2});
    saveTo(Dust::With, "mnuVSaveMark");
    QCOMPARE(points(), QByteArray());
    QCOMPARE(description(), QByteArray());
    QCOMPARE(dust(), QByteArray());
}

void SaveDialogTest::emptyCommentWritesNoHeaderLines()
{
    harness().fillWithNumbers({1});
    harness().window().comment(QStringLiteral("   "));
    saveTo(Dust::With);
    QCOMPARE(points(), QByteArray("000000001, 0000000, 0000000, 0000, 1, 0, 0 ;Zdroj 1\r\n"));
    QCOMPARE(dust(), QByteArray("000000001,0,0,0\r\n"));
    QVERIFY(description().startsWith("000000001, "));
}

void SaveDialogTest::bothCommandsClearTheModifiedFlag_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("all") << QByteArray("mnuVSave");
    QTest::newRow("marked") << QByteArray("mnuVSaveMark");
}

void SaveDialogTest::bothCommandsClearTheModifiedFlag()
{
    QFETCH(const QByteArray, command);
    harness().fillWithNumbers({1, 2});
    harness().mark(QStringLiteral("X-"));
    harness().set().modified(true);
    saveTo(Dust::Without, command);
    QVERIFY(!harness().set().modified());
}

void SaveDialogTest::savingKeepsOrderAndMarksOfTheList()
{
    harness().fillWithNumbers({3, 1, 2});
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().mark(QStringLiteral("X-X"));
    const QStringList before = harness().numberColumn();
    saveTo(Dust::Without);
    QCOMPARE(harness().numberColumn(), before);
    QCOMPARE(harness().marks(), QStringLiteral("X-X"));
}

void SaveDialogTest::progressGoesFromOneToTheNumberOfRowsAndTwo()
{
    harness().fillWithNumbers({1, 2, 3});
    QProgressBar& bar = harness().window().progressBar();
    QList<int> values;
    int maximum = 0;
    bool hasHourglass = false;
    connect(&bar, &QProgressBar::valueChanged, &bar, [&](int value) {
        if (value < 1)
            return;
        values << value;
        maximum = bar.maximum();
        hasHourglass = QGuiApplication::overrideCursor() != nullptr
            && QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
    });
    saveTo(Dust::Without);
    QCOMPARE(maximum, 5);
    QCOMPARE(values.first(), 1);
    QCOMPARE(values.last(), 3);
    QVERIFY(hasHourglass);
    QVERIFY(bar.isHidden());
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
}

void SaveDialogTest::iniReceivesTheThreeNames()
{
    harness().fillWithNumbers({1});
    harness().globals.iniPath = path("volajici.ini");
    saveTo(Dust::With);
    const QByteArray ini = harness().bytes(QStringLiteral("volajici.ini"));
    QVERIFY(ini.startsWith("[Global]\r\n"));
    QVERIFY(ini.contains("\r\nVstZdrojBodTxt=" + QByteArray::fromStdString(path("b.txt")) + "\r\n"));
    QVERIFY(ini.contains("\r\nVstZdrojPopTxt=" + QByteArray::fromStdString(path("p.txt")) + "\r\n"));
    QVERIFY(ini.contains("\r\nVstZdrojPrachTxt=" + QByteArray::fromStdString(path("d.txt")) + "\r\n"));
}

void SaveDialogTest::iniReceivesAnEmptyDustName()
{
    harness().fillWithNumbers({1});
    harness().globals.iniPath = harness().writeFile(
        QStringLiteral("volajici.ini"), {QStringLiteral("[Global]"), QStringLiteral("VstZdrojPrachTxt=old")});
    saveTo(Dust::Without);
    const QByteArray ini = harness().bytes(QStringLiteral("volajici.ini"));
    QVERIFY(ini.contains("\r\nVstZdrojPrachTxt=\r\n"));
    QVERIFY(ini.contains("\r\nVstZdrojBodTxt=" + QByteArray::fromStdString(path("b.txt")) + "\r\n"));
}

void SaveDialogTest::iniIsLeftAloneWhenTheSaveFails()
{
    harness().fillWithNumbers({1});
    harness().globals.iniPath = path("volajici.ini");
    harness().boxes.answerNext(BoxAnswer::Ok);
    inDialog([this](QDialog& dialog) {
        fill(dialog, "tbBOD", harness().path(QStringLiteral("chybi/b.txt")));
        fill(dialog, "tbPOP", harness().path(QStringLiteral("p.txt")));
        press(dialog, "cbOk");
    });
    QVERIFY(!exists("volajici.ini"));
}

void SaveDialogTest::withoutAnIniNameNoIniIsWritten()
{
    harness().fillWithNumbers({1});
    saveTo(Dust::Without);
    QCOMPARE(QDir(harness().path(QString())).entryList(QDir::Files),
        QStringList({QStringLiteral("b.txt"), QStringLiteral("p.txt")}));
}

void SaveDialogTest::cancellingWritesNothingAndLeavesNoTrace_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("Storno") << 0;
    QTest::newRow("Escape") << 1;
    QTest::newRow("close box") << 2;
}

void SaveDialogTest::cancellingWritesNothingAndLeavesNoTrace()
{
    QFETCH(const int, way);
    harness().fillWithNumbers({2, 1});
    harness().mark(QStringLiteral("X-"));
    harness().set().modified(true);
    harness().globals.files = {"old", "old", "old"};
    harness().globals.iniPath = path("volajici.ini");
    inDialog([&](QDialog& dialog) {
        fill(dialog, "tbBOD", harness().path(QStringLiteral("b.txt")));
        fill(dialog, "tbPOP", harness().path(QStringLiteral("p.txt")));
        child<QCheckBox>(dialog, "chNoPrach").toggle();
        if (way == 0)
            press(dialog, "cbStorno");
        else if (way == 1)
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else
            dialog.close();
    });
    QVERIFY(QDir(harness().path(QString())).isEmpty());
    QVERIFY(harness().set().modified());
    QCOMPARE(harness().marks(), QStringLiteral("X-"));
    QCOMPARE(harness().globals.files.points, std::string("old"));
    QCOMPARE(harness().globals.files.dust, std::string("old"));
    for (const QString& key : harness().settings.texts().keys())
        QVERIFY2(key.startsWith(QStringLiteral("SubForm:frmSaveZdroje/")), qPrintable(key));
}

void SaveDialogTest::badNameIsReportedAndKeepsTheFlagAndIsProposedAgain_data()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("words");
    const QString isFolder = QStringLiteral("Místo souboru je zde složka.");
    QTest::newRow("a folder as points file") << 0 << QStringLiteral(".") << isFolder;
    QTest::newRow("a folder as description file") << 1 << QStringLiteral(".") << isFolder;
    QTest::newRow("a folder as dust file") << 2 << QStringLiteral(".") << isFolder;
    QTest::newRow("no folder") << 1 << QStringLiteral("chybí/p.txt")
                               << QStringLiteral("Soubor nebo složka neexistuje.");
    QTest::newRow("too long") << 2 << QString(300, QLatin1Char('x'))
                              << QStringLiteral("Název souboru je příliš dlouhý.");
}

void SaveDialogTest::badNameIsReportedAndKeepsTheFlagAndIsProposedAgain()
{
    QFETCH(const int, file);
    QFETCH(const QString, name);
    QFETCH(const QString, words);
    harness().fillWithNumbers({2, 1});
    harness().mark(QStringLiteral("X-"));
    harness().set().modified(true);
    QStringList names{harness().path(QStringLiteral("b.txt")), harness().path(QStringLiteral("p.txt")),
        harness().path(QStringLiteral("d.txt"))};
    names[file] = harness().path(name);
    harness().boxes.answerNext(BoxAnswer::Ok);
    inDialog([&](QDialog& dialog) {
        child<QCheckBox>(dialog, "chNoPrach").setChecked(false);
        fill(dialog, "tbBOD", names[0]);
        fill(dialog, "tbPOP", names[1]);
        fill(dialog, "tbPRA", names[2]);
        press(dialog, "cbOk");
    });
    QCOMPARE(describe(harness().boxes.shown().first()),
        describe({saveTitle, words + QStringLiteral("\n\n") + names[file], BoxIcon::Critical, BoxButtons::Ok, {}}));
    QVERIFY(QDir(harness().path(QString())).isEmpty());
    QVERIFY(harness().set().modified());
    QCOMPARE(harness().numberColumn(), QStringList({QStringLiteral("000000002"), QStringLiteral("000000001")}));
    QCOMPARE(harness().marks(), QStringLiteral("X-"));
    inDialog([&](QDialog& dialog) {
        QCOMPARE(text(dialog, "tbBOD"), names[0]);
        QCOMPARE(text(dialog, "tbPOP"), names[1]);
        QCOMPARE(text(dialog, "tbPRA"), names[2]);
        press(dialog, "cbStorno");
    });
}

void SaveDialogTest::equalNamesForTwoFilesAreRefused_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::newRow("points and description")
        << QStringList{QStringLiteral("a.txt"), QStringLiteral("a.txt"), QStringLiteral("d.txt")};
    QTest::newRow("points and dust") << QStringList{
        QStringLiteral("a.txt"), QStringLiteral("p.txt"), QStringLiteral("a.txt")};
    QTest::newRow("description and dust")
        << QStringList{QStringLiteral("b.txt"), QStringLiteral("a.txt"), QStringLiteral("a.txt")};
    QTest::newRow("written otherwise") << QStringList{
        QStringLiteral("a.txt"), QStringLiteral("./a.txt"), QStringLiteral("d.txt")};
}

void SaveDialogTest::equalNamesForTwoFilesAreRefused()
{
    QFETCH(const QStringList, names);
    harness().fillWithNumbers({1});
    harness().set().modified(true);
    harness().writeFile(QStringLiteral("a.txt"), {QStringLiteral("old contents")});
    harness().boxes.answerNext(BoxAnswer::Ok);
    inDialog([&](QDialog& dialog) {
        child<QCheckBox>(dialog, "chNoPrach").setChecked(false);
        fill(dialog, "tbBOD", harness().path(names[0]));
        fill(dialog, "tbPOP", harness().path(names[1]));
        fill(dialog, "tbPRA", harness().path(names[2]));
        press(dialog, "cbOk");
    });
    const BoxRequest box = harness().boxes.shown().value(0);
    QCOMPARE(box.title, saveTitle);
    QCOMPARE(box.icon, BoxIcon::Critical);
    QVERIFY(box.text.startsWith(QStringLiteral("Dva z ukládaných souborů mají stejný název.\n\n")));
    QVERIFY(box.text.endsWith(QStringLiteral("a.txt")));
    QCOMPARE(harness().bytes(QStringLiteral("a.txt")), QByteArray("old contents\r\n"));
    QCOMPARE(QDir(harness().path(QString())).entryList(QDir::Files), QStringList{QStringLiteral("a.txt")});
    QVERIFY(harness().set().modified());
}

void SaveDialogTest::namesWithBlanksCzechLettersAndOfGreatLengthAreSaved_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << QStringLiteral("moje body.txt");
    QTest::newRow("Czech letters") << QStringLiteral("žluťoučký kůň.txt");
    QTest::newRow("250 characters") << QStringLiteral("zařízení ").leftJustified(246, QLatin1Char('x'))
            + QStringLiteral(".txt");
}

void SaveDialogTest::namesWithBlanksCzechLettersAndOfGreatLengthAreSaved()
{
    QFETCH(const QString, name);
    harness().fillWithNumbers({1});
    harness().window().comment(QStringLiteral("Obec"));
    inDialog([&](QDialog& dialog) {
        fill(dialog, "tbBOD", harness().path(name));
        fill(dialog, "tbPOP", harness().path(QStringLiteral("p.txt")));
        press(dialog, "cbOk");
    });
    QVERIFY(harness().boxes.shown().isEmpty());
    QCOMPARE(numbersIn(harness().bytes(name)), QStringList{QStringLiteral("000000001")});
    QVERIFY(description().contains(encoded(QStringLiteral(";Soubor s body: ") + harness().path(name))));
}

void SaveDialogTest::cancellingTheDialogAtClosingKeepsTheWindowOpen()
{
    harness().fillWithNumbers({1, 2});
    harness().set().modified(true);
    harness().show();
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().dialogs.useNext(QStringLiteral("frmSaveZdroje"), [](QDialog& dialog) { press(dialog, "cbStorno"); });
    QVERIFY(!harness().window().close());
    QVERIFY(harness().window().isVisible());
    QCOMPARE(harness().set().size(), std::size_t{2});
    QVERIFY(harness().set().modified());
    QVERIFY(!harness().settings.texts().contains(QStringLiteral("Ostatni/NoPrach")));
}

void SaveDialogTest::failureAtClosingKeepsTheWindowOpenWithItsData()
{
    harness().fillWithNumbers({1, 2});
    harness().set().modified(true);
    harness().show();
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().dialogs.useNext(QStringLiteral("frmSaveZdroje"), [this](QDialog& dialog) {
        fill(dialog, "tbBOD", harness().path(QStringLiteral("chybi/b.txt")));
        fill(dialog, "tbPOP", harness().path(QStringLiteral("p.txt")));
        press(dialog, "cbOk");
    });
    QVERIFY(!harness().window().close());
    QVERIFY(harness().window().isVisible());
    QCOMPARE(harness().boxes.shown().last().title, saveTitle);
    QCOMPARE(harness().numberColumn().size(), 2);
    QVERIFY(harness().set().modified());
    QCOMPARE(harness().status().text(), QString());
    QVERIFY(!harness().settings.texts().contains(QStringLiteral("Ostatni/NoPrach")));
}

void SaveDialogTest::savingAtClosingClosesTheWindow()
{
    harness().fillWithNumbers({2, 1});
    harness().mark(QStringLiteral("X-"));
    harness().set().modified(true);
    harness().show();
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().dialogs.useNext(QStringLiteral("frmSaveZdroje"), [this](QDialog& dialog) {
        fill(dialog, "tbBOD", harness().path(QStringLiteral("b.txt")));
        fill(dialog, "tbPOP", harness().path(QStringLiteral("p.txt")));
        press(dialog, "cbOk");
    });
    QVERIFY(harness().window().close());
    QCOMPARE(numbersIn(points()), QStringList({QStringLiteral("000000002"), QStringLiteral("000000001")}));
    QCOMPARE(harness().settings.get(QStringLiteral("Soubory"), QStringLiteral("LastPathFile:1"), {}),
        harness().path(QStringLiteral("b.txt")));
}

void SaveDialogTest::commentWithControlAndUndefinedCharactersSurvivesLoadAndSave()
{
    // A tabulator, a bell, an escape, a delete, the undefined bytes of the code page and a hard space in the middle.
    QByteArray comment = "Obec\t\x07\x1B\x7F";
    comment += "\x81\x83\x88\x90\x98\xA0 kon\xEC"
               "c";
    QByteArray header = ';' + comment + "\r\n;SOUBOR S BODY\r\n;Soubor s popisem: "
        + QFile::encodeName(harness().path(QStringLiteral("p.txt"))) + "\r\n";
    const QByteArray original = header + "000000001, 0000000, 0000000, 0000, 1, 0, 0 ;X\x81\r\n";
    QFile file(harness().path(QStringLiteral("b.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(original), original.size());
    file.close();
    harness().writeFile(
        QStringLiteral("p.txt"), {QStringLiteral("000000001, 1.5, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 0")});

    harness().dialogs.useNext(QStringLiteral("frmLoadZdroje"), [this](QDialog& dialog) {
        fill(dialog, "tbBOD", harness().path(QStringLiteral("b.txt")));
        fill(dialog, "tbPOP", harness().path(QStringLiteral("p.txt")));
        child<QCheckBox>(dialog, "chNoPrach").setChecked(true);
        press(dialog, "cbOk");
    });
    harness().item("mnuVLoad").trigger();
    QCOMPARE(harness().set().size(), std::size_t{1});
    QVERIFY(QFile::remove(file.fileName()));
    saveTo(Dust::Without);
    QCOMPARE(points().toHex(' '), original.toHex(' '));
}

void SaveDialogTest::mnemonicsAreUniqueButForTheTwoFixedOnes()
{
    harness().fillWithNumbers({1});
    inDialog([](QDialog& dialog) {
        // Both captions with N are fixed: "no dust file" and "help".
        QCOMPARE(mnemonics(dialog), QStringLiteral("ABINOSV"));
        press(dialog, "cbStorno");
    });
}

void SaveDialogTest::tabKeyGoesFromTopToBottom()
{
    harness().fillWithNumbers({1});
    harness().globals.files = {"/b.txt", "/p.txt", "/d.txt"};
    harness().show();
    inDialog([](QDialog& dialog) {
        QVERIFY(waitUntilActive(dialog));
        QCOMPARE(tabOrder(),
            QStringList({QStringLiteral("tbBOD"), QStringLiteral("cbOpenBOD"), QStringLiteral("tbPOP"),
                QStringLiteral("cbOpenPOP"), QStringLiteral("tbPRA"), QStringLiteral("cbOpenPRA"),
                QStringLiteral("chNoPrach"), QStringLiteral("cbOk"), QStringLiteral("cbStorno"),
                QStringLiteral("cbHelp")}));
        press(dialog, "cbStorno");
    });
}

void SaveDialogTest::fieldSelectsItsTextWhenAClickBringsTheFocus()
{
    harness().fillWithNumbers({1});
    harness().globals.files = {"/data/b.txt", "/data/p.txt", "/data/d.txt"};
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

void SaveDialogTest::everyFocusableWidgetHasAName()
{
    harness().fillWithNumbers({1});
    inDialog([](QDialog& dialog) {
        QCOMPARE(namelessWidgets(dialog), QStringList());
        press(dialog, "cbStorno");
    });
}

void SaveDialogTest::okIsTheOnlyDefaultButton()
{
    harness().fillWithNumbers({1});
    inDialog([](QDialog& dialog) {
        QCOMPARE(defaultButtons(dialog), QStringList{QStringLiteral("cbOk")});
        press(dialog, "cbStorno");
    });
}

void SaveDialogTest::enterInAFieldConfirms()
{
    harness().fillWithNumbers({1});
    inDialog([this](QDialog& dialog) {
        fill(dialog, "tbBOD", harness().path(QStringLiteral("b.txt")));
        fill(dialog, "tbPOP", harness().path(QStringLiteral("p.txt")));
        QTest::keyClick(&child<QLineEdit>(dialog, "tbBOD"), Qt::Key_Return);
    });
    QVERIFY(exists("b.txt"));
}

void SaveDialogTest::helpButtonSendsF1AndLeavesTheDialogOpen()
{
    harness().fillWithNumbers({1});
    inDialog([](QDialog& dialog) {
        const HelpKeySpy spy(dialog);
        press(dialog, "cbHelp");
        QTRY_COMPARE(spy.presses(), 1);
        QVERIFY(dialog.isVisible());
        press(dialog, "cbStorno");
    });
}

void SaveDialogTest::reopensWhereItWasLeftBesideItsOwner()
{
    harness().fillWithNumbers({1});
    harness().show();
    harness().window().move(100, 80);
    inDialog([this](QDialog& dialog) {
        QCOMPARE(dialog.pos(), harness().window().pos());
        dialog.move(harness().window().pos() + QPoint(20, 30));
        press(dialog, "cbStorno");
    });
    harness().window().move(60, 50);
    inDialog([this](QDialog& dialog) {
        QCOMPARE(dialog.pos(), harness().window().pos() + QPoint(20, 30));
        press(dialog, "cbStorno");
    });
    QVERIFY(harness().settings.texts().contains(QStringLiteral("SubForm:frmSaveZdroje/RelTop")));
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::SaveDialogTest)

#include "save_dialog_test.moc"
