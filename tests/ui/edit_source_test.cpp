// The commands that open a source's editor: which source they edit, what the list shows of it, and what is saved.
#include "load_save.h"
#include "source_editor_test.h"

#include <QSignalSpy>

namespace korvex {
namespace {

enum class Opening { DoubleClick, Enter, Menu };

void addOpeningColumn(bool withMenu)
{
    QTest::addColumn<Opening>("opening");
    QTest::newRow("double click") << Opening::DoubleClick;
    QTest::newRow("Enter") << Opening::Enter;
    if (withMenu)
        QTest::newRow("Nastav zdroj") << Opening::Menu;
}

void addOpeningsAndWaysToLeave(bool withOk)
{
    QTest::addColumn<Opening>("opening");
    QTest::addColumn<Leaving>("leaving");
    const std::pair<const char*, Opening> openings[]{
        {"double click", Opening::DoubleClick}, {"Enter", Opening::Enter}, {"Nastav zdroj", Opening::Menu}};
    for (const auto& [name, opening] : openings) {
        if (withOk)
            QTest::addRow("%s, Ok", name) << opening << Leaving::Ok;
        QTest::addRow("%s, Storno", name) << opening << Leaving::Storno;
        QTest::addRow("%s, Escape", name) << opening << Leaving::Escape;
        QTest::addRow("%s, close box", name) << opening << Leaving::CloseBox;
    }
}

/// Types a name and leaves by Ok.
std::function<void(QDialog&)> renaming(const char* name)
{
    return [name](QDialog& editor) {
        setText(editor, "txtNazevZdroje", QString::fromUtf8(name));
        press(editor, "cbOK");
    };
}

const char* const fileNames[]{"body.txt", "popis.txt", "prach.txt"};

}  // namespace

class EditSourceTest : public SourceEditorTest {
    Q_OBJECT

private slots:
    void everyWayOpensTheCurrentRowsSource_data();
    void everyWayOpensTheCurrentRowsSource();
    void everyWayFollowsTheRowAfterSorting_data() { addOpeningColumn(true); }
    void everyWayFollowsTheRowAfterSorting();
    void modifiedFlagIsSetOnOkOnly_data();
    void modifiedFlagIsSetOnOkOnly();
    void withoutOkSourceAndRowStay_data();
    void withoutOkSourceAndRowStay();
    void numberOutOfRangeLeavesTheRow();

    void newNameIsShownInItsRow_data() { addOpeningColumn(false); }
    void newNameIsShownInItsRow();
    void nothingElseInTheListChanges_data() { addOpeningColumn(true); }
    void nothingElseInTheListChanges();
    void unmarkedRowOnlyRefillsTheList_data() { addOpeningColumn(false); }
    void unmarkedRowOnlyRefillsTheList();

    void menuAsksForNoMark();
    void menuLeavesTheNameUntilTheNextRefill();
    void keptNameIsTheOneShownAtFirst();
    void keptNameIsSortedAndToldAsShown();
    void keptNameStaysWithItsRowWhenSorted();
    void keptNameStaysWhenANewSourceJoins();
    void keptNameIsGoneWhenTheRowIsRewritten();
    void keptNameIsNotSaved();
    void menuWithoutACurrentRowDoesNothing();
    void keepingANameConcernsOneRow();
    void changedNameIsAnnouncedForItsCellAlone();

    void savedEditChangesOnlyThatSourcesLines_data();
    void savedEditChangesOnlyThatSourcesLines();
    void okWithNothingChangedSavesTheSameBytes_data() { addOpeningColumn(true); }
    void okWithNothingChangedSavesTheSameBytes();
    void stornoAfterEverythingSavesTheSameBytes_data();
    void stornoAfterEverythingSavesTheSameBytes();

private:
    /// A stack 30, an area 10 and a line 20, in this order, with different values.
    void fill()
    {
        harness().show();
        const SourceType* const types[]{&cBodovyZdroj, &cPlosnyZdroj, &cLiniovyZdroj};
        const char* const names[]{"Kotelna", "Skládka", "Silnice"};
        const int numbers[]{30, 10, 20};
        for (std::size_t i = 0; i < 3; ++i) {
            harness().append(*types[i], numbers[i], QString::fromUtf8(names[i]));
            harness().set().last().LineParameters("0, 1.5, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 12");
        }
        harness().set().at(1).LineDust("2500,0,2,10,0.6,50,0.4");
        harness().window().refill();
    }
    /// Marks the row, makes it current and opens the editor of its source.
    void open(Opening opening, int row, std::function<void(QDialog&)> use)
    {
        harness().dialogs.useNext(editorName(harness().model().sourceAt(row).type()), std::move(use));
        switch (opening) {
        case Opening::DoubleClick:
            harness().doubleClick(harness().rowCentre(row));
            break;
        case Opening::Enter:
            harness().clickRow(row);
            QTest::keyClick(&harness().view(), Qt::Key_Return);
            break;
        case Opening::Menu:
            harness().clickRow(row);
            harness().item("mnuVNastavZdroj").trigger();
            break;
        }
    }
    [[nodiscard]] QString nameOf(std::size_t position)
    {
        return QString::fromStdString(std::string(harness().set().at(position).NazevZdroje()));
    }
    [[nodiscard]] QStringList allRecords()
    {
        QStringList records;
        for (std::size_t position = 1; position <= harness().set().size(); ++position)
            records << recordsOf(harness().set().at(position));
        return records;
    }
    /// The lines of the three files as the set is saved now.
    QList<QList<QByteArray>> save()
    {
        const auto path = [this](const char* name) { return harness().path(QLatin1String(name)).toStdString(); };
        harness().globals.files = {path(fileNames[0]), path(fileNames[1]), path(fileNames[2])};
        harness().globals.commandLineMode = true;
        harness().window().comment(QStringLiteral("Obec Žďár"));
        const bool isSaved = saveSources(harness().window(), SaveScope::All);
        harness().globals.commandLineMode = false;
        QList<QList<QByteArray>> files;
        for (const char* const name : fileNames)
            files << harness().bytes(QLatin1String(name)).split('\n');
        return isSaved ? files : QList<QList<QByteArray>>();
    }
};

void EditSourceTest::everyWayOpensTheCurrentRowsSource_data()
{
    QTest::addColumn<Opening>("opening");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("number");
    const char* const numbers[]{"00030", "00010", "00020"};
    for (int row = 0; row < 3; ++row) {
        const QString number = QLatin1String(numbers[row]);
        QTest::addRow("double click on %d", row) << Opening::DoubleClick << row << number;
        QTest::addRow("Enter on %d", row) << Opening::Enter << row << number;
        QTest::addRow("Nastav zdroj on %d", row) << Opening::Menu << row << number;
    }
}

void EditSourceTest::everyWayOpensTheCurrentRowsSource()
{
    QFETCH(const Opening, opening);
    QFETCH(const int, row);
    QFETCH(const QString, number);
    fill();
    open(opening, row, [this, row, &number](QDialog& editor) {
        QCOMPARE(field(editor, "txtCisloZdroje").text(), number);
        QCOMPARE(field(editor, "txtNazevZdroje").text(), harness().model().nameText(row));
        QVERIFY(field(editor, "txtCisloZdroje").isReadOnly());
        press(editor, "cbStorno");
    });
}

void EditSourceTest::everyWayFollowsTheRowAfterSorting()
{
    QFETCH(const Opening, opening);
    fill();
    harness().clickHeader(SourceListModel::NumberColumn);
    open(opening, 1, [](QDialog& editor) {
        QCOMPARE(field(editor, "txtCisloZdroje").text(), QStringLiteral("00020"));
        setText(editor, "txtX", QStringLiteral("5"));
        press(editor, "cbOK");
    });
    QCOMPARE(harness().set().at(3).X(), 5);
    QCOMPARE(harness().set().at(1).X(), 0);
    QCOMPARE(harness().set().at(2).X(), 0);
}

void EditSourceTest::modifiedFlagIsSetOnOkOnly_data()
{
    addOpeningsAndWaysToLeave(true);
}

void EditSourceTest::modifiedFlagIsSetOnOkOnly()
{
    QFETCH(const Opening, opening);
    QFETCH(const Leaving, leaving);
    fill();
    open(opening, 0, [this, leaving](QDialog& editor) {
        QVERIFY(!harness().set().modified());
        leave(editor, leaving);
    });
    QCOMPARE(harness().set().modified(), leaving == Leaving::Ok);
}

void EditSourceTest::withoutOkSourceAndRowStay_data()
{
    addOpeningsAndWaysToLeave(false);
}

void EditSourceTest::withoutOkSourceAndRowStay()
{
    QFETCH(const Opening, opening);
    QFETCH(const Leaving, leaving);
    fill();
    const QStringList before = allRecords();
    const QStringList names = harness().nameColumn();
    open(opening, 2, [this, leaving](QDialog& editor) {
        setText(editor, "txtNazevZdroje", QStringLiteral("Jiná"));
        leaveChanged(harness().boxes, editor, leaving);
    });
    QCOMPARE(allRecords(), before);
    QCOMPARE(harness().nameColumn(), names);
}

void EditSourceTest::numberOutOfRangeLeavesTheRow()
{
    fill();
    const QStringList before = allRecords();
    harness().boxes.answerNext(BoxAnswer::Ok);
    open(Opening::DoubleClick, 1, [](QDialog& editor) {
        setText(editor, "txtNazevZdroje", QStringLiteral("Jiná"));
        setText(editor, "txtX", QStringLiteral("2147483648"));
        press(editor, "cbOK");
        QVERIFY(editor.isVisible());
        press(editor, "cbStorno");
    });
    QVERIFY(isOutOfRange(harness().boxes.shown().first()));
    QCOMPARE(allRecords(), before);
    QCOMPARE(harness().nameColumn().at(1), QStringLiteral("Skládka"));
    QVERIFY(!harness().set().modified());
}

void EditSourceTest::newNameIsShownInItsRow()
{
    QFETCH(const Opening, opening);
    fill();
    open(opening, 1, renaming("Dvůr"));
    QCOMPARE(harness().nameColumn(),
        QStringList({QStringLiteral("Kotelna"), QStringLiteral("Dvůr"), QStringLiteral("Silnice")}));
    QCOMPARE(nameOf(2), QStringLiteral("Dvůr"));
}

void EditSourceTest::nothingElseInTheListChanges()
{
    QFETCH(const Opening, opening);
    fill();
    harness().clickHeader(SourceListModel::NameColumn);
    const QSignalSpy refills(&harness().model(), &QAbstractItemModel::modelReset);
    // Behind the others by its new name, were the list sorted again.
    open(opening, 0, renaming("Žumpa"));
    QCOMPARE(harness().numberColumn(),
        QStringList({QStringLiteral("000000030"), QStringLiteral("000000020"), QStringLiteral("000000010")}));
    QCOMPARE(harness().marks(), QStringLiteral("X--"));
    QCOMPARE(harness().view().currentRow(), 0);
    QCOMPARE(refills.size(), 0);
    QCOMPARE(harness().find<QLabel>("lbPocetZdroju").text(), QStringLiteral("Počet: 3"));
}

void EditSourceTest::unmarkedRowOnlyRefillsTheList()
{
    QFETCH(const Opening, opening);
    fill();
    harness().clickHeader(SourceListModel::NumberColumn);
    harness().mark(QStringLiteral("XX-"));
    const QSignalSpy refills(&harness().model(), &QAbstractItemModel::modelReset);
    // With Ctrl a click takes the mark away.
    if (opening == Opening::DoubleClick) {
        harness().doubleClick(harness().rowCentre(1), Qt::ControlModifier);
    } else {
        harness().clickRow(1, Qt::ControlModifier);
        QTest::keyClick(&harness().view(), Qt::Key_Return);
    }
    QCOMPARE(refills.size(), 1);
    QCOMPARE(harness().numberColumn(),
        QStringList({QStringLiteral("000000030"), QStringLiteral("000000010"), QStringLiteral("000000020")}));
    QCOMPARE(harness().marks(), QStringLiteral("---"));
    QVERIFY(!harness().set().modified());
}

void EditSourceTest::menuAsksForNoMark()
{
    fill();
    harness().clickRow(2);
    harness().mark(QStringLiteral("X--"));
    harness().dialogs.useNext(QStringLiteral("frmLiniovyZdroj"), renaming("Dálnice"));
    harness().item("mnuVNastavZdroj").trigger();
    QCOMPARE(nameOf(3), QStringLiteral("Dálnice"));
    QCOMPARE(harness().marks(), QStringLiteral("X--"));
}

void EditSourceTest::menuLeavesTheNameUntilTheNextRefill()
{
    fill();
    open(Opening::Menu, 1, renaming("Dvůr"));
    QCOMPARE(nameOf(2), QStringLiteral("Dvůr"));
    QCOMPARE(harness().nameColumn().at(1), QStringLiteral("Skládka"));
    harness().window().refill();
    QCOMPARE(harness().nameColumn().at(1), QStringLiteral("Dvůr"));
}

void EditSourceTest::keptNameIsTheOneShownAtFirst()
{
    fill();
    open(Opening::Menu, 1, renaming("Dvůr"));
    open(Opening::Menu, 1, [](QDialog& editor) {
        QCOMPARE(field(editor, "txtNazevZdroje").text(), QStringLiteral("Dvůr"));
        renaming("Zahrada")(editor);
    });
    QCOMPARE(nameOf(2), QStringLiteral("Zahrada"));
    QCOMPARE(harness().nameColumn().at(1), QStringLiteral("Skládka"));
}

// Sorting is by the texts that are seen, and a click tells the row's.
void EditSourceTest::keptNameIsSortedAndToldAsShown()
{
    fill();
    open(Opening::Menu, 1, renaming("Aaa"));
    harness().clickHeader(SourceListModel::NameColumn);
    QCOMPARE(harness().nameColumn(),
        QStringList({QStringLiteral("Kotelna"), QStringLiteral("Silnice"), QStringLiteral("Skládka")}));
    harness().clickRow(2);
    QCOMPARE(harness().status().text(), QStringLiteral("000000010   Skládka"));
}

void EditSourceTest::keptNameStaysWithItsRowWhenSorted()
{
    fill();
    open(Opening::Menu, 0, renaming("Výtopna"));
    harness().clickHeader(SourceListModel::NumberColumn);
    QCOMPARE(harness().nameColumn(),
        QStringList({QStringLiteral("Skládka"), QStringLiteral("Silnice"), QStringLiteral("Kotelna")}));
}

void EditSourceTest::keptNameStaysWhenANewSourceJoins()
{
    fill();
    open(Opening::Menu, 0, renaming("Výtopna"));
    harness().dialogs.useNext(QStringLiteral("frmPlosnyZdroj"), renaming("Nový"));
    harness().item("mnuVPlosnyZdroj").trigger();
    QCOMPARE(harness().nameColumn(),
        QStringList(
            {QStringLiteral("Kotelna"), QStringLiteral("Skládka"), QStringLiteral("Silnice"), QStringLiteral("Nový")}));
}

void EditSourceTest::keptNameIsGoneWhenTheRowIsRewritten()
{
    fill();
    open(Opening::Menu, 0, renaming("Výtopna"));
    open(Opening::Enter, 0, [](QDialog& editor) { press(editor, "cbStorno"); });
    QCOMPARE(harness().nameColumn().at(0), QStringLiteral("Kotelna"));
    open(Opening::Enter, 0, renaming("Teplárna"));
    QCOMPARE(harness().nameColumn().at(0), QStringLiteral("Teplárna"));
}

void EditSourceTest::keptNameIsNotSaved()
{
    fill();
    open(Opening::Menu, 0, renaming("Výtopna"));
    const QList<QList<QByteArray>> files = save();
    QVERIFY(files.at(0).join('\n').contains(" ;V\xFDtopna\r\n"));
    QVERIFY(!files.at(0).join('\n').contains("Kotelna"));
}

void EditSourceTest::menuWithoutACurrentRowDoesNothing()
{
    fill();
    harness().view().setCurrentIndex({});
    QCOMPARE(harness().view().currentRow(), -1);
    harness().item("mnuVNastavZdroj").trigger();
    QVERIFY(!harness().set().modified());
    QVERIFY(harness().boxes.shown().isEmpty());
}

void EditSourceTest::keepingANameConcernsOneRow()
{
    fill();
    harness().model().keepNameShown(1);
    for (std::size_t position = 1; position <= 3; ++position)
        harness().set().at(position).LineSource("1, 0, 0, 0, 1, 0, 0 ;jiný");
    QCOMPARE(harness().nameColumn(),
        QStringList({QStringLiteral("jiný"), QStringLiteral("Skládka"), QStringLiteral("jiný")}));
}

void EditSourceTest::changedNameIsAnnouncedForItsCellAlone()
{
    fill();
    harness().clickHeader(SourceListModel::NumberColumn);
    const QSignalSpy changes(&harness().model(), &QAbstractItemModel::dataChanged);
    open(Opening::Enter, 1, renaming("Dálnice"));
    const QModelIndex cell = harness().model().index(1, SourceListModel::NameColumn);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.at(0).at(0).toModelIndex(), cell);
    QCOMPARE(changes.at(0).at(1).toModelIndex(), cell);
    QCOMPARE(cell.data().toString(), QStringLiteral("Dálnice"));
}

void EditSourceTest::savedEditChangesOnlyThatSourcesLines_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QByteArrayList>("lines");
    QTest::newRow("stack") << 0
                           << QByteArrayList({"000000030, 0000007, 0000000, 0000, 1, 0, 0 ;Hu\x9D\r",
                                  "000000030, 9.25, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 0\r",
                                  "000000030,1800,0,2,10,0.6,50,0.4\r"});
    QTest::newRow("area") << 1
                          << QByteArrayList({"000000010, 0000007, 0000000, 0000, 2, 0, 0 ;Hu\x9D\r",
                                 "000000010, 9.25, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 12\r", "000000010\r"});
    QTest::newRow("line") << 2
                          << QByteArrayList({"000000020, 0000007, 0000000, 0000, 3, 0, 0 ;Hu\x9D\r",
                                 "000000020, 9.25, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 12\r", "000000020\r"});
}

void EditSourceTest::savedEditChangesOnlyThatSourcesLines()
{
    QFETCH(const int, row);
    QFETCH(const QByteArrayList, lines);
    fill();
    harness().globals.noDust = 0;
    QList<QList<QByteArray>> expected = save();
    open(Opening::DoubleClick, row, [](QDialog& editor) {
        const std::pair<const char*, const char*> texts[]{
            {"txtNazevZdroje", "Huť"}, {"txtX", "7"}, {"tPar0", "9.25"}, {"txtHustota", "1800"}};
        for (const auto& [field, text] : texts)
            setText(editor, field, QString::fromUtf8(text));
        press(editor, "cbOK");
    });
    // Behind the header lines, in the order of the rows.
    for (int file = 0; file < 3; ++file) {
        constexpr int headerLines = 4;
        QCOMPARE(expected.at(file).size(), headerLines + 3 + 1);
        expected[file][headerLines + row] = lines.at(file);
    }
    QCOMPARE(save(), expected);
}

void EditSourceTest::okWithNothingChangedSavesTheSameBytes()
{
    QFETCH(const Opening, opening);
    fill();
    const QList<QList<QByteArray>> before = save();
    QCOMPARE(before.size(), 3);
    for (int row = 0; row < 3; ++row) {
        open(opening, row, [](QDialog& editor) { press(editor, "cbOK"); });
        QVERIFY(harness().set().modified());
    }
    QCOMPARE(save(), before);
}

void EditSourceTest::stornoAfterEverythingSavesTheSameBytes_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("stack") << 0;
    QTest::newRow("area") << 1;
    QTest::newRow("line") << 2;
}

void EditSourceTest::stornoAfterEverythingSavesTheSameBytes()
{
    QFETCH(const int, row);
    fill();
    harness().globals.noDust = 0;
    const QList<QList<QByteArray>> before = save();
    QVERIFY(!harness().set().modified());
    open(Opening::DoubleClick, row, [](QDialog& editor) {
        for (QLineEdit* const typed : editor.findChildren<QLineEdit*>())
            typed->setText(QStringLiteral("0.5"));
        for (const char* const button : {"cmdCalcVs", "cmdCalcXY", "cmdAdd"}) {
            if (auto* const found = editor.findChild<QPushButton*>(QLatin1String(button)))
                found->click();
        }
        for (QComboBox* const list : editor.findChildren<QComboBox*>())
            list->setCurrentIndex(list->count() - 1);
        press(editor, "cbStorno");
    });
    QVERIFY(!harness().set().modified());
    QCOMPARE(save(), before);
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::EditSourceTest)

#include "edit_source_test.moc"
