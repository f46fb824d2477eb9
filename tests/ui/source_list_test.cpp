// The list of sources: its rows, their icons and tags, and the sorting by a click on the header.
#include "window_harness.h"

#include <QHeaderView>
#include <QIcon>
#include <QLocale>
#include <QPixmap>
#include <QSignalSpy>

namespace korvex {
namespace {

/// A locale for one test; the one before comes back.
class DefaultLocale {
public:
    explicit DefaultLocale(const QLocale& locale) { QLocale::setDefault(locale); }
    DefaultLocale(const DefaultLocale&) = delete;
    DefaultLocale& operator=(const DefaultLocale&) = delete;
    ~DefaultLocale() { QLocale::setDefault(m_before); }

private:
    QLocale m_before;
};

}  // namespace

class SourceListTest : public ShellTest {
    Q_OBJECT

private slots:
    void numberColumnHasNineDigits_data();
    void numberColumnHasNineDigits();
    void nameColumnShowsTheNameAsItStands();
    void iconFollowsTheType();
    void accessibleTextOfARowTellsItsType();
    void tagIsThePositionWhenTheRowWasAdded();
    void addedRowIsLastAndMarkedWhenAsked();
    void changedNameIsShownInItsRowAlone();

    void headerClickSortsAscendingAndTheNextOneReverses();
    void headerClickOnTheOtherColumnStartsAscending();
    void headerClickSortsNumbersByTheirText();
    void sortingShowsItsArrow();
    void sortingKeepsTagsAndMarks();
    void rowsThatAreEqualKeepTheirOrder();
    void namesSortInCzechOrderUnderAnyLocale_data();
    void namesSortInCzechOrderUnderAnyLocale();

private:
    void showNumbers(const QList<int>& numbers);
};

void SourceListTest::showNumbers(const QList<int>& numbers)
{
    harness().fillWithNumbers(numbers);
    harness().show();
}

void SourceListTest::numberColumnHasNineDigits_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("fifty thousand and one") << 50001 << QStringLiteral("000050001");
    QTest::newRow("zero") << 0 << QStringLiteral("000000000");
    QTest::newRow("nine digits") << 123456789 << QStringLiteral("123456789");
    QTest::newRow("ten digits") << 2147483647 << QStringLiteral("2147483647");
    QTest::newRow("minus one") << -1 << QStringLiteral("-000000001");
}

void SourceListTest::numberColumnHasNineDigits()
{
    QFETCH(const int, number);
    QFETCH(const QString, text);
    harness().fillWithNumbers({number});
    QCOMPARE(harness().numberColumn(), QStringList{text});
}

void SourceListTest::nameColumnShowsTheNameAsItStands()
{
    harness().fillWithNames({QStringLiteral("Kotelna, sever "), QStringLiteral(" Žďár"), QString()});
    QCOMPARE(
        harness().nameColumn(), QStringList({QStringLiteral("Kotelna, sever "), QStringLiteral(" Žďár"), QString()}));
}

void SourceListTest::iconFollowsTheType()
{
    harness().append(cBodovyZdroj, 1);
    harness().append(cPlosnyZdroj, 2);
    harness().append(cLiniovyZdroj, 3);
    harness().window().refill();
    const QStringList files{
        QStringLiteral("bodovy_zdroj"), QStringLiteral("plosny_zdroj"), QStringLiteral("liniovy_zdroj")};
    for (int row = 0; row < files.size(); ++row) {
        const QVariant icon = harness().model().index(row, SourceListModel::NumberColumn).data(Qt::DecorationRole);
        const QPixmap expected(QStringLiteral(":/icons/%1-16.png").arg(files.at(row)));
        QVERIFY2(!expected.isNull(), qPrintable(files.at(row)));
        QCOMPARE(icon.value<QIcon>().pixmap(QSize(16, 16), 1.0).toImage(), expected.toImage());
        QVERIFY(!harness().model().index(row, SourceListModel::NameColumn).data(Qt::DecorationRole).isValid());
    }
}

void SourceListTest::accessibleTextOfARowTellsItsType()
{
    harness().append(cBodovyZdroj, 1);
    harness().append(cPlosnyZdroj, 2);
    harness().append(cLiniovyZdroj, 3);
    harness().window().refill();
    const auto text = [this](int row) {
        return harness().model().index(row, SourceListModel::NumberColumn).data(Qt::AccessibleTextRole).toString();
    };
    QCOMPARE(text(0), QStringLiteral("Bodový zdroj, 000000001"));
    QCOMPARE(text(1), QStringLiteral("Plošný zdroj, 000000002"));
    QCOMPARE(text(2), QStringLiteral("Liniový zdroj, 000000003"));
}

void SourceListTest::tagIsThePositionWhenTheRowWasAdded()
{
    harness().fillWithNumbers({30, 10, 20});
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    QCOMPARE(harness().model().tag(0), std::size_t{2});
    QCOMPARE(harness().model().tag(1), std::size_t{3});
    QCOMPARE(harness().model().tag(2), std::size_t{1});
    QCOMPARE(harness().model().sourceAt(0).ICZ(), 10);
}

void SourceListTest::addedRowIsLastAndMarkedWhenAsked()
{
    harness().fillWithNumbers({30, 10});
    harness().model().sortByHeader(SourceListModel::NumberColumn);
    harness().append(cLiniovyZdroj, 20);
    harness().model().addRow(true);
    harness().append(cLiniovyZdroj, 5);
    harness().model().addRow(false);
    QCOMPARE(harness().numberColumn(),
        QStringList({QStringLiteral("000000010"), QStringLiteral("000000030"), QStringLiteral("000000020"),
            QStringLiteral("000000005")}));
    QCOMPARE(harness().marks(), QStringLiteral("--X-"));
    QCOMPARE(harness().model().tag(2), std::size_t{3});
    QCOMPARE(harness().model().tag(3), std::size_t{4});
}

void SourceListTest::changedNameIsShownInItsRowAlone()
{
    harness().fillWithNames({QStringLiteral("a"), QStringLiteral("b")});
    const QSignalSpy changes(&harness().model(), &QAbstractItemModel::dataChanged);
    harness().model().sourceAt(1).LineSource("000000002, 0, 0, 0, 1, 0, 0 ;c");
    harness().model().nameChanged(1);
    QCOMPARE(harness().nameColumn(), QStringList({QStringLiteral("a"), QStringLiteral("c")}));
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.at(0).at(0).toModelIndex(), harness().model().index(1, SourceListModel::NameColumn));
    QCOMPARE(changes.at(0).at(1).toModelIndex(), harness().model().index(1, SourceListModel::NameColumn));
}

void SourceListTest::headerClickSortsAscendingAndTheNextOneReverses()
{
    showNumbers({3, 1, 2});
    const QStringList ascending{QStringLiteral("000000001"), QStringLiteral("000000002"), QStringLiteral("000000003")};
    const QStringList descending{QStringLiteral("000000003"), QStringLiteral("000000002"), QStringLiteral("000000001")};
    harness().clickHeader(SourceListModel::NumberColumn);
    QCOMPARE(harness().numberColumn(), ascending);
    harness().clickHeader(SourceListModel::NumberColumn);
    QCOMPARE(harness().numberColumn(), descending);
    harness().clickHeader(SourceListModel::NumberColumn);
    QCOMPARE(harness().numberColumn(), ascending);
}

void SourceListTest::headerClickOnTheOtherColumnStartsAscending()
{
    harness().fillWithNames({QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("a")});
    harness().show();
    harness().clickHeader(SourceListModel::NumberColumn);
    harness().clickHeader(SourceListModel::NumberColumn);
    harness().clickHeader(SourceListModel::NameColumn);
    QCOMPARE(harness().nameColumn(), QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    harness().clickHeader(SourceListModel::NameColumn);
    QCOMPARE(harness().nameColumn(), QStringList({QStringLiteral("c"), QStringLiteral("b"), QStringLiteral("a")}));
    harness().clickHeader(SourceListModel::NumberColumn);
    QCOMPARE(harness().nameColumn(), QStringList({QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("a")}));
}

void SourceListTest::headerClickSortsNumbersByTheirText()
{
    showNumbers({1000000000, 999999999, -2, 5, -1});
    harness().clickHeader(SourceListModel::NumberColumn);
    QCOMPARE(harness().numberColumn(),
        QStringList({QStringLiteral("-000000001"), QStringLiteral("-000000002"), QStringLiteral("000000005"),
            QStringLiteral("1000000000"), QStringLiteral("999999999")}));
}

void SourceListTest::sortingShowsItsArrow()
{
    showNumbers({2, 1});
    QVERIFY(!harness().header().isSortIndicatorShown());
    harness().clickHeader(SourceListModel::NameColumn);
    QVERIFY(harness().header().isSortIndicatorShown());
    QCOMPARE(harness().header().sortIndicatorSection(), 1);
    QCOMPARE(harness().header().sortIndicatorOrder(), Qt::AscendingOrder);
    harness().clickHeader(SourceListModel::NameColumn);
    QCOMPARE(harness().header().sortIndicatorOrder(), Qt::DescendingOrder);
}

void SourceListTest::sortingKeepsTagsAndMarks()
{
    showNumbers({3, 1, 2});
    harness().mark(QStringLiteral("X--"));
    harness().clickHeader(SourceListModel::NumberColumn);
    QCOMPARE(harness().marks(), QStringLiteral("--X"));
    QCOMPARE(harness().model().tag(2), std::size_t{1});
}

void SourceListTest::rowsThatAreEqualKeepTheirOrder()
{
    harness().append(cBodovyZdroj, 5, QStringLiteral("prvni"));
    harness().append(cPlosnyZdroj, 5, QStringLiteral("druhy"));
    harness().append(cLiniovyZdroj, 5, QStringLiteral("treti"));
    harness().window().refill();
    harness().show();
    const QStringList names{QStringLiteral("prvni"), QStringLiteral("druhy"), QStringLiteral("treti")};
    harness().clickHeader(SourceListModel::NumberColumn);
    QCOMPARE(harness().nameColumn(), names);
    harness().clickHeader(SourceListModel::NumberColumn);
    QCOMPARE(harness().nameColumn(), names);
}

void SourceListTest::namesSortInCzechOrderUnderAnyLocale_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::newRow("C") << QLocale::c();
    QTest::newRow("English") << QLocale(QLocale::English);
    QTest::newRow("Czech") << QLocale(QLocale::Czech);
    QTest::newRow("Swedish") << QLocale(QLocale::Swedish);
}

void SourceListTest::namesSortInCzechOrderUnderAnyLocale()
{
    QFETCH(const QLocale, locale);
    const DefaultLocale guard(locale);
    harness().fillWithNames(
        {QStringLiteral("chata"), QStringLiteral("Žďár"), QStringLiteral("Čáslav"), QStringLiteral("zámek"),
            QStringLiteral("hora"), QStringLiteral("cihelna"), QStringLiteral("Šumava"), QStringLiteral("ihned"),
            QStringLiteral("sever"), QStringLiteral("Řepy"), QStringLiteral("rada"), QStringLiteral("dub")});
    harness().show();
    harness().clickHeader(SourceListModel::NameColumn);
    QCOMPARE(harness().nameColumn(),
        QStringList({QStringLiteral("cihelna"), QStringLiteral("Čáslav"), QStringLiteral("dub"), QStringLiteral("hora"),
            QStringLiteral("chata"), QStringLiteral("ihned"), QStringLiteral("rada"), QStringLiteral("Řepy"),
            QStringLiteral("sever"), QStringLiteral("Šumava"), QStringLiteral("zámek"), QStringLiteral("Žďár")}));
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::SourceListTest)

#include "source_list_test.moc"
