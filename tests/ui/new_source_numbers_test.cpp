// The automatic numbers of new sources: where they begin, their limit, and the number typed behind it.
#include "source_editor_test.h"

namespace korvex {
namespace {

QString limitMessage()
{
    return describe({QStringLiteral("Nový zdroj"),
        QStringLiteral("Automaticky přidělované číslo zdroje nemůže být větší než 99999.\n"
                       "Zkuste upravit hodnotu v 'Možnosti/Obecné/Počáteční hodnota …"),
        BoxIcon::Exclamation, BoxButtons::Ok, {}});
}

/// Behind the last number that is handed out.
constexpr int spent = SourceNumberCounter::limit + 1;

}  // namespace

class NewSourceNumbersTest : public SourceEditorTest {
    Q_OBJECT

private slots:
    void numbersBeginBehindTheStartValue_data();
    void numbersBeginBehindTheStartValue();
    void numberOfACancelledSourceIsGivenOnceMore_data();
    void numberOfACancelledSourceIsGivenOnceMore();
    void numbersAreSharedByAllTypes();
    void numbersDoNotFollowThoseOfTheInventory();
    void numbersBeginAnewWhenTheSetIsEmpty();

    void highestNumberIsOneAboveTheLimit();
    void limitMessageComesBeforeTheEditor_data() { addAllTypes(); }
    void limitMessageComesBeforeTheEditor();
    void numberCanBeTypedOnlyWhenThereWasNone();
    void typedNumberIsTakenOverWithTheTypedName_data();
    void typedNumberIsTakenOverWithTheTypedName();
    void typedNumberIsReadLeniently_data();
    void typedNumberIsReadLeniently();
    void typedNumberOutOfRangeKeepsTheEditorOpen();
    void sourceWithoutATypedNumberKeepsMinusOne();
    void takenSourceWithoutANumberLeavesTheCounter();
    void cancelGivesBackAlsoWhenThereWasNoNumber();
    void cancelInAnEmptySetBeginsAnewAlsoBehindTheLimit();
    void twoSourcesWithOneNumberAreLet();

private:
    /// With a source in the set: in an empty one the numbers begin anew.
    void spendNumbers()
    {
        harness().fillWithNumbers({1});
        harness().window().sourceNumbers().reset(spent);
    }
    void startValue(const char* text)
    {
        harness().settings.save(QStringLiteral("Ostatni"), QStringLiteral("MinNewID"), QLatin1String(text));
    }
    [[nodiscard]] int lastGiven() { return harness().window().sourceNumbers().last(); }
    [[nodiscard]] int boxesShown() { return static_cast<int>(harness().boxes.shown().size()); }
    /// Of the sources in the set.
    [[nodiscard]] QStringList numbers()
    {
        QStringList found;
        for (std::size_t position = 1; position <= harness().set().size(); ++position)
            found << QString::number(harness().set().at(position).ICZ());
        return found;
    }
};

void NewSourceNumbersTest::numbersBeginBehindTheStartValue_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("default") << QByteArray() << QStringList({QStringLiteral("50001"), QStringLiteral("50002")});
    QTest::newRow("100") << QByteArray("100") << QStringList({QStringLiteral("101"), QStringLiteral("102")});
}

void NewSourceNumbersTest::numbersBeginBehindTheStartValue()
{
    QFETCH(const QByteArray, start);
    QFETCH(const QStringList, expected);
    if (!start.isEmpty())
        startValue(start.constData());
    makeAndConfirm();
    makeAndConfirm();
    QCOMPARE(numbers(), expected);
}

void NewSourceNumbersTest::numberOfACancelledSourceIsGivenOnceMore_data()
{
    addWaysToLeave(false);
}

void NewSourceNumbersTest::numberOfACancelledSourceIsGivenOnceMore()
{
    QFETCH(const Leaving, leaving);
    makeAndConfirm();
    make(cPlosnyZdroj, [leaving](QDialog& editor) {
        QCOMPARE(field(editor, "txtCisloZdroje").text(), QStringLiteral("50002"));
        leave(editor, leaving);
    });
    makeAndConfirm();
    QCOMPARE(numbers(), QStringList({QStringLiteral("50001"), QStringLiteral("50002")}));
}

void NewSourceNumbersTest::numbersAreSharedByAllTypes()
{
    for (const SourceType* const type : {&cBodovyZdroj, &cPlosnyZdroj, &cLiniovyZdroj})
        makeAndConfirm(*type);
    QCOMPARE(harness().nameColumn(),
        QStringList({QStringLiteral("Bodový zdroj 50001"), QStringLiteral("Plošný zdroj 50002"),
            QStringLiteral("Liniový zdroj 50003")}));
}

void NewSourceNumbersTest::numbersDoNotFollowThoseOfTheInventory()
{
    harness().fillWithNumbers({60000, 50001});
    makeAndConfirm();
    QCOMPARE(harness().set().last().ICZ(), 50001);
}

void NewSourceNumbersTest::numbersBeginAnewWhenTheSetIsEmpty()
{
    makeAndConfirm();
    makeAndConfirm();
    harness().boxes.answerNext(BoxAnswer::Yes);
    harness().item("mnuVZrus").trigger();
    makeAndConfirm();
    QCOMPARE(numbers(), QStringList{QStringLiteral("50001")});
}

void NewSourceNumbersTest::highestNumberIsOneAboveTheLimit()
{
    harness().fillWithNumbers({1});
    harness().window().sourceNumbers().reset(99999);
    makeAndConfirm();
    QCOMPARE(harness().set().last().ICZ(), 100000);
    QVERIFY(harness().boxes.shown().isEmpty());
}

void NewSourceNumbersTest::limitMessageComesBeforeTheEditor()
{
    spendNumbers();
    bool isEditorOpen = true;
    harness().boxes.answerNext(BoxAnswer::Ok, [this, &isEditorOpen] {
        isEditorOpen = harness().window().findChild<QDialog*>(editorName(rowType())) != nullptr;
    });
    make(rowType(), [](QDialog& editor) {
        QCOMPARE(field(editor, "txtCisloZdroje").text(), QStringLiteral("-00001"));
        QCOMPARE(field(editor, "txtNazevZdroje").text(),
            QString::fromUtf8(rowType().TypZdroje.data(), static_cast<qsizetype>(rowType().TypZdroje.size()))
                + QStringLiteral(" -1"));
        press(editor, "cbStorno");
    });
    QVERIFY(!isEditorOpen);
    QCOMPARE(boxesShown(), 1);
    QCOMPARE(describe(harness().boxes.shown().first()), limitMessage());
}

void NewSourceNumbersTest::numberCanBeTypedOnlyWhenThereWasNone()
{
    const auto typed = [this] {
        QString text;
        make(cPlosnyZdroj, [&text](QDialog& editor) {
            QLineEdit& number = field(editor, "txtCisloZdroje");
            number.selectAll();
            QTest::keyClicks(&number, QStringLiteral("77"));
            text = number.text();
            press(editor, "cbStorno");
        });
        return text;
    };
    QCOMPARE(typed(), QStringLiteral("50001"));
    spendNumbers();
    harness().boxes.answerNext(BoxAnswer::Ok);
    QCOMPARE(typed(), QStringLiteral("77"));
}

void NewSourceNumbersTest::typedNumberIsTakenOverWithTheTypedName_data()
{
    QTest::addColumn<int>("typeId");
    QTest::addColumn<QString>("name");
    QTest::newRow("stack") << cBodovyZdroj.TypZdrojeId << QStringLiteral("Kotelna Řčšž");
    QTest::newRow("area") << cPlosnyZdroj.TypZdrojeId << QStringLiteral("Skládka");
    QTest::newRow("line") << cLiniovyZdroj.TypZdrojeId << QStringLiteral("Silnice");
    QTest::newRow("name left as it was") << cLiniovyZdroj.TypZdrojeId << QStringLiteral("Liniový zdroj -1");
    QTest::newRow("no name") << cPlosnyZdroj.TypZdrojeId << QString();
    QTest::newRow("blanks around") << cPlosnyZdroj.TypZdrojeId << QStringLiteral("  Skládka 2 ");
    QTest::newRow("comma") << cPlosnyZdroj.TypZdrojeId << QStringLiteral("5, sklad, 1");
    QTest::newRow("semicolon") << cPlosnyZdroj.TypZdrojeId << QStringLiteral("sklad; dvůr");
}

void NewSourceNumbersTest::typedNumberIsTakenOverWithTheTypedName()
{
    QFETCH(const QString, name);
    spendNumbers();
    harness().boxes.answerNext(BoxAnswer::Ok);
    make(rowType(), [&name](QDialog& editor) {
        const std::pair<const char*, const char*> texts[]{{"txtCisloZdroje", "77"}, {"txtX", "-12345678"},
            {"txtY", "2147483647"}, {"txtZ", "12345"}, {"txtSkupina", "8"}, {"txtShluk", "9"}, {"tPar4", "2.5"}};
        for (const auto& [field, text] : texts)
            setText(editor, field, QString::fromLatin1(text));
        setText(editor, "txtNazevZdroje", name);
        press(editor, "cbOK");
    });
    const cZdroje& source = harness().set().last();
    QCOMPARE(source.ICZ(), 77);
    QCOMPARE(QString::fromStdString(std::string(source.NazevZdroje())), name);
    QCOMPARE(QString::fromStdString(source.LineSource()),
        QStringLiteral("000000077, -12345678, 2147483647, 12345, %1, 8, 9 ;%2").arg(rowType().TypZdrojeId).arg(name));
    QVERIFY(source.LineParameters().starts_with("000000077, "));
    QVERIFY(source.LineDust().starts_with("000000077"));
    QCOMPARE(harness().numberColumn().last(), QStringLiteral("000000077"));
    QCOMPARE(harness().nameColumn().last(), name);
}

void NewSourceNumbersTest::typedNumberIsReadLeniently_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::newRow("nothing") << QString() << 0;
    QTest::newRow("no number") << QStringLiteral("abc") << 0;
    QTest::newRow("number in front") << QStringLiteral("77abc") << 77;
    QTest::newRow("padded") << QStringLiteral("00077") << 77;
    QTest::newRow("negative") << QStringLiteral("-5") << -5;
    QTest::newRow("half to even") << QStringLiteral("2.5") << 2;
    QTest::newRow("above the limit") << QStringLiteral("123456789") << 123456789;
}

void NewSourceNumbersTest::typedNumberIsReadLeniently()
{
    QFETCH(const QString, text);
    QFETCH(const int, number);
    spendNumbers();
    harness().boxes.answerNext(BoxAnswer::Ok);
    make(cPlosnyZdroj, [&text](QDialog& editor) {
        setText(editor, "txtCisloZdroje", text);
        press(editor, "cbOK");
    });
    QCOMPARE(harness().set().last().ICZ(), number);
    QCOMPARE(boxesShown(), 1);
}

void NewSourceNumbersTest::typedNumberOutOfRangeKeepsTheEditorOpen()
{
    spendNumbers();
    harness().boxes.answerNext(BoxAnswer::Ok);
    harness().boxes.answerNext(BoxAnswer::Ok);
    make(cPlosnyZdroj, [this](QDialog& editor) {
        setText(editor, "txtCisloZdroje", QStringLiteral("2147483648"));
        press(editor, "cbOK");
        QVERIFY(editor.isVisible());
        QVERIFY(isOutOfRange(harness().boxes.shown().last()));
        setText(editor, "txtCisloZdroje", QStringLiteral("2147483647"));
        press(editor, "cbOK");
    });
    QCOMPARE(numbers(), QStringList({QStringLiteral("1"), QStringLiteral("2147483647")}));
}

void NewSourceNumbersTest::sourceWithoutATypedNumberKeepsMinusOne()
{
    spendNumbers();
    harness().boxes.answerNext(BoxAnswer::Ok);
    makeAndConfirm(cBodovyZdroj);
    QCOMPARE(numbers(), QStringList({QStringLiteral("1"), QStringLiteral("-1")}));
    QCOMPARE(harness().nameColumn().last(), QStringLiteral("Bodový zdroj -1"));
}

void NewSourceNumbersTest::takenSourceWithoutANumberLeavesTheCounter()
{
    spendNumbers();
    for (int attempt = 1; attempt <= 2; ++attempt) {
        harness().boxes.answerNext(BoxAnswer::Ok);
        makeAndConfirm();
        QCOMPARE(boxesShown(), attempt);
        QCOMPARE(lastGiven(), 100000);
    }
}

// The last number is then given a second time.
void NewSourceNumbersTest::cancelGivesBackAlsoWhenThereWasNoNumber()
{
    harness().fillWithNumbers({1});
    harness().window().sourceNumbers().reset(99999);
    makeAndConfirm();
    harness().boxes.answerNext(BoxAnswer::Ok);
    makeAndCancel();
    QCOMPARE(lastGiven(), 99999);
    makeAndConfirm();
    QCOMPARE(boxesShown(), 1);
    QCOMPARE(numbers(), QStringList({QStringLiteral("1"), QStringLiteral("100000"), QStringLiteral("100000")}));
}

void NewSourceNumbersTest::cancelInAnEmptySetBeginsAnewAlsoBehindTheLimit()
{
    startValue("100000");
    for (int attempt = 1; attempt <= 2; ++attempt) {
        harness().boxes.answerNext(BoxAnswer::Ok);
        makeAndCancel();
        QCOMPARE(boxesShown(), attempt);
        QCOMPARE(lastGiven(), 100000);
    }
}

// The duplicate check is what finds them.
void NewSourceNumbersTest::twoSourcesWithOneNumberAreLet()
{
    harness().fillWithNumbers({50001});
    makeAndConfirm(cBodovyZdroj);
    QCOMPARE(numbers(), QStringList({QStringLiteral("50001"), QStringLiteral("50001")}));
    QVERIFY(harness().boxes.shown().isEmpty());
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::NewSourceNumbersTest)

#include "new_source_numbers_test.moc"
