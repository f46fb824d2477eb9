// The search of the help: what a question finds, and in which order.
#include "help_pages.h"
#include "help_search.h"

#include <QTest>

#include <algorithm>

namespace korvex {

class HelpSearchTest : public QObject {
    Q_OBJECT

private slots:
    void foldingDropsCaseAndMarksAndKeepsPlaces_data();
    void foldingDropsCaseAndMarksAndKeepsPlaces();
    void questionIsSplitIntoWordsEachOnce();
    void typedMarksOfTheirOwnCountAsLetters();
    void marksAndCaseDoNotMatter_data();
    void marksAndCaseDoNotMatter();
    void allWordsMustBeOnThePage();
    void wordsInTheTitleComeFirst();
    void wordsInOneBlockComeBeforeWordsFarApart();
    void contextHoldsAFoundWord_data();
    void contextHoldsAFoundWord();
    void nothingIsFoundForNoWordAndForAStrangeOne();
    void contentsPageIsNotFound();
    void everyPageIsFoundByItsTitle();

private:
    [[nodiscard]] static QStringList pages(const QList<HelpHit>& hits)
    {
        QStringList names;
        for (const HelpHit& hit : hits)
            names.append(hit.page);
        return names;
    }
    [[nodiscard]] QList<HelpHit> find(const QString& question) const { return m_index.find(foldedWords(question)); }

    HelpIndex m_index;
};

void HelpSearchTest::foldingDropsCaseAndMarksAndKeepsPlaces_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("all letters") << "příliš ŽLUŤOUČKÝ kůň úpěl ďábelské ódy"
                                 << "prilis zlutoucky kun upel dabelske ody";
    QTest::newRow("two marks") << "ǖ"
                               << "u";
    QTest::newRow("fixed blank and line end") << "v\u00a0okně\nx"
                                              << "v okne x";
    QTest::newRow("others stay") << "µ 3² €—"
                                 << "\u03bc 3² €—";
    QTest::newRow("none") << ""
                          << "";
}

void HelpSearchTest::foldingDropsCaseAndMarksAndKeepsPlaces()
{
    QFETCH(const QString, text);
    QTEST(foldedText(text), "expected");
    QCOMPARE(foldedText(text).size(), text.size());
}

void HelpSearchTest::questionIsSplitIntoWordsEachOnce()
{
    QCOMPARE(foldedWords(QStringLiteral("  Komín  prach KOMIN ")),
        QStringList({QStringLiteral("komin"), QStringLiteral("prach")}));
    QCOMPARE(foldedWords(QStringLiteral(" \u00a0 ")), QStringList());
}

void HelpSearchTest::typedMarksOfTheirOwnCountAsLetters()
{
    QCOMPARE(foldedWords(QStringLiteral("komi\u0301n")), QStringList(QStringLiteral("komin")));
}

void HelpSearchTest::marksAndCaseDoNotMatter_data()
{
    QTest::addColumn<QString>("question");
    for (const char* const question : {"komín", "komin", "KOMIN", "KoMíN"})
        QTest::newRow(question) << QString::fromUtf8(question);
}

void HelpSearchTest::marksAndCaseDoNotMatter()
{
    QFETCH(const QString, question);
    const QStringList found = pages(find(question));
    QVERIFY(found.contains(QStringLiteral("frmBodovyZdroj")));
    QCOMPARE(found, pages(find(QStringLiteral("komín"))));
}

void HelpSearchTest::allWordsMustBeOnThePage()
{
    const QStringList both = pages(find(QStringLiteral("komin rychlost")));
    QVERIFY(!both.isEmpty());
    const QStringList one = pages(find(QStringLiteral("komin")));
    const QStringList other = pages(find(QStringLiteral("rychlost")));
    QVERIFY(both.size() < one.size());
    for (const QString& page : one)
        QCOMPARE(both.contains(page), other.contains(page));
}

void HelpSearchTest::wordsInTheTitleComeFirst()
{
    QCOMPARE(find(QStringLiteral("klavesy")).first().page, QStringLiteral("klavesy"));
    QCOMPARE(find(QStringLiteral("zdroj liniovy")).first().page, QStringLiteral("frmLiniovyZdroj"));
    QCOMPARE(find(QStringLiteral("tlaku nastaveni")).first().page, QStringLiteral("frmTlak"));
}

void HelpSearchTest::wordsInOneBlockComeBeforeWordsFarApart()
{
    const QString question = QStringLiteral("duplicit souradnice");
    const QStringList words = foldedWords(question);
    bool apart = false;
    bool sawBoth = false;
    for (const HelpHit& hit : find(question)) {
        if (foldedText(hit.title).contains(words.at(0)) && foldedText(hit.title).contains(words.at(1)))
            continue;
        bool inOneBlock = false;
        for (const QString& block : helpText(hit.page).blocks)
            inOneBlock
                = inOneBlock || (foldedText(block).contains(words.at(0)) && foldedText(block).contains(words.at(1)));
        QVERIFY2(!(apart && inOneBlock), qPrintable(hit.page));
        sawBoth = sawBoth || (inOneBlock && !apart);
        apart = apart || !inOneBlock;
    }
    QVERIFY(sawBoth);
    QVERIFY(apart);
}

void HelpSearchTest::contextHoldsAFoundWord_data()
{
    QTest::addColumn<QString>("question");
    for (const char* const question : {"komin", "duplicit zdroju", "windows-1250", "p", "středník název"})
        QTest::newRow(question) << QString::fromUtf8(question);
}

void HelpSearchTest::contextHoldsAFoundWord()
{
    QFETCH(const QString, question);
    const QStringList words = foldedWords(question);
    const QList<HelpHit> hits = find(question);
    QVERIFY(!hits.isEmpty());
    for (const HelpHit& hit : hits) {
        QVERIFY(!hit.context.contains(QLatin1Char('\n')));
        QVERIFY2(hit.context.size() <= 112, qPrintable(hit.context));
        const QString context = foldedText(hit.context);
        QVERIFY2(std::any_of(words.begin(), words.end(), [&](const QString& word) { return context.contains(word); }),
            qPrintable(hit.page + QStringLiteral(": ") + hit.context));
    }
}

void HelpSearchTest::nothingIsFoundForNoWordAndForAStrangeOne()
{
    QVERIFY(find(QStringLiteral("  ")).isEmpty());
    QVERIFY(find(QStringLiteral("hippopotamus")).isEmpty());
    QVERIFY(find(QStringLiteral("komin hippopotamus")).isEmpty());
}

void HelpSearchTest::contentsPageIsNotFound()
{
    QVERIFY(!pages(find(QStringLiteral("zacina"))).contains(contentsHelpPage));
    QVERIFY(!pages(find(QStringLiteral("rejstrik"))).contains(contentsHelpPage));
}

void HelpSearchTest::everyPageIsFoundByItsTitle()
{
    for (const QString& name : helpPageNames()) {
        if (name != contentsHelpPage)
            QVERIFY2(pages(find(helpText(name).title)).contains(name), qPrintable(name));
    }
}

}  // namespace korvex

QTEST_GUILESS_MAIN(korvex::HelpSearchTest)
#include "help_search_test.moc"
