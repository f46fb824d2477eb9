// Saves that fail or lose something, and the dust groups file: each box as a whole, and what is left behind it.
#include "dialog_checks.h"
#include "dust_group_editor.h"
#include "load_save.h"
#include "source_editor.h"
#include "troubled_files.h"
#include "window_harness.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>

#include <array>
#include <cstddef>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvex {
namespace {

const QString saveTitle = QStringLiteral("Uložení seznamu zdrojů");
const QString groupsReadTitle = QStringLiteral("Chyba při čtení ze souboru");
const QString groupsWriteTitle = QStringLiteral("Chyba při zápisu do souboru");
const QString copiesAre = QStringLiteral("\nKopie původních souborů je ve složce:\n");
const QString groupsQuestion = QStringLiteral("Byly provedeny změny ve skupinách prachu.\nMám tyto změny uložit ?");

const std::array<QString, 3> names{
    QStringLiteral("body.txt"), QStringLiteral("popis.txt"), QStringLiteral("prach.txt")};
constexpr std::array<const char*, 3> kinds{"points", "description", "dust"};

using Troubles = std::vector<std::pair<const char*, Trouble>>;

/// What is in the way of writing and is found before anything is written.
const Troubles writeRefusals{{"no folder", Trouble::NoFolder}, {"a file as folder", Trouble::FileAsFolder},
    {"a folder", Trouble::Folder}, {"a loop of links", Trouble::LoopOfLinks}, {"too long a name", Trouble::TooLongName},
    {"a pipe", Trouble::Pipe}, {"not allowed", Trouble::NotAllowed}};

const Troubles readRefusals{{"no file", Trouble::NoFile}, {"no folder", Trouble::NoFolder},
    {"a file as folder", Trouble::FileAsFolder}, {"a folder", Trouble::Folder},
    {"a loop of links", Trouble::LoopOfLinks}, {"too long a name", Trouble::TooLongName}, {"a pipe", Trouble::Pipe},
    {"a device", Trouble::Device}, {"not allowed", Trouble::NotAllowed}, {"reading fails", Trouble::FailingRead}};

std::string& pathIn(SourceFiles& files, std::size_t file)
{
    return file == 0 ? files.points : file == 1 ? files.description : files.dust;
}

/// Only an editor can bring a name with a semicolon: a load ends it there.
class NamingEditor : public SourceEditor {
public:
    explicit NamingEditor(const QString& name) : m_name(name.toStdString()) { }
    [[nodiscard]] bool edit(const SourceType& /*type*/, SourceValues& values) override
    {
        values.name = m_name;
        return true;
    }

private:
    std::string m_name;
};

void addTroubles(const Troubles& troubles)
{
    QTest::addColumn<Trouble>("trouble");
    for (const auto& [name, trouble] : troubles)
        QTest::newRow(name) << trouble;
}

}  // namespace

class SaveFailureMessagesTest : public ShellTest {
    Q_OBJECT

private slots:
    void refusedFileIsNamedAndNothingChanges_data();
    void refusedFileIsNamedAndNothingChanges();
    void failedWriteNamesTheFileAndTheFolderOfTheCopies_data();
    void failedWriteNamesTheFileAndTheFolderOfTheCopies();
    void fileWithoutANameIsNotSaved();
    void numberThatNoFileCanHoldIsARunTimeErrorAndNothingIsWritten();
    void lostCharactersComeBeforeCutNamesBothWithTheirSources();
    void iniFileThatCannotBeWrittenIsPassedOverInSilence_data();
    void iniFileThatCannotBeWrittenIsPassedOverInSilence();

    void groupsFileThatCannotBeReadIsNamed_data();
    void groupsFileThatCannotBeReadIsNamed();
    void groupsFileThatCannotBeReadBesideAnInventoryIsNamed_data();
    void groupsFileThatCannotBeReadBesideAnInventoryIsNamed();
    void groupsFileThatCannotBeWrittenIsNamed_data();
    void groupsFileThatCannotBeWrittenIsNamed();

private:
    /// Two sources, sorted by number, the second marked, unsaved; three old files; an INI file; no dialog.
    void fill();
    [[nodiscard]] bool save() { return saveSources(harness().window(), SaveScope::All); }
    void expectNothingChanged();
    [[nodiscard]] bool becomes(std::optional<AsOrdinaryUser>& user, Trouble trouble)
    {
        if (trouble == Trouble::NotAllowed)
            user.emplace(harness());
        return !user || user->isOrdinary();
    }
    void inEditor(const std::string& path, const std::function<void(frmSkupinyPrachu&)>& use);
    std::string groupsFile()
    {
        return harness().writeFile(QStringLiteral("a.spr"), {QStringLiteral(";Komentář"), QStringLiteral("1,0;A")});
    }
};

void SaveFailureMessagesTest::fill()
{
    for (std::size_t file = 0; file < names.size(); ++file) {
        pathIn(harness().globals.files, file) = harness().writeFile(names.at(file), {QStringLiteral("old")});
        constexpr QFile::Permissions all = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::WriteGroup
            | QFile::ReadOther | QFile::WriteOther;
        QVERIFY(QFile::setPermissions(harness().path(names.at(file)), all));
    }
    const SourceFiles files = harness().globals.files;
    harness().set().clear();
    harness().fillWithNumbers({2, 1});
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().mark(QStringLiteral("-X"));
    harness().set().modified(true);
    harness().globals.files = files;
    harness().globals.commandLineMode = true;
    harness().globals.iniPath = harness().writeFile(QStringLiteral("volání.ini"), {QStringLiteral("[Global]")});
}

void SaveFailureMessagesTest::expectNothingChanged()
{
    QVERIFY(harness().set().modified());
    QCOMPARE(harness().nameColumn(), QStringList({QStringLiteral("Zdroj 1"), QStringLiteral("Zdroj 2")}));
    QCOMPARE(harness().marks(), QStringLiteral("-X"));
    QCOMPARE(harness().bytes(QStringLiteral("volání.ini")), QByteArray("[Global]\r\n"));
}

void SaveFailureMessagesTest::refusedFileIsNamedAndNothingChanges_data()
{
    QTest::addColumn<std::size_t>("file");
    QTest::addColumn<Trouble>("trouble");
    for (std::size_t file = 0; file < kinds.size(); ++file) {
        for (const auto& [name, trouble] : writeRefusals)
            QTest::addRow("%s: %s", kinds.at(file), name) << file << trouble;
    }
}

void SaveFailureMessagesTest::refusedFileIsNamedAndNothingChanges()
{
    QFETCH(const std::size_t, file);
    QFETCH(const Trouble, trouble);
    fill();
    const QString path = TroubledFiles(harness()).path(trouble);
    pathIn(harness().globals.files, file) = QFile::encodeName(path).toStdString();
    const QStringList before = QDir(harness().path(QString())).entryList(QDir::AllEntries | QDir::System);
    {
        std::optional<AsOrdinaryUser> user;
        if (!becomes(user, trouble))
            QSKIP("The administrator may write everything.");
        harness().boxes.answerNext(BoxAnswer::Ok);
        QVERIFY(!save());
    }
    QCOMPARE(harness().boxes.shown().size(), 1);
    QCOMPARE(describe(harness().boxes.shown().first()),
        describe({saveTitle, wordsOf(trouble) + QStringLiteral("\n\n") + path, BoxIcon::Critical, BoxButtons::Ok, {}}));
    expectNothingChanged();
    for (const QString& name : names)
        QCOMPARE(harness().bytes(name), QByteArray("old\r\n"));
    QCOMPARE(QDir(harness().path(QString())).entryList(QDir::AllEntries | QDir::System), before);
}

void SaveFailureMessagesTest::failedWriteNamesTheFileAndTheFolderOfTheCopies_data()
{
    QTest::addColumn<std::size_t>("file");
    for (std::size_t file = 0; file < kinds.size(); ++file)
        QTest::newRow(kinds.at(file)) << file;
}

void SaveFailureMessagesTest::failedWriteNamesTheFileAndTheFolderOfTheCopies()
{
    QFETCH(const std::size_t, file);
    fill();
    const QString path = TroubledFiles(harness()).path(Trouble::FullDevice);
    pathIn(harness().globals.files, file) = path.toStdString();
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(!save());
    QCOMPARE(harness().boxes.shown().size(), 1);
    const BoxRequest box = harness().boxes.shown().first();
    const QString head = wordsOf(Trouble::FullDevice) + copiesAre;
    const QString tail = QStringLiteral("\n\n") + path;
    QVERIFY2(box.text.startsWith(head) && box.text.endsWith(tail), qPrintable(box.text));
    QCOMPARE(describe(box), describe({saveTitle, box.text, BoxIcon::Critical, BoxButtons::Ok, {}}));
    // The two files that are none of a device.
    const QDir copies(box.text.mid(head.size(), box.text.size() - head.size() - tail.size()));
    QCOMPARE(copies.entryList(QDir::Files).filter(QStringLiteral("-")).size(), 2);
    for (const QString& copy : copies.entryList(QDir::Files).filter(QStringLiteral("-"))) {
        QFile contents(copies.filePath(copy));
        QVERIFY(contents.open(QIODevice::ReadOnly));
        QCOMPARE(contents.readAll(), QByteArray("old\r\n"));
    }
    expectNothingChanged();
    // Files are written one after the other: those behind the failing one are as they were.
    for (std::size_t other = file + 1; other < names.size(); ++other)
        QCOMPARE(harness().bytes(names.at(other)), QByteArray("old\r\n"));
}

void SaveFailureMessagesTest::fileWithoutANameIsNotSaved()
{
    for (std::size_t file = 0; file < 2; ++file) {
        fill();
        pathIn(harness().globals.files, file).clear();
        harness().boxes.answerNext(BoxAnswer::Ok);
        QVERIFY(!save());
        const QString text = file == 0 ? QStringLiteral("Není zadán soubor s body.")
                                       : QStringLiteral("Není zadán soubor s popisem.");
        QCOMPARE(describe(harness().boxes.shown().last()),
            describe({saveTitle, text, BoxIcon::Critical, BoxButtons::Ok, {}}));
        QVERIFY(harness().set().modified());
        for (const QString& name : names)
            QCOMPARE(harness().bytes(name), QByteArray("old\r\n"));
    }
}

void SaveFailureMessagesTest::numberThatNoFileCanHoldIsARunTimeErrorAndNothingIsWritten()
{
    fill();
    harness().globals.commandLineMode = false;
    harness().set().at(2).Parameters(0, std::numeric_limits<float>::infinity());
    harness().dialogs.useNext(
        QStringLiteral("frmSaveZdroje"), [](QDialog& dialog) { child<QPushButton>(dialog, "cbOk").click(); });
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().item("mnuVSave").trigger();
    QCOMPARE(describe(harness().boxes.shown().value(0)),
        describe({QStringLiteral("Chyba při běhu programu"), QStringLiteral("Neplatná operace."), BoxIcon::Critical,
            BoxButtons::Ok, {}}));
    expectNothingChanged();
    for (const QString& name : names)
        QCOMPARE(harness().bytes(name), QByteArray("old\r\n"));
}

void SaveFailureMessagesTest::lostCharactersComeBeforeCutNamesBothWithTheirSources()
{
    fill();
    const QStringList given{QStringLiteral("Ω; dvůr"), QStringLiteral("Sklad; dvůr"), QStringLiteral("日本")};
    int number = 7;
    for (const QString& name : given) {
        harness().append(cPlosnyZdroj, number++);
        NamingEditor editor(name);
        harness().set().last().Edit(editor);
    }
    harness().window().refill();
    harness().window().comment(QStringLiteral("Ω"));
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(save());
    QCOMPARE(harness().boxes.shown().size(), 2);
    QCOMPARE(describe(harness().boxes.shown().at(0)),
        describe({saveTitle,
            QStringLiteral("Některé znaky nelze v souborech uložit a byly nahrazeny otazníkem.\n"
                           "Počet zdrojů, kterých se to týká: 2.\n"
                           "Týká se to i komentáře nebo názvu souboru v hlavičce."),
            BoxIcon::Exclamation, BoxButtons::Ok, QStringLiteral("zdroj 7\nzdroj 9")}));
    QCOMPARE(describe(harness().boxes.shown().at(1)),
        describe({saveTitle,
            QStringLiteral("Středník ukončuje v souboru název zdroje: při příštím načtení bude název zkrácen.\n"
                           "Počet zdrojů, kterých se to týká: 2."),
            BoxIcon::Exclamation, BoxButtons::Ok, QStringLiteral("zdroj 7\nzdroj 8")}));
    QVERIFY(!harness().set().modified());
}

void SaveFailureMessagesTest::iniFileThatCannotBeWrittenIsPassedOverInSilence_data()
{
    Troubles troubles = writeRefusals;
    troubles.emplace_back("a full device", Trouble::FullDevice);
    addTroubles(troubles);
}

void SaveFailureMessagesTest::iniFileThatCannotBeWrittenIsPassedOverInSilence()
{
    QFETCH(const Trouble, trouble);
    fill();
    harness().globals.iniPath = QFile::encodeName(TroubledFiles(harness()).path(trouble)).toStdString();
    frmSkupinyPrachu editor(harness().window().shell(), &harness().window());
    const QString groups = harness().path(QStringLiteral("b.spr"));
    {
        std::optional<AsOrdinaryUser> user;
        if (!becomes(user, trouble))
            QSKIP("The administrator may write everything.");
        QVERIFY(save());
        editor.UlozSkupiny(QFile::encodeName(groups).toStdString());
    }
    QVERIFY(harness().boxes.shown().isEmpty());
    QVERIFY(!harness().set().modified());
    QCOMPARE(harness().bytes(names[2]), QByteArray("000000001,0,0,0\r\n000000002,0,0,0\r\n"));
    QCOMPARE(harness().bytes(QStringLiteral("b.spr")), QByteArray(";\r\n"));
    QCOMPARE(QFile::decodeName(editor.FileName().c_str()), groups);
}

void SaveFailureMessagesTest::inEditor(const std::string& path, const std::function<void(frmSkupinyPrachu&)>& use)
{
    frmSkupinyPrachu editor(harness().window().shell(), &harness().window());
    editor.FileName(path);
    harness().dialogs.useNext(QStringLiteral("frmSkupinyPrachu"), [&](QDialog&) {
        QVERIFY(waitUntilActive(editor));
        use(editor);
        if (editor.isVisible())
            editor.done(QDialog::Rejected);
    });
    editor.exec();
}

void SaveFailureMessagesTest::groupsFileThatCannotBeReadIsNamed_data()
{
    addTroubles(readRefusals);
}

void SaveFailureMessagesTest::groupsFileThatCannotBeReadIsNamed()
{
    QFETCH(const Trouble, trouble);
    const std::string good = groupsFile();
    const QString path = TroubledFiles(harness()).path(trouble);
    for (const bool changed : {false, true}) {
        inEditor(good, [&](frmSkupinyPrachu& editor) {
            if (changed)
                child<QPushButton>(editor, "cmdNew").click();
            {
                std::optional<AsOrdinaryUser> user;
                if (!becomes(user, trouble))
                    QSKIP("The administrator may read everything.");
                harness().chooser.answerNext(path);
                harness().boxes.answerNext(BoxAnswer::Ok);
                child<QPushButton>(editor, "cmdOpenFile").click();
            }
            QCOMPARE(describe(harness().boxes.shown().last()),
                describe({groupsReadTitle, wordsOf(trouble) + QStringLiteral("\n\n") + path, BoxIcon::Critical,
                    BoxButtons::Ok, {}}));
            QCOMPARE(editor.FileName(), good);
            QCOMPARE(harness().globals.dustGroupsPath, good);
            QCOMPARE(child<QLineEdit>(editor, "txtFile").text(), QFile::decodeName(good.c_str()));
            QCOMPARE(child<QLineEdit>(editor, "txtKomentar").text(), QStringLiteral("Komentář"));
            // What was unsaved is still asked for, and nothing else is.
            const qsizetype boxes = harness().boxes.shown().size();
            if (changed)
                harness().boxes.answerNext(BoxAnswer::No);
            child<QPushButton>(editor, "cmdStorno").click();
            QCOMPARE(harness().boxes.shown().size(), boxes + (changed ? 1 : 0));
        });
    }
}

void SaveFailureMessagesTest::groupsFileThatCannotBeReadBesideAnInventoryIsNamed_data()
{
    addTroubles(readRefusals);
}

/// The inventory is loaded all the same, and its own messages come behind.
void SaveFailureMessagesTest::groupsFileThatCannotBeReadBesideAnInventoryIsNamed()
{
    QFETCH(const Trouble, trouble);
    const SourceFiles files = harness().writeInventory({pointsRecord(cBodovyZdroj, 5, QStringLiteral("X"))});
    harness().writeFile(names[1], {});
    for (const QString& name : names)
        QFile::setPermissions(harness().path(name), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    const QString path = TroubledFiles(harness()).path(trouble);
    static_cast<void>(harness().window());
    {
        std::optional<AsOrdinaryUser> user;
        if (!becomes(user, trouble))
            QSKIP("The administrator may read everything.");
        harness().boxes.answerNext(BoxAnswer::Ok);
        harness().boxes.answerNext(BoxAnswer::Ok);
        QVERIFY(loadSources(harness().window(), files, QFile::encodeName(path).toStdString(), LoadMode::Replace));
    }
    QCOMPARE(describe(harness().boxes.shown().value(0)),
        describe({groupsReadTitle, wordsOf(trouble) + QStringLiteral("\n\n") + path, BoxIcon::Critical, BoxButtons::Ok,
            {}}));
    QCOMPARE(harness().boxes.shown().value(1).text, QStringLiteral("V popisném souboru nebylo\nnalezeno 1 zdrojů."));
    QCOMPARE(harness().boxes.shown().value(1).details, QStringLiteral("řádek 1: zdroj 5"));
    QCOMPARE(harness().numberColumn(), QStringList{QStringLiteral("000000005")});
    QVERIFY(!harness().set().modified());
}

void SaveFailureMessagesTest::groupsFileThatCannotBeWrittenIsNamed_data()
{
    Troubles troubles = writeRefusals;
    troubles.emplace_back("a full device", Trouble::FullDevice);
    addTroubles(troubles);
}

void SaveFailureMessagesTest::groupsFileThatCannotBeWrittenIsNamed()
{
    QFETCH(const Trouble, trouble);
    const std::string good = groupsFile();
    const QString path = TroubledFiles(harness()).path(trouble);
    inEditor(good, [&](frmSkupinyPrachu& editor) {
        harness().globals.iniPath = harness().writeFile(QStringLiteral("volání.ini"), {QStringLiteral("[Global]")});
        child<QPushButton>(editor, "cmdNew").click();
        {
            std::optional<AsOrdinaryUser> user;
            if (!becomes(user, trouble))
                QSKIP("The administrator may write everything.");
            harness().chooser.answerNext(path);
            harness().boxes.answerNext(BoxAnswer::Ok);
            child<QPushButton>(editor, "cmdSaveFile").click();
        }
        QCOMPARE(harness().boxes.shown().size(), 1);
        QCOMPARE(describe(harness().boxes.shown().first()),
            describe({groupsWriteTitle, wordsOf(trouble) + QStringLiteral("\n\n") + path, BoxIcon::Critical,
                BoxButtons::Ok, {}}));
        QCOMPARE(editor.FileName(), good);
        QCOMPARE(child<QLineEdit>(editor, "txtFile").text(), QFile::decodeName(good.c_str()));
        QCOMPARE(harness().bytes(QStringLiteral("volání.ini")), QByteArray("[Global]\r\n"));
        harness().boxes.answerNext(BoxAnswer::No);
        child<QPushButton>(editor, "cmdStorno").click();
        QCOMPARE(harness().boxes.shown().last().text, groupsQuestion);
    });
    QCOMPARE(harness().bytes(QStringLiteral("a.spr")), QByteArray(";Koment\xe1\xf8\r\n1,0;A\r\n"));
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::SaveFailureMessagesTest)

#include "save_failure_messages_test.moc"
