// The file dialogs: what is remembered for each purpose, how filters are translated, and the toolkit's own dialogs.
#include "dialog_checks.h"
#include "window_harness.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>

#include <functional>

namespace korvex {
namespace {

const QString filterOfThisProgram = QStringLiteral("Datové soubory KORVEX (*.txt)| *.txt|Všechny soubory (*.*)|*.*");
const QString title = QStringLiteral("Ulož soubor s body");

/// The toolkit's file dialog as its user sees it.
class SeenFileDialog {
public:
    explicit SeenFileDialog(QDialog& dialog) : m_dialog(dialog) { }

    [[nodiscard]] QFileDialog& dialog() const { return dynamic_cast<QFileDialog&>(m_dialog); }
    [[nodiscard]] QLineEdit& name() const { return child<QLineEdit>(m_dialog, "fileNameEdit"); }
    [[nodiscard]] QPushButton& button(QDialogButtonBox::StandardButton which) const
    {
        QPushButton* const found = m_dialog.findChild<QDialogButtonBox*>()->button(which);
        if (found == nullptr)
            qFatal("The file dialog has no such button.");
        return *found;
    }
    void type(const QString& text) const { name().setText(text); }
    void confirm() const { QTest::keyClick(&name(), Qt::Key_Return); }
    void cancel() const { button(QDialogButtonBox::Cancel).click(); }

private:
    QDialog& m_dialog;
};

QString withoutMnemonic(QString caption)
{
    return caption.remove(QLatin1Char('&'));
}

/// The captions of a box, in order.
QStringList captions(const QDialog& dialog)
{
    QStringList texts;
    for (const QPushButton* const button : dialog.findChildren<QPushButton*>())
        texts << withoutMnemonic(button->text());
    texts.sort();
    return texts;
}

}  // namespace

class FileDialogsTest : public ShellTest {
    Q_OBJECT

private slots:
    void firstUseOpensInTheWorkingFolderWithNoNameProposed();
    void nextUseProposesTheFileChosenLastInItsFolder();
    void purposesAreRememberedApart();
    void openAndSaveOfOnePurposeShareWhatIsRemembered();
    void chosenPathIsStoredInFullUnderItsPurpose_data();
    void chosenPathIsStoredInFullUnderItsPurpose();
    void cancellingReturnsNothingAndStoresNothing();
    void keysAreApartFromThoseOfTheCurrentInventory();
    void titleAndFilterAreHandedOn();
    void damagedRememberedPathIsProposedAsItIs();

    void fileNamePartIsTheTextBehindTheLastSeparator_data();
    void fileNamePartIsTheTextBehindTheLastSeparator();
    void filterIsTranslated_data();
    void filterIsTranslated();

    void openDialogShowsTitleFilterFolderAndName();
    void openDialogHasCzechButtons();
    void openDialogReturnsTheFullPath();
    void openDialogCancelledReturnsNothing_data();
    void openDialogCancelledReturnsNothing();
    void openDialogTakesOnlyAFileThatExists();
    void openDialogInAFolderThatIsGoneStillOpens();
    void filterHidesOtherFilesAndTheSecondOneShowsAll();

    void saveDialogHasCzechButtons();
    void saveDialogProposesTheName();
    void saveDialogReturnsTheFullPathAsTyped_data();
    void saveDialogReturnsTheFullPathAsTyped();
    void saveDialogAsksBeforeAFileThatExistsIsChosen_data();
    void saveDialogAsksBeforeAFileThatExistsIsChosen();
    void saveDialogRefusesAMissingFolderWithWordsAndStaysOpen();
    void saveDialogCancelledAfterAMissingFolderReturnsNothing();

private:
    QString open(FilePurpose purpose, const QString& answer)
    {
        harness().chooser.answerNext(answer);
        return harness().fileDialogs.openFile(nullptr, QStringLiteral("T"), filterOfThisProgram, purpose);
    }
    QString save(FilePurpose purpose, const QString& answer)
    {
        harness().chooser.answerNext(answer);
        return harness().fileDialogs.saveFile(nullptr, QStringLiteral("T"), filterOfThisProgram, purpose);
    }
    const FileQuestion& lastQuestion() { return harness().chooser.shown().last().question; }
    QString stored(FilePurpose purpose)
    {
        return harness().settings.get(QStringLiteral("FileDialog"),
            QStringLiteral("LastPathFile:%1").arg(static_cast<int>(purpose)), QStringLiteral("nothing"));
    }

    /// The test's own folder.
    QString folder() { return harness().path(QString()); }
    FileQuestion question(const QString& name = {}) { return {title, filterOfThisProgram, folder(), name}; }
    void useFileDialog(std::function<void(const SeenFileDialog&)> use)
    {
        harness().dialogs.useNext(
            QStringLiteral("QFileDialog"), [use = std::move(use)](QDialog& dialog) { use(SeenFileDialog(dialog)); });
    }
    /// The box that the file dialog itself shows.
    void useQuestion(std::function<void(QMessageBox&)> use)
    {
        harness().dialogs.useNext(
            {}, [use = std::move(use)](QDialog& dialog) { use(dynamic_cast<QMessageBox&>(dialog)); });
    }

    QString realOpen(const FileQuestion& asked)
    {
        ToolkitFileChooser chooser(harness().boxes);
        return chooser.open(&harness().window(), asked);
    }
    QString realSave(const FileQuestion& asked)
    {
        ToolkitFileChooser chooser(harness().boxes);
        return chooser.save(&harness().window(), asked);
    }
};

void FileDialogsTest::firstUseOpensInTheWorkingFolderWithNoNameProposed()
{
    static_cast<void>(open(FilePurpose::Points, {}));
    QCOMPARE(lastQuestion().folder, QDir::currentPath() + QLatin1Char('/'));
    QCOMPARE(lastQuestion().name, QString());
}

void FileDialogsTest::nextUseProposesTheFileChosenLastInItsFolder()
{
    QCOMPARE(open(FilePurpose::Points, QStringLiteral("/data/žluť/b 1.txt")), QStringLiteral("/data/žluť/b 1.txt"));
    static_cast<void>(open(FilePurpose::Points, {}));
    QCOMPARE(lastQuestion().folder, QStringLiteral("/data/žluť/"));
    QCOMPARE(lastQuestion().name, QStringLiteral("b 1.txt"));
}

void FileDialogsTest::purposesAreRememberedApart()
{
    static_cast<void>(open(FilePurpose::Points, QStringLiteral("/one/b.txt")));
    static_cast<void>(open(FilePurpose::Description, QStringLiteral("/two/p.txt")));
    static_cast<void>(open(FilePurpose::Points, {}));
    QCOMPARE(lastQuestion().folder, QStringLiteral("/one/"));
    QCOMPARE(lastQuestion().name, QStringLiteral("b.txt"));
    for (const FilePurpose purpose : {FilePurpose::Dust, FilePurpose::DustGroups}) {
        static_cast<void>(open(purpose, {}));
        QCOMPARE(lastQuestion().name, QString());
    }
}

void FileDialogsTest::openAndSaveOfOnePurposeShareWhatIsRemembered()
{
    QCOMPARE(save(FilePurpose::Dust, QStringLiteral("/one/d.txt")), QStringLiteral("/one/d.txt"));
    static_cast<void>(open(FilePurpose::Dust, {}));
    QCOMPARE(lastQuestion().name, QStringLiteral("d.txt"));
    QVERIFY(harness().chooser.shown().first().isSave);
    QVERIFY(!harness().chooser.shown().last().isSave);
}

void FileDialogsTest::chosenPathIsStoredInFullUnderItsPurpose_data()
{
    QTest::addColumn<int>("purpose");
    QTest::addColumn<QString>("key");
    QTest::newRow("points") << 1 << QStringLiteral("FileDialog/LastPathFile:1");
    QTest::newRow("description") << 2 << QStringLiteral("FileDialog/LastPathFile:2");
    QTest::newRow("dust") << 3 << QStringLiteral("FileDialog/LastPathFile:3");
}

void FileDialogsTest::chosenPathIsStoredInFullUnderItsPurpose()
{
    QFETCH(const int, purpose);
    QFETCH(const QString, key);
    static_cast<void>(open(static_cast<FilePurpose>(purpose), QStringLiteral("/data/x.txt")));
    QCOMPARE(harness().settings.texts(), (QMap<QString, QString>{{key, QStringLiteral("/data/x.txt")}}));
}

void FileDialogsTest::cancellingReturnsNothingAndStoresNothing()
{
    QCOMPARE(open(FilePurpose::Points, {}), QString());
    QCOMPARE(save(FilePurpose::Points, {}), QString());
    QVERIFY(harness().settings.texts().isEmpty());
    static_cast<void>(open(FilePurpose::Points, QStringLiteral("/one/b.txt")));
    static_cast<void>(save(FilePurpose::Points, {}));
    QCOMPARE(stored(FilePurpose::Points), QStringLiteral("/one/b.txt"));
}

void FileDialogsTest::keysAreApartFromThoseOfTheCurrentInventory()
{
    harness().settings.save(
        QStringLiteral("Soubory"), QStringLiteral("LastPathFile:1"), QStringLiteral("/current/b.txt"));
    static_cast<void>(open(FilePurpose::Points, QStringLiteral("/one/b.txt")));
    QCOMPARE(harness().chooser.shown().first().question.name, QString());
    QCOMPARE(harness().settings.get(QStringLiteral("Soubory"), QStringLiteral("LastPathFile:1"), {}),
        QStringLiteral("/current/b.txt"));
}

void FileDialogsTest::titleAndFilterAreHandedOn()
{
    static_cast<void>(open(FilePurpose::Points, {}));
    QCOMPARE(lastQuestion().title, QStringLiteral("T"));
    QCOMPARE(lastQuestion().filter, filterOfThisProgram);
}

void FileDialogsTest::damagedRememberedPathIsProposedAsItIs()
{
    harness().settings.save(
        QStringLiteral("FileDialog"), QStringLiteral("LastPathFile:1"), QStringLiteral("no separator"));
    static_cast<void>(open(FilePurpose::Points, {}));
    QCOMPARE(lastQuestion().folder, QString());
    QCOMPARE(lastQuestion().name, QStringLiteral("no separator"));
    // The toolkit's dialog then opens all the same.
    useFileDialog([](const SeenFileDialog& seen) {
        QCOMPARE(seen.name().text(), QStringLiteral("no separator"));
        seen.cancel();
    });
    QCOMPARE(realOpen(lastQuestion()), QString());
}

void FileDialogsTest::fileNamePartIsTheTextBehindTheLastSeparator_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("name");
    QTest::newRow("full path") << QStringLiteral("/a/b/c.txt") << QStringLiteral("/a/b/") << QStringLiteral("c.txt");
    QTest::newRow("root") << QStringLiteral("/c.txt") << QStringLiteral("/") << QStringLiteral("c.txt");
    QTest::newRow("folder only") << QStringLiteral("/a/b/") << QStringLiteral("/a/b/") << QString();
    QTest::newRow("name only") << QStringLiteral("c.txt") << QString() << QStringLiteral("c.txt");
    QTest::newRow("empty") << QString() << QString() << QString();
    QTest::newRow("blanks and Czech letters")
        << QStringLiteral("/má data/žluť.txt") << QStringLiteral("/má data/") << QStringLiteral("žluť.txt");
}

void FileDialogsTest::fileNamePartIsTheTextBehindTheLastSeparator()
{
    QFETCH(const QString, path);
    QFETCH(const QString, folder);
    QFETCH(const QString, name);
    QCOMPARE(fileNamePart(path), name);
    QCOMPARE(folderPart(path), folder);
    QCOMPARE(folderPart(path) + fileNamePart(path), path);
}

void FileDialogsTest::filterIsTranslated_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("translated");
    QTest::newRow("of this program, with the blank behind the first bar")
        << filterOfThisProgram << QStringLiteral("Datové soubory KORVEX (*.txt) (*.txt);;Všechny soubory (*.*) (*)");
    QTest::newRow("pattern not in the description")
        << QStringLiteral("Skupiny prachu|*.spr") << QStringLiteral("Skupiny prachu (*.spr)");
    QTest::newRow("another pattern in the description")
        << QStringLiteral("Texty (*.txt)|*.csv") << QStringLiteral("Texty (*.txt) (*.csv)");
    QTest::newRow("all files") << QStringLiteral("Vše|*.*") << QStringLiteral("Vše (*)");
    QTest::newRow("description without its pattern")
        << QStringLiteral("Texty|*.txt|Vše") << QStringLiteral("Texty (*.txt)");
    QTest::newRow("empty") << QString() << QString();
}

void FileDialogsTest::filterIsTranslated()
{
    QFETCH(const QString, filter);
    QFETCH(const QString, translated);
    QCOMPARE(toolkitFilter(filter), translated);
}

void FileDialogsTest::openDialogShowsTitleFilterFolderAndName()
{
    harness().writeFile(QStringLiteral("b.txt"), {});
    useFileDialog([this](const SeenFileDialog& seen) {
        QCOMPARE(seen.dialog().windowTitle(), title);
        QCOMPARE(seen.dialog().nameFilters(),
            QStringList({QStringLiteral("Datové soubory KORVEX (*.txt) (*.txt)"),
                QStringLiteral("Všechny soubory (*.*) (*)")}));
        QCOMPARE(seen.dialog().selectedNameFilter(), QStringLiteral("Datové soubory KORVEX (*.txt)"));
        QStringList shown;
        const auto& choice = *seen.dialog().findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        for (int i = 0; i < choice.count(); ++i)
            shown << choice.itemText(i);
        QCOMPARE(shown,
            QStringList({QStringLiteral("Datové soubory KORVEX (*.txt)"), QStringLiteral("Všechny soubory (*.*)")}));
        QCOMPARE(seen.dialog().directory(), QDir(folder()));
        QCOMPARE(seen.name().text(), QStringLiteral("b.txt"));
        QCOMPARE(seen.dialog().acceptMode(), QFileDialog::AcceptOpen);
        QCOMPARE(seen.dialog().fileMode(), QFileDialog::ExistingFile);
        seen.cancel();
    });
    static_cast<void>(realOpen(question(QStringLiteral("b.txt"))));
}

void FileDialogsTest::openDialogHasCzechButtons()
{
    useFileDialog([](const SeenFileDialog& seen) {
        QCOMPARE(withoutMnemonic(seen.button(QDialogButtonBox::Open).text()), QStringLiteral("Otevřít"));
        QCOMPARE(withoutMnemonic(seen.button(QDialogButtonBox::Cancel).text()), QStringLiteral("Storno"));
        seen.cancel();
    });
    static_cast<void>(realOpen(question()));
}

void FileDialogsTest::openDialogReturnsTheFullPath()
{
    harness().writeFile(QStringLiteral("žlutý kůň.txt"), {});
    useFileDialog([](const SeenFileDialog& seen) {
        seen.type(QStringLiteral("žlutý kůň.txt"));
        seen.confirm();
    });
    QCOMPARE(realOpen(question()), harness().path(QStringLiteral("žlutý kůň.txt")));
}

void FileDialogsTest::openDialogCancelledReturnsNothing_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("Storno") << 0;
    QTest::newRow("Escape") << 1;
    QTest::newRow("close box") << 2;
}

void FileDialogsTest::openDialogCancelledReturnsNothing()
{
    QFETCH(const int, way);
    harness().writeFile(QStringLiteral("b.txt"), {});
    useFileDialog([way](const SeenFileDialog& seen) {
        if (way == 0)
            seen.cancel();
        else if (way == 1)
            QTest::keyClick(&seen.dialog(), Qt::Key_Escape);
        else
            seen.dialog().close();
    });
    QCOMPARE(realOpen(question(QStringLiteral("b.txt"))), QString());
}

void FileDialogsTest::openDialogTakesOnlyAFileThatExists()
{
    QString words;
    QStringList buttons;
    useFileDialog([&](const SeenFileDialog& seen) {
        seen.type(QStringLiteral("chybi.txt"));
        seen.confirm();
        QVERIFY(seen.dialog().isVisible());
        seen.cancel();
    });
    useQuestion([&](QMessageBox& box) {
        words = box.text();
        buttons = captions(box);
        box.accept();
    });
    QCOMPARE(realOpen(question()), QString());
    QVERIFY2(words.startsWith(QStringLiteral("chybi.txt\nSoubor se nepodařilo nalézt.")), qPrintable(words));
    QCOMPARE(buttons, QStringList{QStringLiteral("OK")});
}

void FileDialogsTest::openDialogInAFolderThatIsGoneStillOpens()
{
    FileQuestion asked = question(QStringLiteral("b.txt"));
    asked.folder += QStringLiteral("pryc/");
    bool wasOpen = false;
    useFileDialog([&](const SeenFileDialog& seen) {
        wasOpen = seen.dialog().isVisible();
        seen.cancel();
    });
    QCOMPARE(realOpen(asked), QString());
    QVERIFY(wasOpen);
}

void FileDialogsTest::filterHidesOtherFilesAndTheSecondOneShowsAll()
{
    for (const char* const name : {"b.txt", "c.csv", "bez-tecky"})
        harness().writeFile(QLatin1String(name), {});
    const auto shown = [](const SeenFileDialog& seen) {
        const auto& list = child<QListView>(seen.dialog(), "listView");
        QStringList names;
        for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row)
            names << list.model()->index(row, 0, list.rootIndex()).data().toString();
        names.sort();
        return names;
    };
    useFileDialog([&](const SeenFileDialog& seen) {
        QTRY_COMPARE(shown(seen), QStringList{QStringLiteral("b.txt")});
        seen.dialog().selectNameFilter(seen.dialog().nameFilters().value(1));
        // A name without a dot is a file too.
        QTRY_COMPARE(
            shown(seen), QStringList({QStringLiteral("b.txt"), QStringLiteral("bez-tecky"), QStringLiteral("c.csv")}));
        seen.cancel();
    });
    static_cast<void>(realOpen(question()));
}

void FileDialogsTest::saveDialogHasCzechButtons()
{
    useFileDialog([](const SeenFileDialog& seen) {
        QCOMPARE(withoutMnemonic(seen.button(QDialogButtonBox::Save).text()), QStringLiteral("Uložit"));
        QCOMPARE(withoutMnemonic(seen.button(QDialogButtonBox::Cancel).text()), QStringLiteral("Storno"));
        QCOMPARE(seen.dialog().acceptMode(), QFileDialog::AcceptSave);
        seen.cancel();
    });
    QCOMPARE(realSave(question()), QString());
}

void FileDialogsTest::saveDialogProposesTheName()
{
    useFileDialog([](const SeenFileDialog& seen) {
        QCOMPARE(seen.name().text(), QStringLiteral("nový.txt"));
        seen.confirm();
    });
    QCOMPARE(realSave(question(QStringLiteral("nový.txt"))), harness().path(QStringLiteral("nový.txt")));
}

void FileDialogsTest::saveDialogReturnsTheFullPathAsTyped_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << QStringLiteral("b.txt");
    // No extension is added: the caller of the dialog wants the name as it was given.
    QTest::newRow("no extension") << QStringLiteral("b");
    QTest::newRow("another extension") << QStringLiteral("b.dat");
    QTest::newRow("blanks and Czech letters") << QStringLiteral("žlutý kůň.txt");
}

void FileDialogsTest::saveDialogReturnsTheFullPathAsTyped()
{
    QFETCH(const QString, name);
    useFileDialog([&](const SeenFileDialog& seen) {
        seen.type(name);
        seen.confirm();
    });
    QCOMPARE(realSave(question()), harness().path(name));
    QVERIFY(!QFileInfo::exists(harness().path(name)));
}

void FileDialogsTest::saveDialogAsksBeforeAFileThatExistsIsChosen_data()
{
    QTest::addColumn<bool>("replace");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void FileDialogsTest::saveDialogAsksBeforeAFileThatExistsIsChosen()
{
    QFETCH(const bool, replace);
    harness().writeFile(QStringLiteral("b.txt"), {QStringLiteral("old")});
    QString words;
    QStringList buttons;
    useFileDialog([&](const SeenFileDialog& seen) {
        seen.type(QStringLiteral("b.txt"));
        seen.confirm();
        QCOMPARE(seen.dialog().isVisible(), !replace);
        if (!replace)
            seen.cancel();
    });
    useQuestion([&](QMessageBox& box) {
        words = box.text();
        buttons = captions(box);
        box.button(replace ? QMessageBox::Yes : QMessageBox::No)->click();
    });
    QCOMPARE(realSave(question()), replace ? harness().path(QStringLiteral("b.txt")) : QString());
    QCOMPARE(buttons, QStringList({QStringLiteral("Ano"), QStringLiteral("Ne")}));
    QVERIFY2(words.contains(QStringLiteral("b.txt")) && words.contains(QStringLiteral("existuje")), qPrintable(words));
    QCOMPARE(harness().bytes(QStringLiteral("b.txt")), QByteArray("old\r\n"));
}

void FileDialogsTest::saveDialogRefusesAMissingFolderWithWordsAndStaysOpen()
{
    useFileDialog([](const SeenFileDialog& seen) {
        seen.type(QStringLiteral("chybí/b.txt"));
        seen.confirm();
    });
    useFileDialog([](const SeenFileDialog& seen) {
        seen.type(QStringLiteral("b.txt"));
        seen.confirm();
    });
    harness().boxes.answerNext(BoxAnswer::Ok);
    QCOMPARE(realSave(question()), harness().path(QStringLiteral("b.txt")));
    QCOMPARE(describe(harness().boxes.shown().first()),
        describe({title, QStringLiteral("Složka neexistuje.\n\n") + harness().path(QStringLiteral("chybí/")),
            BoxIcon::Exclamation, BoxButtons::Ok, {}}));
}

void FileDialogsTest::saveDialogCancelledAfterAMissingFolderReturnsNothing()
{
    useFileDialog([](const SeenFileDialog& seen) {
        seen.type(QStringLiteral("chybí/b.txt"));
        seen.confirm();
    });
    useFileDialog([](const SeenFileDialog& seen) { seen.cancel(); });
    harness().boxes.answerNext(BoxAnswer::Ok);
    QCOMPARE(realSave(question()), QString());
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::FileDialogsTest)

#include "file_dialogs_test.moc"
