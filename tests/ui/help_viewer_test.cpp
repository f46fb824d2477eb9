// The window of the help: contents, page, search, ways back and forth, all of it by keyboard.
#include "colour_contrast.h"
#include "dialog_checks.h"
#include "window_harness.h"

#include "help_browser.h"
#include "help_pages.h"
#include "help_search.h"
#include "help_viewer.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSplitter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QToolButton>
#include <QTreeWidget>

#include <algorithm>
#include <cmath>
#include <memory>

namespace korvex {

class HelpViewerTest : public ShellTest {
    Q_OBJECT

private slots:
    void titleAndPage();
    void everyPageIsShown_data();
    void everyPageIsShown();
    void pageNeedsNoPictures();
    void widePictureIsMadeToFit();
    void firstPictureNeedsNoScrollingSideways();
    void numberStandsOnOneLine_data();
    void numberStandsOnOneLine();
    void backForwardAndHome_data();
    void backForwardAndHome();
    void contentsFollowThePage();
    void pageFollowsTheContents();
    void groupStaysChosenOverItsFirstPage();
    void linkIsFollowedAndAddressOutsideIsNot();
    void sectionIsScrolledTo_data();
    void sectionIsScrolledTo();
    void linkToASectionOfThePageScrolls();
    void openingEndsTheSearch();
    void pageAskedForAgainBeginsAtItsTop();
    void pageChosenInTheContentsKeepsItsPlace();
    void searchListsPagesWithALineOfContext();
    void searchFindsNothing();
    void enterOpensTheFirstHitWithItsWordsHighlighted();
    void arrowAndEnterOpenAnotherHit();
    void clickOpensAHit();
    void narrowerListBreaksItsLinesAnew();
    void highlightedWordsAreScrolledTo();
    void escapeEndsTheSearchAndThenCloses();
    void controlFGoesToTheSearch();
    void zoomKeys();
    void zoomHasLimitsAndReturns();
    void tabGoesRoundAllParts();
    void everyFocusableWidgetHasAName();
    void linksCanBeReadInEveryPalette_data();
    void linksCanBeReadInEveryPalette();
    void newPaletteRecoloursThePageInItsPlace();
    void placeAndSizeAreRemembered();
    void sizeFollowsTheFont();
    void programDoesNotWaitForIt();

private:
    struct Parts {
        explicit Parts(SettingsStore& settings) : viewer(settings) { }

        [[nodiscard]] HelpBrowser& page() const { return child<HelpBrowser>(viewer, "page"); }
        [[nodiscard]] QTreeWidget& contents() const { return child<QTreeWidget>(viewer, "contents"); }
        [[nodiscard]] QLineEdit& question() const { return child<QLineEdit>(viewer, "question"); }
        [[nodiscard]] QListWidget& results() const { return child<QListWidget>(viewer, "results"); }
        [[nodiscard]] QString resultCount() const { return child<QLabel>(viewer, "resultCount").text(); }
        void open(const char* name)
        {
            viewer.open(QLatin1String(name));
            QVERIFY(QTest::qWaitForWindowActive(&viewer));
        }
        void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&viewer, key, modifiers); }
        void ask(const QString& text) { question().setText(text); }
        [[nodiscard]] QString chosen() const
        {
            const QTreeWidgetItem* const item = contents().currentItem();
            return item != nullptr ? item->text(0) : QString();
        }
        /// Of all that is highlighted, the texts.
        [[nodiscard]] QStringList highlighted() const
        {
            QStringList texts;
            for (const QTextEdit::ExtraSelection& selection : page().extraSelections())
                texts.append(selection.cursor.selectedText());
            return texts;
        }

        HelpViewer viewer;
    };

    [[nodiscard]] std::unique_ptr<Parts> makeParts() { return std::make_unique<Parts>(harness().settings); }
};

namespace {

QString shownTitle(const HelpBrowser& page)
{
    return page.document()->firstBlock().text().simplified();
}

QString topLine(const HelpBrowser& page)
{
    return page.cursorForPosition({0, 0}).block().text().simplified();
}

QTreeWidgetItem* chapter(const QTreeWidget& contents, const QString& title, int depth)
{
    for (QTreeWidgetItem* const item : contents.findItems(title, Qt::MatchExactly | Qt::MatchRecursive)) {
        if ((item->parent() != nullptr ? 1 : 0) == depth)
            return item;
    }
    qFatal("The contents have no %s there.", qPrintable(title));
}

}  // namespace

void HelpViewerTest::titleAndPage()
{
    const auto parts = makeParts();
    parts->open("frmTlak");
    QCOMPARE(parts->viewer.windowTitle(), QStringLiteral("Nápověda – KORVEXv2001 - Zdroje"));
    QCOMPARE(parts->viewer.page(), QStringLiteral("frmTlak"));
    QCOMPARE(shownTitle(parts->page()), QStringLiteral("Nastavení tlaku vzduchu"));
    QVERIFY(parts->page().hasFocus());
    QVERIFY(parts->viewer.isWindow());
    QVERIFY(parts->viewer.parentWidget() == nullptr);
}

void HelpViewerTest::everyPageIsShown_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : helpPageNames())
        QTest::newRow(qPrintable(name)) << name;
}

void HelpViewerTest::everyPageIsShown()
{
    QFETCH(const QString, name);
    const auto parts = makeParts();
    parts->viewer.open(name);
    QCOMPARE(shownTitle(parts->page()), helpText(name).title);
    QVERIFY(parts->page().toPlainText().size() > parts->page().documentTitle().size());
    // Laid out to its end it needs no scrolling sideways.
    QVERIFY(!parts->page().document()->size().isEmpty());
    QCOMPARE(parts->page().horizontalScrollBar()->maximum(), 0);
    // The style sheet is found: the toolkit's own headings are larger and keep another distance.
    QCOMPARE(parts->page().document()->firstBlock().blockFormat().bottomMargin(), 10.0);
}

void HelpViewerTest::pageNeedsNoPictures()
{
    const auto parts = makeParts();
    HelpBrowser& page = parts->page();
    const QString html
        = page.loadResource(QTextDocument::HtmlResource, helpPageAddress(QStringLiteral("frmTlak"))).toString();
    QVERIFY(html.contains(QStringLiteral("Nastavení tlaku vzduchu")));
    const bool hasPicture = QFile::exists(QStringLiteral(":/help/KORVEXV2001/obrazky/frmTlak.png"));
    QCOMPARE(html.contains(QStringLiteral("<img")), hasPicture);
    QVERIFY(!html.contains(QStringLiteral("<p></p>")));
}

void HelpViewerTest::widePictureIsMadeToFit()
{
    const auto parts = makeParts();
    parts->open("obsah");
    const QUrl icon(QStringLiteral("qrc:/icons/korvexzdr-256.png"));
    const auto widthIn = [&](int room) {
        parts->page().resize(room, 400);
        const QVariant picture = parts->page().loadResource(QTextDocument::ImageResource, icon);
        return picture.canConvert<QImage>() && picture.userType() == QMetaType::QImage
            ? picture.value<QImage>().width()
            : QImage::fromData(picture.toByteArray()).width();
    };
    QCOMPARE(widthIn(600), 256);
    const int narrow = widthIn(200);
    QVERIFY(narrow > 100);
    QVERIFY(narrow < parts->page().viewport()->width());
}

void HelpViewerTest::firstPictureNeedsNoScrollingSideways()
{
    const auto parts = makeParts();
    parts->viewer.open(QStringLiteral("frmKORVEXZDR"));
    QVERIFY(parts->page().verticalScrollBar()->maximum() > 0);
    QCOMPARE(parts->page().horizontalScrollBar()->maximum(), 0);
}

void HelpViewerTest::numberStandsOnOneLine_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("first width") << 0;
    QTest::newRow("narrow") << 700;
}

void HelpViewerTest::numberStandsOnOneLine()
{
    QFETCH(const int, width);
    const auto parts = makeParts();
    if (width > 0)
        parts->viewer.resize(width, parts->viewer.height());
    parts->open("prvni_hodina");
    // Asked for its size, the page lays itself out to its end.
    QVERIFY(!parts->page().document()->size().isEmpty());
    static const QRegularExpression number(QStringLiteral("^[0-9]+(,[0-9]+)?$"));
    int numbers = 0;
    for (QTextBlock block = parts->page().document()->begin(); block.isValid(); block = block.next()) {
        if (QTextCursor(block).currentTable() == nullptr || !number.match(block.text()).hasMatch())
            continue;
        ++numbers;
        QVERIFY2(block.layout()->lineCount() == 1, qPrintable(block.text()));
    }
    QVERIFY(numbers > 100);
}

void HelpViewerTest::backForwardAndHome_data()
{
    QTest::addColumn<bool>("byKeys");
    QTest::newRow("keys") << true;
    QTest::newRow("buttons") << false;
}

void HelpViewerTest::backForwardAndHome()
{
    QFETCH(const bool, byKeys);
    const auto parts = makeParts();
    parts->open("frmTlak");
    const auto go = [&](const char* button, Qt::Key key) {
        if (byKeys)
            parts->key(key, Qt::AltModifier);
        else
            child<QToolButton>(parts->viewer, button).click();
    };
    QVERIFY(!child<QToolButton>(parts->viewer, "backButton").isEnabled());
    QVERIFY(!child<QToolButton>(parts->viewer, "forwardButton").isEnabled());
    parts->open("prach");
    QVERIFY(child<QToolButton>(parts->viewer, "backButton").isEnabled());

    go("backButton", Qt::Key_Left);
    QCOMPARE(parts->viewer.page(), QStringLiteral("frmTlak"));
    QCOMPARE(parts->chosen(), QStringLiteral("Nastavení tlaku vzduchu"));
    go("forwardButton", Qt::Key_Right);
    QCOMPARE(parts->viewer.page(), QStringLiteral("prach"));
    QCOMPARE(parts->chosen(), QStringLiteral("Prach"));
    go("homeButton", Qt::Key_Home);
    QCOMPARE(parts->viewer.page(), QStringLiteral("obsah"));
    QCOMPARE(parts->chosen(), QStringLiteral("Obsah nápovědy"));
}

void HelpViewerTest::contentsFollowThePage()
{
    const auto parts = makeParts();
    for (const QString& name : helpPageNames()) {
        parts->viewer.open(name);
        const QTreeWidgetItem* const item = parts->contents().currentItem();
        QVERIFY2(item != nullptr, qPrintable(name));
        QCOMPARE(item->data(0, Qt::UserRole).toString(), name);
        // The page itself and not the group that shows it too.
        QCOMPARE(item->childCount(), 0);
        QVERIFY(item->isSelected());
    }
}

void HelpViewerTest::pageFollowsTheContents()
{
    const auto parts = makeParts();
    parts->open("uvod");
    QTreeWidget& contents = parts->contents();
    contents.setFocus();
    const auto items = contents.findItems(QString(), Qt::MatchContains | Qt::MatchRecursive);
    QCOMPARE(items.size(), 6 + helpPageNames().size());
    for (QTreeWidgetItem* const item : items) {
        contents.setCurrentItem(item);
        QCOMPARE(parts->viewer.page(), item->data(0, Qt::UserRole).toString());
        QCOMPARE(contents.currentItem(), item);
    }
}

void HelpViewerTest::groupStaysChosenOverItsFirstPage()
{
    const auto parts = makeParts();
    parts->open("frmSkupinyPrachu");
    QTreeWidget& contents = parts->contents();
    contents.setFocus();
    QTreeWidgetItem* const group = chapter(contents, QStringLiteral("Prach"), 0);
    QTreeWidgetItem* const page = chapter(contents, QStringLiteral("Prach"), 1);
    QTest::keyClick(&contents, Qt::Key_Up);
    QCOMPARE(contents.currentItem(), page);
    QTest::keyClick(&contents, Qt::Key_Up);
    QCOMPARE(contents.currentItem(), group);
    QCOMPARE(parts->viewer.page(), QStringLiteral("prach"));
    // Not held up there: further up is the page above.
    QTest::keyClick(&contents, Qt::Key_Up);
    QCOMPARE(parts->chosen(), QStringLiteral("Výpočet hodnot bodových zdrojů"));
    QCOMPARE(parts->viewer.page(), QStringLiteral("frmVypocetVsDw0"));
}

void HelpViewerTest::linkIsFollowedAndAddressOutsideIsNot()
{
    const auto parts = makeParts();
    parts->open("frmTlak");
    emit parts->page().anchorClicked(QUrl(QStringLiteral("https://example.org/prach.html")));
    emit parts->page().anchorClicked(QUrl(QStringLiteral("file:///etc/hostname")));
    QCOMPARE(parts->viewer.page(), QStringLiteral("frmTlak"));
    // By keyboard: to the first link of the page, and along it.
    parts->open("obsah");
    QTest::keyClick(&parts->page(), Qt::Key_Tab);
    QTest::keyClick(&parts->page(), Qt::Key_Return);
    QCOMPARE(parts->viewer.page(), QStringLiteral("uvod"));
}

/// In a window that was never shown before and in one that was.
void HelpViewerTest::sectionIsScrolledTo_data()
{
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("heading");
    QTest::newRow("middle") << QStringLiteral("jak-lze-prijit-o-data") << QStringLiteral("Jak lze přijít o data");
    QTest::newRow("near the top") << QStringLiteral("zmena") << QStringLiteral("Co je pro program změna");
}

void HelpViewerTest::sectionIsScrolledTo()
{
    QFETCH(const QString, section);
    QFETCH(const QString, heading);
    const auto parts = makeParts();
    for (int time = 0; time < 2; ++time) {
        parts->viewer.open(QStringLiteral("ukladani"), section);
        QCOMPARE(parts->viewer.page(), QStringLiteral("ukladani"));
        QCOMPARE(topLine(parts->page()), heading);
        parts->page().verticalScrollBar()->setValue(0);
    }
    parts->open("uvod");
    QCOMPARE(parts->page().verticalScrollBar()->value(), 0);
    parts->key(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(parts->viewer.page(), QStringLiteral("ukladani"));
}

void HelpViewerTest::linkToASectionOfThePageScrolls()
{
    const auto parts = makeParts();
    parts->open("ukladani");
    QTest::keyClick(&parts->page(), Qt::Key_Tab);
    QTest::keyClick(&parts->page(), Qt::Key_Tab);
    QTest::keyClick(&parts->page(), Qt::Key_Return);
    QCOMPARE(parts->viewer.page(), QStringLiteral("ukladani"));
    QCOMPARE(topLine(parts->page()), QStringLiteral("Co je pro program změna"));
}

void HelpViewerTest::openingEndsTheSearch()
{
    const auto parts = makeParts();
    parts->open("obsah");
    parts->ask(QStringLiteral("hippopotamus"));
    QVERIFY(!parts->contents().isVisible());
    parts->open("prach");
    QCOMPARE(parts->question().text(), QString());
    QVERIFY(parts->contents().isVisible());
    QVERIFY(parts->highlighted().isEmpty());
    QCOMPARE(parts->chosen(), QStringLiteral("Prach"));
}

void HelpViewerTest::pageAskedForAgainBeginsAtItsTop()
{
    const auto parts = makeParts();
    parts->open("ukladani");
    QScrollBar& bar = *parts->page().verticalScrollBar();
    bar.setValue(bar.maximum() / 2);
    QVERIFY(bar.value() > 0);
    parts->open("ukladani");
    QCOMPARE(bar.value(), 0);
    QVERIFY(!parts->page().isBackwardAvailable());
    bar.setValue(bar.maximum() / 2);
    parts->viewer.close();
    parts->open("ukladani");
    QCOMPARE(bar.value(), 0);
}

void HelpViewerTest::pageChosenInTheContentsKeepsItsPlace()
{
    const auto parts = makeParts();
    parts->open("ukladani");
    QScrollBar& bar = *parts->page().verticalScrollBar();
    bar.setValue(bar.maximum() / 2);
    const int place = bar.value();
    QVERIFY(place > 0);
    QTreeWidget& contents = parts->contents();
    contents.setCurrentItem(contents.topLevelItem(0));
    parts->page().backward();
    QCOMPARE(parts->viewer.page(), QStringLiteral("ukladani"));
    bar.setValue(place);
    contents.setCurrentItem(chapter(contents, QStringLiteral("Co se kdy ukládá"), 1));
    QCOMPARE(bar.value(), place);
}

void HelpViewerTest::searchListsPagesWithALineOfContext()
{
    const auto parts = makeParts();
    parts->open("obsah");
    QVERIFY(parts->contents().isVisible());
    parts->ask(QStringLiteral("KOMIN rychlost"));
    QVERIFY(parts->results().isVisible());
    QVERIFY(!parts->contents().isVisible());
    const QList<HelpHit> hits = HelpIndex().find(foldedWords(QStringLiteral("komin rychlost")));
    QVERIFY(hits.size() > 1);
    QCOMPARE(parts->results().count(), static_cast<int>(hits.size()));
    QCOMPARE(parts->resultCount(), QStringLiteral("Nalezené stránky: %1").arg(hits.size()));
    for (int i = 0; i < parts->results().count(); ++i)
        QCOMPARE(parts->results().item(i)->text(), hits.at(i).title + QLatin1Char('\n') + hits.at(i).context);
}

void HelpViewerTest::searchFindsNothing()
{
    const auto parts = makeParts();
    parts->open("obsah");
    parts->ask(QStringLiteral("hippopotamus"));
    QCOMPARE(parts->resultCount(), QStringLiteral("Nic nenalezeno. Zkuste méně slov nebo jen jejich začátek."));
    QCOMPARE(parts->results().count(), 0);
    QTest::keyClick(&parts->question(), Qt::Key_Return);
    QTest::keyClick(&parts->question(), Qt::Key_Down);
    QCOMPARE(parts->viewer.page(), QStringLiteral("obsah"));
    // A blank is no question.
    parts->ask(QStringLiteral(" "));
    QVERIFY(parts->contents().isVisible());
}

void HelpViewerTest::enterOpensTheFirstHitWithItsWordsHighlighted()
{
    const auto parts = makeParts();
    parts->open("obsah");
    parts->question().setFocus();
    parts->ask(QStringLiteral("liniovy zdroj"));
    QTest::keyClick(&parts->question(), Qt::Key_Return);
    QCOMPARE(parts->viewer.page(), QStringLiteral("frmLiniovyZdroj"));
    QVERIFY(parts->results().hasFocus());
    const QStringList highlighted = parts->highlighted();
    QVERIFY(highlighted.contains(QStringLiteral("Liniov")));
    for (const QString& text : highlighted)
        QVERIFY2(foldedText(text) == QStringLiteral("liniov") || foldedText(text) == QStringLiteral("zdroj"),
            qPrintable(text));
    const QTextCharFormat format = parts->page().extraSelections().first().format;
    QCOMPARE(format.background(), parts->page().palette().highlight());
    QCOMPARE(format.foreground(), parts->page().palette().highlightedText());
}

void HelpViewerTest::arrowAndEnterOpenAnotherHit()
{
    const auto parts = makeParts();
    parts->open("obsah");
    parts->question().setFocus();
    parts->ask(QStringLiteral("prach"));
    QTest::keyClick(&parts->question(), Qt::Key_Down);
    QVERIFY(parts->results().hasFocus());
    QCOMPARE(parts->results().currentRow(), 0);
    QTest::keyClick(&parts->results(), Qt::Key_Down);
    QTest::keyClick(&parts->results(), Qt::Key_Return);
    QCOMPARE(parts->viewer.page(), parts->results().item(1)->data(Qt::UserRole).toString());
    QVERIFY(!parts->highlighted().isEmpty());
}

void HelpViewerTest::clickOpensAHit()
{
    const auto parts = makeParts();
    parts->open("obsah");
    parts->ask(QStringLiteral("duplicit"));
    const QListWidget& results = parts->results();
    QTest::mouseClick(results.viewport(), Qt::LeftButton, {}, results.visualItemRect(results.item(0)).center());
    QCOMPARE(parts->viewer.page(), QStringLiteral("duplicity"));
}

void HelpViewerTest::narrowerListBreaksItsLinesAnew()
{
    const auto parts = makeParts();
    parts->open("obsah");
    parts->ask(QStringLiteral("komin"));
    QListWidget& results = parts->results();
    auto& splitter = child<QSplitter>(parts->viewer, "splitter");
    const auto linesOfFirst = [&](int width) {
        splitter.setSizes({width, 2000});
        QCoreApplication::processEvents();
        return results.visualItemRect(results.item(0)).height() / results.fontMetrics().height();
    };
    // The title and a context of some 100 characters.
    const int lines = linesOfFirst(300);
    QVERIFY(lines >= 3);
    QVERIFY(linesOfFirst(160) > lines);
    QCOMPARE(results.horizontalScrollBar()->maximum(), 0);
}

void HelpViewerTest::highlightedWordsAreScrolledTo()
{
    const auto parts = makeParts();
    parts->open("obsah");
    parts->ask(QStringLiteral("odkazy tvori smycku"));
    QTest::keyClick(&parts->question(), Qt::Key_Return);
    QCOMPARE(parts->viewer.page(), QStringLiteral("hlaseni"));
    QVERIFY(parts->page().verticalScrollBar()->value() > 0);
    QTextCursor best;
    for (const QTextEdit::ExtraSelection& selection : parts->page().extraSelections()) {
        if (selection.cursor.block().text().contains(QStringLiteral("smyčku")))
            best = selection.cursor;
    }
    QVERIFY(!best.isNull());
    QVERIFY(parts->page().viewport()->rect().intersects(parts->page().cursorRect(best)));
}

void HelpViewerTest::escapeEndsTheSearchAndThenCloses()
{
    const auto parts = makeParts();
    parts->open("prach");
    parts->question().setFocus();
    parts->ask(QStringLiteral("komin"));
    parts->key(Qt::Key_Escape);
    QVERIFY(parts->viewer.isVisible());
    QCOMPARE(parts->question().text(), QString());
    QVERIFY(parts->contents().isVisible());
    QVERIFY(parts->highlighted().isEmpty());
    QVERIFY(parts->page().hasFocus());
    parts->key(Qt::Key_Escape);
    QVERIFY(!parts->viewer.isVisible());
}

void HelpViewerTest::controlFGoesToTheSearch()
{
    const auto parts = makeParts();
    parts->open("prach");
    parts->ask(QStringLiteral("komin"));
    parts->key(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(parts->question().hasFocus());
    QCOMPARE(parts->question().selectedText(), QStringLiteral("komin"));
    parts->page().setFocus();
    parts->key(Qt::Key_H, Qt::AltModifier);
    QVERIFY(parts->question().hasFocus());
}

void HelpViewerTest::zoomKeys()
{
    const auto parts = makeParts();
    parts->open("prach");
    const double before = parts->page().font().pointSizeF();
    parts->key(Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(parts->page().font().pointSizeF(), before + 1);
    parts->key(Qt::Key_Equal, Qt::ControlModifier);
    QCOMPARE(parts->page().font().pointSizeF(), before + 2);
    parts->key(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(parts->page().font().pointSizeF(), before + 1);
    parts->key(Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(parts->page().font().pointSizeF(), before);
}

void HelpViewerTest::zoomHasLimitsAndReturns()
{
    const auto parts = makeParts();
    parts->open("prach");
    const double before = parts->page().font().pointSizeF();
    for (const int direction : {-1, 1}) {
        for (int i = 0; i < 100; ++i)
            parts->page().zoomTo(parts->page().zoom() + direction);
        QVERIFY(parts->page().font().pointSizeF() >= 1);
        QVERIFY(parts->page().font().pointSizeF() < before + 100);
        parts->page().zoomTo(0);
        QCOMPARE(parts->page().font().pointSizeF(), before);
    }
}

void HelpViewerTest::tabGoesRoundAllParts()
{
    const auto parts = makeParts();
    parts->open("prach");
    parts->key(Qt::Key_Home, Qt::AltModifier);
    child<QToolButton>(parts->viewer, "backButton").setFocus();
    const QStringList expected{QStringLiteral("backButton"), QStringLiteral("homeButton"), QStringLiteral("question"),
        QStringLiteral("contents"), QStringLiteral("page")};
    QStringList found;
    // The page has the Tab key to itself as long as it has another link.
    for (int i = 0; i < 100 && (found.isEmpty() || QApplication::focusWidget()->objectName() != found.first()); ++i) {
        const QString name = QApplication::focusWidget()->objectName();
        if (found.isEmpty() || found.last() != name)
            found.append(name);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(found, expected);
}

void HelpViewerTest::everyFocusableWidgetHasAName()
{
    const auto parts = makeParts();
    parts->open("prach");
    QCOMPARE(namelessWidgets(parts->viewer), QStringList());
    parts->ask(QStringLiteral("prach"));
    QCOMPARE(namelessWidgets(parts->viewer), QStringList());
    QCOMPARE(parts->page().accessibleDescription(), QStringLiteral("Prach"));
}

namespace {

QColor linkColourOn(const QTextBrowser& page)
{
    for (QTextBlock block = page.document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            // Without an address it is only a place to go to.
            if (!part.fragment().charFormat().anchorHref().isEmpty())
                return part.fragment().charFormat().foreground().color();
        }
    }
    return {};
}

QPalette paletteOf(const QColor& base, const QColor& text, const QColor& link)
{
    QPalette palette;
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Link, link);
    return palette;
}

}  // namespace

void HelpViewerTest::linksCanBeReadInEveryPalette_data()
{
    QTest::addColumn<QColor>("base");
    QTest::addColumn<QColor>("text");
    QTest::addColumn<QColor>("link");
    QTest::addColumn<bool>("isKept");
    QTest::newRow("light") << QColor(Qt::white) << QColor(Qt::black) << QColor(0, 0, 255) << true;
    QTest::newRow("dark, of its own") << QColor(25, 25, 25) << QColor(Qt::white) << QColor(120, 180, 255) << true;
    QTest::newRow("dark, forgotten") << QColor(25, 25, 25) << QColor(Qt::white) << QColor(0, 0, 255) << false;
    QTest::newRow("as the ground") << QColor(Qt::white) << QColor(Qt::black) << QColor(Qt::white) << false;
}

void HelpViewerTest::linksCanBeReadInEveryPalette()
{
    QFETCH(const QColor, base);
    QFETCH(const QColor, text);
    QFETCH(const QColor, link);
    QFETCH(const bool, isKept);
    const auto parts = makeParts();
    parts->page().setPalette(paletteOf(base, text, link));
    parts->viewer.open(contentsHelpPage);
    const QColor shown = linkColourOn(parts->page());
    QVERIFY(shown.isValid());
    QVERIFY2(contrast(shown, base) >= 4.5, qPrintable(shown.name()));
    QCOMPARE(shown == link, isKept);
}

void HelpViewerTest::newPaletteRecoloursThePageInItsPlace()
{
    const auto parts = makeParts();
    parts->open("hlaseni");
    QScrollBar& bar = *parts->page().verticalScrollBar();
    bar.setValue(bar.maximum() / 2);
    const int place = bar.value();
    const QColor before = linkColourOn(parts->page());
    parts->page().setPalette(paletteOf(QColor(25, 25, 25), Qt::white, QColor(120, 180, 255)));
    QVERIFY(linkColourOn(parts->page()) != before);
    QCOMPARE(linkColourOn(parts->page()), QColor(120, 180, 255));
    QCOMPARE(bar.value(), place);
    QCOMPARE(parts->viewer.page(), QStringLiteral("hlaseni"));
}

void HelpViewerTest::placeAndSizeAreRemembered()
{
    const QRect place(70, 60, 640, 480);
    {
        const auto parts = makeParts();
        parts->open("prach");
        parts->viewer.move(place.topLeft());
        parts->viewer.resize(place.size());
        parts->viewer.close();
    }
    {
        const auto parts = makeParts();
        parts->open("prach");
        QCOMPARE(parts->viewer.pos(), place.topLeft());
        QCOMPARE(parts->viewer.size(), place.size());
        parts->viewer.resize(600, 450);
        // The program ends with the help still open.
    }
    const auto parts = makeParts();
    QCOMPARE(parts->viewer.size(), QSize(600, 450));
    // Closed and opened again it stays as well.
    parts->open("prach");
    parts->viewer.close();
    parts->open("prach");
    QCOMPARE(parts->viewer.pos(), place.topLeft());
}

void HelpViewerTest::sizeFollowsTheFont()
{
    const QFont before = QApplication::font();
    QFont small = before;
    small.setPointSizeF(before.pointSizeF() / 2);
    const auto normal = makeParts();
    QApplication::setFont(small);
    const auto smaller = makeParts();
    QApplication::setFont(before);
    QVERIFY(smaller->viewer.width() < normal->viewer.width());
    QVERIFY(normal->viewer.screen()->availableSize().width() >= normal->viewer.width());
    QVERIFY(normal->viewer.screen()->availableSize().height() >= normal->viewer.height());
}

void HelpViewerTest::programDoesNotWaitForIt()
{
    const auto parts = makeParts();
    QVERIFY(!parts->viewer.testAttribute(Qt::WA_QuitOnClose));
}

}  // namespace korvex

KORVEX_SHELL_TEST_MAIN(korvex::HelpViewerTest)

#include "help_viewer_test.moc"
