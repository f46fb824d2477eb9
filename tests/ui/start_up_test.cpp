// Start-up: what the command line, the settings and their order make of the window.
#include "window_harness.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QWidget>

namespace korvex {
namespace {

QString toQString(const std::string& path)
{
    return QString::fromStdString(path);
}

/// Counts how often a window was painted.
class PaintedWindows : public QObject {
public:
    PaintedWindows() { qApp->installEventFilter(this); }
    [[nodiscard]] int seen() const { return m_seen; }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* const widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Paint && widget != nullptr && widget->isWindow())
            ++m_seen;
        return false;
    }

private:
    int m_seen = 0;
};

}  // namespace

class StartUpTest : public ShellTest {
    Q_OBJECT

private slots:
    void firstStartTakesAllDefaults();
    void settingsFillTheGlobalsWhenTheWindowIsMade();
    void damagedSettingsCountAsMissing();

    void noArgumentsOpenAnEmptyWindow();
    void oneFileNameIsIgnored();
    void switchAloneIsIgnored();
    void rememberedPathsStayWithoutFiles();

    void twoFileNamesLoadWithoutDust();
    void threeFileNamesLoadAllThree();
    void fourthFileNameIsTheDustGroupsFile();
    void filesOverwriteTheRememberedPathsAlsoWithEmptyOnes();
    void filesAloneLeaveInteractiveModeAndTheNoDustFlag();
    void iniSwitchNamesTheIniFile();
    void withoutTheIniSwitchThereIsNoIniFile();

    void commandLineSwitchHidesLoadSaveAndDustGroups();
    void commandLineSwitchWithoutDustGroupsSetsTheNoDustFlag();
    void commandLineSwitchWithDustGroupsLeavesTheNoDustFlag();
    void commandLineSwitchWithDustGroupsStillHidesTheirCommand();
    void exampleOfACompleteCommandLine();

    void missingFilesAreReportedByTheLoaderOverTheShownWindow();
    void windowIsPaintedBeforeTheFilesAreRead();
    void fileAndSwitchAreTwoArguments();
    void loadedSourcesAreNotModified();

private:
    /// Three files of two sources, as arguments.
    [[nodiscard]] QString files()
    {
        const SourceFiles written = harness().writeInventory({pointsRecord(cBodovyZdroj, 1, QStringLiteral("Kotelna")),
            pointsRecord(cBodovyZdroj, 2, QStringLiteral("Pec"))});
        return toQString(written.points + " " + written.description + " " + written.dust);
    }
    void expectLoaded(qsizetype count)
    {
        QCOMPARE(harness().nameColumn().size(), count);
        QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: %1").arg(count));
    }
};

void StartUpTest::firstStartTakesAllDefaults()
{
    harness().start({});
    const Globals& globals = harness().globals;
    QCOMPARE(globals.files.points, std::string());
    QCOMPARE(globals.files.description, std::string());
    QCOMPARE(globals.files.dust, std::string());
    QCOMPARE(globals.dustGroupsPath, std::string());
    QCOMPARE(globals.iniPath, std::string());
    QVERIFY(!globals.commandLineMode);
    QVERIFY(globals.acceptMissingDescription);
    QCOMPARE(globals.numberColumnWidth, 1755);
    QCOMPARE(globals.nameColumnWidth, 3360);
    QCOMPARE(globals.minNewId, 50000);
    QCOMPARE(globals.autoCalcXY, 0);
    QCOMPARE(globals.airPressure, 101325.0F);
    QCOMPARE(globals.noDust, 1);
    QCOMPARE(harness().window().sourceNumbers().next().value_or(0), 50001);
}

void StartUpTest::settingsFillTheGlobalsWhenTheWindowIsMade()
{
    const QString files = QStringLiteral("Soubory");
    const QString others = QStringLiteral("Ostatni");
    harness().settings.save(files, QStringLiteral("LastPathFile:1"), QStringLiteral("/a/body žluté.txt"));
    harness().settings.save(files, QStringLiteral("LastPathFile:2"), QStringLiteral("/a/popis.txt"));
    harness().settings.save(files, QStringLiteral("LastPathFile:3"), QStringLiteral("/a/prach.txt"));
    harness().settings.save(files, QStringLiteral("SouborSkupinPrachu"), QStringLiteral("/a/skupiny.spr"));
    harness().settings.save(files, QStringLiteral("ZdrojeBezPopisu"), QStringLiteral("False"));
    harness().settings.save(others, QStringLiteral("MinNewID"), QStringLiteral("60000"));
    harness().settings.save(others, QStringLiteral("AutoCalcXY"), QStringLiteral("1"));
    harness().settings.save(others, QStringLiteral("TlakVzduchu"), QStringLiteral("97000.5"));
    harness().settings.save(others, QStringLiteral("NoPrach"), QStringLiteral("0"));
    static_cast<void>(harness().window());
    const Globals& globals = harness().globals;
    QCOMPARE(globals.files.points, std::string("/a/body žluté.txt"));
    QCOMPARE(globals.files.description, std::string("/a/popis.txt"));
    QCOMPARE(globals.files.dust, std::string("/a/prach.txt"));
    QCOMPARE(globals.dustGroupsPath, std::string("/a/skupiny.spr"));
    QVERIFY(!globals.acceptMissingDescription);
    QCOMPARE(globals.minNewId, 60000);
    QCOMPARE(globals.autoCalcXY, 1);
    QCOMPARE(globals.airPressure, 97000.5F);
    QCOMPARE(globals.noDust, 0);
    QCOMPARE(harness().window().sourceNumbers().next().value_or(0), 60001);
}

void StartUpTest::damagedSettingsCountAsMissing()
{
    const QString others = QStringLiteral("Ostatni");
    harness().settings.save(QStringLiteral("Soubory"), QStringLiteral("ZdrojeBezPopisu"), QStringLiteral("ano"));
    harness().settings.save(others, QStringLiteral("MinNewID"), QStringLiteral("mnoho"));
    harness().settings.save(others, QStringLiteral("TlakVzduchu"), QStringLiteral("nan"));
    harness().settings.save(others, QStringLiteral("NoPrach"), QString());
    static_cast<void>(harness().window());
    QVERIFY(harness().globals.acceptMissingDescription);
    QCOMPARE(harness().globals.minNewId, 50000);
    QCOMPARE(harness().globals.airPressure, 101325.0F);
    QCOMPARE(harness().globals.noDust, 1);
}

void StartUpTest::noArgumentsOpenAnEmptyWindow()
{
    harness().start({});
    QVERIFY(harness().window().isVisible());
    QVERIFY(!harness().window().isModal());
    expectLoaded(0);
}

void StartUpTest::oneFileNameIsIgnored()
{
    harness().start(files().section(QLatin1Char(' '), 0, 0));
    QVERIFY(harness().window().isVisible());
    expectLoaded(0);
    QCOMPARE(harness().globals.files.points, std::string());
}

void StartUpTest::switchAloneIsIgnored()
{
    harness().start(QStringLiteral("/s"));
    QVERIFY(harness().window().isVisible());
    QVERIFY(!harness().globals.commandLineMode);
    QVERIFY(harness().item("mnuVLoad").isVisible());
}

void StartUpTest::rememberedPathsStayWithoutFiles()
{
    harness().settings.save(QStringLiteral("Soubory"), QStringLiteral("LastPathFile:1"), QStringLiteral("/a/body.txt"));
    harness().start(QStringLiteral("/b/body.txt"));
    QCOMPARE(harness().globals.files.points, std::string("/a/body.txt"));
    QVERIFY(harness().window().close());
    QCOMPARE(harness().settings.texts().value(QStringLiteral("Soubory/LastPathFile:1")), QStringLiteral("/a/body.txt"));
}

void StartUpTest::twoFileNamesLoadWithoutDust()
{
    harness().start(files().section(QLatin1Char(' '), 0, 1));
    expectLoaded(2);
    QCOMPARE(harness().globals.files.dust, std::string());
    QCOMPARE(harness().set().at(1).LineDust(), std::string("000000001,0,0,0"));
}

void StartUpTest::threeFileNamesLoadAllThree()
{
    harness().start(files());
    QVERIFY(harness().window().isVisible());
    expectLoaded(2);
    QCOMPARE(harness().nameColumn(), QStringList({QStringLiteral("Kotelna"), QStringLiteral("Pec")}));
    QCOMPARE(harness().set().at(2).Parameters(1), 40.0F);
    QCOMPARE(harness().set().at(2).LineDust(), std::string("000000002,2000,0,1,10,1"));
    QCOMPARE(harness().globals.dustGroupsPath, std::string());
}

void StartUpTest::fourthFileNameIsTheDustGroupsFile()
{
    const std::string groups = harness().writeFile(QStringLiteral("skupiny.spr"), {QStringLiteral(";Skupiny prachu")});
    harness().start(files() + QLatin1Char(' ') + toQString(groups));
    QCOMPARE(harness().globals.dustGroupsPath, groups);
    expectLoaded(2);
}

void StartUpTest::filesOverwriteTheRememberedPathsAlsoWithEmptyOnes()
{
    const QString section = QStringLiteral("Soubory");
    for (const char* const key : {"LastPathFile:1", "LastPathFile:2", "LastPathFile:3", "SouborSkupinPrachu"})
        harness().settings.save(section, QLatin1String(key), QStringLiteral("/old/name"));
    const QString names = files().section(QLatin1Char(' '), 0, 1);
    harness().start(names);
    QVERIFY(harness().window().close());
    const auto& texts = harness().settings.texts();
    QCOMPARE(texts.value(QStringLiteral("Soubory/LastPathFile:1")), names.section(QLatin1Char(' '), 0, 0));
    QCOMPARE(texts.value(QStringLiteral("Soubory/LastPathFile:2")), names.section(QLatin1Char(' '), 1, 1));
    QCOMPARE(texts.value(QStringLiteral("Soubory/LastPathFile:3"), QStringLiteral("missing")), QString());
    QCOMPARE(texts.value(QStringLiteral("Soubory/SouborSkupinPrachu"), QStringLiteral("missing")), QString());
}

void StartUpTest::filesAloneLeaveInteractiveModeAndTheNoDustFlag()
{
    harness().settings.save(QStringLiteral("Ostatni"), QStringLiteral("NoPrach"), QStringLiteral("0"));
    harness().start(files());
    QVERIFY(!harness().globals.commandLineMode);
    QCOMPARE(harness().globals.noDust, 0);
    for (const char* const name :
        {"mnuVLoad", "mnuSD2", "mnuVSaveMark", "mnuVSave", "mnuVDelimiter1", "mnuSkupinyPrachu"})
        QVERIFY2(harness().item(name).isVisible(), name);
    QVERIFY(harness().window().close());
    QCOMPARE(harness().settings.texts().value(QStringLiteral("Ostatni/NoPrach")), QStringLiteral("0"));
}

void StartUpTest::iniSwitchNamesTheIniFile()
{
    harness().start(files() + QStringLiteral(" /ini zdroje.tmp"));
    QCOMPARE(harness().globals.iniPath, std::string("zdroje.tmp"));
    QVERIFY(!harness().globals.commandLineMode);
    expectLoaded(2);
}

void StartUpTest::withoutTheIniSwitchThereIsNoIniFile()
{
    harness().start(files() + QStringLiteral(" /s"));
    QCOMPARE(harness().globals.iniPath, std::string());
}

void StartUpTest::commandLineSwitchHidesLoadSaveAndDustGroups()
{
    harness().settings.save(QStringLiteral("Ostatni"), QStringLiteral("NoPrach"), QStringLiteral("0"));
    harness().start(files() + QStringLiteral(" /s"));
    QVERIFY(harness().globals.commandLineMode);
    for (const char* const name :
        {"mnuVLoad", "mnuSD2", "mnuVSaveMark", "mnuVSave", "mnuVDelimiter1", "mnuSkupinyPrachu"})
        QVERIFY2(!harness().item(name).isVisible(), name);
    for (const char* const name : {"mnuMoznosti", "mnuExit", "mnuVZrus", "mnuVNastavZdroj"})
        QVERIFY2(harness().item(name).isVisible(), name);
    expectLoaded(2);
}

void StartUpTest::commandLineSwitchWithoutDustGroupsSetsTheNoDustFlag()
{
    harness().settings.save(QStringLiteral("Ostatni"), QStringLiteral("NoPrach"), QStringLiteral("0"));
    harness().start(files() + QStringLiteral(" /s"));
    QCOMPARE(harness().globals.noDust, 1);
    // Also for the later interactive runs.
    QVERIFY(harness().window().close());
    QCOMPARE(harness().settings.texts().value(QStringLiteral("Ostatni/NoPrach")), QStringLiteral("1"));
}

void StartUpTest::commandLineSwitchWithDustGroupsLeavesTheNoDustFlag()
{
    harness().settings.save(QStringLiteral("Ostatni"), QStringLiteral("NoPrach"), QStringLiteral("0"));
    const std::string groups = harness().writeFile(QStringLiteral("skupiny.spr"), {QStringLiteral(";Skupiny prachu")});
    harness().start(files() + QLatin1Char(' ') + toQString(groups) + QStringLiteral(" /s"));
    QCOMPARE(harness().globals.noDust, 0);
}

void StartUpTest::commandLineSwitchWithDustGroupsStillHidesTheirCommand()
{
    harness().settings.save(QStringLiteral("Ostatni"), QStringLiteral("NoPrach"), QStringLiteral("0"));
    const std::string groups = harness().writeFile(QStringLiteral("skupiny.spr"), {QStringLiteral(";Skupiny prachu")});
    harness().start(files() + QLatin1Char(' ') + toQString(groups) + QStringLiteral(" /s"));
    QVERIFY(!harness().item("mnuSkupinyPrachu").isVisible());
}

void StartUpTest::exampleOfACompleteCommandLine()
{
    const QString names = files();
    harness().start(names + QStringLiteral("  /s  /ini   zdroje.tmp"));
    const Globals& globals = harness().globals;
    QCOMPARE(toQString(globals.files.points), names.section(QLatin1Char(' '), 0, 0));
    QCOMPARE(toQString(globals.files.description), names.section(QLatin1Char(' '), 1, 1));
    QCOMPARE(toQString(globals.files.dust), names.section(QLatin1Char(' '), 2, 2));
    QCOMPARE(globals.dustGroupsPath, std::string());
    QCOMPARE(globals.iniPath, std::string("zdroje.tmp"));
    QVERIFY(globals.commandLineMode);
    expectLoaded(2);
}

void StartUpTest::missingFilesAreReportedByTheLoaderOverTheShownWindow()
{
    bool wasVisible = false;
    harness().boxes.answerNext(BoxAnswer::Ok, [&] { wasVisible = harness().window().isVisible(); });
    const QString missing = harness().path(QStringLiteral("neni.txt"));
    harness().start(missing + QLatin1Char(' ') + missing);
    QCOMPARE(describe(harness().boxes.shown().value(0)),
        describe({QStringLiteral("Načtení seznamu zdrojů"),
            QStringLiteral("Soubor nebo složka neexistuje.\n\n") + missing, BoxIcon::Critical, BoxButtons::Ok, {}}));
    QVERIFY(wasVisible);
    QVERIFY(harness().window().isVisible());
    expectLoaded(0);
}

void StartUpTest::windowIsPaintedBeforeTheFilesAreRead()
{
    // A large inventory takes a second: nobody is to look at a black window meanwhile.
    PaintedWindows painted;
    bool wasPainted = false;
    harness().boxes.answerNext(BoxAnswer::Ok, [&] { wasPainted = painted.seen() > 0; });
    const QString missing = harness().path(QStringLiteral("neni.txt"));
    harness().start(missing + QLatin1Char(' ') + missing);
    QCOMPARE(harness().boxes.shown().size(), 1);
    QVERIFY(wasPainted);
}

void StartUpTest::fileAndSwitchAreTwoArguments()
{
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().start(files().section(QLatin1Char(' '), 0, 0) + QStringLiteral(" /s"));
    // Not ignored: the description file is missing.
    QVERIFY(harness().globals.commandLineMode);
    QCOMPARE(harness().boxes.shown().value(0).text, QStringLiteral("Není zadán soubor s popisem."));
}

void StartUpTest::loadedSourcesAreNotModified()
{
    harness().start(files() + QStringLiteral(" /s"));
    QVERIFY(!harness().set().modified());
    QVERIFY(harness().window().close());
    QVERIFY(harness().boxes.shown().isEmpty());
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::StartUpTest)

#include "start_up_test.moc"
