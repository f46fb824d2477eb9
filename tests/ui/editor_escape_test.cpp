// Escape in the editors of sources: a stray one loses nothing that was typed.
#include "source_editor_test.h"

namespace korvex {

class EditorEscapeTest : public SourceEditorTest {
    Q_OBJECT

private slots:
    void unchangedEditorClosesUnasked_data() { addAllTypes(); }
    void unchangedEditorClosesUnasked();
    void unchangedNewSourceClosesUnasked_data() { addAllTypes(); }
    void unchangedNewSourceClosesUnasked();
    void whatIsOnlyLookedAtIsUnchanged_data() { addAllTypes(); }
    void whatIsOnlyLookedAtIsUnchanged();
    void everyFieldCounts_data();
    void everyFieldCounts();
    void enteredParticleCounts();
    void textTypedBackIsNoChange();
    void questionOffersToTakeOver();
    void yesTakesOverAsOk_data() { addAllTypes(); }
    void yesTakesOverAsOk();
    void yesWithANumberOutOfRangeStaysOpen();
    void noDropsTheChanges_data() { addAllTypes(); }
    void noDropsTheChanges();
    void cancelGoesOnWithEverythingTyped();
    void stornoAndCloseBoxAskNothing_data();
    void stornoAndCloseBoxAskNothing();

private:
    [[nodiscard]] static cZdroje source(const SourceType& type)
    {
        if (type.TypZdrojeId != cBodovyZdroj.TypZdrojeId)
            return sampleSource(type);
        cZdroje stack(type);
        stack.LineSource("42, 1234, -567, 250, 1, 3, 4 ;Kotelna");
        stack.LineParameters("42, 1.5, 40, 3.2, 150, 1.2, 8.5, 0.8, 24, 0");
        stack.LineDust("2500,0,1,10,1");
        return stack;
    }
    static void escape(QDialog& editor) { leave(editor, Leaving::Escape); }
};

void EditorEscapeTest::unchangedEditorClosesUnasked()
{
    cZdroje edited = source(rowType());
    QVERIFY(!edit(edited, [](QDialog& editor) {
        escape(editor);
        QVERIFY(!editor.isVisible());
    }));
    QVERIFY(harness().boxes.shown().isEmpty());
}

void EditorEscapeTest::unchangedNewSourceClosesUnasked()
{
    harness().show();
    make(rowType(), [](QDialog& editor) {
        escape(editor);
        QVERIFY(!editor.isVisible());
    });
    QVERIFY(harness().boxes.shown().isEmpty());
    QVERIFY(harness().set().empty());
}

void EditorEscapeTest::whatIsOnlyLookedAtIsUnchanged()
{
    globals().noDust = 0;
    cZdroje edited = source(rowType());
    edit(edited, [](QDialog& editor) {
        for (const EditorTab tab : {DustTab, ParametersTab, DescriptionTab}) {
            tabs(editor).setCurrentIndex(tab);
            for (QLineEdit* const each : tabs(editor).currentWidget()->findChildren<QLineEdit*>())
                each->setFocus();
        }
        escape(editor);
        QVERIFY(!editor.isVisible());
    });
    QVERIFY(harness().boxes.shown().isEmpty());
}

void EditorEscapeTest::everyFieldCounts_data()
{
    QTest::addColumn<int>("typeId");
    QTest::addColumn<QString>("name");
    for (const SourceType* const type : {&cBodovyZdroj, &cPlosnyZdroj, &cLiniovyZdroj}) {
        QStringList names{QStringLiteral("txtNazevZdroje"), QStringLiteral("txtSkupina"), QStringLiteral("txtShluk"),
            QStringLiteral("txtX"), QStringLiteral("txtY"), QStringLiteral("txtZ"), QStringLiteral("txtHustota")};
        for (int i = 0; i < type->parameterCount; ++i)
            names.append(QString::fromLatin1(parameterName(i)));
        for (const QString& name : names)
            QTest::addRow("%d %s", type->TypZdrojeId, qPrintable(name)) << type->TypZdrojeId << name;
    }
}

void EditorEscapeTest::everyFieldCounts()
{
    QFETCH(const QString, name);
    harness().boxes.answerNext(BoxAnswer::No);
    cZdroje edited = source(rowType());
    edit(edited, [&name](QDialog& editor) {
        setText(editor, name.toLatin1().constData(), QStringLiteral("77"));
        escape(editor);
    });
    QCOMPARE(harness().boxes.shown().size(), 1);
}

void EditorEscapeTest::enteredParticleCounts()
{
    globals().noDust = 0;
    decimalSeparator(",");
    harness().boxes.answerNext(BoxAnswer::No);
    cZdroje edited = source(cBodovyZdroj);
    edit(edited, [](QDialog& editor) {
        setText(editor, "txtPrumer", QStringLiteral("50"));
        setText(editor, "txtZastoupeni", QStringLiteral("0,4"));
        press(editor, "cmdAdd");
        escape(editor);
    });
    QCOMPARE(harness().boxes.shown().size(), 1);
}

void EditorEscapeTest::textTypedBackIsNoChange()
{
    cZdroje edited = source(cBodovyZdroj);
    edit(edited, [](QDialog& editor) {
        setText(editor, "txtNazevZdroje", QStringLiteral("Jiná"));
        setText(editor, "txtNazevZdroje", QStringLiteral("Kotelna"));
        escape(editor);
        QVERIFY(!editor.isVisible());
    });
    QVERIFY(harness().boxes.shown().isEmpty());
}

void EditorEscapeTest::questionOffersToTakeOver()
{
    harness().boxes.answerNext(BoxAnswer::No);
    cZdroje edited = source(cPlosnyZdroj);
    edit(edited, [](QDialog& editor) {
        setText(editor, "txtX", QStringLiteral("5"));
        escape(editor);
    });
    QCOMPARE(describe(harness().boxes.shown().value(0)),
        describe({QStringLiteral("Plošný zdroj"),
            QStringLiteral("Byly provedeny změny zdroje.\nMám tyto změny převzít ?"), BoxIcon::Question,
            BoxButtons::YesNoCancel, {}}));
}

void EditorEscapeTest::yesTakesOverAsOk()
{
    harness().boxes.answerNext(BoxAnswer::Yes);
    cZdroje edited = source(rowType());
    QVERIFY(edit(edited, [](QDialog& editor) {
        setText(editor, "txtNazevZdroje", QStringLiteral("Jiná"));
        escape(editor);
        QVERIFY(!editor.isVisible());
    }));
    QCOMPARE(QString::fromStdString(std::string(edited.NazevZdroje())), QStringLiteral("Jiná"));
    QVERIFY(harness().set().modified());
}

void EditorEscapeTest::yesWithANumberOutOfRangeStaysOpen()
{
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().boxes.answerNext(BoxAnswer::Ok);
    cZdroje edited = source(cBodovyZdroj);
    QVERIFY(!edit(edited, [](QDialog& editor) {
        setText(editor, "txtX", QStringLiteral("99999999999"));
        escape(editor);
        QVERIFY(editor.isVisible());
        press(editor, "cbStorno");
    }));
    QCOMPARE(harness().boxes.shown().size(), 2);
    QVERIFY(isOutOfRange(harness().boxes.shown().last()));
}

void EditorEscapeTest::noDropsTheChanges()
{
    harness().boxes.answerNext(BoxAnswer::No);
    cZdroje edited = source(rowType());
    const std::string before = edited.LineSource();
    QVERIFY(!edit(edited, [](QDialog& editor) {
        setText(editor, "txtNazevZdroje", QStringLiteral("Jiná"));
        escape(editor);
        QVERIFY(!editor.isVisible());
    }));
    QCOMPARE(edited.LineSource(), before);
    QVERIFY(!harness().set().modified());
}

void EditorEscapeTest::cancelGoesOnWithEverythingTyped()
{
    harness().boxes.answerNext(BoxAnswer::Cancel);
    cZdroje edited = source(cLiniovyZdroj);
    QVERIFY(edit(edited, [](QDialog& editor) {
        setText(editor, "txtNazevZdroje", QStringLiteral("Jiná"));
        escape(editor);
        QVERIFY(editor.isVisible());
        QCOMPARE(field(editor, "txtNazevZdroje").text(), QStringLiteral("Jiná"));
        press(editor, "cbOK");
    }));
    QCOMPARE(QString::fromStdString(std::string(edited.NazevZdroje())), QStringLiteral("Jiná"));
}

void EditorEscapeTest::stornoAndCloseBoxAskNothing_data()
{
    QTest::addColumn<Leaving>("leaving");
    QTest::newRow("Storno") << Leaving::Storno;
    QTest::newRow("close box") << Leaving::CloseBox;
}

void EditorEscapeTest::stornoAndCloseBoxAskNothing()
{
    QFETCH(const Leaving, leaving);
    cZdroje edited = source(cBodovyZdroj);
    QVERIFY(!edit(edited, [leaving](QDialog& editor) {
        setText(editor, "txtNazevZdroje", QStringLiteral("Jiná"));
        leave(editor, leaving);
        QVERIFY(!editor.isVisible());
    }));
    QVERIFY(harness().boxes.shown().isEmpty());
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::EditorEscapeTest)

#include "editor_escape_test.moc"
