// Loads that fail or find something missing: each box as a whole, and what is left in the window behind it.
#include "dialog_checks.h"
#include "load_save.h"
#include "troubled_files.h"
#include "window_harness.h"

#include <QAbstractButton>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace korvex {
namespace {

const QString loadTitle = QStringLiteral("Načtení seznamu zdrojů");
const QString onlyBefore = QStringLiteral("\nV seznamu jsou jen zdroje načtené před chybou.");
const QString onlyBeforeAppended = QStringLiteral("\nPřipojeny byly jen zdroje načtené před chybou.");

const std::array<QString, 3> names{
    QStringLiteral("body.txt"), QStringLiteral("popis.txt"), QStringLiteral("prach.txt")};

std::string& pathIn(SourceFiles& files, int file)
{
    return file == 0 ? files.points : file == 1 ? files.description : files.dust;
}

QString numberText(int number)
{
    return QStringLiteral("%1").arg(number, 9, 10, QLatin1Char('0'));
}

/// A good record of one of the files.
QString record(int file, int number)
{
    switch (file) {
    case 0:
        return pointsRecord(cBodovyZdroj, number, QStringLiteral("Kotelna %1").arg(number));
    case 1:
        return numberText(number) + QStringLiteral(", 1.5, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 0");
    default:
        return numberText(number) + QStringLiteral(",2000,0,1,10,1");
    }
}

/// A record with a number that no field of its kind can hold.
struct Fault {
    const char* name;
    int file;
    QString record;
    QString words;
    bool pairs;  // the fault is found when the source is made, not before
};

std::vector<Fault> everyFault()
{
    return {
        {"number in points", 0, QStringLiteral("2147483648, 1, 2, 3, 1, 0, 0 ;X"),
            QStringLiteral("Číslo je mimo rozsah: pole 1, „2147483648“."), true},
        {"Y in points", 0, QStringLiteral("000000003, 0000000, -9999999999, 0000, 1, 0, 0 ;X"),
            QStringLiteral("Číslo je mimo rozsah: pole 3, „-9999999999“."), true},
        {"number in description", 1, QStringLiteral("1E+400, 1.5, 40"),
            QStringLiteral("Číslo je mimo rozsah: pole 1, „1E+400“."), false},
        {"parameter in description", 1, QStringLiteral("000000003, 1.5, 40, 3.2, 1E+60"),
            QStringLiteral("Číslo je mimo rozsah: pole 5, „1E+60“."), true},
        {"number in dust", 2, QStringLiteral("-1E400,2000,0,1,10,1"),
            QStringLiteral("Číslo je mimo rozsah: pole 1, „-1E400“."), false},
    };
}

/// The lines of a file, their ends, and whether the last one has its end.
struct Layout {
    const char* name;
    QStringList before;
    QStringList between;
    QByteArrayList ends;  // over and over
    bool lastEnd;
};

std::vector<Layout> everyLayout()
{
    const QStringList header{QStringLiteral(";Obec"), QStringLiteral(";SOUBOR S BODY"), QString(),
        QStringLiteral(" \t"), QStringLiteral("  ; 1E999")};
    return {
        {"records alone, CR LF", {}, {}, {"\r\n"}, true},
        {"header, LF", header, {}, {"\n"}, true},
        {"comments and blank lines, mixed ends", header, {QString(), QStringLiteral(";x")}, {"\r\n", "\n", "\n"}, true},
        {"no last line end", header, {QStringLiteral(";x")}, {"\r\n"}, false},
        {"LF, no last line end", {}, {QString()}, {"\n"}, false},
    };
}

QStringList linesOf(const QStringList& records, const Layout& layout)
{
    QStringList lines = layout.before;
    for (const QString& each : records) {
        lines << each;
        if (&each != &records.last())
            lines << layout.between;
    }
    return lines;
}

/// A row of data for every layout, in number order and from the last number, with the record of the number 3 in the
/// middle of its file and as the last of it.
template <class Add>
void forEveryLayout(Add add)
{
    for (const Layout& layout : everyLayout()) {
        for (const QList<int>& numbers :
            {QList<int>{1, 2, 3, 4}, QList<int>{4, 3, 2, 1}, QList<int>{1, 2, 4, 3}, QList<int>{4, 2, 1, 3}})
            add(layout, numbers, std::find(numbers.begin(), numbers.end(), 3) - numbers.begin());
    }
}

}  // namespace

class FailureMessagesTest : public ShellTest {
    Q_OBJECT

private slots:
    void refusedFileIsNamedAndNothingChanges_data();
    void refusedFileIsNamedAndNothingChanges();
    void pointsFileThatFailsWhileItIsReadIsNamed_data();
    void pointsFileThatFailsWhileItIsReadIsNamed();
    void fileWithoutANameIsSaidToBeMissing_data();
    void fileWithoutANameIsSaidToBeMissing();

    void numberOutOfRangeIsNamedByFileLineAndText_data();
    void numberOutOfRangeIsNamedByFileLineAndText();
    void numberOutOfRangeWhileAppendingKeepsWhatWasThere_data();
    void numberOutOfRangeWhileAppendingKeepsWhatWasThere();

    void reportsCarryNumbersAndLinesAsDetails_data();
    void reportsCarryNumbersAndLinesAsDetails();

    void commentOfAFileThatCannotBeReadIsEmptyAndNoBoxComes_data();
    void commentOfAFileThatCannotBeReadIsEmptyAndNoBoxComes();

private:
    /// Two sources, the first of them marked, sorted by number downwards, and a comment.
    void fill(bool modified);
    [[nodiscard]] bool isAsFilled(bool modified);
    [[nodiscard]] SourceFiles inventory();
    void write(const QString& name, const QStringList& lines, const Layout& layout);
    [[nodiscard]] bool load(const SourceFiles& files, LoadMode mode)
    {
        harness().boxes.answerNext(BoxAnswer::Ok);
        return loadSources(harness().window(), files, {}, mode);
    }
    /// The last of so many boxes is that of a failed load with this text.
    void expectBox(const QString& text, int count = 1)
    {
        QCOMPARE(harness().boxes.shown().size(), count);
        QCOMPARE(describe(harness().boxes.shown().last()),
            describe({loadTitle, text, BoxIcon::Critical, BoxButtons::Ok, {}}));
    }
};

void FailureMessagesTest::fill(bool modified)
{
    harness().fillWithNumbers({8, 9});
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().mark(QStringLiteral("X-"));
    harness().window().comment(QStringLiteral("A"));
    harness().set().modified(modified);
}

bool FailureMessagesTest::isAsFilled(bool modified)
{
    return harness().numberColumn() == QStringList({numberText(9), numberText(8)})
        && harness().marks() == QStringLiteral("X-") && harness().window().comment() == QStringLiteral("A")
        && harness().set().size() == 2 && harness().set().modified() == modified;
}

SourceFiles FailureMessagesTest::inventory()
{
    SourceFiles files = harness().writeInventory({record(0, 1), record(0, 2)}, QStringLiteral("Obec"));
    // Also for the one whom AsOrdinaryUser becomes.
    for (const QString& name : names)
        QFile::setPermissions(
            harness().path(name), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    return files;
}

void FailureMessagesTest::write(const QString& name, const QStringList& lines, const Layout& layout)
{
    QByteArray bytes;
    for (int i = 0; i < lines.size(); ++i) {
        bytes += lines.at(i).toLatin1();
        if (i + 1 < lines.size() || layout.lastEnd)
            bytes += layout.ends.at(i % layout.ends.size());
    }
    QFile file(harness().path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

void FailureMessagesTest::refusedFileIsNamedAndNothingChanges_data()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<Trouble>("trouble");
    QTest::addColumn<LoadMode>("mode");
    constexpr std::array<const char*, 3> fileNames{"points", "description", "dust"};
    const std::vector<std::pair<const char*, Trouble>> troubles{{"no file", Trouble::NoFile},
        {"no folder", Trouble::NoFolder}, {"a file as folder", Trouble::FileAsFolder}, {"a folder", Trouble::Folder},
        {"a loop of links", Trouble::LoopOfLinks}, {"too long a name", Trouble::TooLongName}, {"a pipe", Trouble::Pipe},
        {"a device", Trouble::Device}, {"not allowed", Trouble::NotAllowed}, {"reading fails", Trouble::FailingRead}};
    for (int file = 0; file < 3; ++file) {
        for (const auto& [name, trouble] : troubles) {
            if (file == 0 && trouble == Trouble::FailingRead)
                continue;  // the sources are made while this file is read: the test below
            QTest::addRow("%s: %s", fileNames.at(static_cast<std::size_t>(file)), name)
                << file << trouble << LoadMode::Replace;
            QTest::addRow("%s: %s, appending", fileNames.at(static_cast<std::size_t>(file)), name)
                << file << trouble << LoadMode::Append;
        }
    }
}

void FailureMessagesTest::refusedFileIsNamedAndNothingChanges()
{
    QFETCH(const int, file);
    QFETCH(const Trouble, trouble);
    QFETCH(const LoadMode, mode);
    SourceFiles files = inventory();
    const QString path = TroubledFiles(harness()).path(trouble);
    pathIn(files, file) = QFile::encodeName(path).toStdString();
    for (const bool modified : {true, false}) {
        harness().set().clear();
        fill(modified);
        {
            std::optional<AsOrdinaryUser> user;
            if (trouble == Trouble::NotAllowed)
                user.emplace(harness());
            if (user && !user->isOrdinary())
                QSKIP("The administrator may read everything.");
            QVERIFY(!load(files, mode));
        }
        QVERIFY(isAsFilled(modified));
        QCOMPARE(harness().status().text(), QString());
        expectBox(wordsOf(trouble) + QStringLiteral("\n\n") + path, modified ? 1 : 2);
    }
}

void FailureMessagesTest::pointsFileThatFailsWhileItIsReadIsNamed_data()
{
    QTest::addColumn<LoadMode>("mode");
    QTest::addColumn<QString>("added");
    QTest::addColumn<QStringList>("left");
    QTest::newRow("replacing") << LoadMode::Replace << onlyBefore << QStringList();
    QTest::newRow("appending") << LoadMode::Append << onlyBeforeAppended << QStringList({numberText(8), numberText(9)});
}

void FailureMessagesTest::pointsFileThatFailsWhileItIsReadIsNamed()
{
    QFETCH(const LoadMode, mode);
    QFETCH(const QString, added);
    QFETCH(const QStringList, left);
    SourceFiles files = inventory();
    files.points = TroubledFiles(harness()).path(Trouble::FailingRead).toStdString();
    fill(true);
    QVERIFY(!load(files, mode));
    expectBox(wordsOf(Trouble::FailingRead) + added + QStringLiteral("\n\n/proc/self/mem"));
    QCOMPARE(harness().numberColumn(), left);
    QCOMPARE(harness().window().comment(), QStringLiteral("A"));
    QVERIFY(harness().set().modified());
}

void FailureMessagesTest::fileWithoutANameIsSaidToBeMissing_data()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<QString>("text");
    QTest::newRow("points") << 0 << QStringLiteral("Není zadán soubor s body.");
    QTest::newRow("description") << 1 << QStringLiteral("Není zadán soubor s popisem.");
}

void FailureMessagesTest::fileWithoutANameIsSaidToBeMissing()
{
    QFETCH(const int, file);
    QFETCH(const QString, text);
    SourceFiles files = inventory();
    pathIn(files, file).clear();
    fill(true);
    QVERIFY(!load(files, LoadMode::Replace));
    expectBox(text);
    QVERIFY(isAsFilled(true));
}

void FailureMessagesTest::numberOutOfRangeIsNamedByFileLineAndText_data()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<QList<int>>("numbers");
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("layout");
    QTest::addColumn<QString>("wrong");
    QTest::addColumn<QString>("words");
    QTest::addColumn<bool>("pairs");
    const std::vector<Layout> layouts = everyLayout();
    for (const Fault& fault : everyFault()) {
        int row = 0;
        forEveryLayout([&](const Layout& layout, const QList<int>& numbers, qsizetype place) {
            QTest::addRow("%s; %s; from %d, place %d", fault.name, layout.name, numbers.first(), int(place))
                << fault.file << numbers << int(place) << row++ / 4 << fault.record << fault.words << fault.pairs;
        });
    }
}

void FailureMessagesTest::numberOutOfRangeIsNamedByFileLineAndText()
{
    QFETCH(const int, file);
    QFETCH(const QList<int>, numbers);
    QFETCH(const int, place);
    QFETCH(const int, layout);
    QFETCH(const QString, wrong);
    QFETCH(const QString, words);
    QFETCH(const bool, pairs);
    const Layout used = everyLayout().at(static_cast<std::size_t>(layout));
    const SourceFiles files = inventory();
    qsizetype line = 0;
    for (int each = 0; each < 3; ++each) {
        QStringList records;
        for (const int number : numbers)
            records << record(each, number);
        if (each == file)
            records[place] = wrong;
        const QStringList lines = linesOf(records, used);
        if (each == file)
            line = lines.indexOf(wrong) + 1;
        write(names.at(static_cast<std::size_t>(each)), lines, used);
    }
    fill(true);
    QVERIFY(!load(files, LoadMode::Replace));
    expectBox(QStringLiteral("Řádek %1: ").arg(line) + words + (pairs ? onlyBefore : QString()) + QStringLiteral("\n\n")
        + harness().path(names.at(static_cast<std::size_t>(file))));
    if (!pairs) {
        QVERIFY(isAsFilled(true));
        return;
    }
    QStringList left;
    for (const int number : numbers.first(place))
        left << numberText(number);
    QCOMPARE(harness().numberColumn(), left);
    QCOMPARE(harness().set().size(), static_cast<std::size_t>(place));
    QCOMPARE(harness().marks(), QString(place, QLatin1Char('-')));
    QCOMPARE(harness().window().comment(), used.before.isEmpty() ? QStringLiteral("A") : QStringLiteral("Obec"));
    QVERIFY(harness().set().modified());
}

void FailureMessagesTest::numberOutOfRangeWhileAppendingKeepsWhatWasThere_data()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<QString>("wrong");
    QTest::addColumn<QString>("words");
    QTest::addColumn<bool>("pairs");
    for (const Fault& fault : everyFault())
        QTest::newRow(fault.name) << fault.file << fault.record << fault.words << fault.pairs;
}

void FailureMessagesTest::numberOutOfRangeWhileAppendingKeepsWhatWasThere()
{
    QFETCH(const int, file);
    QFETCH(const QString, wrong);
    QFETCH(const QString, words);
    QFETCH(const bool, pairs);
    // A number that is there already: the check for duplicates must not run over half an inventory.
    const SourceFiles files
        = harness().writeInventory({record(0, 8), record(0, 3), record(0, 4)}, QStringLiteral("Obec"));
    const QString& name = names.at(static_cast<std::size_t>(file));
    QStringList lines{record(file, 8), wrong, record(file, 4)};
    if (file == 0)
        lines.prepend(QStringLiteral(";Obec"));
    harness().writeFile(name, lines);
    for (const bool modified : {true, false}) {
        harness().set().clear();
        fill(modified);
        QVERIFY(!load(files, LoadMode::Append));
        expectBox(QStringLiteral("Řádek %1: ").arg(lines.indexOf(wrong) + 1) + words
                + (pairs ? onlyBeforeAppended : QString()) + QStringLiteral("\n\n") + harness().path(name),
            modified ? 1 : 2);
        if (!pairs) {
            QVERIFY(isAsFilled(modified));
            continue;
        }
        QCOMPARE(harness().numberColumn(), QStringList({numberText(8), numberText(9), numberText(8)}));
        QCOMPARE(harness().marks(), QStringLiteral("---"));
        QCOMPARE(harness().window().comment(), QStringLiteral("A * Obec"));
        QCOMPARE(harness().set().modified(), modified);
    }
}

void FailureMessagesTest::reportsCarryNumbersAndLinesAsDetails_data()
{
    QTest::addColumn<QList<int>>("numbers");
    QTest::addColumn<int>("layout");
    int row = 0;
    forEveryLayout([&](const Layout& layout, const QList<int>& numbers, qsizetype place) {
        QTest::addRow("%s; from %d, place %d", layout.name, numbers.first(), int(place)) << numbers << row++ / 4;
    });
}

/// 1 has no description, 2 and 3 no dust, 4 no type that there is.
void FailureMessagesTest::reportsCarryNumbersAndLinesAsDetails()
{
    QFETCH(const QList<int>, numbers);
    QFETCH(const int, layout);
    const Layout used = everyLayout().at(static_cast<std::size_t>(layout));
    const SourceFiles files = inventory();
    std::array<QStringList, 3> records;
    for (const int number : numbers) {
        records[0] << (number == 4 ? QStringLiteral("000000004, 0, 0, 0, 8, 0, 0 ;X") : record(0, number));
        if (number != 1)
            records[1] << record(1, number);
        if (number == 1 || number == 4)
            records[2] << record(2, number);
    }
    for (std::size_t each = 0; each < 3; ++each)
        write(names.at(each), linesOf(records.at(each), used), used);
    const QStringList lines = linesOf(records[0], used);
    const auto details = [&](const QList<int>& reported) {
        QStringList texts;
        for (qsizetype place = 0; place < numbers.size(); ++place) {
            const qsizetype line = lines.indexOf(records[0].at(place)) + 1;
            if (reported.contains(numbers.at(place)))
                texts << QStringLiteral("řádek %1: zdroj %2").arg(line).arg(numbers.at(place));
        }
        return texts.join(QLatin1Char('\n'));
    };
    fill(true);
    for (int box = 0; box < 3; ++box)
        harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(loadSources(harness().window(), files, {}, LoadMode::Replace));

    QStringList boxes;
    for (const BoxRequest& box : harness().boxes.shown())
        boxes << describe(box);
    const auto warning = [](const QString& text, const QString& shown) {
        return describe({loadTitle, text, BoxIcon::Exclamation, BoxButtons::Ok, shown});
    };
    QCOMPARE(boxes,
        QStringList({warning(QStringLiteral("V popisném souboru nebylo\nnalezeno 1 zdrojů."), details({1})),
            warning(QStringLiteral("V souboru s prachem nebylo\nnalezeno 2 zdrojů."), details({2, 3})),
            warning(QStringLiteral("V souboru s body bylo vynecháno\n1 zdrojů neznámého typu."), details({4}))}));
    QCOMPARE(harness().model().rowCount(), 3);
    QVERIFY(!harness().numberColumn().contains(numberText(4)));
    QVERIFY(!harness().set().modified());
}

void FailureMessagesTest::commentOfAFileThatCannotBeReadIsEmptyAndNoBoxComes_data()
{
    QTest::addColumn<Trouble>("trouble");
    QTest::newRow("no file") << Trouble::NoFile;
    QTest::newRow("a folder") << Trouble::Folder;
    QTest::newRow("a pipe") << Trouble::Pipe;
    QTest::newRow("not allowed") << Trouble::NotAllowed;
    QTest::newRow("reading fails") << Trouble::FailingRead;
}

void FailureMessagesTest::commentOfAFileThatCannotBeReadIsEmptyAndNoBoxComes()
{
    QFETCH(const Trouble, trouble);
    const QString troubled = TroubledFiles(harness()).path(trouble);
    harness().chooser.answerNext(QFile::decodeName(inventory().points.c_str()));
    harness().chooser.answerNext(troubled);
    QStringList comments;
    std::optional<AsOrdinaryUser> user;
    if (trouble == Trouble::NotAllowed)
        user.emplace(harness());
    const bool canShow = !user || user->isOrdinary();
    harness().dialogs.useNext(QStringLiteral("frmLoadZdroje"), [&](QDialog& dialog) {
        for (int i = 0; i < 2; ++i) {
            child<QAbstractButton>(dialog, "cbOpenBOD").click();
            comments << child<QLabel>(dialog, "lbKomentarBOD").text();
        }
        QCOMPARE(child<QLineEdit>(dialog, "tbBOD").text(), troubled);
        child<QPushButton>(dialog, "cbStorno").click();
    });
    harness().item("mnuVLoad").trigger();
    user.reset();
    if (!canShow)
        QSKIP("The administrator may read everything.");
    QCOMPARE(comments, QStringList({QStringLiteral("Obec"), QString()}));
    QVERIFY(harness().boxes.shown().isEmpty());
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::FailureMessagesTest)

#include "failure_messages_test.moc"
