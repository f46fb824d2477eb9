// The Czech order of texts: told apart and ranked as the toolkit's collator does it, for any texts.
#include "name_order.h"

#include "window_harness.h"

#include <QCollator>
#include <QLocale>

#include <algorithm>
#include <random>

namespace korvex {
namespace {

std::vector<std::int64_t> ranksOf(const QStringList& texts)
{
    return czechRanks(static_cast<std::size_t>(texts.size()),
        [&texts](std::size_t index) { return texts.at(static_cast<qsizetype>(index)); });
}

/// The texts put into order by their ranks.
QStringList sorted(const QStringList& texts)
{
    const std::vector<std::int64_t> ranks = ranksOf(texts);
    QStringList out;
    for (std::int64_t rank = 0; out.size() < texts.size(); ++rank) {
        for (qsizetype i = 0; i < texts.size(); ++i) {
            if (ranks[static_cast<std::size_t>(i)] == rank)
                out << texts[i];
        }
    }
    return out;
}

}  // namespace

class NameOrderTest : public ShellTest {
    Q_OBJECT

private slots:
    void lettersOfTheCzechAlphabet();
    void equalTextsHaveOneRank();
    void noTexts();
    void anyTextsAsTheToolkitOrdersThem();
    void longTextsThatBeginAlike();
};

void NameOrderTest::lettersOfTheCzechAlphabet()
{
    const QStringList order{QStringLiteral("cihelna"), QStringLiteral("Čáslav"), QStringLiteral("hora"),
        QStringLiteral("chata"), QStringLiteral("Ivančice"), QStringLiteral("rak"), QStringLiteral("řeka"),
        QStringLiteral("sad"), QStringLiteral("šachta"), QStringLiteral("zámek"), QStringLiteral("Žatec")};
    QStringList shuffled = order;
    std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(1));
    QVERIFY(shuffled != order);
    QCOMPARE(sorted(shuffled), order);
}

void NameOrderTest::equalTextsHaveOneRank()
{
    QCOMPARE(ranksOf({QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("b"), QString(), QString()}),
        std::vector<std::int64_t>({2, 1, 2, 0, 0}));
}

void NameOrderTest::noTexts()
{
    QVERIFY(ranksOf({}).empty());
}

void NameOrderTest::anyTextsAsTheToolkitOrdersThem()
{
    std::mt19937 random(7);
    const auto below = [&random](unsigned limit) { return static_cast<qsizetype>(random() % limit); };
    const QString letters
        = QStringLiteral("aáAÁbcčCČdďeéěfghHchCHiíjklmnňoópqrřŘsšŠtťuúůvwxyýzžŽ 0123456789-.,;/()ß…µ");
    QStringList texts;
    for (int i = 0; i < 3000; ++i) {
        QString text = QStringLiteral("Kotelna na dřevní štěpku ").left(below(26));
        for (qsizetype length = below(12); length > 0; --length)
            text += letters.at(below(static_cast<unsigned>(letters.size())));
        texts << text;
    }
    const QCollator toolkit(QLocale(QLocale::Czech, QLocale::CzechRepublic));
    const std::vector<std::int64_t> ranks = ranksOf(texts);
    int equal = 0;
    for (int i = 0; i < 200'000; ++i) {
        const qsizetype a = below(3000);
        const qsizetype b = below(3000);
        const int expected = toolkit.compare(texts[a], texts[b]);
        const std::int64_t difference = ranks[static_cast<std::size_t>(a)] - ranks[static_cast<std::size_t>(b)];
        if (expected == 0)
            ++equal;
        QVERIFY2((expected < 0) == (difference < 0) && (expected > 0) == (difference > 0),
            qPrintable(texts[a] + QStringLiteral(" | ") + texts[b]));
    }
    QVERIFY(equal > 0);
}

/// Deeper than the parts of the keys that are compared at once; one text is the beginning of another.
void NameOrderTest::longTextsThatBeginAlike()
{
    const QString beginning(1'000'000, QLatin1Char('a'));
    QCOMPARE(ranksOf({beginning + QLatin1Char('c'), beginning, beginning + QLatin1Char('b'), beginning}),
        std::vector<std::int64_t>({2, 0, 1, 0}));
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::NameOrderTest)

#include "name_order_test.moc"
