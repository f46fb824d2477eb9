// Loading into the window: the list, the comment, the status texts and each message by its exact words.
#include "load_save.h"
#include "window_harness.h"

#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>

namespace korvex {
namespace {

const QString loadTitle = QStringLiteral("Načtení seznamu zdrojů");

QString toQString(const std::string& path)
{
    return QString::fromStdString(path);
}

QString warning(const QString& text, const QString& details)
{
    return describe({loadTitle, text, BoxIcon::Exclamation, BoxButtons::Ok, details});
}

QString error(const QString& text)
{
    return describe({loadTitle, text, BoxIcon::Critical, BoxButtons::Ok, {}});
}

QString kotelna(int number)
{
    return pointsRecord(cBodovyZdroj, number, QStringLiteral("Kotelna %1").arg(number));
}

}  // namespace

class LoadTest : public ShellTest {
    Q_OBJECT

private slots:
    void recordsWithPartnersLoadWithoutAnyMessage();
    void namesAreReadInTheCodePage();
    void replacingEmptiesTheSetFirst();
    void appendingKeepsTheSourcesAndAddsBehindThem();
    void loadShowsSetOrderUnmarked();
    void loadUpdatesTheMenuStateAndLeavesTheNextSourceNumber();

    void firstCommentLineReplacesTheComment();
    void commentIsAppendedBehindAnAsterisk();
    void commentIsTrimmedBeforeAnotherIsAppended();
    void commentIsAppendedToAnEmptyOneToo();
    void fileWithoutACommentLeavesTheComment();
    void emptyCommentLinesSupplyNoComment();

    void loadClearsTheModifiedFlag();
    void failedLoadLeavesTheModifiedFlag();
    void statusTextsInTheirOrder();
    void statusTextsWithoutADustFile();
    void progressBarIsShownWhileReadingAndHiddenBehindIt();
    void progressBarAndHourglassAreGoneBeforeAMessage();

    void sourcesWithoutDescriptionAreReported();
    void sourcesWithoutDescriptionAreLoadedWithZeroesWhenAccepted();
    void sourcesWithoutDescriptionAreSkippedAndReportedWhenNotAccepted();
    void sourcesWithoutDustAreReported();
    void sourcesWithoutDescriptionAreNotLookedUpInTheDustFile();
    void withoutADustFileThereIsNoDustMessage();
    void bothMessagesComeDescriptionFirst();
    void recordsOfUnknownTypeAreReportedAndNotLoaded();
    void recordsWithoutASourceAreIgnored();
    void detailsEndAtTheThousandthRecord();

    void appendingMarksDuplicatesAndSaysHowMany();
    void appendingWithoutDuplicatesSaysNothing();
    void appendingChecksBeforeItReportsMissingRecords();
    void replacingNeverRunsTheDuplicateCheck();
    void failedAppendingRunsNoDuplicateCheck();

    void fileThatCannotBeOpenedIsReported_data();
    void fileThatCannotBeOpenedIsReported();
    void folderInsteadOfAFileIsReported();
    void failedAppendingKeepsTheSources();
    void numberOutOfRangeIsReportedWithFileAndLine_data();
    void numberOutOfRangeIsReportedWithFileAndLine();
    void sourcesBeforeAnErrorStayInTheSetAndTheList();

private:
    [[nodiscard]] bool load(const SourceFiles& files, LoadMode mode = LoadMode::Replace)
    {
        return loadSources(harness().window(), files, {}, mode);
    }
};

void LoadTest::recordsWithPartnersLoadWithoutAnyMessage()
{
    QVERIFY(load(harness().writeInventory({kotelna(2), kotelna(1)})));
    QVERIFY(harness().boxes.shown().isEmpty());
    QCOMPARE(harness().numberColumn(), QStringList({QStringLiteral("000000002"), QStringLiteral("000000001")}));
    QCOMPARE(harness().nameColumn(), QStringList({QStringLiteral("Kotelna 2"), QStringLiteral("Kotelna 1")}));
    const cZdroje& source = harness().set().at(1);
    QCOMPARE(source.LineSource(), std::string("000000002, 0000000, 0000000, 0000, 1, 0, 0 ;Kotelna 2"));
    QCOMPARE(source.LineParameters(), std::string("000000002, 1.5, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 0"));
    QCOMPARE(source.LineDust(), std::string("000000002,2000,0,1,10,1"));
}

void LoadTest::namesAreReadInTheCodePage()
{
    QVERIFY(load(harness().writeInventory(
        {pointsRecord(cBodovyZdroj, 1, QStringLiteral("Žluťoučký kůň"))}, QStringLiteral("Příliš"))));
    QVERIFY(harness().bytes(QStringLiteral("body.txt")).contains("\x8Elu\x9Dou\xE8k\xFD k\xF9\xF2"));
    QCOMPARE(harness().nameColumn(), QStringList{QStringLiteral("Žluťoučký kůň")});
    QCOMPARE(harness().window().comment(), QStringLiteral("Příliš"));
}

void LoadTest::replacingEmptiesTheSetFirst()
{
    harness().fillWithNumbers({8, 9});
    QVERIFY(load(harness().writeInventory({kotelna(1)})));
    QCOMPARE(harness().numberColumn(), QStringList{QStringLiteral("000000001")});
}

void LoadTest::appendingKeepsTheSourcesAndAddsBehindThem()
{
    harness().fillWithNumbers({1, 2});
    QVERIFY(load(harness().writeInventory({kotelna(4), kotelna(3)}), LoadMode::Append));
    QCOMPARE(harness().set().size(), std::size_t{4});
    QCOMPARE(harness().set().at(1).ICZ(), 1);
    QCOMPARE(harness().set().at(3).ICZ(), 4);
    QCOMPARE(harness().set().at(4).ICZ(), 3);
    QCOMPARE(harness().model().rowCount(), 4);
}

void LoadTest::loadShowsSetOrderUnmarked()
{
    harness().fillWithNumbers({8, 9});
    harness().mark(QStringLiteral("XX"));
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    QVERIFY(load(harness().writeInventory({kotelna(2), kotelna(1)})));
    QCOMPARE(harness().numberColumn(), QStringList({QStringLiteral("000000002"), QStringLiteral("000000001")}));
    QCOMPARE(harness().marks(), QStringLiteral("--"));
    QVERIFY(!harness().header().isSortIndicatorShown());
}

void LoadTest::loadUpdatesTheMenuStateAndLeavesTheNextSourceNumber()
{
    QVERIFY(load(harness().writeInventory({kotelna(60000), kotelna(60001)})));
    QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: 2"));
    QVERIFY(harness().item("mnuVKontrolaDuplicit").isEnabled());
    // It is not derived from the numbers of loaded sources.
    QCOMPARE(harness().window().sourceNumbers().last(), 50000);
}

void LoadTest::firstCommentLineReplacesTheComment()
{
    harness().window().comment(QStringLiteral("A"));
    const SourceFiles files = harness().writeInventory({kotelna(1)});
    harness().writeFile(QStringLiteral("body.txt"),
        {QStringLiteral(";  Obec Žďár  "), QStringLiteral(";SOUBOR S BODY"), kotelna(1), QStringLiteral(";Konec")});
    QVERIFY(load(files));
    QCOMPARE(harness().window().comment(), QStringLiteral("Obec Žďár"));
}

void LoadTest::commentIsAppendedBehindAnAsterisk()
{
    harness().window().comment(QStringLiteral("A"));
    QVERIFY(load(harness().writeInventory({kotelna(1)}, QStringLiteral("B")), LoadMode::Append));
    QCOMPARE(harness().window().comment(), QStringLiteral("A * B"));
}

void LoadTest::commentIsTrimmedBeforeAnotherIsAppended()
{
    harness().window().comment(QStringLiteral("  A  "));
    QVERIFY(load(harness().writeInventory({kotelna(1)}, QStringLiteral(" B ")), LoadMode::Append));
    QCOMPARE(harness().window().comment(), QStringLiteral("A * B"));
}

void LoadTest::commentIsAppendedToAnEmptyOneToo()
{
    QVERIFY(load(harness().writeInventory({kotelna(1)}, QStringLiteral("B")), LoadMode::Append));
    QCOMPARE(harness().window().comment(), QStringLiteral(" * B"));
}

void LoadTest::fileWithoutACommentLeavesTheComment()
{
    harness().window().comment(QStringLiteral("A "));
    const SourceFiles files = harness().writeInventory({kotelna(1)});
    QVERIFY(load(files));
    QCOMPARE(harness().window().comment(), QStringLiteral("A "));
    QVERIFY(load(harness().writeInventory({kotelna(2)}), LoadMode::Append));
    QCOMPARE(harness().window().comment(), QStringLiteral("A "));
}

void LoadTest::emptyCommentLinesSupplyNoComment()
{
    const SourceFiles files = harness().writeInventory({kotelna(1)});
    harness().writeFile(QStringLiteral("body.txt"),
        {QStringLiteral(";"), QString(), QStringLiteral(";   "), QStringLiteral(";Obec"), kotelna(1)});
    QVERIFY(load(files));
    QCOMPARE(harness().window().comment(), QStringLiteral("Obec"));
}

void LoadTest::loadClearsTheModifiedFlag()
{
    for (const LoadMode mode : {LoadMode::Replace, LoadMode::Append}) {
        harness().set().clear();
        harness().set().modified(true);
        QVERIFY(load(harness().writeInventory({kotelna(1)}), mode));
        QVERIFY(!harness().set().modified());
    }
}

void LoadTest::failedLoadLeavesTheModifiedFlag()
{
    harness().set().modified(true);
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(!load({"", "", ""}));
    QVERIFY(harness().set().modified());
}

void LoadTest::statusTextsInTheirOrder()
{
    const SourceFiles files = harness().writeInventory({kotelna(1)});
    harness().show();
    const StatusSpy spy(harness().window());
    QVERIFY(load(files));
    QCOMPARE(spy.texts().mid(0, 5),
        QStringList({QStringLiteral("Otevírám ") + toQString(files.points),
            QStringLiteral("Otevírám ") + toQString(files.description),
            QStringLiteral("Otevírám ") + toQString(files.dust), QStringLiteral("Porovnávám…"),
            QStringLiteral("Zobrazuji zdroje…")}));
    for (int i = 0; i < 5; ++i)
        QVERIFY2(spy.moments().at(i).hourglass, qPrintable(spy.moments().at(i).text));
    QCOMPARE(harness().status().text(), QString());
}

void LoadTest::statusTextsWithoutADustFile()
{
    SourceFiles files = harness().writeInventory({kotelna(1)});
    files.dust.clear();
    harness().show();
    const StatusSpy spy(harness().window());
    QVERIFY(load(files));
    QCOMPARE(spy.texts().mid(0, 3),
        QStringList({QStringLiteral("Otevírám ") + toQString(files.points),
            QStringLiteral("Otevírám ") + toQString(files.description), QStringLiteral("Porovnávám…")}));
}

void LoadTest::progressBarIsShownWhileReadingAndHiddenBehindIt()
{
    harness().show();
    auto& bar = harness().find<QProgressBar>("paProgress");
    QStringList records;
    for (int number = 1; number <= 10000; ++number)
        records << kotelna(number);
    const SourceFiles files = harness().writeInventory(records);
    int steps = 0;
    bool alwaysShown = true;
    const auto connection = connect(&bar, &QProgressBar::valueChanged, this, [&](int value) {
        if (value <= 0)
            return;
        ++steps;
        alwaysShown = alwaysShown && bar.isVisible() && value <= bar.maximum();
    });
    QVERIFY(load(files));
    disconnect(connection);
    QVERIFY(steps > 0);
    QVERIFY(alwaysShown);
    QVERIFY(bar.isHidden());
}

void LoadTest::progressBarAndHourglassAreGoneBeforeAMessage()
{
    harness().show();
    SourceFiles files = harness().writeInventory({kotelna(1)});
    harness().writeFile(QStringLiteral("popis.txt"), {});
    bool isAtRest = false;
    harness().boxes.answerNext(BoxAnswer::Ok, [&] {
        isAtRest = harness().find<QProgressBar>("paProgress").isHidden() && harness().status().text().isEmpty()
            && QGuiApplication::overrideCursor() == nullptr && harness().model().rowCount() == 1;
    });
    QVERIFY(load(files));
    QVERIFY(isAtRest);
}

void LoadTest::sourcesWithoutDescriptionAreReported()
{
    const SourceFiles files = harness().writeInventory({kotelna(11), kotelna(12), kotelna(13)}, QStringLiteral("Obec"));
    harness().writeFile(QStringLiteral("popis.txt"), {QStringLiteral("000000012, 1, 2")});
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(load(files));
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(describe(harness().boxes.shown().value(0)),
        warning(QStringLiteral("V popisném souboru nebylo\nnalezeno 2 zdrojů."),
            QStringLiteral("řádek 2: zdroj 11\nřádek 4: zdroj 13")));
}

void LoadTest::sourcesWithoutDescriptionAreLoadedWithZeroesWhenAccepted()
{
    const SourceFiles files = harness().writeInventory({kotelna(11)});
    harness().writeFile(QStringLiteral("popis.txt"), {});
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(load(files));
    QCOMPARE(harness().set().size(), std::size_t{1});
    QCOMPARE(harness().set().at(1).LineParameters(), std::string("000000011, 0, 0, 0, 0, 0, 0, 0, 0, 0"));
}

void LoadTest::sourcesWithoutDescriptionAreSkippedAndReportedWhenNotAccepted()
{
    harness().settings.save(QStringLiteral("Soubory"), QStringLiteral("ZdrojeBezPopisu"), QStringLiteral("False"));
    const SourceFiles files = harness().writeInventory({kotelna(11), kotelna(12)});
    harness().writeFile(QStringLiteral("popis.txt"), {QStringLiteral("000000012, 1, 2")});
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(load(files));
    QCOMPARE(harness().numberColumn(), QStringList{QStringLiteral("000000012")});
    QCOMPARE(describe(harness().boxes.shown().value(0)),
        warning(QStringLiteral("V popisném souboru nebylo\nnalezeno 1 zdrojů."), QStringLiteral("řádek 1: zdroj 11")));
}

void LoadTest::sourcesWithoutDustAreReported()
{
    const SourceFiles files = harness().writeInventory({kotelna(11), kotelna(12)});
    harness().writeFile(QStringLiteral("prach.txt"), {QStringLiteral("000000011,2000,0,1,10,1")});
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(load(files));
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(describe(harness().boxes.shown().value(0)),
        warning(QStringLiteral("V souboru s prachem nebylo\nnalezeno 1 zdrojů."), QStringLiteral("řádek 2: zdroj 12")));
    QCOMPARE(harness().set().at(2).LineDust(), std::string("000000012,0,0,0"));
}

void LoadTest::sourcesWithoutDescriptionAreNotLookedUpInTheDustFile()
{
    const SourceFiles files = harness().writeInventory({kotelna(11)});
    harness().writeFile(QStringLiteral("popis.txt"), {});
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(load(files));
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(harness().set().at(1).LineDust(), std::string("000000011,0,0,0"));
}

void LoadTest::withoutADustFileThereIsNoDustMessage()
{
    SourceFiles files = harness().writeInventory({kotelna(11)});
    files.dust.clear();
    QVERIFY(load(files));
    QVERIFY(harness().boxes.shown().isEmpty());
}

void LoadTest::bothMessagesComeDescriptionFirst()
{
    const SourceFiles files = harness().writeInventory({kotelna(11), kotelna(12)});
    harness().writeFile(QStringLiteral("popis.txt"), {QStringLiteral("000000012, 1, 2")});
    harness().writeFile(QStringLiteral("prach.txt"), {});
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(load(files));
    QCOMPARE(harness().boxes.shown().size(), 2);
    QCOMPARE(harness().boxes.shown().at(0).text, QStringLiteral("V popisném souboru nebylo\nnalezeno 1 zdrojů."));
    QCOMPARE(harness().boxes.shown().at(1).text, QStringLiteral("V souboru s prachem nebylo\nnalezeno 1 zdrojů."));
}

void LoadTest::recordsOfUnknownTypeAreReportedAndNotLoaded()
{
    const SourceFiles files = harness().writeInventory({kotelna(11), QStringLiteral("000000012, 0, 0, 0, 4, 0, 0 ;X"),
        QStringLiteral("000000013, 0, 0, 0, 0, 0, 0 ;X")});
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(load(files));
    QCOMPARE(harness().numberColumn(), QStringList{QStringLiteral("000000011")});
    QCOMPARE(describe(harness().boxes.shown().value(0)),
        warning(QStringLiteral("V souboru s body bylo vynecháno\n2 zdrojů neznámého typu."),
            QStringLiteral("řádek 2: zdroj 12\nřádek 3: zdroj 13")));
}

void LoadTest::recordsWithoutASourceAreIgnored()
{
    const SourceFiles files = harness().writeInventory({kotelna(11), kotelna(12)});
    harness().writeFile(QStringLiteral("body.txt"), {kotelna(12)});
    QVERIFY(load(files));
    QVERIFY(harness().boxes.shown().isEmpty());
    QCOMPARE(harness().numberColumn(), QStringList{QStringLiteral("000000012")});
}

void LoadTest::detailsEndAtTheThousandthRecord()
{
    QStringList records;
    for (int number = 1; number <= 1002; ++number)
        records << kotelna(number);
    const SourceFiles files = harness().writeInventory(records);
    harness().writeFile(QStringLiteral("popis.txt"), {});
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(load(files));
    QCOMPARE(harness().boxes.shown().value(0).text, QStringLiteral("V popisném souboru nebylo\nnalezeno 1002 zdrojů."));
    const QStringList details = harness().boxes.shown().value(0).details.split(QLatin1Char('\n'));
    QCOMPARE(details.size(), 1001);
    QCOMPARE(details.at(999), QStringLiteral("řádek 1000: zdroj 1000"));
    QCOMPARE(details.at(1000), QStringLiteral("… a dalších 2"));
}

void LoadTest::appendingMarksDuplicatesAndSaysHowMany()
{
    harness().fillWithNumbers({5, 1});
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(load(harness().writeInventory({kotelna(5), kotelna(2)}), LoadMode::Append));
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(describe(harness().boxes.shown().value(0)),
        describe({QStringLiteral("Kontrola duplicit"), QStringLiteral("Bylo nalezeno 1 duplicit."),
            BoxIcon::Information, BoxButtons::Ok, {}}));
    QCOMPARE(harness().numberColumn(),
        QStringList({QStringLiteral("000000001"), QStringLiteral("000000002"), QStringLiteral("000000005"),
            QStringLiteral("000000005")}));
    QCOMPARE(harness().marks(), QStringLiteral("---X"));
    QVERIFY(!harness().set().modified());
}

void LoadTest::appendingWithoutDuplicatesSaysNothing()
{
    harness().fillWithNumbers({5, 1});
    QVERIFY(load(harness().writeInventory({kotelna(2)}), LoadMode::Append));
    QVERIFY(harness().boxes.shown().isEmpty());
    QCOMPARE(harness().numberColumn(),
        QStringList({QStringLiteral("000000001"), QStringLiteral("000000002"), QStringLiteral("000000005")}));
    QCOMPARE(harness().marks(), QStringLiteral("---"));
}

void LoadTest::appendingChecksBeforeItReportsMissingRecords()
{
    harness().fillWithNumbers({5});
    const SourceFiles files = harness().writeInventory({kotelna(5)});
    harness().writeFile(QStringLiteral("popis.txt"), {});
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(load(files, LoadMode::Append));
    QCOMPARE(harness().boxes.shown().size(), 2);
    QCOMPARE(harness().boxes.shown().at(0).title, QStringLiteral("Kontrola duplicit"));
    QCOMPARE(harness().boxes.shown().at(1).title, loadTitle);
}

void LoadTest::replacingNeverRunsTheDuplicateCheck()
{
    QVERIFY(load(harness().writeInventory({kotelna(2), kotelna(1), kotelna(1)})));
    QVERIFY(harness().boxes.shown().isEmpty());
    QCOMPARE(harness().marks(), QStringLiteral("---"));
    QCOMPARE(harness().numberColumn().first(), QStringLiteral("000000002"));
}

void LoadTest::failedAppendingRunsNoDuplicateCheck()
{
    harness().fillWithNumbers({5, 5, 1});
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(!load({"", "", ""}, LoadMode::Append));
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(harness().boxes.shown().at(0).icon, BoxIcon::Critical);
    QCOMPARE(harness().marks(), QStringLiteral("---"));
}

void LoadTest::fileThatCannotBeOpenedIsReported_data()
{
    QTest::addColumn<QString>("missing");
    QTest::newRow("points") << QStringLiteral("body.txt");
    QTest::newRow("description") << QStringLiteral("popis.txt");
    QTest::newRow("dust") << QStringLiteral("prach.txt");
}

void LoadTest::fileThatCannotBeOpenedIsReported()
{
    QFETCH(const QString, missing);
    harness().show();
    const SourceFiles files = harness().writeInventory({kotelna(1)});
    QVERIFY(QFile::remove(harness().path(missing)));
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(!load(files));
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(describe(harness().boxes.shown().at(0)),
        error(QStringLiteral("Soubor nebo složka neexistuje.\n\n") + harness().path(missing)));
    QCOMPARE(harness().model().rowCount(), 0);
    QCOMPARE(harness().status().text(), QString());
}

void LoadTest::folderInsteadOfAFileIsReported()
{
    const SourceFiles files = harness().writeInventory({kotelna(1)});
    const QString points = harness().path(QStringLiteral("body.txt"));
    QVERIFY(QFile::remove(points));
    QVERIFY(QDir().mkdir(points));
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(!load(files));
    QCOMPARE(
        describe(harness().boxes.shown().value(0)), error(QStringLiteral("Místo souboru je zde složka.\n\n") + points));
}

void LoadTest::failedAppendingKeepsTheSources()
{
    harness().fillWithNumbers({3, 4});
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(!load({"", "", ""}, LoadMode::Append));
    QCOMPARE(harness().numberColumn(), QStringList({QStringLiteral("000000003"), QStringLiteral("000000004")}));
}

void LoadTest::numberOutOfRangeIsReportedWithFileAndLine_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("record");
    QTest::addColumn<QString>("what");
    QTest::newRow("points") << QStringLiteral("body.txt") << QStringLiteral("000000002, 9999999999, 0, 0, 1, 0, 0 ;X")
                            << QStringLiteral("Číslo je mimo rozsah: pole 2, „9999999999“.");
    QTest::newRow("description") << QStringLiteral("popis.txt") << QStringLiteral("000000002, 1, 1E+60")
                                 << QStringLiteral("Číslo je mimo rozsah: pole 3, „1E+60“.");
    QTest::newRow("dust") << QStringLiteral("prach.txt") << QStringLiteral("1E+400,0,0,0")
                          << QStringLiteral("Číslo je mimo rozsah: pole 1, „1E+400“.");
}

void LoadTest::numberOutOfRangeIsReportedWithFileAndLine()
{
    QFETCH(const QString, file);
    QFETCH(const QString, record);
    QFETCH(const QString, what);
    const SourceFiles files = harness().writeInventory({kotelna(1), kotelna(2)});
    const QStringList lines = QString::fromLatin1(harness().bytes(file)).split(QStringLiteral("\r\n"));
    harness().writeFile(file, {lines.at(0), QStringLiteral(";x"), record});
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(!load(files));
    QCOMPARE(harness().boxes.shown().size(), 1);
    const BoxRequest& box = harness().boxes.shown().at(0);
    QCOMPARE(box.title, loadTitle);
    QCOMPARE(box.icon, BoxIcon::Critical);
    QCOMPARE(box.buttons, BoxButtons::Ok);
    QVERIFY2(box.text.startsWith(QStringLiteral("Řádek 3: ") + what), qPrintable(box.text));
    QVERIFY2(box.text.endsWith(QStringLiteral("\n\n") + harness().path(file)), qPrintable(box.text));
}

void LoadTest::sourcesBeforeAnErrorStayInTheSetAndTheList()
{
    const SourceFiles files = harness().writeInventory({kotelna(1), kotelna(2)});
    harness().writeFile(
        QStringLiteral("body.txt"), {kotelna(1), QStringLiteral("000000002, 9999999999, 0, 0, 1, 0, 0 ;X")});
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(!load(files));
    QCOMPARE(harness().nameColumn(), QStringList{QStringLiteral("Kotelna 1")});
    QCOMPARE(harness().set().size(), std::size_t{1});
    QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: 1"));
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::LoadTest)

#include "load_test.moc"
