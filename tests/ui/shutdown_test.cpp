// Shutdown: the question, the save, the caller's INI file and the settings that are written.
#include "window_harness.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>

namespace korvex {
namespace {

const QStringList inventoryNames{QStringLiteral("body.txt"), QStringLiteral("popis.txt"), QStringLiteral("prach.txt")};

}  // namespace

class ShutdownTest : public ShellTest {
    Q_OBJECT

private slots:
    void unchangedRunAsksNothingAndTouchesNoFile();
    void unchangedRunInCommandLineModeAsksNothingAndTouchesNoFile();
    void questionHasItsTextButtonsAndIconAndNoTitle();
    void exitItemClosesAsTheWindowsOwnButtonDoes();

    void commandLineModeYesSavesToTheSameFilesWithoutADialog();
    void commandLineModeYesRecordsTheFilesInTheIniFile();
    void commandLineModeYesClosesAlsoWhenTheSaveFails();
    void commandLineModeNoDiscardsTheChanges();
    void failedSaveLeavesTheIniFile();

    void interactiveYesAsksForTheFilesAndSaves();
    void interactiveYesRecordsTheFilesInTheIniFile();
    void interactiveYesWithTheDialogCancelledStaysOpen();
    void interactiveYesWithAFailedSaveStaysOpen();
    void interactiveNoDiscardsTheChanges();
    void refusedClosingWritesNoSettings();

    void withoutDustFileTheIniEntryIsEmpty();
    void withoutIniSwitchNoIniFileIsMade();
    void missingFolderOfTheIniFileIsNoError();

    void saveWritesTheRowsInDisplayOrder();
    void saveShowsItsProgress();

    void statusTextAndHourglassWhileClosing();
    void closingReleasesTheSourceSet();
    void closingWritesAllSettings();
    void closingWritesTheColumnWidthsInTwips();
    void columnWidthsSurviveARunUnchanged();
    void closingStoresThePlacement();

private:
    /// Starts with the three files of two sources, deletes the second one, so that there is something to save.
    void startAndChange(const QString& switches);
    void change();
    [[nodiscard]] QList<QByteArray> inventoryBytes();
    /// What the save writes once the second source is gone.
    void expectSaved();
};

void ShutdownTest::startAndChange(const QString& switches)
{
    const SourceFiles files = harness().writeInventory({pointsRecord(cBodovyZdroj, 1, QStringLiteral("Kotelna")),
        pointsRecord(cPlosnyZdroj, 2, QStringLiteral("Žďár"))});
    harness().start(QString::fromStdString(files.points + " " + files.description + " " + files.dust) + switches);
    change();
}

void ShutdownTest::change()
{
    harness().mark(QStringLiteral("-X"));
    harness().item("mnuVZrusVybrane").trigger();
    QVERIFY(harness().set().modified());
}

QList<QByteArray> ShutdownTest::inventoryBytes()
{
    QList<QByteArray> bytes;
    for (const QString& name : inventoryNames)
        bytes << harness().bytes(name);
    return bytes;
}

void ShutdownTest::expectSaved()
{
    QCOMPARE(
        harness().bytes(inventoryNames.at(0)), QByteArray("000000001, 0000000, 0000000, 0000, 1, 0, 0 ;Kotelna\r\n"));
    QCOMPARE(
        harness().bytes(inventoryNames.at(1)), QByteArray("000000001, 1.5, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 0\r\n"));
    QCOMPARE(harness().bytes(inventoryNames.at(2)), QByteArray("000000001,2000,0,1,10,1\r\n"));
}

void ShutdownTest::unchangedRunAsksNothingAndTouchesNoFile()
{
    const SourceFiles files = harness().writeInventory({pointsRecord(cBodovyZdroj, 1, QStringLiteral("Kotelna"))});
    const std::string ini = harness().writeFile(QStringLiteral("zdroje.tmp"), {QStringLiteral("[Global]")});
    const QDateTime longAgo(QDate(2001, 2, 3), QTime(4, 5, 6));
    for (const QString& name : inventoryNames + QStringList{QStringLiteral("zdroje.tmp")}) {
        QFile file(harness().path(name));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(longAgo, QFileDevice::FileModificationTime));
    }
    const QList<QByteArray> before = inventoryBytes();
    harness().start(QString::fromStdString(files.points + " " + files.description + " " + files.dust + " /ini " + ini));
    QVERIFY(harness().window().close());
    QVERIFY(!harness().window().isVisible());
    QVERIFY(harness().boxes.shown().isEmpty());
    QCOMPARE(inventoryBytes(), before);
    QCOMPARE(harness().bytes(QStringLiteral("zdroje.tmp")), QByteArray("[Global]\r\n"));
    for (const QString& name : inventoryNames + QStringList{QStringLiteral("zdroje.tmp")})
        QCOMPARE(QFileInfo(harness().path(name)).lastModified(), longAgo);
}

void ShutdownTest::unchangedRunInCommandLineModeAsksNothingAndTouchesNoFile()
{
    const SourceFiles files = harness().writeInventory({pointsRecord(cBodovyZdroj, 1, QStringLiteral("Kotelna"))});
    const QList<QByteArray> before = inventoryBytes();
    harness().start(QString::fromStdString(files.points + " " + files.description + " " + files.dust + " /s /ini "
        + harness().path(QStringLiteral("zdroje.tmp")).toStdString()));
    QVERIFY(harness().window().close());
    QVERIFY(harness().boxes.shown().isEmpty());
    QCOMPARE(inventoryBytes(), before);
    QVERIFY(!QFile::exists(harness().path(QStringLiteral("zdroje.tmp"))));
}

void ShutdownTest::questionHasItsTextButtonsAndIconAndNoTitle()
{
    startAndChange({});
    harness().boxes.answerNext(BoxAnswer::No);
    QVERIFY(harness().window().close());
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(describe(harness().boxes.shown().first()),
        describe({{}, QStringLiteral("Uložit změny ?"), BoxIcon::Question, BoxButtons::YesNo, {}}));
}

void ShutdownTest::exitItemClosesAsTheWindowsOwnButtonDoes()
{
    startAndChange({});
    harness().boxes.answerNext(BoxAnswer::No);
    harness().item("mnuExit").trigger();
    QVERIFY(!harness().window().isVisible());
    QCOMPARE(harness().boxes.shown().size(), 1);
    QVERIFY(harness().settings.texts().contains(QStringLiteral("Tabulky/Tab1Sl1")));
}

void ShutdownTest::commandLineModeYesSavesToTheSameFilesWithoutADialog()
{
    startAndChange(QStringLiteral(" /s"));
    harness().boxes.answerNext(BoxAnswer::Yes);
    QVERIFY(harness().window().close());
    QVERIFY(!harness().window().isVisible());
    QCOMPARE(harness().boxes.shown().size(), 1);
    expectSaved();
}

void ShutdownTest::commandLineModeYesRecordsTheFilesInTheIniFile()
{
    harness().writeFile(QStringLiteral("zdroje.tmp"),
        {QStringLiteral("; výpočet"), QStringLiteral("[Jiny]"), QStringLiteral("VstZdrojBodTxt=nic"), QString(),
            QStringLiteral("[Global]"), QStringLiteral("VstZdrojPopTxt=stary.txt"), QStringLiteral("Klíč=hodnota")});
    startAndChange(QStringLiteral(" /s /ini ") + harness().path(QStringLiteral("zdroje.tmp")));
    harness().boxes.answerNext(BoxAnswer::Yes);
    QVERIFY(harness().window().close());
    const QByteArray expected = QByteArray("; v\xFDpo\xE8"
                                           "et\r\n[Jiny]\r\nVstZdrojBodTxt=nic\r\n\r\n[Global]\r\nVstZdrojPopTxt=")
        + QFile::encodeName(harness().path(QStringLiteral("popis.txt")))
        + "\r\nKl\xED\xE8=hodnota\r\nVstZdrojBodTxt=" + QFile::encodeName(harness().path(QStringLiteral("body.txt")))
        + "\r\nVstZdrojPrachTxt=" + QFile::encodeName(harness().path(QStringLiteral("prach.txt"))) + "\r\n";
    QCOMPARE(harness().bytes(QStringLiteral("zdroje.tmp")), expected);
}

void ShutdownTest::commandLineModeYesClosesAlsoWhenTheSaveFails()
{
    startAndChange(QStringLiteral(" /s"));
    const QString points = harness().path(QStringLiteral("body.txt"));
    QVERIFY(QFile::remove(points));
    QVERIFY(QDir().mkdir(points));
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(harness().window().close());
    QVERIFY(!harness().window().isVisible());
    QCOMPARE(harness().boxes.shown().size(), 2);
    QCOMPARE(describe(harness().boxes.shown().at(1)),
        describe({QStringLiteral("Uložení seznamu zdrojů"), QStringLiteral("Místo souboru je zde složka.\n\n") + points,
            BoxIcon::Critical, BoxButtons::Ok, {}}));
    QVERIFY(harness().settings.texts().contains(QStringLiteral("Tabulky/Tab1Sl1")));
}

void ShutdownTest::commandLineModeNoDiscardsTheChanges()
{
    startAndChange(QStringLiteral(" /s /ini ") + harness().path(QStringLiteral("zdroje.tmp")));
    const QList<QByteArray> before = inventoryBytes();
    harness().boxes.answerNext(BoxAnswer::No);
    QVERIFY(harness().window().close());
    QVERIFY(!harness().window().isVisible());
    QCOMPARE(inventoryBytes(), before);
    QVERIFY(!QFile::exists(harness().path(QStringLiteral("zdroje.tmp"))));
}

void ShutdownTest::failedSaveLeavesTheIniFile()
{
    harness().writeFile(QStringLiteral("zdroje.tmp"), {QStringLiteral("[Global]")});
    startAndChange(QStringLiteral(" /s /ini ") + harness().path(QStringLiteral("zdroje.tmp")));
    QVERIFY(QFile::remove(harness().path(QStringLiteral("body.txt"))));
    QVERIFY(QDir().mkdir(harness().path(QStringLiteral("body.txt"))));
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(harness().window().close());
    QCOMPARE(harness().bytes(QStringLiteral("zdroje.tmp")), QByteArray("[Global]\r\n"));
}

void ShutdownTest::interactiveYesAsksForTheFilesAndSaves()
{
    startAndChange({});
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().dialogs.useNext(QStringLiteral("frmSaveZdroje"), [this](QDialog& dialog) {
        QCOMPARE(
            dialog.findChild<QLineEdit*>(QStringLiteral("tbBOD"))->text(), harness().path(QStringLiteral("body.txt")));
        dialog.findChild<QLineEdit*>(QStringLiteral("tbBOD"))->setText(harness().path(QStringLiteral("jine.txt")));
        dialog.findChild<QPushButton*>(QStringLiteral("cbOk"))->click();
    });
    const QByteArray before = harness().bytes(QStringLiteral("body.txt"));
    QVERIFY(harness().window().close());
    QVERIFY(!harness().window().isVisible());
    QCOMPARE(harness().bytes(QStringLiteral("body.txt")), before);
    QCOMPARE(harness().bytes(QStringLiteral("jine.txt")),
        QByteArray("000000001, 0000000, 0000000, 0000, 1, 0, 0 ;Kotelna\r\n"));
    QCOMPARE(harness().settings.texts().value(QStringLiteral("Soubory/LastPathFile:1")),
        harness().path(QStringLiteral("jine.txt")));
}

void ShutdownTest::interactiveYesRecordsTheFilesInTheIniFile()
{
    startAndChange(QStringLiteral(" /ini ") + harness().path(QStringLiteral("zdroje.tmp")));
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().dialogs.useNext(QStringLiteral("frmSaveZdroje"),
        [](QDialog& dialog) { dialog.findChild<QPushButton*>(QStringLiteral("cbOk"))->click(); });
    QVERIFY(harness().window().close());
    expectSaved();
    QCOMPARE(harness().bytes(QStringLiteral("zdroje.tmp")),
        QByteArray("[Global]\r\nVstZdrojBodTxt=") + QFile::encodeName(harness().path(QStringLiteral("body.txt")))
            + "\r\nVstZdrojPopTxt=" + QFile::encodeName(harness().path(QStringLiteral("popis.txt")))
            + "\r\nVstZdrojPrachTxt=" + QFile::encodeName(harness().path(QStringLiteral("prach.txt"))) + "\r\n");
}

void ShutdownTest::interactiveYesWithTheDialogCancelledStaysOpen()
{
    startAndChange({});
    const QList<QByteArray> before = inventoryBytes();
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().dialogs.useNext(QStringLiteral("frmSaveZdroje"),
        [](QDialog& dialog) { dialog.findChild<QPushButton*>(QStringLiteral("cbStorno"))->click(); });
    QVERIFY(!harness().window().close());
    QVERIFY(harness().window().isVisible());
    QCOMPARE(inventoryBytes(), before);
    QVERIFY(harness().set().modified());
    QCOMPARE(harness().nameColumn(), QStringList{QStringLiteral("Kotelna")});
}

void ShutdownTest::interactiveYesWithAFailedSaveStaysOpen()
{
    startAndChange({});
    QVERIFY(QFile::remove(harness().path(QStringLiteral("popis.txt"))));
    QVERIFY(QDir().mkdir(harness().path(QStringLiteral("popis.txt"))));
    const QByteArray points = harness().bytes(QStringLiteral("body.txt"));
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().dialogs.useNext(QStringLiteral("frmSaveZdroje"),
        [](QDialog& dialog) { dialog.findChild<QPushButton*>(QStringLiteral("cbOk"))->click(); });
    QVERIFY(!harness().window().close());
    QVERIFY(harness().window().isVisible());
    QCOMPARE(harness().boxes.shown().value(1).icon, BoxIcon::Critical);
    QVERIFY(harness().set().modified());
    QCOMPARE(harness().bytes(QStringLiteral("body.txt")), points);
}

void ShutdownTest::interactiveNoDiscardsTheChanges()
{
    startAndChange({});
    const QList<QByteArray> before = inventoryBytes();
    harness().boxes.answerNext(BoxAnswer::No);
    QVERIFY(harness().window().close());
    QVERIFY(!harness().window().isVisible());
    QCOMPARE(inventoryBytes(), before);
}

void ShutdownTest::refusedClosingWritesNoSettings()
{
    startAndChange({});
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().dialogs.useNext(QStringLiteral("frmSaveZdroje"),
        [](QDialog& dialog) { dialog.findChild<QPushButton*>(QStringLiteral("cbStorno"))->click(); });
    QVERIFY(!harness().window().close());
    for (auto text = harness().settings.texts().keyBegin(); text != harness().settings.texts().keyEnd(); ++text)
        QVERIFY2(text->startsWith(QLatin1String("SubForm:")), qPrintable(*text));
}

void ShutdownTest::withoutDustFileTheIniEntryIsEmpty()
{
    const SourceFiles files = harness().writeInventory({pointsRecord(cBodovyZdroj, 1, QStringLiteral("Kotelna")),
        pointsRecord(cPlosnyZdroj, 2, QStringLiteral("Žďár"))});
    const QByteArray dust = harness().bytes(QStringLiteral("prach.txt"));
    harness().start(QString::fromStdString(files.points + " " + files.description) + QStringLiteral(" /s /ini ")
        + harness().path(QStringLiteral("zdroje.tmp")));
    change();
    harness().boxes.answerNext(BoxAnswer::Yes);
    QVERIFY(harness().window().close());
    QVERIFY(harness().bytes(QStringLiteral("zdroje.tmp")).endsWith("\r\nVstZdrojPrachTxt=\r\n"));
    QCOMPARE(harness().bytes(QStringLiteral("prach.txt")), dust);
}

void ShutdownTest::withoutIniSwitchNoIniFileIsMade()
{
    startAndChange(QStringLiteral(" /s"));
    harness().boxes.answerNext(BoxAnswer::Yes);
    QVERIFY(harness().window().close());
    QStringList expected = inventoryNames;
    expected.sort();
    QCOMPARE(QDir(harness().path({})).entryList(QDir::Files, QDir::Name), expected);
}

void ShutdownTest::missingFolderOfTheIniFileIsNoError()
{
    startAndChange(QStringLiteral(" /s /ini ") + harness().path(QStringLiteral("neni/zdroje.tmp")));
    harness().boxes.answerNext(BoxAnswer::Yes);
    QVERIFY(harness().window().close());
    QCOMPARE(harness().boxes.shown().size(), 1);
    expectSaved();
}

void ShutdownTest::saveWritesTheRowsInDisplayOrder()
{
    const SourceFiles files = harness().writeInventory({pointsRecord(cPlosnyZdroj, 3, QStringLiteral("c")),
        pointsRecord(cPlosnyZdroj, 1, QStringLiteral("a")), pointsRecord(cPlosnyZdroj, 2, QStringLiteral("b"))});
    harness().start(
        QString::fromStdString(files.points + " " + files.description + " " + files.dust) + QStringLiteral(" /s"));
    harness().set().modified(true);
    harness().clickHeader(SourceListModel::NumberColumn);
    harness().boxes.answerNext(BoxAnswer::Yes);
    QVERIFY(harness().window().close());
    QCOMPARE(harness().bytes(QStringLiteral("prach.txt")), QByteArray("000000001\r\n000000002\r\n000000003\r\n"));
}

void ShutdownTest::saveShowsItsProgress()
{
    startAndChange(QStringLiteral(" /s"));
    harness().append(cPlosnyZdroj, 8);
    harness().append(cPlosnyZdroj, 9);
    harness().window().refill();
    auto& bar = harness().find<QProgressBar>("paProgress");
    QList<int> values;
    QList<int> maxima;
    bool alwaysShown = true;
    bool alwaysHourglass = true;
    const auto note = [&](int value) {
        // The bar begins at nothing and is reset to it.
        if (value <= bar.minimum())
            return;
        values << value;
        maxima << bar.maximum();
        alwaysHourglass = alwaysHourglass && QGuiApplication::overrideCursor() != nullptr;
        alwaysShown = alwaysShown && bar.isVisible();
    };
    const auto connection = connect(&bar, &QProgressBar::valueChanged, this, note);
    harness().boxes.answerNext(BoxAnswer::Yes);
    QVERIFY(harness().window().close());
    disconnect(connection);
    QCOMPARE(values, QList<int>({1, 2, 3}));
    QCOMPARE(maxima, QList<int>({5, 5, 5}));
    QVERIFY(alwaysShown);
    QVERIFY(alwaysHourglass);
    QVERIFY(bar.isHidden());
}

void ShutdownTest::statusTextAndHourglassWhileClosing()
{
    harness().show();
    const StatusSpy spy(harness().window());
    QVERIFY(harness().window().close());
    QVERIFY(!spy.moments().isEmpty());
    QCOMPARE(spy.moments().first().text, QStringLiteral("Končím…"));
    QVERIFY(spy.moments().first().hourglass);
}

void ShutdownTest::closingReleasesTheSourceSet()
{
    startAndChange({});
    harness().boxes.answerNext(BoxAnswer::No);
    QVERIFY(harness().window().close());
    QVERIFY(harness().set().empty());
    QCOMPARE(harness().model().rowCount(), 0);
}

void ShutdownTest::closingWritesAllSettings()
{
    harness().show();
    Globals& globals = harness().globals;
    globals.files = {"/a/body žluté.txt", "/a/popis.txt", ""};
    globals.dustGroupsPath = "/a/skupiny.spr";
    globals.acceptMissingDescription = false;
    globals.minNewId = 60000;
    globals.autoCalcXY = 1;
    globals.airPressure = 97000.5F;
    globals.noDust = 0;
    QVERIFY(harness().window().close());
    QMap<QString, QString> texts = harness().settings.texts();
    for (const QString& key : texts.keys()) {
        if (key.startsWith(QLatin1String("Form:")))
            texts.remove(key);
    }
    const QMap<QString, QString> expected{
        {QStringLiteral("Soubory/LastPathFile:1"), QStringLiteral("/a/body žluté.txt")},
        {QStringLiteral("Soubory/LastPathFile:2"), QStringLiteral("/a/popis.txt")},
        {QStringLiteral("Soubory/LastPathFile:3"), QString()},
        {QStringLiteral("Soubory/ZdrojeBezPopisu"), QStringLiteral("False")},
        {QStringLiteral("Soubory/SouborSkupinPrachu"), QStringLiteral("/a/skupiny.spr")},
        {QStringLiteral("Tabulky/Tab1Sl1"), QStringLiteral("1755")},
        {QStringLiteral("Tabulky/Tab1Sl2"), QStringLiteral("3360")},
        {QStringLiteral("Ostatni/MinNewID"), QStringLiteral("60000")},
        {QStringLiteral("Ostatni/AutoCalcXY"), QStringLiteral("1")},
        {QStringLiteral("Ostatni/TlakVzduchu"), QStringLiteral("97000.5")},
        {QStringLiteral("Ostatni/NoPrach"), QStringLiteral("0")},
    };
    QCOMPARE(texts, expected);
}

void ShutdownTest::closingWritesTheColumnWidthsInTwips()
{
    harness().show();
    harness().header().resizeSection(SourceListModel::NumberColumn, 100);
    harness().header().resizeSection(SourceListModel::NameColumn, 300);
    QVERIFY(harness().window().close());
    QCOMPARE(harness().settings.texts().value(QStringLiteral("Tabulky/Tab1Sl1")), QStringLiteral("1500"));
    QCOMPARE(harness().settings.texts().value(QStringLiteral("Tabulky/Tab1Sl2")), QStringLiteral("4500"));
}

void ShutdownTest::columnWidthsSurviveARunUnchanged()
{
    harness().settings.save(QStringLiteral("Tabulky"), QStringLiteral("Tab1Sl1"), QStringLiteral("2100"));
    harness().settings.save(QStringLiteral("Tabulky"), QStringLiteral("Tab1Sl2"), QStringLiteral("4005"));
    harness().show();
    QVERIFY(harness().window().close());
    QCOMPARE(harness().settings.texts().value(QStringLiteral("Tabulky/Tab1Sl1")), QStringLiteral("2100"));
    QCOMPARE(harness().settings.texts().value(QStringLiteral("Tabulky/Tab1Sl2")), QStringLiteral("4005"));
}

void ShutdownTest::closingStoresThePlacement()
{
    harness().show();
    QVERIFY(harness().window().close());
    for (const char* const key : {"Top", "Left", "Width", "Height", "WindowState"})
        QVERIFY2(harness().settings.texts().contains(QStringLiteral("Form:frmKORVEXZDR/") + QLatin1String(key)), key);
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::ShutdownTest)

#include "shutdown_test.moc"
