// Saving after a load that broke off: what is in the files only is not lost without a question.
#include "load_save.h"
#include "window_harness.h"

#include <QFile>

#include <string>

namespace korvex {

class BrokenLoadSaveTest : public ShellTest {
    Q_OBJECT

private slots:
    void savingOverTheFilesAsksFirst();
    void yesLeavesThemAsTheyAre();
    void noReplacesThem();
    void afterASaveItAsksNoMore();
    void otherFilesAreSavedUnasked();
    void filesThatHoldNothingAreSavedUnasked();
    void aLoadThatRunsToItsEndAsksNoMore();
    void descriptionThatCannotBeReadCountsToo();
    void callersFilesAreAskedAboutWhenTheWindowCloses();

private:
    /// Three sources, of which the second cannot be read.
    SourceFiles brokenFiles()
    {
        return harness().writeInventory({pointsRecord(cBodovyZdroj, 1, QStringLiteral("A")),
            QStringLiteral("99999999999, 1, 1, 1, 1, 1, 1 ;B"), pointsRecord(cBodovyZdroj, 3, QStringLiteral("C"))});
    }
    /// Loads them, sees the error, and changes what there is.
    SourceFiles loadBroken()
    {
        const SourceFiles files = brokenFiles();
        harness().boxes.answerNext(BoxAnswer::Ok);
        harness().globals.files = files;
        static_cast<void>(load(files));
        harness().set().modified(true);
        harness().globals.commandLineMode = true;
        m_before = bytesOf(files.points);
        return files;
    }
    bool load(const SourceFiles& files) { return loadSources(harness().window(), files, {}, LoadMode::Replace); }
    [[nodiscard]] bool save() { return saveSources(harness().window(), SaveScope::All); }
    [[nodiscard]] static QByteArray bytesOf(const std::string& path)
    {
        QFile file(QString::fromStdString(path));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }
    [[nodiscard]] qsizetype boxCount() { return harness().boxes.shown().size(); }

    QByteArray m_before;
};

void BrokenLoadSaveTest::savingOverTheFilesAsksFirst()
{
    const SourceFiles files = loadBroken();
    harness().boxes.answerNext(BoxAnswer::Yes);
    QVERIFY(!save());
    const QString paths = QString::fromStdString(
        files.points + "\n" + files.description + (files.dust.empty() ? "" : "\n" + files.dust));
    QCOMPARE(describe(harness().boxes.shown().last()),
        describe({QStringLiteral("Uložení seznamu zdrojů"),
            QStringLiteral("Načtení těchto souborů skončilo chybou. Co není v seznamu, by se uložením ztratilo:\n%1\n\n"
                           "Mám je nechat, jak jsou ?")
                .arg(paths),
            BoxIcon::Exclamation, BoxButtons::YesNo, {}}));
}

void BrokenLoadSaveTest::yesLeavesThemAsTheyAre()
{
    const SourceFiles files = loadBroken();
    harness().boxes.answerNext(BoxAnswer::Yes);
    QVERIFY(!save());
    QCOMPARE(bytesOf(files.points), m_before);
    QVERIFY(harness().set().modified());
}

void BrokenLoadSaveTest::noReplacesThem()
{
    const SourceFiles files = loadBroken();
    harness().boxes.answerNext(BoxAnswer::No);
    QVERIFY(save());
    QVERIFY(bytesOf(files.points) != m_before);
    QVERIFY(!harness().set().modified());
}

void BrokenLoadSaveTest::afterASaveItAsksNoMore()
{
    loadBroken();
    harness().boxes.answerNext(BoxAnswer::No);
    QVERIFY(save());
    const qsizetype boxes = boxCount();
    QVERIFY(save());
    QCOMPARE(boxCount(), boxes);
}

void BrokenLoadSaveTest::otherFilesAreSavedUnasked()
{
    const SourceFiles files = loadBroken();
    const qsizetype boxes = boxCount();
    harness().globals.files = {harness().path(QStringLiteral("b2.txt")).toStdString(),
        harness().path(QStringLiteral("p2.txt")).toStdString(), ""};
    QVERIFY(save());
    QCOMPARE(boxCount(), boxes);
    QCOMPARE(bytesOf(files.points), m_before);
}

void BrokenLoadSaveTest::filesThatHoldNothingAreSavedUnasked()
{
    // A caller names files that its editor is to make.
    const SourceFiles files{harness().path(QStringLiteral("nove.txt")).toStdString(),
        harness().path(QStringLiteral("nove popis.txt")).toStdString(), ""};
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().show();
    harness().globals.files = files;
    QVERIFY(!load(files));
    harness().globals.commandLineMode = true;
    const qsizetype boxes = boxCount();
    QVERIFY(save());
    QCOMPARE(boxCount(), boxes);
}

void BrokenLoadSaveTest::aLoadThatRunsToItsEndAsksNoMore()
{
    const SourceFiles broken = loadBroken();
    const qsizetype boxes = boxCount();
    QFile points(QString::fromStdString(broken.points));
    QVERIFY(points.open(QIODevice::WriteOnly));
    points.write("1, 1, 1, 1, 1, 1, 1 ;A\r\n");
    points.close();
    QVERIFY(load(broken));
    QVERIFY(save());
    QCOMPARE(boxCount(), boxes);
}

void BrokenLoadSaveTest::descriptionThatCannotBeReadCountsToo()
{
    // Nothing was loaded: the list is that of before, but the names are those of the files.
    SourceFiles files = harness().writeInventory({pointsRecord(cBodovyZdroj, 1, QStringLiteral("A"))});
    QFile description(QString::fromStdString(files.description));
    QVERIFY(description.open(QIODevice::WriteOnly));
    description.write("1E999, 1\r\n");
    description.close();
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().show();
    harness().globals.files = files;
    QVERIFY(!load(files));
    harness().globals.commandLineMode = true;
    harness().boxes.answerNext(BoxAnswer::Yes);
    QVERIFY(!save());
    QCOMPARE(bytesOf(files.description), QByteArray("1E999, 1\r\n"));
}

void BrokenLoadSaveTest::callersFilesAreAskedAboutWhenTheWindowCloses()
{
    const SourceFiles files = loadBroken();
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().window().close();
    QVERIFY(!harness().window().isVisible());
    QCOMPARE(bytesOf(files.points), m_before);
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::BrokenLoadSaveTest)

#include "broken_load_save_test.moc"
