// What one run of the program leaves for the next one, through the real settings file.
#include "dialog_checks.h"
#include "window_harness.h"

#include "user_folders.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>

#include <functional>
#include <random>
#include <string>
#include <unistd.h>

namespace korvex {
namespace {

/// A new, empty folder for settings as long as it lives.
class FreshHome {
public:
    FreshHome() { qputenv(variable, QFile::encodeName(m_folder.path())); }
    FreshHome(const FreshHome&) = delete;
    FreshHome& operator=(const FreshHome&) = delete;
    ~FreshHome()
    {
        // What a test made read-only has to be removed all the same.
        QFile::setPermissions(
            m_folder.filePath(QStringLiteral("korvexzdr")), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv(variable, m_before);
    }

    [[nodiscard]] QString path() const { return m_folder.path(); }

private:
    static constexpr const char* variable = "XDG_CONFIG_HOME";

    QByteArray m_before = qgetenv(variable);
    QTemporaryDir m_folder;
};

/// One run of the program, with the store that it really has.
class Run {
public:
    explicit Run(WindowHarness& harness)
        : fileDialogs(harness.chooser, settings)
        , window({globals, settings, harness.boxes, fileDialogs, harness.clipboard})
    {
    }

    void show()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        settle();
    }
    [[nodiscard]] bool close()
    {
        settle();
        return window.close();
    }
    static void settle()
    {
        QCoreApplication::processEvents();
        QTest::qWait(0);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QAction& item(const char* name)
    {
        auto* const found = window.findChild<QAction*>(QLatin1String(name));
        if (found == nullptr)
            qFatal("The window has no %s.", name);
        return *found;
    }
    [[nodiscard]] QHeaderView& header() { return *window.listView().horizontalHeader(); }

    Globals globals;
    UserSettings settings;
    FileDialogs fileDialogs;
    frmKORVEXZDR window;
};

void press(QDialog& dialog, const char* button)
{
    child<QAbstractButton>(dialog, button).click();
}

QString toQString(const std::string& path)
{
    return QFile::decodeName(QByteArray::fromStdString(path));
}

QString settingsFile()
{
    return settingsFolder() + QStringLiteral("/korvexzdr.ini");
}

QByteArray settingsBytes()
{
    QFile file(settingsFile());
    if (!file.open(QIODevice::ReadOnly))
        return "no file";
    return file.readAll();
}

void writeSettings(const QByteArray& bytes)
{
    QVERIFY(QDir().mkpath(settingsFolder()));
    QFile file(settingsFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

}  // namespace

class TwoRunsTest : public ShellTest {
    Q_OBJECT

private slots:
    void storeLiesInTheProgramsOwnFolder();
    void firstRunHasAllDefaults();
    void runWithoutChangesWritesEveryKeyOfTheTable();
    void secondRunFindsTheLoadedPaths();
    void secondRunFindsTheOptions();
    void secondRunFindsColumnWidthsAndPlacement();
    void secondRunFindsAMaximisedWindowWithItsNormalBounds();
    void secondRunFindsTheOtherValues();
    void secondRunFindsTheFileDialogsPathsAndTheDialogsPlacement();
    void pathsSurviveWhateverTheirCharacters_data();
    void pathsSurviveWhateverTheirCharacters();
    void realsAreStoredWithAPointWhateverTheLocale();
    void fiveRunsWithoutChangesLeaveTheStoreAsItIs();
    void runThatIsNotClosedStoresNothing();

    void storeThatCannotBeWrittenDoesNotStopTheProgram_data();
    void storeThatCannotBeWrittenDoesNotStopTheProgram();
    void damagedStoreNeitherCrashesNorWarns_data();
    void damagedStoreNeitherCrashesNorWarns();
    void randomStoreNeitherCrashesNorWarns();
    void damagedValuesReadAsTheirDefaults_data();
    void damagedValuesReadAsTheirDefaults();

private:
    void inDialog(Run& run, const char* dialog, const char* command, std::function<void(QDialog&)> use)
    {
        harness().dialogs.useNext(QLatin1String(dialog), std::move(use));
        run.item(command).trigger();
    }
};

void TwoRunsTest::storeLiesInTheProgramsOwnFolder()
{
    const FreshHome home;
    {
        Run run(harness());
        QVERIFY(run.close());
    }
    QVERIFY(QFileInfo::exists(home.path() + QStringLiteral("/korvexzdr/korvexzdr.ini")));
    QCOMPARE(
        QDir(home.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{QStringLiteral("korvexzdr")});
}

void TwoRunsTest::firstRunHasAllDefaults()
{
    const FreshHome home;
    Run run(harness());
    run.show();
    QCOMPARE(run.globals.files.points, std::string());
    QCOMPARE(run.globals.files.description, std::string());
    QCOMPARE(run.globals.files.dust, std::string());
    QVERIFY(run.globals.acceptMissingDescription);
    QCOMPARE(run.globals.dustGroupsPath, std::string());
    QCOMPARE(run.globals.numberColumnWidth, 1755);
    QCOMPARE(run.globals.nameColumnWidth, 3360);
    QCOMPARE(run.globals.minNewId, 50000);
    QCOMPARE(run.globals.autoCalcXY, 0);
    QCOMPARE(run.globals.airPressure, 101325.0F);
    QCOMPARE(run.globals.noDust, 1);
    QCOMPARE(run.window.pos(), QPoint(0, 0));
    QVERIFY(!run.item("mnuSkupinyPrachu").isVisible());
}

void TwoRunsTest::runWithoutChangesWritesEveryKeyOfTheTable()
{
    const FreshHome home;
    {
        Run run(harness());
        run.show();
        QVERIFY(run.close());
    }
    const UserSettings store;
    const auto stored = [&store](const char* section, const char* key) {
        return store.get(QLatin1String(section), QLatin1String(key), QStringLiteral("nothing"));
    };
    for (const char* const key : {"LastPathFile:1", "LastPathFile:2", "LastPathFile:3", "SouborSkupinPrachu"})
        QCOMPARE(stored("Soubory", key), QString());
    QCOMPARE(stored("Soubory", "ZdrojeBezPopisu"), QStringLiteral("True"));
    QCOMPARE(stored("Tabulky", "Tab1Sl1"), QStringLiteral("1755"));
    QCOMPARE(stored("Tabulky", "Tab1Sl2"), QStringLiteral("3360"));
    QCOMPARE(stored("Ostatni", "MinNewID"), QStringLiteral("50000"));
    QCOMPARE(stored("Ostatni", "AutoCalcXY"), QStringLiteral("0"));
    QCOMPARE(stored("Ostatni", "TlakVzduchu"), QStringLiteral("101325"));
    QCOMPARE(stored("Ostatni", "NoPrach"), QStringLiteral("1"));
    QCOMPARE(stored("Form:frmKORVEXZDR", "Top"), QStringLiteral("0"));
    QCOMPARE(stored("Form:frmKORVEXZDR", "WindowState"), QStringLiteral("0"));
}

void TwoRunsTest::secondRunFindsTheLoadedPaths()
{
    const FreshHome home;
    const SourceFiles files = harness().writeInventory({pointsRecord(cBodovyZdroj, 1, QStringLiteral("X"))});
    {
        Run run(harness());
        run.show();
        inDialog(run, "frmLoadZdroje", "mnuVLoad", [&](QDialog& dialog) {
            child<QLineEdit>(dialog, "tbBOD").setText(toQString(files.points));
            child<QLineEdit>(dialog, "tbPOP").setText(toQString(files.description));
            child<QLineEdit>(dialog, "tbPRA").setText(toQString(files.dust));
            child<QCheckBox>(dialog, "chNoPrach").setChecked(false);
            press(dialog, "cbOk");
        });
        QCOMPARE(run.window.list().set().size(), std::size_t{1});
        QVERIFY(run.close());
    }
    Run run(harness());
    QVERIFY(run.window.list().set().empty());
    inDialog(run, "frmLoadZdroje", "mnuVLoad", [&](QDialog& dialog) {
        QCOMPARE(child<QLineEdit>(dialog, "tbBOD").text(), toQString(files.points));
        QCOMPARE(child<QLineEdit>(dialog, "tbPOP").text(), toQString(files.description));
        QCOMPARE(child<QLineEdit>(dialog, "tbPRA").text(), toQString(files.dust));
        press(dialog, "cbStorno");
    });
}

void TwoRunsTest::secondRunFindsTheOptions()
{
    const FreshHome home;
    {
        Run run(harness());
        run.show();
        inDialog(run, "frmOptions", "mnuMoznosti", [](QDialog& dialog) {
            child<QLineEdit>(dialog, "tbMinNewID").setText(QStringLiteral("-60000"));
            child<QCheckBox>(dialog, "chbNoPrach").setChecked(false);
            child<QCheckBox>(dialog, "chZaradit").setChecked(false);
            press(dialog, "cmdOk");
        });
        QVERIFY(run.close());
    }
    Run run(harness());
    QVERIFY(run.item("mnuSkupinyPrachu").isVisible());
    QCOMPARE(run.window.sourceNumbers().last(), 60000);
    inDialog(run, "frmOptions", "mnuMoznosti", [](QDialog& dialog) {
        QCOMPARE(child<QLineEdit>(dialog, "tbMinNewID").text(), QStringLiteral("60000"));
        QVERIFY(!child<QCheckBox>(dialog, "chbNoPrach").isChecked());
        QVERIFY(!child<QCheckBox>(dialog, "chZaradit").isChecked());
        press(dialog, "Storno");
    });
}

void TwoRunsTest::secondRunFindsColumnWidthsAndPlacement()
{
    const FreshHome home;
    {
        Run run(harness());
        run.show();
        run.header().resizeSection(SourceListModel::NumberColumn, 131);
        run.header().resizeSection(SourceListModel::NameColumn, 277);
        run.window.resize(613, 457);
        run.window.move(37, 51);
        QVERIFY(run.close());
    }
    Run run(harness());
    run.show();
    QCOMPARE(run.header().sectionSize(SourceListModel::NumberColumn), 131);
    QCOMPARE(run.header().sectionSize(SourceListModel::NameColumn), 277);
    QCOMPARE(run.window.size(), QSize(613, 457));
    QCOMPARE(run.window.pos(), QPoint(37, 51));
}

void TwoRunsTest::secondRunFindsAMaximisedWindowWithItsNormalBounds()
{
    const FreshHome home;
    {
        Run run(harness());
        run.show();
        run.window.resize(613, 457);
        run.window.move(37, 51);
        Run::settle();
        run.window.showMaximized();
        QVERIFY(run.close());
    }
    Run run(harness());
    run.show();
    QVERIFY(run.window.isMaximized());
    run.window.showNormal();
    Run::settle();
    QCOMPARE(run.window.size(), QSize(613, 457));
    QCOMPARE(run.window.pos(), QPoint(37, 51));
}

void TwoRunsTest::secondRunFindsTheOtherValues()
{
    const FreshHome home;
    {
        Run run(harness());
        run.globals.dustGroupsPath = "/data/skupiny.spr";
        run.globals.autoCalcXY = 1;
        run.globals.airPressure = 98765.43F;
        QVERIFY(run.close());
    }
    const Run run(harness());
    QCOMPARE(run.globals.dustGroupsPath, std::string("/data/skupiny.spr"));
    QCOMPARE(run.globals.autoCalcXY, 1);
    QCOMPARE(run.globals.airPressure, 98765.43F);
}

void TwoRunsTest::secondRunFindsTheFileDialogsPathsAndTheDialogsPlacement()
{
    const FreshHome home;
    QPoint left;
    {
        Run run(harness());
        run.show();
        harness().chooser.answerNext(QStringLiteral("/one/žluť.txt"));
        inDialog(run, "frmLoadZdroje", "mnuVLoad", [&](QDialog& dialog) {
            press(dialog, "cbOpenPOP");
            dialog.move(run.window.pos() + QPoint(40, 60));
            left = QPoint(40, 60);
            press(dialog, "cbStorno");
        });
        QVERIFY(run.close());
    }
    Run run(harness());
    run.show();
    harness().chooser.answerNext({});
    inDialog(run, "frmLoadZdroje", "mnuVLoad", [&](QDialog& dialog) {
        QCOMPARE(dialog.pos() - run.window.pos(), left);
        press(dialog, "cbOpenPOP");
        press(dialog, "cbStorno");
    });
    QCOMPARE(harness().chooser.shown().last().question.folder, QStringLiteral("/one/"));
    QCOMPARE(harness().chooser.shown().last().question.name, QStringLiteral("žluť.txt"));
}

void TwoRunsTest::pathsSurviveWhateverTheirCharacters_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("blanks and Czech letters") << QStringLiteral("/má data/žluťoučký kůň.txt");
    QTest::newRow("commas") << QStringLiteral("/a,b,c.txt");
    QTest::newRow("semicolon, quotes and equals") << QStringLiteral("/a;\"b\"='c'.txt");
    QTest::newRow("per cent and backslash") << QStringLiteral("/100%2F\\n.txt");
    QTest::newRow("at sign first") << QStringLiteral("@Variant(x)/b.txt");
    QTest::newRow("brackets") << QStringLiteral("[Soubory]/b.txt");
    QTest::newRow("beyond the code page") << QStringLiteral("/данные/数据.txt");
    QTest::newRow("250 characters") << QLatin1Char('/') + QString(250, QChar(0x17E));
}

void TwoRunsTest::pathsSurviveWhateverTheirCharacters()
{
    const FreshHome home;
    QFETCH(const QString, path);
    const std::string bytes = QFile::encodeName(path).toStdString();
    {
        Run run(harness());
        run.globals.files = {bytes, bytes, bytes};
        run.globals.dustGroupsPath = bytes;
        QVERIFY(run.close());
    }
    const Run run(harness());
    QCOMPARE(run.globals.files.points, bytes);
    QCOMPARE(run.globals.files.description, bytes);
    QCOMPARE(run.globals.files.dust, bytes);
    QCOMPARE(run.globals.dustGroupsPath, bytes);
}

void TwoRunsTest::realsAreStoredWithAPointWhateverTheLocale()
{
    const FreshHome home;
    {
        Run run(harness());
        run.globals.airPressure = 98765.5F;
        QVERIFY(run.close());
    }
    QVERIFY2(settingsBytes().contains("TlakVzduchu=98765.5"), settingsBytes().constData());
}

void TwoRunsTest::fiveRunsWithoutChangesLeaveTheStoreAsItIs()
{
    const FreshHome home;
    {
        Run run(harness());
        run.show();
        run.window.resize(613, 457);
        run.window.move(37, 51);
        QVERIFY(run.close());
    }
    const QByteArray first = settingsBytes();
    QVERIFY(first.contains("MinNewID=50000"));
    for (int i = 0; i < 5; ++i) {
        {
            Run run(harness());
            run.show();
            QVERIFY(run.close());
        }
        QCOMPARE(settingsBytes(), first);
    }
}

void TwoRunsTest::runThatIsNotClosedStoresNothing()
{
    const FreshHome home;
    {
        Run run(harness());
        run.show();
        run.globals.minNewId = 60000;
    }
    QVERIFY(!QFileInfo::exists(settingsFile()));
}

void TwoRunsTest::storeThatCannotBeWrittenDoesNotStopTheProgram_data()
{
    QTest::addColumn<int>("obstacle");
    QTest::newRow("a file in the place of the folder") << 0;
    QTest::newRow("a folder in the place of the file") << 1;
    QTest::newRow("a folder that is read-only") << 2;
}

void TwoRunsTest::storeThatCannotBeWrittenDoesNotStopTheProgram()
{
    const FreshHome home;
    QFETCH(const int, obstacle);
    if (obstacle == 0) {
        QFile file(settingsFolder());
        QVERIFY(file.open(QIODevice::WriteOnly));
    } else if (obstacle == 1) {
        QVERIFY(QDir().mkpath(settingsFile()));
    } else {
        if (::geteuid() == 0)
            QSKIP("The administrator may write everywhere.");
        QVERIFY(QDir().mkpath(settingsFolder()));
        QVERIFY(QFile::setPermissions(settingsFolder(), QFile::ReadOwner | QFile::ExeOwner));
    }
    for (int i = 0; i < 2; ++i) {
        Run run(harness());
        run.show();
        QVERIFY(run.window.isVisible());
        QCOMPARE(run.globals.minNewId, 50000);
        run.globals.minNewId = 60000;
        QVERIFY(run.close());
    }
    QVERIFY(!QFileInfo(settingsFile()).isFile());
    QVERIFY(harness().boxes.shown().isEmpty());
}

void TwoRunsTest::damagedStoreNeitherCrashesNorWarns_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("zeros") << QByteArray(1000, '\0');
    QTest::newRow("an open bracket") << QByteArray("[");
    QTest::newRow("no section") << QByteArray("MinNewID=1\n=\n==\n");
    QTest::newRow("cut off") << QByteArray("[Ostatni]\nMinNewID=6000");
    QTest::newRow("open quotes") << QByteArray("[Soubory]\nLastPathFile%3A1=\"abc\n[Ostatni]\nMinNewID=\"");
    QTest::newRow("broken escapes") << QByteArray("[Soubory]\nLastPathFile%3A1=\\x\\xZZ\\\n%=%\n%%%=1\n");
    QTest::newRow("another encoding") << QByteArray("[Soubory]\nLastPathFile%3A1=/\xC8\xE1\xFF\xFE.txt\n");
    QTest::newRow("values of other types")
        << QByteArray("[Ostatni]\nMinNewID=@Rect(1 2 3 4)\nNoPrach=@Invalid()\nTlakVzduchu=@ByteArray(\\0)\n");
    QTest::newRow("a page of text") << QByteArray("<html><body>404</body></html>\n").repeated(50);
}

void TwoRunsTest::damagedStoreNeitherCrashesNorWarns()
{
    const FreshHome home;
    QFETCH(const QByteArray, bytes);
    writeSettings(bytes);
    {
        Run run(harness());
        run.show();
        QVERIFY(run.window.isVisible());
        run.globals.minNewId = 60000;
        QVERIFY(run.close());
    }
    // The next run finds a store in order.
    const Run run(harness());
    QCOMPARE(run.globals.minNewId, 60000);
}

void TwoRunsTest::randomStoreNeitherCrashesNorWarns()
{
    const FreshHome home;
    constexpr int stores = 30;
    for (unsigned seed = 0; seed < stores; ++seed) {
        std::mt19937 random(seed);
        QByteArray bytes;
        for (int i = 0; i < 2000; ++i)
            bytes += static_cast<char>(random() & 0xFFU);
        writeSettings(bytes);
        Run run(harness());
        run.show();
        QVERIFY(run.window.isVisible());
        QCOMPARE(run.globals.minNewId, 50000);
        QVERIFY(run.close());
    }
}

void TwoRunsTest::damagedValuesReadAsTheirDefaults_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("letters") << QByteArray("abc");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("a list") << QByteArray("1,5");
    QTest::newRow("too large") << QByteArray("1E99");
    QTest::newRow("nan") << QByteArray("nan");
}

void TwoRunsTest::damagedValuesReadAsTheirDefaults()
{
    const FreshHome home;
    QFETCH(const QByteArray, value);
    QByteArray bytes;
    const auto section = [&bytes](const char* name) { bytes += QByteArray("[") + name + "]\n"; };
    const auto key = [&](const char* name) { bytes += QByteArray(name) + '=' + value + '\n'; };
    section("Soubory");
    key("ZdrojeBezPopisu");
    section("Tabulky");
    for (const char* const name : {"Tab1Sl1", "Tab1Sl2"})
        key(name);
    section("Ostatni");
    for (const char* const name : {"MinNewID", "AutoCalcXY", "TlakVzduchu", "NoPrach"})
        key(name);
    section("Form%3AfrmKORVEXZDR");
    for (const char* const name : {"Top", "Left", "Width", "Height", "WindowState"})
        key(name);
    writeSettings(bytes);

    Run run(harness());
    run.show();
    QVERIFY(run.globals.acceptMissingDescription);
    QCOMPARE(run.globals.numberColumnWidth, 1755);
    QCOMPARE(run.globals.nameColumnWidth, 3360);
    QCOMPARE(run.globals.minNewId, 50000);
    QCOMPARE(run.globals.autoCalcXY, 0);
    QCOMPARE(run.globals.airPressure, 101325.0F);
    QCOMPARE(run.globals.noDust, 1);
    QCOMPARE(run.window.pos(), QPoint(0, 0));
    QVERIFY(!run.window.isMaximized());
    QVERIFY(run.window.width() > 200);
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::TwoRunsTest)

#include "two_runs_test.moc"
