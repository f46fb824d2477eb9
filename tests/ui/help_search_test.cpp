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
    void formsOfAWordFindTheSame_data();
    void formsOfAWordFindTheSame();
    void shortWordKeepsItsEnding();
    void wordIsFoundAtTheBeginningOfAnother_data();
    void wordIsFoundAtTheBeginningOfAnother();
    void wordInsideAnotherIsNotFound();
    void allWordsMustBeOnThePage();
    void wordFindsItsPageFirst_data();
    void wordFindsItsPageFirst();
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

void HelpSearchTest::formsOfAWordFindTheSame_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("stem");
    QTest::newRow("noun") << "silnicích"
                          << "silnic";
    QTest::newRow("plural") << "komíny"
                            << "komin";
    QTest::newRow("verb") << "uložit"
                          << "uloz";
    QTest::newRow("noun of a verb") << "uložení"
                                    << "uloz";
    QTest::newRow("long ending") << "zálohování"
                                 << "zaloh";
    QTest::newRow("adjective") << "liniového"
                               << "liniov";
    QTest::newRow("no ending") << "prach"
                               << "prach";
    QTest::newRow("number") << "PM10"
                            << "pm10";
}

void HelpSearchTest::formsOfAWordFindTheSame()
{
    QFETCH(const QString, form);
    QFETCH(const QString, stem);
    QCOMPARE(foldedWords(form), QStringList(stem));
}

void HelpSearchTest::shortWordKeepsItsEnding()
{
    QCOMPARE(foldedWords(QStringLiteral("alfa p d ini")),
        QStringList({QStringLiteral("alfa"), QStringLiteral("p"), QStringLiteral("d"), QStringLiteral("ini")}));
}

/// What users were seen to look for, and the page that helps them.
void HelpSearchTest::wordFindsItsPageFirst_data()
{
    QTest::addColumn<QString>("page");
    const std::pair<const char*, const char*> wanted[] = {{"záloha", "bezpecnostni_kopie"},
        {"zálohování", "bezpecnostni_kopie"}, {"obnovit", "bezpecnostni_kopie"}, {"omylem", "bezpecnostni_kopie"},
        {"vymazat", "znacky_a_seznam"}, {"smazat", "znacky_a_seznam"}, {"označit", "znacky_a_seznam"},
        {"značka", "znacky_a_seznam"}, {"značky", "znacky_a_seznam"}, {"řazení", "znacky_a_seznam"},
        {"procenta", "prach"}, {"PM10", "prach"}, {"prach", "prach"}, {"vlečka", "frmPlosnyZdroj"},
        {"skládka", "frmPlosnyZdroj"}, {"stanice", "frmOptions"}, {"možnosti", "frmOptions"},
        {"ukázka", "prvni_hodina"}, {"příklad", "prvni_hodina"}, {"export", "prikazovy_radek"},
        {"csv", "prikazovy_radek"}, {"S-JTSK", "slovnicek"}, {"souřadnice", "slovnicek"}, {"komín", "frmBodovyZdroj"},
        {"kominy", "frmBodovyZdroj"}, {"silnice", "frmLiniovyZdroj"}, {"silnic", "frmLiniovyZdroj"},
        {"uložit", "ukladani"}, {"uložení", "ukladani"}, {"klávesové zkratky", "klavesy"}, {"zkratky", "klavesy"},
        {"otevřít", "frmLoadZdroje"}, {"otevření", "frmLoadZdroje"}, {"import", "frmLoadZdroje"},
        {"přidat", "frmKORVEXZDR"}, {"nový zdroj", "frmKORVEXZDR"}, {"duplicity", "duplicity"},
        {"kontrola soupisu", "kontrola_soupisu"}, {"tlak", "frmTlak"}, {"skupiny prachu", "frmSkupinyPrachu"},
        {"vzorec", "vypocty"}, {"hlášení", "hlaseni"}, {"kódování", "soubory"}, {"tuny", "slovnicek"},
        {"emise t/rok", "slovnicek"}, {"vrátit zpět", "bezpecnostni_kopie"}, {"Excel", "kontrola_soupisu"},
        {"tisk", "kontrola_soupisu"}, {"přečíslovat", "duplicity"}, {"změnit číslo", "duplicity"},
        {"změna čísla", "duplicity"}};
    for (const auto& [word, page] : wanted)
        QTest::newRow(word) << QString::fromLatin1(page);
}

void HelpSearchTest::wordFindsItsPageFirst()
{
    QFETCH(const QString, page);
    const QStringList found = pages(find(QString::fromUtf8(QTest::currentDataTag())));
    QVERIFY2(!found.isEmpty() && found.first() == page, qPrintable(found.join(QLatin1Char(' '))));
}

void HelpSearchTest::wordIsFoundAtTheBeginningOfAnother_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("place");
    QTest::newRow("first") << "tisk"
                           << "tiskarna" << 0;
    QTest::newRow("behind a blank") << "tisk"
                                    << "stisk a tisk" << 8;
    QTest::newRow("behind a hyphen") << "jtsk"
                                     << "s-jtsk" << 2;
    QTest::newRow("inside") << "tisk"
                            << "stisknete" << -1;
    QTest::newRow("behind a digit") << "1"
                                    << "11 101" << 0;
    QTest::newRow("a sign counts everywhere") << "%"
                                              << "45%" << 2;
    QTest::newRow("nowhere") << "tisk"
                             << "" << -1;
}

void HelpSearchTest::wordIsFoundAtTheBeginningOfAnother()
{
    QFETCH(const QString, word);
    QFETCH(const QString, text);
    QFETCH(const int, place);
    QCOMPARE(beginningOf(word, text), static_cast<qsizetype>(place));
    QCOMPARE(wordsIn(text, {word}), static_cast<qsizetype>(place >= 0 ? 1 : 0));
}

void HelpSearchTest::wordInsideAnotherIsNotFound()
{
    QVERIFY(helpText(QStringLiteral("prvni_hodina")).blocks.join(QLatin1Char(' ')).contains(QStringLiteral("tiskn")));
    QVERIFY(!pages(find(QStringLiteral("tisk"))).contains(QStringLiteral("prvni_hodina")));
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
