// The save commands: the dialog, the files as bytes, the modified flag, the caller's INI file and the messages.
#include "dialog_checks.h"
#include "load_save.h"
#include "source_windows.h"
#include "window_harness.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>

namespace korvex {
namespace {

const QString saveTitle = QStringLiteral("Uložení seznamu zdrojů");

void confirm(QDialog& dialog)
{
    dialog.findChild<QPushButton*>(QStringLiteral("cbOk"))->click();
}

void cancel(QDialog& dialog)
{
    dialog.findChild<QPushButton*>(QStringLiteral("cbStorno"))->click();
}

}  // namespace

class SaveTest : public ShellTest {
    Q_OBJECT

private slots:
    void dialogIsFilledWithTheCurrentNames();
    void cancelledDialogWritesNothing();
    void confirmedNamesBecomeTheCurrentOnes();
    void commandLineModeShowsNoDialog();

    void saveAllWritesEverySource();
    void saveMarkedWritesOnlyTheMarkedRows();
    void saveMarkedWithoutAMarkWritesEmptyFiles();
    void saveMarkedWithoutAMarkWritesTheHeadersAlone();
    void rowsAreWrittenInDisplayOrder();
    void commentIsWrittenTrimmedInTheHeaders();
    void commentOfBlanksWritesNoHeader();
    void withoutADustFileNoneIsWrittenNorNamed();
    void namesAreWrittenInTheCodePage();

    void modifiedFlagIsClearedAlsoWhenOnlyTheMarkedWereSaved();
    void failedSaveKeepsTheModifiedFlagAndTheFiles();
    void iniFileGetsTheNamesAfterEverySave();
    void failedSaveLeavesTheIniFile();
    void listKeepsItsOrderAndMarks();
    void progressBarAndHourglassAreGoneBeforeAMessage();

    void charactersThatTheFilesCannotHoldAreReported();
    void nameThatTheNextLoadWillCutIsReported();
    void charactersOfTheCommentThatTheFilesCannotHoldAreReported();

private:
    /// Area sources 3, 1, 2 named c, a, b and the names of three files that do not exist yet.
    void fill();
    void saveAs(const char* item, const std::function<void(QDialog&)>& use);
};

void SaveTest::fill()
{
    harness().append(cPlosnyZdroj, 3, QStringLiteral("c"));
    harness().append(cPlosnyZdroj, 1, QStringLiteral("a"));
    harness().append(cPlosnyZdroj, 2, QStringLiteral("b"));
    harness().window().refill();
    harness().set().modified(true);
    harness().globals.files = {harness().path(QStringLiteral("body.txt")).toStdString(),
        harness().path(QStringLiteral("popis.txt")).toStdString(),
        harness().path(QStringLiteral("prach.txt")).toStdString()};
}

void SaveTest::saveAs(const char* item, const std::function<void(QDialog&)>& use)
{
    harness().dialogs.useNext(QStringLiteral("frmSaveZdroje"), use);
    harness().item(item).trigger();
}

void SaveTest::dialogIsFilledWithTheCurrentNames()
{
    fill();
    QStringList names;
    saveAs("mnuVSave", [&](QDialog& dialog) {
        for (const char* const field : {"tbBOD", "tbPOP", "tbPRA"})
            names << dialog.findChild<QLineEdit*>(QLatin1String(field))->text();
        cancel(dialog);
    });
    QCOMPARE(names,
        QStringList({harness().path(QStringLiteral("body.txt")), harness().path(QStringLiteral("popis.txt")),
            harness().path(QStringLiteral("prach.txt"))}));
}

void SaveTest::cancelledDialogWritesNothing()
{
    fill();
    saveAs("mnuVSave", [](QDialog& dialog) {
        dialog.findChild<QLineEdit*>(QStringLiteral("tbBOD"))->setText(QStringLiteral("/jine.txt"));
        cancel(dialog);
    });
    QCOMPARE(QDir(harness().path({})).entryList(QDir::Files), QStringList());
    QVERIFY(harness().set().modified());
    QCOMPARE(harness().globals.files.points, harness().path(QStringLiteral("body.txt")).toStdString());
}

void SaveTest::confirmedNamesBecomeTheCurrentOnes()
{
    fill();
    const QString other = harness().path(QStringLiteral("jine body.txt"));
    saveAs("mnuVSave", [&](QDialog& dialog) {
        dialog.findChild<QLineEdit*>(QStringLiteral("tbBOD"))->setText(QStringLiteral("  %1 ").arg(other));
        confirm(dialog);
    });
    QCOMPARE(harness().globals.files.points, other.toStdString());
    QVERIFY(QFile::exists(other));
    QVERIFY(!QFile::exists(harness().path(QStringLiteral("body.txt"))));
}

void SaveTest::commandLineModeShowsNoDialog()
{
    fill();
    harness().globals.commandLineMode = true;
    QVERIFY(saveSources(harness().window(), SaveScope::All));
    QCOMPARE(harness().bytes(QStringLiteral("prach.txt")), QByteArray("000000003\r\n000000001\r\n000000002\r\n"));
}

void SaveTest::saveAllWritesEverySource()
{
    harness().append(cBodovyZdroj, 12, QStringLiteral("Kotelna"));
    harness().set().last().LineParameters("000000012, 2.5, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 0");
    fill();
    saveAs("mnuVSave", confirm);
    QCOMPARE(harness().bytes(QStringLiteral("body.txt")),
        QByteArray("000000012, 0000000, 0000000, 0000, 1, 0, 0 ;Kotelna\r\n"
                   "000000003, 0000000, 0000000, 0000, 2, 0, 0 ;c\r\n"
                   "000000001, 0000000, 0000000, 0000, 2, 0, 0 ;a\r\n"
                   "000000002, 0000000, 0000000, 0000, 2, 0, 0 ;b\r\n"));
    QVERIFY(harness()
                .bytes(QStringLiteral("popis.txt"))
                .startsWith("000000012, 2.5, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 0\r\n"));
    QCOMPARE(harness().bytes(QStringLiteral("prach.txt")),
        QByteArray("000000012,0,0,0\r\n000000003\r\n000000001\r\n000000002\r\n"));
    QVERIFY(harness().boxes.shown().isEmpty());
}

void SaveTest::saveMarkedWritesOnlyTheMarkedRows()
{
    fill();
    harness().mark(QStringLiteral("X-X"));
    saveAs("mnuVSaveMark", confirm);
    QCOMPARE(harness().bytes(QStringLiteral("prach.txt")), QByteArray("000000003\r\n000000002\r\n"));
    QVERIFY(!harness().bytes(QStringLiteral("body.txt")).contains("000000001"));
    QVERIFY(!harness().bytes(QStringLiteral("popis.txt")).contains("000000001"));
    QCOMPARE(harness().model().rowCount(), 3);
}

void SaveTest::saveMarkedWithoutAMarkWritesEmptyFiles()
{
    fill();
    harness().writeFile(QStringLiteral("body.txt"), {QStringLiteral("000000009, 0, 0, 0, 1, 0, 0 ;X")});
    saveAs("mnuVSaveMark", confirm);
    for (const char* const name : {"body.txt", "popis.txt", "prach.txt"})
        QCOMPARE(harness().bytes(QLatin1String(name)), QByteArray(""));
    QVERIFY(!harness().set().modified());
}

void SaveTest::saveMarkedWithoutAMarkWritesTheHeadersAlone()
{
    fill();
    harness().window().comment(QStringLiteral("Obec"));
    saveAs("mnuVSaveMark", confirm);
    QCOMPARE(harness().bytes(QStringLiteral("prach.txt")),
        QByteArray(";Obec\r\n;SOUBOR S PRACHEM\r\n;Soubor s popisem: ")
            + QFile::encodeName(harness().path(QStringLiteral("popis.txt")))
            + "\r\n;Soubor s body: " + QFile::encodeName(harness().path(QStringLiteral("body.txt"))) + "\r\n");
    QVERIFY(!harness().set().modified());
}

void SaveTest::rowsAreWrittenInDisplayOrder()
{
    fill();
    harness().model().sortByHeader(SourceListModel::NameColumn);
    harness().model().sortByHeader(SourceListModel::NameColumn);
    saveAs("mnuVSave", confirm);
    QCOMPARE(harness().bytes(QStringLiteral("prach.txt")), QByteArray("000000003\r\n000000002\r\n000000001\r\n"));
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    saveAs("mnuVSave", confirm);
    QCOMPARE(harness().bytes(QStringLiteral("prach.txt")), QByteArray("000000001\r\n000000002\r\n000000003\r\n"));
}

void SaveTest::commentIsWrittenTrimmedInTheHeaders()
{
    fill();
    harness().window().comment(QStringLiteral("  Obec Žďár "));
    saveAs("mnuVSave", confirm);
    const QByteArray pointsPath = QFile::encodeName(harness().path(QStringLiteral("body.txt")));
    const QByteArray descriptionPath = QFile::encodeName(harness().path(QStringLiteral("popis.txt")));
    const QByteArray dustPath = QFile::encodeName(harness().path(QStringLiteral("prach.txt")));
    const QByteArray comment = ";Obec \x8E\xEF\xE1r\r\n";
    QVERIFY(harness()
                .bytes(QStringLiteral("body.txt"))
                .startsWith(comment + ";SOUBOR S BODY\r\n;Soubor s popisem: " + descriptionPath
                    + "\r\n;Soubor s prachem: " + dustPath + "\r\n000000003, "));
    QVERIFY(harness()
                .bytes(QStringLiteral("popis.txt"))
                .startsWith(comment + ";SOUBOR S POPISEM (bod\xF9)\r\n;Soubor s body: " + pointsPath
                    + "\r\n;Soubor s prachem: " + dustPath + "\r\n000000003, "));
    QVERIFY(harness()
                .bytes(QStringLiteral("prach.txt"))
                .startsWith(comment + ";SOUBOR S PRACHEM\r\n;Soubor s popisem: " + descriptionPath
                    + "\r\n;Soubor s body: " + pointsPath + "\r\n000000003\r\n"));
}

void SaveTest::commentOfBlanksWritesNoHeader()
{
    fill();
    harness().window().comment(QStringLiteral("   "));
    saveAs("mnuVSave", confirm);
    QVERIFY(harness().bytes(QStringLiteral("body.txt")).startsWith("000000003"));
}

void SaveTest::withoutADustFileNoneIsWrittenNorNamed()
{
    fill();
    harness().window().comment(QStringLiteral("Obec"));
    harness().globals.iniPath = harness().path(QStringLiteral("zdroje.tmp")).toStdString();
    saveAs("mnuVSave", [](QDialog& dialog) {
        dialog.findChild<QCheckBox*>(QStringLiteral("chNoPrach"))->setChecked(true);
        confirm(dialog);
    });
    QVERIFY(!QFile::exists(harness().path(QStringLiteral("prach.txt"))));
    QVERIFY(!harness().bytes(QStringLiteral("body.txt")).contains(";Soubor s prachem: "));
    QVERIFY(!harness().bytes(QStringLiteral("popis.txt")).contains(";Soubor s prachem: "));
    QVERIFY(harness().bytes(QStringLiteral("zdroje.tmp")).endsWith("\r\nVstZdrojPrachTxt=\r\n"));
    QCOMPARE(harness().globals.files.dust, std::string());
}

void SaveTest::namesAreWrittenInTheCodePage()
{
    harness().append(cPlosnyZdroj, 7, QStringLiteral("Žluťoučký kůň"));
    fill();
    saveAs("mnuVSave", confirm);
    QVERIFY(harness().bytes(QStringLiteral("body.txt")).contains(" ;\x8Elu\x9Dou\xE8k\xFD k\xF9\xF2\r\n"));
}

void SaveTest::modifiedFlagIsClearedAlsoWhenOnlyTheMarkedWereSaved()
{
    fill();
    harness().mark(QStringLiteral("X--"));
    saveAs("mnuVSaveMark", confirm);
    QVERIFY(!harness().set().modified());
}

void SaveTest::failedSaveKeepsTheModifiedFlagAndTheFiles()
{
    fill();
    harness().writeFile(QStringLiteral("body.txt"), {QStringLiteral("stare")});
    QVERIFY(QDir().mkdir(harness().path(QStringLiteral("prach.txt"))));
    harness().boxes.answerNext(BoxAnswer::Ok);
    saveAs("mnuVSave", confirm);
    QCOMPARE(describe(harness().boxes.shown().value(0)),
        describe({saveTitle,
            QStringLiteral("Místo souboru je zde složka.\n\n") + harness().path(QStringLiteral("prach.txt")),
            BoxIcon::Critical, BoxButtons::Ok, {}}));
    QVERIFY(harness().set().modified());
    QCOMPARE(harness().bytes(QStringLiteral("body.txt")), QByteArray("stare\r\n"));
    QVERIFY(!QFile::exists(harness().path(QStringLiteral("popis.txt"))));
}

void SaveTest::iniFileGetsTheNamesAfterEverySave()
{
    fill();
    harness().globals.iniPath
        = harness().writeFile(QStringLiteral("zdroje.tmp"), {QStringLiteral("[Global]"), QStringLiteral("Jiny=1")});
    saveAs("mnuVSave", confirm);
    const QByteArray folder = QFile::encodeName(harness().path({})) + "/";
    const auto expected = [&folder](const QByteArray& pointsName) {
        return "[Global]\r\nJiny=1\r\nVstZdrojBodTxt=" + folder + pointsName + "\r\nVstZdrojPopTxt=" + folder
            + "popis.txt\r\nVstZdrojPrachTxt=" + folder + "prach.txt\r\n";
    };
    QCOMPARE(harness().bytes(QStringLiteral("zdroje.tmp")), expected("body.txt"));
    saveAs("mnuVSaveMark", [this](QDialog& dialog) {
        dialog.findChild<QLineEdit*>(QStringLiteral("tbBOD"))->setText(harness().path(QStringLiteral("jine.txt")));
        confirm(dialog);
    });
    QCOMPARE(harness().bytes(QStringLiteral("zdroje.tmp")), expected("jine.txt"));
}

void SaveTest::failedSaveLeavesTheIniFile()
{
    fill();
    harness().globals.iniPath = harness().writeFile(QStringLiteral("zdroje.tmp"), {QStringLiteral("[Global]")});
    QVERIFY(QDir().mkdir(harness().path(QStringLiteral("prach.txt"))));
    harness().boxes.answerNext(BoxAnswer::Ok);
    saveAs("mnuVSave", confirm);
    QCOMPARE(harness().bytes(QStringLiteral("zdroje.tmp")), QByteArray("[Global]\r\n"));
}

void SaveTest::listKeepsItsOrderAndMarks()
{
    fill();
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().mark(QStringLiteral("-X-"));
    saveAs("mnuVSave", confirm);
    QCOMPARE(harness().nameColumn(), QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    QCOMPARE(harness().marks(), QStringLiteral("-X-"));
}

void SaveTest::progressBarAndHourglassAreGoneBeforeAMessage()
{
    fill();
    harness().show();
    QVERIFY(QDir().mkdir(harness().path(QStringLiteral("prach.txt"))));
    bool isAtRest = false;
    harness().boxes.answerNext(BoxAnswer::Ok, [&] {
        isAtRest
            = harness().find<QProgressBar>("paProgress").isHidden() && QGuiApplication::overrideCursor() == nullptr;
    });
    saveAs("mnuVSave", confirm);
    QVERIFY(isAtRest);
}

void SaveTest::charactersThatTheFilesCannotHoldAreReported()
{
    harness().append(cPlosnyZdroj, 7, QStringLiteral("Ω"));
    harness().append(cPlosnyZdroj, 8, QStringLiteral("α β"));
    fill();
    harness().boxes.answerNext(BoxAnswer::Ok);
    saveAs("mnuVSave", confirm);
    QCOMPARE(describe(harness().boxes.shown().value(0)),
        describe({saveTitle,
            QStringLiteral("Některé znaky nelze v souborech uložit a byly nahrazeny otazníkem.\n"
                           "Počet zdrojů, kterých se to týká: 2."),
            BoxIcon::Exclamation, BoxButtons::Ok, QStringLiteral("zdroj 7\nzdroj 8")}));
    QVERIFY(harness().bytes(QStringLiteral("body.txt")).contains(" ;? ?\r\n"));
    QVERIFY(!harness().set().modified());
}

void SaveTest::nameThatTheNextLoadWillCutIsReported()
{
    harness().append(cPlosnyZdroj, 7, QStringLiteral("Sklad"));
    fill();
    harness().dialogs.useNext(QStringLiteral("frmPlosnyZdroj"), [](QDialog& editor) {
        child<QLineEdit>(editor, "txtNazevZdroje").setText(QStringLiteral("Sklad; dvůr"));
        child<QPushButton>(editor, "cbOK").click();
    });
    SourceWindows editor(harness().shell(), harness().set(), harness().window());
    harness().set().at(1).Edit(editor);
    harness().boxes.answerNext(BoxAnswer::Ok);
    saveAs("mnuVSave", confirm);
    QCOMPARE(describe(harness().boxes.shown().value(0)),
        describe({saveTitle,
            QStringLiteral("Středník ukončuje v souboru název zdroje: při příštím načtení bude název zkrácen.\n"
                           "Počet zdrojů, kterých se to týká: 1."),
            BoxIcon::Exclamation, BoxButtons::Ok, QStringLiteral("zdroj 7")}));
}

void SaveTest::charactersOfTheCommentThatTheFilesCannotHoldAreReported()
{
    fill();
    harness().window().comment(QStringLiteral("Ω"));
    harness().boxes.answerNext(BoxAnswer::Ok);
    saveAs("mnuVSave", confirm);
    QCOMPARE(describe(harness().boxes.shown().value(0)),
        describe({saveTitle,
            QStringLiteral("Některé znaky nelze v souborech uložit a byly nahrazeny otazníkem.\n"
                           "Týká se to i komentáře nebo názvu souboru v hlavičce."),
            BoxIcon::Exclamation, BoxButtons::Ok, {}}));
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::SaveTest)

#include "save_test.moc"
