// New sources: the ways to make one, what the editor shows of it, and what becomes of the list.
#include "source_editor_test.h"

#include <QSignalSpy>

namespace korvex {

class NewSourceTest : public SourceEditorTest {
    Q_OBJECT

private slots:
    void menuOpensTheEditorOfTheType_data() { addAllTypes(); }
    void menuOpensTheEditorOfTheType();
    void digitKeyWithCtrlOpensTheEditorOfTheType_data() { addAllTypes(); }
    void digitKeyWithCtrlOpensTheEditorOfTheType();
    void menuOfTheInsertKeyOpensTheEditorOfTheType_data() { addAllTypes(); }
    void menuOfTheInsertKeyOpensTheEditorOfTheType();
    void editorShowsANewSource_data();
    void editorShowsANewSource();

    void confirmedSourceHoldsWhatWasTyped_data() { addAllTypes(); }
    void confirmedSourceHoldsWhatWasTyped();
    void newRowStandsAtTheEndMarkedAndCurrent();
    void newRowIsNotSortedIn();
    void listIsNotRefilled();
    void newRowShowsTheTypedName();
    void cancelledSourceLeavesNoTrace_data() { addWaysToLeave(false); }
    void cancelledSourceLeavesNoTrace();
    void modifiedFlagIsSetOnOk();
    void countAndMenuStateFollow();
    void cancelInAnEmptySetLeavesTheCommandsDisabled();

private:
    [[nodiscard]] QString count() { return harness().find<QLabel>("lbPocetZdroju").text(); }
    [[nodiscard]] int lastGiven() { return harness().window().sourceNumbers().last(); }
};

void NewSourceTest::menuOpensTheEditorOfTheType()
{
    makeAndConfirm(rowType());
    QCOMPARE(harness().set().size(), std::size_t{1});
    QCOMPARE(harness().set().last().TypZdrojeId(), rowType().TypZdrojeId);
}

void NewSourceTest::digitKeyWithCtrlOpensTheEditorOfTheType()
{
    harness().show();
    harness().dialogs.useNext(editorName(rowType()), [](QDialog& editor) { press(editor, "cbOK"); });
    QTest::keyClick(&harness().view(), static_cast<Qt::Key>(Qt::Key_0 + rowType().TypZdrojeId), Qt::ControlModifier);
    QCOMPARE(harness().set().size(), std::size_t{1});
    QCOMPARE(harness().set().last().TypZdrojeId(), rowType().TypZdrojeId);
    QCOMPARE(harness().status().text(), QString());
}

void NewSourceTest::menuOfTheInsertKeyOpensTheEditorOfTheType()
{
    harness().show();
    QTest::keyClick(&harness().view(), Qt::Key_Insert);
    QMenu& menu = harness().menu("mnuVNovyZdrojX");
    QTRY_VERIFY(menu.isVisible());
    harness().dialogs.useNext(editorName(rowType()), [](QDialog& editor) { press(editor, "cbOK"); });
    // The digits are the mnemonics of the three items.
    QTest::keyClick(&menu, static_cast<Qt::Key>(Qt::Key_0 + rowType().TypZdrojeId));
    QTRY_COMPARE(harness().set().size(), std::size_t{1});
    QCOMPARE(harness().set().last().TypZdrojeId(), rowType().TypZdrojeId);
    QVERIFY(!menu.isVisible());
}

void NewSourceTest::editorShowsANewSource_data()
{
    QTest::addColumn<int>("typeId");
    QTest::addColumn<QString>("shown");
    QTest::newRow("stack") << cBodovyZdroj.TypZdrojeId << QStringLiteral("50001|0001|Bodový zdroj 50001");
    QTest::newRow("area") << cPlosnyZdroj.TypZdrojeId << QStringLiteral("50001|0000|Plošný zdroj 50001");
    QTest::newRow("line") << cLiniovyZdroj.TypZdrojeId << QStringLiteral("50001|0000|Liniový zdroj 50001");
}

void NewSourceTest::editorShowsANewSource()
{
    QFETCH(const QString, shown);
    make(rowType(), [&shown](QDialog& editor) {
        const auto texts = [&editor](const QList<const char*>& names) {
            QStringList found;
            for (const char* const name : names)
                found << field(editor, name).text();
            return found.join(QLatin1Char('|'));
        };
        QCOMPARE(texts({"txtCisloZdroje", "txtCisloKomina", "txtNazevZdroje"}), shown);
        QCOMPARE(texts({"txtSkupina", "txtShluk", "txtX", "txtY", "txtZ"}), QStringLiteral("0|0|0|0|0"));
        for (int index = 0; index < rowType().parameterCount; ++index)
            QCOMPARE(parameterField(editor, index).text(), QStringLiteral("0"));
        QCOMPARE(field(editor, "txtHustota").text(), QStringLiteral("0"));
        press(editor, "cbStorno");
    });
}

void NewSourceTest::confirmedSourceHoldsWhatWasTyped()
{
    make(rowType(), [](QDialog& editor) {
        const std::pair<const char*, const char*> texts[]{{"txtNazevZdroje", "Nový"}, {"txtX", "-70"}, {"txtY", "80"},
            {"txtZ", "90"}, {"txtSkupina", "8"}, {"txtShluk", "9"}, {"tPar0", "1.5"}, {"tPar7", "24"}};
        for (const auto& [field, text] : texts)
            setText(editor, field, QString::fromUtf8(text));
        press(editor, "cbOK");
    });
    QCOMPARE(QString::fromStdString(harness().set().last().LineSource()),
        QStringLiteral("000050001, -0000070, 0000080, 0090, %1, 8, 9 ;Nový").arg(rowType().TypZdrojeId));
    QCOMPARE(QString::fromStdString(harness().set().last().LineParameters()),
        QStringLiteral("000050001, 1.5, 0, 0, 0, 0, 0, 0, 24, 0"));
}

void NewSourceTest::newRowStandsAtTheEndMarkedAndCurrent()
{
    harness().fillWithNumbers({3, 1, 2});
    harness().mark(QStringLiteral("-X-"));
    makeAndConfirm();
    QCOMPARE(harness().numberColumn().last(), QStringLiteral("000050001"));
    QCOMPARE(harness().marks(), QStringLiteral("-X-X"));
    QCOMPARE(harness().view().currentRow(), 3);
    QCOMPARE(harness().model().tag(3), std::size_t{4});
}

void NewSourceTest::newRowIsNotSortedIn()
{
    harness().fillWithNumbers({70000, 60000, 1});
    harness().clickHeader(SourceListModel::NumberColumn);
    harness().mark(QStringLiteral("X--"));
    makeAndConfirm();
    QCOMPARE(harness().numberColumn(),
        QStringList({QStringLiteral("000000001"), QStringLiteral("000060000"), QStringLiteral("000070000"),
            QStringLiteral("000050001")}));
    QCOMPARE(harness().marks(), QStringLiteral("X--X"));
    // The next sorting takes it in, and the tag leads to the new source.
    harness().clickHeader(SourceListModel::NumberColumn);
    QCOMPARE(harness().numberColumn().at(2), QStringLiteral("000050001"));
    QCOMPARE(harness().marks(), QStringLiteral("--XX"));
}

void NewSourceTest::listIsNotRefilled()
{
    harness().fillWithNumbers({2, 1});
    const QSignalSpy refills(&harness().model(), &QAbstractItemModel::modelReset);
    const QSignalSpy rows(&harness().model(), &QAbstractItemModel::rowsInserted);
    makeAndConfirm();
    makeAndCancel();
    QCOMPARE(refills.size(), 0);
    QCOMPARE(rows.size(), 1);
}

void NewSourceTest::newRowShowsTheTypedName()
{
    make(cLiniovyZdroj, [](QDialog& editor) {
        setText(editor, "txtNazevZdroje", QStringLiteral("Silnice č. 5"));
        press(editor, "cbOK");
    });
    QCOMPARE(harness().nameColumn(), QStringList{QStringLiteral("Silnice č. 5")});
}

void NewSourceTest::cancelledSourceLeavesNoTrace()
{
    QFETCH(const Leaving, leaving);
    harness().fillWithNumbers({2, 1});
    harness().clickHeader(SourceListModel::NumberColumn);
    harness().mark(QStringLiteral("X-"));
    const int current = harness().view().currentRow();
    make(cBodovyZdroj, [this, leaving](QDialog& editor) {
        setText(editor, "txtNazevZdroje", QStringLiteral("Nový"));
        leaveChanged(harness().boxes, editor, leaving);
    });
    QCOMPARE(harness().set().size(), std::size_t{2});
    QCOMPARE(harness().numberColumn(), QStringList({QStringLiteral("000000001"), QStringLiteral("000000002")}));
    QCOMPARE(harness().marks(), QStringLiteral("X-"));
    QCOMPARE(harness().view().currentRow(), current);
    QCOMPARE(count(), QStringLiteral("Počet: 2"));
    QCOMPARE(lastGiven(), 50000);
    QVERIFY(!harness().set().modified());
}

void NewSourceTest::modifiedFlagIsSetOnOk()
{
    makeAndCancel();
    QVERIFY(!harness().set().modified());
    makeAndConfirm();
    QVERIFY(harness().set().modified());
}

void NewSourceTest::countAndMenuStateFollow()
{
    static_cast<void>(harness().window());
    QCOMPARE(count(), QStringLiteral("Počet: 0"));
    const auto enabled = [this](const char* item) { return harness().item(item).isEnabled(); };
    QVERIFY(!enabled("mnuVSave"));
    makeAndConfirm();
    QCOMPARE(count(), QStringLiteral("Počet: 1"));
    for (const char* const item : {"mnuVSave", "mnuVSaveMark", "mnuVZrus", "mnuVZrusVybrane", "mnuVNastavZdroj",
             "mnuVybraneZdrojeSchranka", "mnuVypocetXY", "mnuVypocetVsDw0"})
        QVERIFY2(enabled(item), item);
    QVERIFY(!enabled("mnuVKontrolaDuplicit"));
    makeAndConfirm();
    QCOMPARE(count(), QStringLiteral("Počet: 2"));
    QVERIFY(enabled("mnuVKontrolaDuplicit"));
}

void NewSourceTest::cancelInAnEmptySetLeavesTheCommandsDisabled()
{
    makeAndCancel();
    QCOMPARE(count(), QStringLiteral("Počet: 0"));
    QVERIFY(!harness().item("mnuVNastavZdroj").isEnabled());
    QVERIFY(harness().item("mnuVPlosnyZdroj").isEnabled());
    QCOMPARE(lastGiven(), 50000);
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::NewSourceTest)

#include "new_source_test.moc"
