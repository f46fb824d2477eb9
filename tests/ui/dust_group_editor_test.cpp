// The dust group editor: its texts, its groups and particles, its file, and the questions when it closes.
#include "dust_group_editor.h"

#include "dialog_checks.h"
#include "window_harness.h"

#include "load_save.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTableView>

#include <cstdlib>
#include <functional>
#include <new>

namespace korvex {
namespace {

const QString savingQuestion = QStringLiteral(
    "[Question] Skupiny prachu | Byly provedeny změny ve skupinách prachu.\nMám tyto změny uložit ? | YesNoCancel | ");
const QString fileFilter
    = QStringLiteral("Soubory s popisem prachu (*.spr)|*.spr|Textové soubory (*.txt)|*.txt|Všechny soubory (*.*)|*.*");
const QString goldenFolder = QStringLiteral(KORVEX_SOURCE_DIR "/tests/golden/groups");

QLineEdit& field(const QWidget& editor, const char* name)
{
    return child<QLineEdit>(editor, name);
}

QString text(const QWidget& editor, const char* name)
{
    return field(editor, name).text();
}

void press(const QWidget& editor, const char* button)
{
    child<QPushButton>(editor, button).click();
}

/// As the mouse does it: the focus moves first.
void clickOn(const QWidget& widget)
{
    QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {}, placeOf(widget));
}

void clickRow(const QAbstractItemView& view, int row)
{
    const QPoint inView = view.visualRect(view.model()->index(row, 0)).center();
    QTest::mouseClick(view.window()->windowHandle(), Qt::LeftButton, {}, view.viewport()->mapTo(view.window(), inView));
}

QListView& groupList(const QWidget& editor)
{
    return child<QListView>(editor, "lstSkupiny");
}

void choose(const QWidget& editor, int row)
{
    groupList(editor).setCurrentIndex(groupList(editor).model()->index(row, 0));
}

QStringList groups(const QWidget& editor)
{
    const QAbstractItemModel& model = *groupList(editor).model();
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts << model.index(row, 0).data().toString();
    return texts;
}

QStringList particles(const QWidget& editor)
{
    const QAbstractItemModel& model = *child<QTableView>(editor, "lsvPrach").model();
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts << model.index(row, 0).data().toString() + QLatin1Char('/') + model.index(row, 1).data().toString();
    return texts;
}

void enterParticle(const QWidget& editor, const QString& diameter, const QString& share)
{
    field(editor, "txtPrumer").setText(diameter);
    field(editor, "txtZastoupeni").setText(share);
    press(editor, "cmdAdd");
}

/// The test library types ASCII only.
void typeText(QWidget& to, const QString& typed)
{
    for (const QChar c : typed) {
        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QApplication::sendEvent(&to, &key);
    }
}

void typeName(const QWidget& editor, const QString& name)
{
    QLineEdit& nameField = field(editor, "txtNazevSkupiny");
    nameField.setFocus();
    nameField.selectAll();
    typeText(nameField, name);
}

/// A dialog that fails in the middle of a command.
class MemorylessChooser : public FileChooser {
public:
    QString open(QWidget* /*parent*/, const FileQuestion& /*question*/) override { throw std::bad_alloc(); }
    QString save(QWidget* /*parent*/, const FileQuestion& /*question*/) override { throw std::bad_alloc(); }
};

}  // namespace

class DustGroupEditorTest : public ShellTest {
    Q_OBJECT

private slots:
    void captionsLabelsAndButtons();
    void columnsAreEquallyWide();
    void modalToItsOwnerOnly();
    void everyFocusableWidgetHasAName();
    void helpButtonSendsTheHelpKey();
    void detailIsOffAfterOpening();
    void placementIsStoredOnClosing();

    void newGroupInAnEmptyEditor();
    void newGroupHasTheFocusInItsName();
    void newNumberIsOneMoreThanTheLargestLeft();
    void newNumberBehindTheLastIsARunTimeErrorAndNothingIsLost();
    void shownGroup();
    void shownGroupWithoutParticlesClearsTheFields();
    void lineWithoutACommaShowsItsNameOnly();
    void numbersOutOfRangeAreRunTimeErrorsAndTheLineStays_data();
    void numbersOutOfRangeAreRunTimeErrorsAndTheLineStays();
    void arrowKeysShowGroups();
    void clickShowsTheGroupUnderThePointerWhenTheNameIsLeft();
    void deletedGroupGoesWithoutAQuestionAndNoOtherIsRenumbered();
    void leavingTheNameStoresTheDeletedGroupAgain();
    void deletingWithoutASelectionDoesNothing();
    void leavingTheNameStoresTheGroup();
    void switchingToAnotherProgramDoesNotStore();
    void semicolonCannotBeTypedAndAPastedOneDoesNotCutTheName();
    void pastedLinesStayOneLine();
    void nameIsShownAsItWasStored();
    void savingByAKeyKeepsTheNameNotYetLeft();
    void equalLinesAreChosenOneByOne();
    void mnemonicsAreToldApart();

    void particleChangeMovesTheGroupToTheEnd();
    void particleRule_data();
    void particleRule();
    void removeButtonTakesTheRowOfTheDiameterAway();
    void commaLocaleIsReadAndFilesKeepThePoint();
    void clickedRowIsCopiedIntoTheFields();
    void eightParticlesByKeyboardAlone();
    void enterMakesNoGroupByItself();

    void openDialogIsAskedAndItsFileOpened();
    void cancelledOpenDialogChangesNothing();
    void firstCommentThatIsNotEmptyIsKept();
    void keepListReadsWithoutTheList();
    void unreadableFileLeavesFieldsAndFileName();
    void saveDialogIsAskedAndTheRestFollows();
    void cancelledSaveDialogStaysChanged();
    void savingTellsTheIniFileOnlyWhenThereIsOne();
    void failedSaveStaysChangedAndTellsNobody();
    void newFileClearsAndKeepsCommentAndFileName();
    void commandLineModeHidesTheFileButtonsAndSavesStraight();
    void commandLineModeWithoutAPathSavesNothing();
    void commandLineModeMakesAFileThatIsNotThereYet();
    void commandLineModeDoesNotReplaceWhatItCouldNotRead();
    void linesWithReplacedCharactersAreReported();
    void goldenFiles_data();
    void goldenFiles();

    void closingUnchangedAsksNothing();
    void closingAsks_data();
    void closingAsks();
    void yesWithACancelledDialogCloses();
    void yesWithAFailingWriteStaysOpen();
    void yesWithARunTimeErrorStaysOpen();
    void nameNotYetLeftIsKeptByEscape();
    void savedEditorAsksNothing();
    void menuCommandTakesTheFileOver();
    void loadingAnInventoryReadsTheGroupsFileUnseen();
    void loadingAnInventorySaysWhenTheGroupsFileCannotBeRead();

    void hundredThousandGroups();

private:
    void inEditor(const std::string& path, std::function<void(frmSkupinyPrachu&)> use)
    {
        frmSkupinyPrachu editor(harness().window().shell(), &harness().window());
        editor.FileName(path);
        inShown(editor, std::move(use));
    }
    /// The dialog closes without a question at last.
    void inShown(frmSkupinyPrachu& editor, std::function<void(frmSkupinyPrachu&)> use)
    {
        harness().dialogs.useNext(QStringLiteral("frmSkupinyPrachu"), [&](QDialog&) {
            QVERIFY(waitUntilActive(editor));
            use(editor);
            if (editor.isVisible())
                editor.done(QDialog::Rejected);
        });
        editor.exec();
    }
    std::string threeGroups()
    {
        return harness().writeFile(QStringLiteral("a.spr"),
            {QStringLiteral(";Komentář"), QStringLiteral("1,2,10,0.5,20,0.25;A"), QStringLiteral("2,0;B"),
                QStringLiteral("3,1,5,1;C")});
    }
    std::string fileOf(const QStringList& lines) { return harness().writeFile(QStringLiteral("a.spr"), lines); }
    QByteArray savedBy(frmSkupinyPrachu& editor)
    {
        editor.UlozSkupiny(QFile::encodeName(harness().path(QStringLiteral("saved.spr"))).toStdString());
        return harness().bytes(QStringLiteral("saved.spr"));
    }
    void separator(const char* text)
    {
        static_cast<void>(harness().window());
        harness().globals.decimalSeparator = text;
    }
};

void DustGroupEditorTest::captionsLabelsAndButtons()
{
    inEditor({}, [](frmSkupinyPrachu& editor) {
        QCOMPARE(editor.windowTitle(), QStringLiteral("Skupiny prachu"));
        QStringList frames;
        for (const QGroupBox* const frame : editor.findChildren<QGroupBox*>())
            frames << frame->title();
        frames.sort();
        QCOMPARE(frames,
            QStringList({QStringLiteral("Detail vybrané skupiny"), QStringLiteral("Popis prašné částice"),
                QStringLiteral("Seznam skupin"), QStringLiteral("Soubor se skupinami prachu ")}));
        QCOMPARE(child<QGroupBox>(editor, "fraPopisCastice").title(), QStringLiteral("Popis prašné částice"));
        QCOMPARE(captionOf(editor, field(editor, "txtSkupina")), QStringLiteral("Číslo:"));
        QCOMPARE(captionOf(editor, field(editor, "txtNazevSkupiny")), QStringLiteral("Název:"));
        QCOMPARE(captionOf(editor, child<QTableView>(editor, "lsvPrach")), QStringLiteral("Prachové částice:"));
        QCOMPARE(captionOf(editor, field(editor, "txtPrumer")), QStringLiteral("Průměr [um]:"));
        QCOMPARE(captionOf(editor, field(editor, "txtZastoupeni")), QStringLiteral("Zastoupení [%/100]:"));
        QCOMPARE(child<QPushButton>(editor, "cmdNew").text(), QStringLiteral("&Nová"));
        QCOMPARE(child<QPushButton>(editor, "cmdDel").text(), QStringLiteral("&Zruš"));
        QCOMPARE(child<QPushButton>(editor, "cmdZrusCastici").text(), QStringLiteral("&Zruš"));
        QCOMPARE(child<QPushButton>(editor, "cmdOpenFile").text(), QStringLiteral("&Otevři"));
        QCOMPARE(child<QPushButton>(editor, "cmdHelp").text(), QStringLiteral("&Nápověda"));
        const QAbstractItemModel& model = *child<QTableView>(editor, "lsvPrach").model();
        QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), QStringLiteral("Průměr"));
        QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("Zastoupení"));
        QCOMPARE(model.columnCount(), 2);
        for (const char* const button : {"cmdOpenFile", "cmdNewFile", "cmdSaveFile"})
            QVERIFY(child<QPushButton>(editor, button).isVisible());
    });
}

void DustGroupEditorTest::columnsAreEquallyWide()
{
    inEditor({}, [](frmSkupinyPrachu& editor) {
        const QTableView& list = child<QTableView>(editor, "lsvPrach");
        QVERIFY2(std::abs(list.columnWidth(0) - list.columnWidth(1)) <= 2,
            qPrintable(QStringLiteral("%1 %2").arg(list.columnWidth(0)).arg(list.columnWidth(1))));
    });
}

void DustGroupEditorTest::modalToItsOwnerOnly()
{
    harness().show();
    inEditor({}, [this](frmSkupinyPrachu& editor) {
        QCOMPARE(editor.windowModality(), Qt::WindowModal);
        QCOMPARE(editor.parentWidget(), &harness().window());
    });
}

void DustGroupEditorTest::everyFocusableWidgetHasAName()
{
    inEditor(threeGroups(), [](frmSkupinyPrachu& editor) {
        choose(editor, 0);
        QCOMPARE(namelessWidgets(editor).join(QLatin1Char(' ')), QString());
    });
}

void DustGroupEditorTest::helpButtonSendsTheHelpKey()
{
    inEditor({}, [](frmSkupinyPrachu& editor) {
        const HelpKeySpy spy(editor);
        press(editor, "cmdHelp");
        QTRY_COMPARE(spy.presses(), 1);
    });
}

void DustGroupEditorTest::detailIsOffAfterOpening()
{
    inEditor(threeGroups(), [](frmSkupinyPrachu& editor) {
        QCOMPARE(groups(editor), QStringList({QStringLiteral("1. A"), QStringLiteral("2. B"), QStringLiteral("3. C")}));
        QCOMPARE(text(editor, "txtSkupina"), QString());
        QCOMPARE(text(editor, "txtNazevSkupiny"), QString());
        for (const char* const name : {"txtNazevSkupiny", "txtPrumer", "txtZastoupeni"})
            QVERIFY2(!field(editor, name).isEnabled(), name);
        for (const char* const name : {"cmdAdd", "cmdZrusCastici"})
            QVERIFY2(!child<QPushButton>(editor, name).isEnabled(), name);
        QVERIFY(!child<QTableView>(editor, "lsvPrach").isEnabled());
        QVERIFY(!child<QGroupBox>(editor, "fraPopisCastice").isEnabled());
        QVERIFY(field(editor, "txtSkupina").isEnabled());
        choose(editor, 1);
        for (const char* const name : {"txtNazevSkupiny", "txtPrumer", "txtZastoupeni", "txtSkupina"})
            QVERIFY2(field(editor, name).isEnabled(), name);
        QVERIFY(child<QTableView>(editor, "lsvPrach").isEnabled());
        QVERIFY(child<QPushButton>(editor, "cmdAdd").isEnabled());
    });
}

void DustGroupEditorTest::placementIsStoredOnClosing()
{
    inEditor({}, [](frmSkupinyPrachu& editor) {
        editor.resize(800, 600);
        press(editor, "cmdStorno");
        QVERIFY(!editor.isVisible());
    });
    const QStringList keys = harness().settings.texts().keys();
    QVERIFY2(!keys.filter(QStringLiteral("Form:frmSkupinyPrachu/")).isEmpty(), qPrintable(keys.join(' ')));
}

void DustGroupEditorTest::newGroupInAnEmptyEditor()
{
    inEditor({}, [this](frmSkupinyPrachu& editor) {
        press(editor, "cmdNew");
        QCOMPARE(groups(editor), QStringList(QStringLiteral("1. Nová skupina 1")));
        QCOMPARE(text(editor, "txtSkupina"), QStringLiteral("1"));
        QCOMPARE(text(editor, "txtNazevSkupiny"), QStringLiteral("Nová skupina 1"));
        QCOMPARE(savedBy(editor), QByteArray(";\r\n1,0;Nov\xe1 skupina 1\r\n"));
    });
}

void DustGroupEditorTest::newGroupHasTheFocusInItsName()
{
    inEditor(threeGroups(), [](frmSkupinyPrachu& editor) {
        choose(editor, 0);
        clickOn(child<QPushButton>(editor, "cmdNew"));
        QLineEdit& name = field(editor, "txtNazevSkupiny");
        QVERIFY(name.hasFocus());
        QTRY_COMPARE(name.selectedText(), QStringLiteral("Nová skupina 4"));
        QCOMPARE(particles(editor), QStringList());
        QCOMPARE(text(editor, "txtPrumer"), QString());
        QCOMPARE(text(editor, "txtZastoupeni"), QString());
    });
}

void DustGroupEditorTest::newNumberIsOneMoreThanTheLargestLeft()
{
    inEditor(threeGroups(), [](frmSkupinyPrachu& editor) {
        choose(editor, 2);
        press(editor, "cmdDel");
        press(editor, "cmdNew");
        QCOMPARE(groups(editor),
            QStringList({QStringLiteral("1. A"), QStringLiteral("2. B"), QStringLiteral("3. Nová skupina 3")}));
    });
}

void DustGroupEditorTest::newNumberBehindTheLastIsARunTimeErrorAndNothingIsLost()
{
    inEditor(fileOf({QStringLiteral("2147483647,0;A")}), [this](frmSkupinyPrachu& editor) {
        harness().boxes.answerNext(BoxAnswer::Ok);
        press(editor, "cmdNew");
        QCOMPARE(harness().boxes.shown().last().title, QStringLiteral("Chyba při běhu programu"));
        QCOMPARE(groups(editor), QStringList(QStringLiteral("2147483647. A")));
    });
}

void DustGroupEditorTest::shownGroup()
{
    inEditor(threeGroups(), [](frmSkupinyPrachu& editor) {
        clickRow(groupList(editor), 0);
        QCOMPARE(text(editor, "txtSkupina"), QStringLiteral("1"));
        QCOMPARE(text(editor, "txtNazevSkupiny"), QStringLiteral("A"));
        QCOMPARE(particles(editor), QStringList({QStringLiteral("10/0.5"), QStringLiteral("20/0.25")}));
        QCOMPARE(text(editor, "txtPrumer"), QStringLiteral("10"));
        QCOMPARE(text(editor, "txtZastoupeni"), QStringLiteral("0.5"));
        clickRow(groupList(editor), 2);
        QCOMPARE(text(editor, "txtSkupina"), QStringLiteral("3"));
        QCOMPARE(particles(editor), QStringList(QStringLiteral("5/1")));
    });
}

void DustGroupEditorTest::shownGroupWithoutParticlesClearsTheFields()
{
    inEditor(threeGroups(), [](frmSkupinyPrachu& editor) {
        choose(editor, 0);
        choose(editor, 1);
        QCOMPARE(text(editor, "txtNazevSkupiny"), QStringLiteral("B"));
        QCOMPARE(particles(editor), QStringList());
    });
}

void DustGroupEditorTest::lineWithoutACommaShowsItsNameOnly()
{
    const QStringList lines{QStringLiteral(";x"), QStringLiteral("1,1,10,1;A"), QStringLiteral("7;B")};
    inEditor(fileOf(lines), [this](frmSkupinyPrachu& editor) {
        choose(editor, 0);
        choose(editor, 1);
        QCOMPARE(text(editor, "txtNazevSkupiny"), QStringLiteral("B"));
        QCOMPARE(text(editor, "txtSkupina"), QString());
        QCOMPARE(particles(editor), QStringList());
        QVERIFY(!field(editor, "txtNazevSkupiny").isEnabled());
        QVERIFY(!child<QPushButton>(editor, "cmdAdd").isEnabled());
        // Closing asks nothing: showing has changed nothing.
        press(editor, "cmdStorno");
        QVERIFY(!editor.isVisible());
        QCOMPARE(harness().boxes.shown().size(), 0);
    });
}

void DustGroupEditorTest::numbersOutOfRangeAreRunTimeErrorsAndTheLineStays_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("told");
    QTest::newRow("count of particles") << QStringLiteral("5,2000000000,10,0.5,20,0.5;Z")
                                        << QStringLiteral("počet částic 2000000000");
    QTest::newRow("group number") << QStringLiteral("99999999999,0;Z") << QStringLiteral("99999999999");
    QTest::newRow("diameter") << QStringLiteral("5,1,1E39,0.5;Z") << QStringLiteral("1E39");
    QTest::newRow("share") << QStringLiteral("5,1,10,1E39;Z") << QStringLiteral("1E39");
}

void DustGroupEditorTest::numbersOutOfRangeAreRunTimeErrorsAndTheLineStays()
{
    QFETCH(const QString, line);
    QFETCH(const QString, told);
    inEditor(fileOf({QStringLiteral(";x"), QStringLiteral("1,1,10,1;A"), line}), [&](frmSkupinyPrachu& editor) {
        choose(editor, 0);
        harness().boxes.answerNext(BoxAnswer::Ok);
        choose(editor, 1);
        const QList<BoxRequest> boxes = harness().boxes.shown();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes.first().title, QStringLiteral("Chyba při běhu programu"));
        QVERIFY2(boxes.first().text.contains(told), qPrintable(boxes.first().text));
        QVERIFY(!field(editor, "txtNazevSkupiny").isEnabled());
        QCOMPARE(savedBy(editor), QByteArray(";x\r\n1,1,10,1;A\r\n") + line.toLatin1() + "\r\n");
    });
}

void DustGroupEditorTest::arrowKeysShowGroups()
{
    inEditor(threeGroups(), [](frmSkupinyPrachu& editor) {
        QVERIFY(groupList(editor).hasFocus());
        QTest::keyClick(&groupList(editor), Qt::Key_Down);
        QTest::keyClick(&groupList(editor), Qt::Key_Down);
        QTest::keyClick(&groupList(editor), Qt::Key_Up);
        QVERIFY(!text(editor, "txtNazevSkupiny").isEmpty());
        QTest::keyClick(&groupList(editor), Qt::Key_End);
        QCOMPARE(text(editor, "txtNazevSkupiny"), QStringLiteral("C"));
        QTest::keyClick(&groupList(editor), Qt::Key_Home);
        QCOMPARE(text(editor, "txtNazevSkupiny"), QStringLiteral("A"));
    });
}

// Leaving the name stores its group and moves it to the end: the row that the user aimed at is not the one that is
// under the pointer by then.
void DustGroupEditorTest::clickShowsTheGroupUnderThePointerWhenTheNameIsLeft()
{
    inEditor(threeGroups(), [](frmSkupinyPrachu& editor) {
        clickRow(groupList(editor), 0);
        clickInto(field(editor, "txtNazevSkupiny"));
        QVERIFY(field(editor, "txtNazevSkupiny").hasFocus());
        clickRow(groupList(editor), 1);
        QCOMPARE(groups(editor), QStringList({QStringLiteral("2. B"), QStringLiteral("3. C"), QStringLiteral("1. A")}));
        QCOMPARE(text(editor, "txtNazevSkupiny"), QStringLiteral("B"));
    });
}

void DustGroupEditorTest::deletedGroupGoesWithoutAQuestionAndNoOtherIsRenumbered()
{
    inEditor(threeGroups(), [this](frmSkupinyPrachu& editor) {
        clickRow(groupList(editor), 0);
        clickOn(child<QPushButton>(editor, "cmdDel"));
        QCOMPARE(groups(editor), QStringList({QStringLiteral("2. B"), QStringLiteral("3. C")}));
        QCOMPARE(text(editor, "txtNazevSkupiny"), QStringLiteral("A"));
        QCOMPARE(particles(editor).size(), 2);
        QCOMPARE(harness().boxes.shown().size(), 0);
        QVERIFY(groupList(editor).selectionModel()->selectedIndexes().isEmpty());
    });
}

void DustGroupEditorTest::leavingTheNameStoresTheDeletedGroupAgain()
{
    inEditor(threeGroups(), [](frmSkupinyPrachu& editor) {
        clickRow(groupList(editor), 0);
        clickOn(child<QPushButton>(editor, "cmdDel"));
        clickInto(field(editor, "txtNazevSkupiny"));
        QTest::keyClick(&field(editor, "txtNazevSkupiny"), Qt::Key_Tab);
        QCOMPARE(groups(editor), QStringList({QStringLiteral("2. B"), QStringLiteral("3. C"), QStringLiteral("1. A")}));
    });
}

void DustGroupEditorTest::deletingWithoutASelectionDoesNothing()
{
    inEditor(threeGroups(), [](frmSkupinyPrachu& editor) {
        press(editor, "cmdDel");
        QCOMPARE(groups(editor).size(), 3);
        press(editor, "cmdStorno");
        QVERIFY(!editor.isVisible());
    });
}

void DustGroupEditorTest::leavingTheNameStoresTheGroup()
{
    inEditor(threeGroups(), [this](frmSkupinyPrachu& editor) {
        choose(editor, 0);
        typeName(editor, QStringLiteral("Vápno, mleté"));
        QCOMPARE(groups(editor).first(), QStringLiteral("1. A"));
        QTest::keyClick(&field(editor, "txtNazevSkupiny"), Qt::Key_Tab);
        QCOMPARE(groups(editor),
            QStringList({QStringLiteral("2. B"), QStringLiteral("3. C"), QStringLiteral("1. Vápno, mleté")}));
        QCOMPARE(savedBy(editor),
            QByteArray(";Koment\xe1\xf8\r\n2,0;B\r\n3,1,5,1;C\r\n1,2,10,0.5,20,0.25;V\xe1pno, mlet\xe9\r\n"));
    });
}

void DustGroupEditorTest::switchingToAnotherProgramDoesNotStore()
{
    inEditor(threeGroups(), [](frmSkupinyPrachu& editor) {
        choose(editor, 0);
        typeName(editor, QStringLiteral("Z"));
        QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
        QApplication::sendEvent(&field(editor, "txtNazevSkupiny"), &away);
        QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
        QApplication::sendEvent(&field(editor, "txtNazevSkupiny"), &menu);
        QCOMPARE(groups(editor).first(), QStringLiteral("1. A"));
    });
}

void DustGroupEditorTest::semicolonCannotBeTypedAndAPastedOneDoesNotCutTheName()
{
    inEditor(threeGroups(), [](frmSkupinyPrachu& editor) {
        choose(editor, 1);
        typeName(editor, QStringLiteral("x;y"));
        QCOMPARE(text(editor, "txtNazevSkupiny"), QStringLiteral("xy"));
        QApplication::clipboard()->setText(QStringLiteral("p;q"));
        field(editor, "txtNazevSkupiny").selectAll();
        field(editor, "txtNazevSkupiny").paste();
        QTest::keyClick(&field(editor, "txtNazevSkupiny"), Qt::Key_Tab);
        const QString stored = groups(editor).last();
        QVERIFY2(stored.startsWith(QStringLiteral("2. p")) && stored.endsWith(QLatin1Char('q')), qPrintable(stored));
    });
}

void DustGroupEditorTest::pastedLinesStayOneLine()
{
    inEditor(threeGroups(), [this](frmSkupinyPrachu& editor) {
        choose(editor, 1);
        QApplication::clipboard()->setText(QStringLiteral("p\r\n9,0;q\nr"));
        for (const char* const name : {"txtNazevSkupiny", "txtKomentar"}) {
            field(editor, name).setFocus();
            field(editor, name).selectAll();
            field(editor, name).paste();
        }
        QTest::keyClick(&field(editor, "txtKomentar"), Qt::Key_Tab);
        QCOMPARE(savedBy(editor).count('\n'), 4);
    });
}

void DustGroupEditorTest::nameIsShownAsItWasStored()
{
    inEditor(threeGroups(), [](frmSkupinyPrachu& editor) {
        choose(editor, 1);
        field(editor, "txtNazevSkupiny").setText(QStringLiteral("p;q\nr"));
        press(editor, "cmdAdd");
        QCOMPARE(text(editor, "txtNazevSkupiny"), QStringLiteral("p,q r"));
        QCOMPARE(groups(editor).last(), QStringLiteral("2. p,q r"));
    });
}

/// The letter of the button does not take the focus out of the name.
void DustGroupEditorTest::savingByAKeyKeepsTheNameNotYetLeft()
{
    inEditor(threeGroups(), [this](frmSkupinyPrachu& editor) {
        choose(editor, 1);
        typeName(editor, QStringLiteral("Nova"));
        harness().chooser.answerNext(harness().path(QStringLiteral("b.spr")));
        QTest::keyClick(editor.windowHandle(), Qt::Key_U, Qt::AltModifier);
        QTRY_VERIFY(harness().chooser.allAnswersUsed());
        QVERIFY(field(editor, "txtNazevSkupiny").hasFocus());
        QCOMPARE(harness().bytes(QStringLiteral("b.spr")),
            QByteArray(";Koment\xe1\xf8\r\n1,2,10,0.5,20,0.25;A\r\n3,1,5,1;C\r\n2,0;Nova\r\n"));
        press(editor, "cmdStorno");
        QVERIFY(!editor.isVisible());
        QCOMPARE(harness().boxes.shown().size(), 0);
    });
}

void DustGroupEditorTest::equalLinesAreChosenOneByOne()
{
    inEditor(fileOf({QStringLiteral("1,1,5,0.5;X"), QStringLiteral("2,1,6,0.5;Y"), QStringLiteral("1,1,5,0.5;X")}),
        [this](frmSkupinyPrachu& editor) {
            clickRow(groupList(editor), 2);
            QCoreApplication::processEvents();
            QCOMPARE(groupList(editor).currentIndex().row(), 2);
            press(editor, "cmdDel");
            QCOMPARE(savedBy(editor), QByteArray(";\r\n1,1,5,0.5;X\r\n2,1,6,0.5;Y\r\n"));
        });
}

/// Two captions share their letters with others: N with the help, which has a key of its own, and Z with the
/// particle's button.
void DustGroupEditorTest::mnemonicsAreToldApart()
{
    inEditor({}, [](frmSkupinyPrachu& editor) {
        QCOMPARE(mnemonics(editor), QStringLiteral("NNOSUVZZ"));
        QTest::keyClick(editor.windowHandle(), Qt::Key_N, Qt::AltModifier);
        QTRY_COMPARE(groups(editor), QStringList(QStringLiteral("1. Nová skupina 1")));
        QVERIFY(field(editor, "txtNazevSkupiny").hasFocus());
    });
}

void DustGroupEditorTest::particleChangeMovesTheGroupToTheEnd()
{
    inEditor(threeGroups(), [this](frmSkupinyPrachu& editor) {
        choose(editor, 0);
        enterParticle(editor, QStringLiteral("10"), QStringLiteral("0.75"));
        QCOMPARE(groups(editor), QStringList({QStringLiteral("2. B"), QStringLiteral("3. C"), QStringLiteral("1. A")}));
        QVERIFY(groupList(editor).selectionModel()->selectedIndexes().isEmpty());
        QVERIFY(field(editor, "txtPrumer").hasFocus());
        QCOMPARE(savedBy(editor), QByteArray(";Koment\xe1\xf8\r\n2,0;B\r\n3,1,5,1;C\r\n1,2,10,0.75,20,0.25;A\r\n"));
    });
}

void DustGroupEditorTest::particleRule_data()
{
    QTest::addColumn<QString>("diameter");
    QTest::addColumn<QString>("share");
    QTest::addColumn<QString>("rows");
    const auto row = [](const char* name, const char* diameter, const char* share, const char* rows) {
        QTest::newRow(name) << QString::fromLatin1(diameter) << QString::fromLatin1(share) << QString::fromLatin1(rows);
    };
    row("new", "5", "0.1", "10/0.5 20/0.25 5/0.1");
    row("changed", "10", "0.1", "10/0.1 20/0.25");
    row("changed to negative", "10", "-1", "10/-1 20/0.25");
    row("removed", "10", "0", "20/0.25");
    row("removed by no number", "10", "x", "20/0.25");
    row("new with share 0", "5", "0", "10/0.5 20/0.25");
    row("new with negative share", "5", "-1", "10/0.5 20/0.25");
    row("no diameter", "", "0.5", "10/0.5 20/0.25");
    row("negative diameter", "-5", "0.5", "10/0.5 20/0.25");
}

void DustGroupEditorTest::particleRule()
{
    QFETCH(const QString, diameter);
    QFETCH(const QString, share);
    QFETCH(const QString, rows);
    inEditor(threeGroups(), [&](frmSkupinyPrachu& editor) {
        choose(editor, 0);
        enterParticle(editor, diameter, share);
        QCOMPARE(particles(editor).join(QLatin1Char(' ')), rows);
        // The group is stored also when nothing has changed.
        QCOMPARE(groups(editor).last(), QStringLiteral("1. A"));
    });
}

void DustGroupEditorTest::removeButtonTakesTheRowOfTheDiameterAway()
{
    inEditor(threeGroups(), [](frmSkupinyPrachu& editor) {
        choose(editor, 0);
        field(editor, "txtPrumer").setText(QStringLiteral("20"));
        press(editor, "cmdZrusCastici");
        QCOMPARE(particles(editor), QStringList(QStringLiteral("10/0.5")));
        QCOMPARE(groups(editor).last(), QStringLiteral("1. A"));
        QVERIFY(field(editor, "txtPrumer").hasFocus());
        press(editor, "cmdZrusCastici");
        QCOMPARE(particles(editor), QStringList(QStringLiteral("10/0.5")));
    });
}

void DustGroupEditorTest::commaLocaleIsReadAndFilesKeepThePoint()
{
    separator(",");
    inEditor(threeGroups(), [this](frmSkupinyPrachu& editor) {
        choose(editor, 1);
        enterParticle(editor, QStringLiteral("2,5"), QStringLiteral("0,25"));
        enterParticle(editor, QStringLiteral("7.5"), QStringLiteral("0.75"));
        QCOMPARE(particles(editor), QStringList({QStringLiteral("2.5/0.25"), QStringLiteral("7.5/0.75")}));
        QVERIFY(savedBy(editor).endsWith("\r\n2,2,2.5,0.25,7.5,0.75;B\r\n"));
    });
}

void DustGroupEditorTest::clickedRowIsCopiedIntoTheFields()
{
    inEditor(threeGroups(), [](frmSkupinyPrachu& editor) {
        choose(editor, 0);
        const QTableView& list = child<QTableView>(editor, "lsvPrach");
        clickRow(list, 1);
        QCOMPARE(text(editor, "txtPrumer"), QStringLiteral("20"));
        QCOMPARE(text(editor, "txtZastoupeni"), QStringLiteral("0.25"));
        // The same row once more, after the fields were overwritten.
        field(editor, "txtPrumer").setText(QStringLiteral("9"));
        clickRow(list, 1);
        QCOMPARE(text(editor, "txtPrumer"), QStringLiteral("20"));
    });
}

void DustGroupEditorTest::eightParticlesByKeyboardAlone()
{
    separator(",");
    inEditor({}, [this](frmSkupinyPrachu& editor) {
        QTest::keyClick(&editor, Qt::Key_N, Qt::AltModifier);
        if (groups(editor).isEmpty())
            press(editor, "cmdNew");
        QTRY_COMPARE(field(editor, "txtNazevSkupiny").selectedText(), QStringLiteral("Nová skupina 1"));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Popel"));
        QLineEdit& diameter = field(editor, "txtPrumer");
        for (int presses = 0; presses < 5 && !diameter.hasFocus(); ++presses)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(diameter.hasFocus());
        QStringList rows;
        QByteArray line = "1,8";
        for (int i = 1; i <= 8; ++i) {
            QTRY_COMPARE(diameter.selectedText(), diameter.text());
            QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("%1,5").arg(i));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QLineEdit& share = field(editor, "txtZastoupeni");
            QVERIFY(share.hasFocus());
            QTRY_COMPARE(share.selectedText(), share.text());
            QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("0,%1").arg(i));
            QTest::keyClick(QApplication::focusWidget(), i % 2 == 0 ? Qt::Key_Enter : Qt::Key_Return);
            QVERIFY(diameter.hasFocus());
            rows << QStringLiteral("%1.5/0.%1").arg(i);
            line += QStringLiteral(",%1.5,0.%1").arg(i).toLatin1();
        }
        QCOMPARE(particles(editor), rows);
        QCOMPARE(groups(editor), QStringList(QStringLiteral("1. Popel")));
        QCOMPARE(savedBy(editor), ";\r\n" + line + ";Popel\r\n");
    });
}

void DustGroupEditorTest::enterMakesNoGroupByItself()
{
    inEditor(threeGroups(), [](frmSkupinyPrachu& editor) {
        choose(editor, 0);
        QTest::keyClick(&groupList(editor), Qt::Key_Return);
        for (const char* const name : {"txtNazevSkupiny", "txtKomentar"}) {
            field(editor, name).setFocus();
            QTest::keyClick(&field(editor, name), Qt::Key_Return);
        }
        QVERIFY(editor.isVisible());
        QCOMPARE(groups(editor).size(), 3);
    });
}

void DustGroupEditorTest::openDialogIsAskedAndItsFileOpened()
{
    const std::string path = threeGroups();
    inEditor({}, [&](frmSkupinyPrachu& editor) {
        press(editor, "cmdNew");
        harness().chooser.answerNext(QFile::decodeName(path.c_str()));
        press(editor, "cmdOpenFile");
        const AnsweringFileChooser::Shown shown = harness().chooser.shown().last();
        QVERIFY(!shown.isSave);
        QCOMPARE(shown.question.title, QStringLiteral("Otevření skupin prachu"));
        QCOMPARE(shown.question.filter, fileFilter);
        QCOMPARE(harness().settings.get(QStringLiteral("FileDialog"), QStringLiteral("LastPathFile:5"), {}),
            QFile::decodeName(path.c_str()));
        QCOMPARE(groups(editor).size(), 3);
        QCOMPARE(text(editor, "txtFile"), QFile::decodeName(path.c_str()));
        QCOMPARE(text(editor, "txtKomentar"), QStringLiteral("Komentář"));
        QCOMPARE(editor.FileName(), path);
        QCOMPARE(harness().globals.dustGroupsPath, path);
        // No question was asked, and what is open now is unchanged.
        press(editor, "cmdStorno");
        QVERIFY(!editor.isVisible());
        QCOMPARE(harness().boxes.shown().size(), 0);
    });
}

void DustGroupEditorTest::cancelledOpenDialogChangesNothing()
{
    const std::string path = threeGroups();
    inEditor(path, [&](frmSkupinyPrachu& editor) {
        harness().chooser.answerNext({});
        press(editor, "cmdOpenFile");
        QCOMPARE(groups(editor).size(), 3);
        QCOMPARE(editor.FileName(), path);
    });
}

void DustGroupEditorTest::firstCommentThatIsNotEmptyIsKept()
{
    inEditor(fileOf({QStringLiteral("1,0;A"), QStringLiteral(";"), QStringLiteral(";  "), QStringLiteral("; k "),
                 QStringLiteral(";l")}),
        [this](frmSkupinyPrachu& editor) {
            QCOMPARE(text(editor, "txtKomentar").trimmed(), QStringLiteral("k"));
            QCOMPARE(savedBy(editor), QByteArray(";k\r\n1,0;A\r\n"));
        });
}

void DustGroupEditorTest::keepListReadsWithoutTheList()
{
    const std::string path = threeGroups();
    frmSkupinyPrachu editor(harness().window().shell(), &harness().window());
    editor.OtevriSkupiny(path, GroupListAfterReading::Keep);
    QCOMPARE(groups(editor), QStringList());
    QCOMPARE(editor.FileName(), path);
    QCOMPARE(harness().globals.dustGroupsPath, path);
    QCOMPARE(text(editor, "txtKomentar"), QStringLiteral("Komentář"));
}

void DustGroupEditorTest::unreadableFileLeavesFieldsAndFileName()
{
    const std::string path = threeGroups();
    const QString missing = harness().path(QStringLiteral("chybi.spr"));
    inEditor(path, [&](frmSkupinyPrachu& editor) {
        harness().boxes.answerNext(BoxAnswer::Ok);
        harness().chooser.answerNext(missing);
        press(editor, "cmdOpenFile");
        QCOMPARE(describe(harness().boxes.shown().last()),
            QStringLiteral("[Critical] Chyba při čtení ze souboru | Soubor nebo složka neexistuje.\n\n%1 | Ok | ")
                .arg(missing));
        QCOMPARE(editor.FileName(), path);
        QCOMPARE(harness().globals.dustGroupsPath, path);
        QCOMPARE(text(editor, "txtFile"), QFile::decodeName(path.c_str()));
        QCOMPARE(text(editor, "txtKomentar"), QStringLiteral("Komentář"));
    });
}

void DustGroupEditorTest::saveDialogIsAskedAndTheRestFollows()
{
    inEditor(threeGroups(), [this](frmSkupinyPrachu& editor) {
        field(editor, "txtKomentar").setText(QStringLiteral("  nový  "));
        const QString target = harness().path(QStringLiteral("b.spr"));
        harness().chooser.answerNext(target);
        press(editor, "cmdSaveFile");
        const AnsweringFileChooser::Shown shown = harness().chooser.shown().last();
        QVERIFY(shown.isSave);
        QCOMPARE(shown.question.title, QStringLiteral("Uložení skupin prachu"));
        QCOMPARE(shown.question.filter, fileFilter);
        QCOMPARE(text(editor, "txtFile"), target);
        QCOMPARE(QFile::decodeName(editor.FileName().c_str()), target);
        QCOMPARE(harness().bytes(QStringLiteral("b.spr")),
            QByteArray(";nov\xfd\r\n1,2,10,0.5,20,0.25;A\r\n2,0;B\r\n3,1,5,1;C\r\n"));
    });
}

void DustGroupEditorTest::cancelledSaveDialogStaysChanged()
{
    inEditor({}, [this](frmSkupinyPrachu& editor) {
        press(editor, "cmdNew");
        harness().chooser.answerNext({});
        press(editor, "cmdSaveFile");
        QCOMPARE(editor.FileName(), std::string());
        harness().boxes.answerNext(BoxAnswer::No);
        press(editor, "cmdStorno");
        QCOMPARE(describe(harness().boxes.shown().last()), savingQuestion);
        QVERIFY(!editor.isVisible());
    });
}

void DustGroupEditorTest::savingTellsTheIniFileOnlyWhenThereIsOne()
{
    const QString ini = harness().path(QStringLiteral("volani.ini"));
    const QString target = harness().path(QStringLiteral("saved.spr"));
    inEditor(threeGroups(), [&](frmSkupinyPrachu& editor) {
        savedBy(editor);
        QVERIFY(!QFile::exists(ini));
        harness().globals.iniPath = QFile::encodeName(ini).toStdString();
        savedBy(editor);
        QCOMPARE(harness().bytes(QStringLiteral("volani.ini")),
            QByteArray("[Global]\r\nVstZdrojSkupTxt=") + QFile::encodeName(target) + "\r\n");
    });
}

void DustGroupEditorTest::failedSaveStaysChangedAndTellsNobody()
{
    const std::string path = threeGroups();
    const QString ini = harness().path(QStringLiteral("volani.ini"));
    inEditor(path, [&](frmSkupinyPrachu& editor) {
        harness().globals.iniPath = QFile::encodeName(ini).toStdString();
        press(editor, "cmdNew");
        harness().boxes.answerNext(BoxAnswer::Ok);
        editor.UlozSkupiny("/dev/full");
        const BoxRequest box = harness().boxes.shown().last();
        QCOMPARE(box.title, QStringLiteral("Chyba při zápisu do souboru"));
        QVERIFY(box.icon == BoxIcon::Critical);
        QVERIFY2(box.text.startsWith(QStringLiteral("Na disku není dost místa.")), qPrintable(box.text));
        QVERIFY2(box.text.endsWith(QStringLiteral("\n\n/dev/full")), qPrintable(box.text));
        QCOMPARE(editor.FileName(), path);
        QCOMPARE(text(editor, "txtFile"), QFile::decodeName(path.c_str()));
        QVERIFY(!QFile::exists(ini));
        harness().boxes.answerNext(BoxAnswer::No);
        press(editor, "cmdStorno");
        QCOMPARE(describe(harness().boxes.shown().last()), savingQuestion);
    });
}

void DustGroupEditorTest::newFileClearsAndKeepsCommentAndFileName()
{
    const std::string path = threeGroups();
    inEditor(path, [&](frmSkupinyPrachu& editor) {
        choose(editor, 0);
        press(editor, "cmdNewFile");
        QCOMPARE(text(editor, "txtFile"), QStringLiteral("<nový soubor>"));
        QCOMPARE(groups(editor), QStringList());
        QCOMPARE(particles(editor), QStringList());
        for (const char* const name : {"txtSkupina", "txtNazevSkupiny", "txtPrumer", "txtZastoupeni"})
            QCOMPARE(text(editor, name), QString());
        // No group is shown: leaving its name must store none.
        QVERIFY(!field(editor, "txtNazevSkupiny").isEnabled());
        QVERIFY(!child<QPushButton>(editor, "cmdAdd").isEnabled());
        QCOMPARE(text(editor, "txtKomentar"), QStringLiteral("Komentář"));
        QCOMPARE(editor.FileName(), path);
        harness().boxes.answerNext(BoxAnswer::No);
        press(editor, "cmdStorno");
        QCOMPARE(describe(harness().boxes.shown().last()), savingQuestion);
        QCOMPARE(editor.FileName(), path);
    });
    QCOMPARE(harness().globals.dustGroupsPath, path);
}

void DustGroupEditorTest::commandLineModeHidesTheFileButtonsAndSavesStraight()
{
    const std::string path = threeGroups();
    static_cast<void>(harness().window());
    harness().globals.commandLineMode = true;
    inEditor(path, [&](frmSkupinyPrachu& editor) {
        for (const char* const button : {"cmdOpenFile", "cmdNewFile", "cmdSaveFile"})
            QVERIFY2(!child<QPushButton>(editor, button).isVisible(), button);
        choose(editor, 0);
        press(editor, "cmdDel");
        harness().boxes.answerNext(BoxAnswer::Yes);
        press(editor, "cmdStorno");
        QVERIFY(!editor.isVisible());
        QCOMPARE(harness().bytes(QStringLiteral("a.spr")), QByteArray(";Koment\xe1\xf8\r\n2,0;B\r\n3,1,5,1;C\r\n"));
    });
}

void DustGroupEditorTest::commandLineModeWithoutAPathSavesNothing()
{
    static_cast<void>(harness().window());
    harness().globals.commandLineMode = true;
    harness().globals.dustGroupsPath.clear();
    inEditor({}, [this](frmSkupinyPrachu& editor) {
        press(editor, "cmdNew");
        harness().boxes.answerNext(BoxAnswer::Yes);
        press(editor, "cmdStorno");
        QVERIFY(!editor.isVisible());
        QCOMPARE(harness().boxes.shown().size(), 1);
        QCOMPARE(editor.FileName(), std::string());
    });
}

void DustGroupEditorTest::commandLineModeMakesAFileThatIsNotThereYet()
{
    const std::string path = QFile::encodeName(harness().path(QStringLiteral("nove.spr"))).toStdString();
    static_cast<void>(harness().window());
    harness().globals.commandLineMode = true;
    harness().globals.dustGroupsPath = path;
    harness().boxes.answerNext(BoxAnswer::Ok);
    inEditor(path, [&](frmSkupinyPrachu& editor) {
        press(editor, "cmdNew");
        harness().boxes.answerNext(BoxAnswer::Yes);
        press(editor, "cmdStorno");
        QVERIFY(!editor.isVisible());
        QCOMPARE(harness().bytes(QStringLiteral("nove.spr")), QByteArray(";\r\n1,0;Nov\xe1 skupina 1\r\n"));
    });
}

/// Only a part of the file is in the editor, or nothing.
void DustGroupEditorTest::commandLineModeDoesNotReplaceWhatItCouldNotRead()
{
    const QString folder = harness().path(QStringLiteral("slozka.spr"));
    QVERIFY(QDir().mkdir(folder));
    static_cast<void>(harness().window());
    harness().globals.commandLineMode = true;
    harness().globals.dustGroupsPath = QFile::encodeName(folder).toStdString();
    harness().boxes.answerNext(BoxAnswer::Ok);
    inEditor(harness().globals.dustGroupsPath, [&](frmSkupinyPrachu& editor) {
        press(editor, "cmdNew");
        harness().boxes.answerNext(BoxAnswer::Yes);
        harness().boxes.answerNext(BoxAnswer::Ok);
        press(editor, "cmdStorno");
        QCOMPARE(describe(harness().boxes.shown().last()),
            QStringLiteral("[Critical] Chyba při zápisu do souboru | "
                           "Soubor se nepodařilo celý načíst, proto nebude přepsán.\n\n%1 | Ok | ")
                .arg(folder));
        QVERIFY(editor.isVisible());
    });
}

void DustGroupEditorTest::linesWithReplacedCharactersAreReported()
{
    inEditor(fileOf({QStringLiteral(";K"), QStringLiteral("1,0;A"), QStringLiteral("2,0;B")}),
        [&](frmSkupinyPrachu& editor) {
            child<QLineEdit>(editor, "txtKomentar").setText(QStringLiteral("≤ 10 µm"));
            choose(editor, 1);
            child<QLineEdit>(editor, "txtNazevSkupiny").setText(QStringLiteral("α"));
            press(editor, "cmdAdd");
            harness().boxes.answerNext(BoxAnswer::Ok);
            QCOMPARE(savedBy(editor), QByteArray(";? 10 \xb5m\r\n1,0;A\r\n2,0;?\r\n"));
            QCOMPARE(describe(harness().boxes.shown().last()),
                QStringLiteral("[Exclamation] Uložení skupin prachu | "
                               "Některé znaky nelze v souboru uložit a byly nahrazeny otazníkem.\n"
                               "Počet řádků, kterých se to týká: 2. | Ok | řádek 1\nřádek 3"));
        });
}

void DustGroupEditorTest::goldenFiles_data()
{
    QTest::addColumn<QString>("folder");
    const QStringList cases = QDir(goldenFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QVERIFY(cases.size() >= 20);
    for (const QString& name : cases)
        QTest::newRow(qPrintable(name)) << goldenFolder + QLatin1Char('/') + name + QLatin1Char('/');
}

void DustGroupEditorTest::goldenFiles()
{
    QFETCH(const QString, folder);
    QVERIFY(QFile::exists(folder + QStringLiteral("note.txt")));
    QFile expected(folder + QStringLiteral("expected.spr"));
    QVERIFY(expected.open(QIODevice::ReadOnly));
    separator(".");
    inEditor(QFile::encodeName(folder + QStringLiteral("input.spr")).toStdString(), [&](frmSkupinyPrachu& editor) {
        QFile entered(folder + QStringLiteral("entered.txt"));
        if (entered.open(QIODevice::ReadOnly)) {
            const QStringList words = QString::fromUtf8(entered.readAll()).trimmed().split(QLatin1Char(' '));
            QCOMPARE(words.size(), 3);
            choose(editor, words[0].toInt());
            enterParticle(editor, words[1], words[2]);
        }
        QCOMPARE(savedBy(editor).toPercentEncoding(";,. \r\n"), expected.readAll().toPercentEncoding(";,. \r\n"));
    });
}

void DustGroupEditorTest::closingUnchangedAsksNothing()
{
    inEditor(threeGroups(), [this](frmSkupinyPrachu& editor) {
        choose(editor, 0);
        choose(editor, 2);
        QTest::keyClick(&editor, Qt::Key_Escape);
        QVERIFY(!editor.isVisible());
        QCOMPARE(harness().boxes.shown().size(), 0);
    });
}

void DustGroupEditorTest::closingAsks_data()
{
    QTest::addColumn<int>("way");
    QTest::addColumn<int>("answer");
    const char* const ways[] = {"Storno", "Escape", "close box"};
    const char* const answers[] = {"Yes", "No", "Cancel"};
    for (int way = 0; way < 3; ++way) {
        for (int answer = 0; answer < 3; ++answer)
            QTest::addRow("%s %s", ways[way], answers[answer]) << way << answer;
    }
}

void DustGroupEditorTest::closingAsks()
{
    QFETCH(const int, way);
    QFETCH(const int, answer);
    const std::string path = threeGroups();
    const QByteArray before = harness().bytes(QStringLiteral("a.spr"));
    inEditor(path, [&](frmSkupinyPrachu& editor) {
        // Only the comment.
        field(editor, "txtKomentar").setFocus();
        QTest::keyClick(&field(editor, "txtKomentar"), Qt::Key_End);
        QTest::keyClicks(&field(editor, "txtKomentar"), QStringLiteral("!"));
        constexpr BoxAnswer answers[] = {BoxAnswer::Yes, BoxAnswer::No, BoxAnswer::Cancel};
        harness().boxes.answerNext(answers[answer]);
        if (answer == 0)
            harness().chooser.answerNext(QFile::decodeName(path.c_str()));
        if (way == 0)
            press(editor, "cmdStorno");
        else if (way == 1)
            QTest::keyClick(&editor, Qt::Key_Escape);
        else
            editor.close();
        QCOMPARE(harness().boxes.shown().size(), 1);
        QCOMPARE(describe(harness().boxes.shown().last()), savingQuestion);
        QCOMPARE(editor.isVisible(), answer == 2);
        QCOMPARE(harness().bytes(QStringLiteral("a.spr")) != before, answer == 0);
    });
}

void DustGroupEditorTest::yesWithACancelledDialogCloses()
{
    inEditor({}, [this](frmSkupinyPrachu& editor) {
        press(editor, "cmdNew");
        harness().boxes.answerNext(BoxAnswer::Yes);
        harness().chooser.answerNext({});
        press(editor, "cmdStorno");
        QVERIFY(!editor.isVisible());
    });
}

void DustGroupEditorTest::yesWithAFailingWriteStaysOpen()
{
    inEditor({}, [this](frmSkupinyPrachu& editor) {
        press(editor, "cmdNew");
        harness().boxes.answerNext(BoxAnswer::Yes);
        harness().boxes.answerNext(BoxAnswer::Ok);
        harness().chooser.answerNext(QStringLiteral("/dev/full"));
        press(editor, "cmdStorno");
        QVERIFY(editor.isVisible());
        QCOMPARE(groups(editor).size(), 1);
    });
}

void DustGroupEditorTest::yesWithARunTimeErrorStaysOpen()
{
    static_cast<void>(harness().window());
    MemorylessChooser chooser;
    FileDialogs fileDialogs(chooser, harness().settings);
    Shell shell{harness().globals, harness().settings, harness().boxes, fileDialogs, harness().clipboard};
    frmSkupinyPrachu editor(shell, &harness().window());
    inShown(editor, [this](frmSkupinyPrachu& shown) {
        press(shown, "cmdNew");
        harness().boxes.answerNext(BoxAnswer::Yes);
        harness().boxes.answerNext(BoxAnswer::Ok);
        press(shown, "cmdStorno");
        QCOMPARE(harness().boxes.shown().last().title, QStringLiteral("Chyba při běhu programu"));
        QVERIFY(shown.isVisible());
    });
}

void DustGroupEditorTest::nameNotYetLeftIsKeptByEscape()
{
    const std::string path = threeGroups();
    inEditor(path, [&](frmSkupinyPrachu& editor) {
        choose(editor, 1);
        typeName(editor, QStringLiteral("Nové jméno"));
        harness().boxes.answerNext(BoxAnswer::Yes);
        harness().chooser.answerNext(QFile::decodeName(path.c_str()));
        QTest::keyClick(&field(editor, "txtNazevSkupiny"), Qt::Key_Escape);
        QVERIFY(!editor.isVisible());
    });
    QCOMPARE(harness().boxes.shown().size(), 1);
    QVERIFY(harness().bytes(QStringLiteral("a.spr")).endsWith("2,0;Nov\xe9 jm\xe9no\r\n"));
}

void DustGroupEditorTest::savedEditorAsksNothing()
{
    inEditor(threeGroups(), [this](frmSkupinyPrachu& editor) {
        press(editor, "cmdNew");
        savedBy(editor);
        // The list and not the new name has the focus, whose leaving stores.
        press(editor, "cmdStorno");
        QVERIFY(!editor.isVisible());
        QCOMPARE(harness().boxes.shown().size(), 0);
    });
}

void DustGroupEditorTest::menuCommandTakesTheFileOver()
{
    const std::string path = threeGroups();
    const std::string other
        = harness().writeFile(QStringLiteral("b.spr"), {QStringLiteral(";x"), QStringLiteral("9,0;I")});
    static_cast<void>(harness().window());
    harness().globals.dustGroupsPath = path;
    harness().dialogs.useNext(QStringLiteral("frmSkupinyPrachu"), [&](QDialog& editor) {
        QCOMPARE(groups(editor).size(), 3);
        harness().chooser.answerNext(QFile::decodeName(other.c_str()));
        press(editor, "cmdOpenFile");
        press(editor, "cmdStorno");
    });
    harness().item("mnuSkupinyPrachu").trigger();
    QCOMPARE(harness().globals.dustGroupsPath, other);
}

void DustGroupEditorTest::loadingAnInventoryReadsTheGroupsFileUnseen()
{
    const std::string path = threeGroups();
    const SourceFiles files = harness().writeInventory({pointsRecord(cBodovyZdroj, 1, QStringLiteral("X"))});
    QVERIFY(loadSources(harness().window(), files, path, LoadMode::Replace));
    QCOMPARE(harness().globals.dustGroupsPath, path);
    QCOMPARE(harness().boxes.shown().size(), 0);
    // It was never on the screen, so it has no place to remember.
    QVERIFY(harness().settings.texts().keys().filter(QStringLiteral("frmSkupinyPrachu")).isEmpty());
}

void DustGroupEditorTest::loadingAnInventorySaysWhenTheGroupsFileCannotBeRead()
{
    const SourceFiles files = harness().writeInventory({pointsRecord(cBodovyZdroj, 1, QStringLiteral("X"))});
    const QString missing = harness().path(QStringLiteral("chybi.spr"));
    harness().boxes.answerNext(BoxAnswer::Ok);
    QVERIFY(loadSources(harness().window(), files, QFile::encodeName(missing).toStdString(), LoadMode::Replace));
    QCOMPARE(describe(harness().boxes.shown().last()),
        QStringLiteral("[Critical] Chyba při čtení ze souboru | Soubor nebo složka neexistuje.\n\n%1 | Ok | ")
            .arg(missing));
    QCOMPARE(harness().numberColumn().size(), 1);
}

// Each step within half a second on the machine that the program is made for; four times that for a busy one.
void DustGroupEditorTest::hundredThousandGroups()
{
    constexpr int many = 100'000;
    constexpr qint64 most = 2000;
    QFile file(harness().path(QStringLiteral("big.spr")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QByteArray bytes = ";big\r\n";
    for (int number = 1; number <= many; ++number)
        bytes += QByteArray::number(number) + ",4,2.5,0.25,5,0.35,10,0.25,20,0.15;Skupina " + QByteArray::number(number)
            + "\r\n";
    QCOMPARE(file.write(bytes), bytes.size());
    file.close();
    const std::string path = QFile::encodeName(file.fileName()).toStdString();
    inEditor({}, [&](frmSkupinyPrachu& editor) {
        QElapsedTimer timer;
        const auto timed = [&timer](const char* step) {
            QCoreApplication::processEvents();
            const qint64 took = timer.elapsed();
            qInfo("%s: %lld ms", step, static_cast<long long>(took));
            timer.start();
            return took;
        };
        timer.start();
        editor.FileName(path);
        QVERIFY(timed("open") < most);
        choose(editor, many / 2);
        QVERIFY(timed("choose") < most);
        enterParticle(editor, QStringLiteral("40"), QStringLiteral("0.1"));
        QVERIFY(timed("add a particle") < most);
        press(editor, "cmdNew");
        QVERIFY(timed("new group") < most);
        const qint64 size = savedBy(editor).size();
        QVERIFY(timed("save") < most);
        QVERIFY(size > bytes.size());
        QCOMPARE(groups(editor).size(), many + 1);
        QCOMPARE(groups(editor).last(), QStringLiteral("100001. Nová skupina 100001"));
    });
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::DustGroupEditorTest)

#include "dust_group_editor_test.moc"
