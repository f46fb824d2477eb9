// The table of settings through the real store: defaults, the way out and back, damaged files, folders that refuse.
#include "settings.h"

#include "globals.h"
#include "settings_store.h"
#include "user_folders.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QObject>
#include <QRegularExpression>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <cstdint>
#include <fcntl.h>
#include <limits>
#include <memory>
#include <string>
#include <sys/types.h>
#include <unistd.h>

namespace korvex {

namespace {

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

/// Whether the settings hold what a first start has.
bool holdDefaults(const Globals& globals)
{
    return globals.files.points.empty() && globals.files.description.empty() && globals.files.dust.empty()
        && globals.dustGroupsPath.empty() && globals.acceptMissingDescription && globals.numberColumnWidth == 1755
        && globals.nameColumnWidth == 3360 && globals.minNewId == 50000 && globals.autoCalcXY == 0
        && globals.airPressure == 101325.0F && globals.noDust == 1;
}

/// None of the values is its default.
Globals allChanged()
{
    Globals globals;
    globals.files.points = "/data/body.txt";
    globals.files.description = "/data/popis.txt";
    globals.files.dust = "/data/prach.txt";
    globals.acceptMissingDescription = false;
    globals.dustGroupsPath = "/data/skupiny.spr";
    globals.numberColumnWidth = 1200;
    globals.nameColumnWidth = 9000;
    globals.minNewId = 60000;
    globals.autoCalcXY = 1;
    globals.airPressure = 98765.43F;
    globals.noDust = 0;
    return globals;
}

/// The administrator may write everywhere; what a refusal does shows only to an ordinary user.
class OrdinaryUser {
public:
    OrdinaryUser()
    {
        constexpr uid_t nobody = 65534;
        m_wasAdministrator = ::geteuid() == 0;
        m_isOrdinary = !m_wasAdministrator || ::seteuid(nobody) == 0;
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser()
    {
        if (m_wasAdministrator && ::seteuid(0) != 0)
            qFatal("cannot become the administrator again");
    }

    [[nodiscard]] bool isOrdinary() const { return m_isOrdinary; }

private:
    bool m_wasAdministrator = false;
    bool m_isOrdinary = false;
};

}  // namespace

class SettingsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void folderIsThatOfThisProgramBelowTheUsers();
    void emptyStoreGivesEveryDefault();
    void readingStoresNothing();
    void everyKeyReadsBackAsWritten();
    void sectionsAndKeysAreNamed();
    void everythingIsStoredAsText();
    void pathReadsBackAsWritten_data();
    void pathReadsBackAsWritten();
    void pressureReadsBackAsWritten_data();
    void pressureReadsBackAsWritten();
    void extremeIntegersReadBackAsWritten();
    void whatIsNoSettingIsNeitherReadNorWritten();
    void keysOfOthersStay();
    void damagedNumberGivesTheDefault_data();
    void damagedNumberGivesTheDefault();
    void numberOfAnotherFormIsTaken_data();
    void numberOfAnotherFormIsTaken();
    void booleanIsReadInAnyLetterCase_data();
    void booleanIsReadInAnyLetterCase();
    void pathWithCommasEditedByHandIsOnePath();
    void fileOfRubbishGivesEveryDefault();
    void missingFolderIsMade();
    void readOnlyFolderLosesTheSettingsWithoutAWord();
    void folderInTheFilesPlaceLosesTheSettingsWithoutAWord();
    void fileInTheFoldersPlaceLosesTheSettingsWithoutAWord();

private:
    [[nodiscard]] QString config(const QString& name = {}) const { return m_home->filePath("config") + name; }
    [[nodiscard]] QString storePath() const { return config("/korvexzdr/korvexzdr.ini"); }
    void writeStore(const QByteArray& bytes) const;
    /// As at the start of the program.
    [[nodiscard]] static Globals readBack();
    /// As at its end; the store is closed, and so written, when this returns.
    static void write(const Globals& globals);

    std::unique_ptr<QTemporaryDir> m_home;
};

void SettingsTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_home = std::make_unique<QTemporaryDir>();
    QVERIFY(m_home->isValid());
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(config()));
}

void SettingsTest::cleanup()
{
    m_home.reset();
}

void SettingsTest::writeStore(const QByteArray& bytes) const
{
    QVERIFY(QDir().mkpath(QFileInfo(storePath()).path()));
    QFile file(storePath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

Globals SettingsTest::readBack()
{
    Globals globals;
    const UserSettings store;
    readSettings(store, globals);
    return globals;
}

void SettingsTest::write(const Globals& globals)
{
    UserSettings store;
    saveSettings(store, globals);
}

void SettingsTest::folderIsThatOfThisProgramBelowTheUsers()
{
    QCOMPARE(settingsFolder(), config("/korvexzdr"));
    write({});
    QVERIFY(QFileInfo(storePath()).isFile());
}

void SettingsTest::emptyStoreGivesEveryDefault()
{
    QVERIFY(holdDefaults(readBack()));
    QVERIFY(!holdDefaults(allChanged()));
}

void SettingsTest::readingStoresNothing()
{
    static_cast<void>(readBack());
    QVERIFY(!QFileInfo::exists(storePath()));
}

void SettingsTest::everyKeyReadsBackAsWritten()
{
    const Globals written = allChanged();
    write(written);
    const Globals read = readBack();
    QCOMPARE(read.files.points, written.files.points);
    QCOMPARE(read.files.description, written.files.description);
    QCOMPARE(read.files.dust, written.files.dust);
    QCOMPARE(read.acceptMissingDescription, written.acceptMissingDescription);
    QCOMPARE(read.dustGroupsPath, written.dustGroupsPath);
    QCOMPARE(read.numberColumnWidth, written.numberColumnWidth);
    QCOMPARE(read.nameColumnWidth, written.nameColumnWidth);
    QCOMPARE(read.minNewId, written.minNewId);
    QCOMPARE(read.autoCalcXY, written.autoCalcXY);
    QVERIFY(read.airPressure == written.airPressure);
    QCOMPARE(read.noDust, written.noDust);
}

void SettingsTest::sectionsAndKeysAreNamed()
{
    write(allChanged());
    const QSettings file(storePath(), QSettings::IniFormat);
    QStringList keys = file.allKeys();
    keys.sort();
    QCOMPARE(keys,
        QStringList({"Ostatni/AutoCalcXY", "Ostatni/MinNewID", "Ostatni/NoPrach", "Ostatni/TlakVzduchu",
            "Soubory/LastPathFile:1", "Soubory/LastPathFile:2", "Soubory/LastPathFile:3", "Soubory/SouborSkupinPrachu",
            "Soubory/ZdrojeBezPopisu", "Tabulky/Tab1Sl1", "Tabulky/Tab1Sl2"}));
    const QByteArray bytes = bytesOf(storePath());
    for (const char* const section : {"[Soubory]", "[Tabulky]", "[Ostatni]"})
        QVERIFY2(bytes.contains(section), section);
}

void SettingsTest::everythingIsStoredAsText()
{
    write(allChanged());
    const QByteArray bytes = bytesOf(storePath());
    for (const char* const line : {"LastPathFile%3A1=/data/body.txt", "LastPathFile%3A2=/data/popis.txt",
             "LastPathFile%3A3=/data/prach.txt", "ZdrojeBezPopisu=False", "SouborSkupinPrachu=/data/skupiny.spr",
             "Tab1Sl1=1200", "Tab1Sl2=9000", "MinNewID=60000", "AutoCalcXY=1", "TlakVzduchu=98765.43", "NoPrach=0"})
        QVERIFY2(bytes.split('\n').contains(line), bytes.constData());
    write({});
    QVERIFY(bytesOf(storePath()).split('\n').contains("ZdrojeBezPopisu=True"));
}

void SettingsTest::pathReadsBackAsWritten_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("empty") << "";
    QTest::newRow("one comma") << "/data/a,b.txt";
    QTest::newRow("only commas") << ",,,";
    QTest::newRow("backslashes") << "C:\\data\\nový\\x41.txt";
    QTest::newRow("backslash at the end") << "/data/a\\";
    QTest::newRow("Czech letters") << "/data/Příliš žluťoučký kůň.txt";
    QTest::newRow("capital Czech letters") << "/DATA/ŘEŘICHA ŇŤĎÝ.TXT";
    QTest::newRow("letters beyond 16 bits") << QString::fromUtf8("/data/\xF0\x9F\x8F\xAD.txt");
    QTest::newRow("percent") << "/data/100%.txt";
    QTest::newRow("percent and digits") << "/data/%41%2C%.txt";
    QTest::newRow("leading blanks") << "  /data/a.txt";
    QTest::newRow("blanks at the end") << "/data/a.txt  ";
    QTest::newRow("only a blank") << " ";
    QTest::newRow("tabulator") << "\t/data/\ta.txt";
    QTest::newRow("line end") << "/data/a\nb\r\nc.txt";
    QTest::newRow("quotes") << "/data/\"a\" 'b'.txt";
    QTest::newRow("a quote in front") << "\"/data/a.txt";
    QTest::newRow("semicolon and equals") << ";/data=/a;b.txt";
    QTest::newRow("at sign") << "@Variant(a)";
    QTest::newRow("two at signs") << "@@ByteArray(a)";
    QTest::newRow("brackets") << "[Soubory]";
    QTest::newRow("number") << "0012.50";
}

void SettingsTest::pathReadsBackAsWritten()
{
    QFETCH(const QString, path);
    Globals globals;
    globals.files.points = path.toStdString();
    globals.files.description = path.toStdString() + "2";
    globals.files.dust = "3" + path.toStdString();
    globals.dustGroupsPath = path.toStdString();
    write(globals);
    const Globals read = readBack();
    QCOMPARE(read.files.points, globals.files.points);
    QCOMPARE(read.files.description, globals.files.description);
    QCOMPARE(read.files.dust, globals.files.dust);
    QCOMPARE(read.dustGroupsPath, globals.dustGroupsPath);
}

void SettingsTest::pressureReadsBackAsWritten_data()
{
    QTest::addColumn<float>("pressure");
    QTest::newRow("zero") << 0.0F;
    QTest::newRow("fraction") << 0.1F;
    QTest::newRow("seven digits") << 101325.7F;
    QTest::newRow("negative") << -1.5F;
    QTest::newRow("in exponent form") << 1.5e20F;
    QTest::newRow("small") << 1.2e-5F;
}

void SettingsTest::pressureReadsBackAsWritten()
{
    QFETCH(const float, pressure);
    Globals globals;
    globals.airPressure = pressure;
    write(globals);
    // To the last bit: a fuzzy comparison would let a lost digit through.
    QVERIFY(readBack().airPressure == pressure);
}

void SettingsTest::extremeIntegersReadBackAsWritten()
{
    Globals globals;
    globals.minNewId = std::numeric_limits<std::int32_t>::max();
    globals.numberColumnWidth = std::numeric_limits<std::int32_t>::min();
    globals.nameColumnWidth = 0;
    globals.autoCalcXY = -1;
    write(globals);
    const Globals read = readBack();
    QCOMPARE(read.minNewId, globals.minNewId);
    QCOMPARE(read.numberColumnWidth, globals.numberColumnWidth);
    QCOMPARE(read.nameColumnWidth, globals.nameColumnWidth);
    QCOMPARE(read.autoCalcXY, globals.autoCalcXY);
}

void SettingsTest::whatIsNoSettingIsNeitherReadNorWritten()
{
    Globals globals = allChanged();
    globals.iniPath = "/data/caller.ini";
    globals.commandLineMode = true;
    globals.defaultExtensions.front() = "dat";
    globals.fileFilters.front() = "a|b";
    write(globals);
    QVERIFY(!bytesOf(storePath()).contains("caller.ini"));
    const Globals read = readBack();
    QCOMPARE(read.iniPath, std::string());
    QVERIFY(!read.commandLineMode);
    QCOMPARE(read.defaultExtensions.front(), std::string("txt"));
    QCOMPARE(read.fileFilters.front(), std::string());
}

void SettingsTest::keysOfOthersStay()
{
    writeStore("[Form%3AfrmKORVEXZDR]\nLeft=300\n\n[Ostatni]\nMinNewID=7\nJine=zůstane\n");
    write(allChanged());
    const QSettings file(storePath(), QSettings::IniFormat);
    QCOMPARE(file.value("Form:frmKORVEXZDR/Left").toString(), QStringLiteral("300"));
    QCOMPARE(file.value("Ostatni/Jine").toString(), QStringLiteral("zůstane"));
    QCOMPARE(file.value("Ostatni/MinNewID").toString(), QStringLiteral("60000"));
}

void SettingsTest::damagedNumberGivesTheDefault_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("letters") << QByteArray("abc");
    QTest::newRow("comma") << QByteArray("1,5");
    QTest::newRow("comma in quotes") << QByteArray("\"1,5\"");
    QTest::newRow("beyond 32 bits") << QByteArray("99999999999999999999999999999999999999999");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("number and letters") << QByteArray("12abc");
    QTest::newRow("hexadecimal") << QByteArray("0x10");
    QTest::newRow("list") << QByteArray("1, 2, 3");
    QTest::newRow("infinity") << QByteArray("inf");
    QTest::newRow("not a number") << QByteArray("nan");
    QTest::newRow("unknown type") << QByteArray("@Invalid()");
    QTest::newRow("bytes") << QByteArray("@ByteArray()");
}

void SettingsTest::damagedNumberGivesTheDefault()
{
    QFETCH(const QByteArray, text);
    QByteArray bytes = "[Soubory]\nZdrojeBezPopisu=" + text + "\n[Tabulky]\n";
    for (const char* const key : {"Tab1Sl1", "Tab1Sl2"})
        bytes += QByteArray(key) + '=' + text + '\n';
    bytes += "[Ostatni]\n";
    for (const char* const key : {"MinNewID", "AutoCalcXY", "TlakVzduchu", "NoPrach"})
        bytes += QByteArray(key) + '=' + text + '\n';
    writeStore(bytes);
    QVERIFY(holdDefaults(readBack()));
}

void SettingsTest::numberOfAnotherFormIsTaken_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("integer");
    QTest::newRow("sign") << QByteArray("+12") << 12;
    QTest::newRow("zeros in front") << QByteArray("0012") << 12;
    QTest::newRow("quotes") << QByteArray("\"12\"") << 12;
    // One beyond 32 bits must not wrap round to a small number.
    QTest::newRow("one beyond 32 bits") << QByteArray("2147483648") << 50000;
    QTest::newRow("eleven digits") << QByteArray("99999999999") << 50000;
    QTest::newRow("fraction") << QByteArray("1.5") << 50000;
}

void SettingsTest::numberOfAnotherFormIsTaken()
{
    QFETCH(const QByteArray, text);
    QFETCH(const int, integer);
    writeStore("[Ostatni]\nMinNewID=" + text + '\n');
    QCOMPARE(readBack().minNewId, integer);
}

void SettingsTest::booleanIsReadInAnyLetterCase_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("value");
    QTest::newRow("False") << QByteArray("False") << false;
    QTest::newRow("false") << QByteArray("false") << false;
    QTest::newRow("FALSE") << QByteArray("FALSE") << false;
    QTest::newRow("True") << QByteArray("True") << true;
    QTest::newRow("no such word") << QByteArray("Falsee") << true;
}

void SettingsTest::booleanIsReadInAnyLetterCase()
{
    QFETCH(const QByteArray, text);
    QFETCH(const bool, value);
    writeStore("[Soubory]\nZdrojeBezPopisu=" + text + '\n');
    QCOMPARE(readBack().acceptMissingDescription, value);
}

void SettingsTest::pathWithCommasEditedByHandIsOnePath()
{
    writeStore("[Soubory]\nLastPathFile%3A1=/data/a,b,c.txt\n");
    QCOMPARE(readBack().files.points, std::string("/data/a,b,c.txt"));
}

void SettingsTest::fileOfRubbishGivesEveryDefault()
{
    QByteArray rubbish = "[[[\n]=[\n=\n;\n[Ostatni\nMinNewID\n";
    for (int c = 0; c < 256; ++c)
        rubbish += static_cast<char>(c);
    writeStore(rubbish);
    QVERIFY(holdDefaults(readBack()));
}

void SettingsTest::missingFolderIsMade()
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(config("/not/yet")));
    write(allChanged());
    QVERIFY(!holdDefaults(readBack()));
    QVERIFY(QFileInfo(config("/not/yet/korvexzdr/korvexzdr.ini")).isFile());
}

void SettingsTest::readOnlyFolderLosesTheSettingsWithoutAWord()
{
    write({});
    const QByteArray before = bytesOf(storePath());
    // Others must get as far as the folder that refuses.
    constexpr QFile::Permissions readAndEnter
        = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
    for (const QString& folder : {m_home->path(), config(), config("/korvexzdr")})
        QVERIFY(QFile::setPermissions(folder, readAndEnter));
    {
        const OrdinaryUser ordinary;
        if (!ordinary.isOrdinary())
            QSKIP("the administrator may write everywhere and may not become somebody else here");
        QVERIFY(::faccessat(AT_FDCWD, QFile::encodeName(config("/korvexzdr")), W_OK, AT_EACCESS) != 0);
        write(allChanged());
    }
    QCOMPARE(bytesOf(storePath()), before);
    QCOMPARE(QDir(config("/korvexzdr")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 1);
    for (const QString& folder : {m_home->path(), config(), config("/korvexzdr")})
        QVERIFY(QFile::setPermissions(folder, readAndEnter | QFile::WriteOwner));
}

void SettingsTest::folderInTheFilesPlaceLosesTheSettingsWithoutAWord()
{
    QVERIFY(QDir().mkpath(storePath() + "/inside"));
    write(allChanged());
    QVERIFY(holdDefaults(readBack()));
    QVERIFY(QFileInfo(storePath() + "/inside").isDir());
}

void SettingsTest::fileInTheFoldersPlaceLosesTheSettingsWithoutAWord()
{
    QFile file(config());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write("x"), 1);
    file.close();
    write(allChanged());
    QVERIFY(holdDefaults(readBack()));
    QCOMPARE(bytesOf(config()), QByteArray("x"));
}

}  // namespace korvex

// An application object as the program has one: it changes the C library's locale.
QTEST_GUILESS_MAIN(korvex::SettingsTest)

#include "settings_test.moc"
