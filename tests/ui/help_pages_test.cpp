// The pages of the help: well-formed, their links lead somewhere, every window has one, and they speak Czech.
#include "help_pages.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QXmlStreamReader>

namespace korvex {

namespace {

const QString sourceFolder = QStringLiteral(KORVEX_SOURCE_DIR "/help/KORVEXV2001");

QString contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The test cannot read %s.", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

QStringList filesIn(const QString& folder)
{
    QStringList files;
    QDirIterator each(folder, QDir::Files, QDirIterator::Subdirectories);
    while (each.hasNext())
        files.append(QDir(folder).relativeFilePath(each.next()));
    files.sort();
    return files;
}

/// What a page is made of, as far as the tests ask.
struct PageParts {
    QString error;
    QString title;
    QString heading;
    QStringList links;
    QSet<QString> anchors;
    QStringList sections;                     // of the h2, the anchors; empty for one without
    QList<QPair<QString, QString>> pictures;  // file and description
    QString words;                            // without keys and what is typed as it stands
};

PageParts partsOf(const QString& name)
{
    PageParts parts;
    QXmlStreamReader xml(contentOf(sourceFolder + QLatin1Char('/') + name + QStringLiteral(".html")));
    QStringList open;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement()) {
            open.append(xml.name().toString());
            const QXmlStreamAttributes attributes = xml.attributes();
            for (const char* const anchor : {"id", "name"}) {
                if (attributes.hasAttribute(QLatin1String(anchor)) && open.last() != QStringLiteral("meta"))
                    parts.anchors.insert(attributes.value(QLatin1String(anchor)).toString());
            }
            if (open.last() == QStringLiteral("h2"))
                parts.sections.append(attributes.value(QStringLiteral("id")).toString());
            if (open.last() == QStringLiteral("a") && attributes.hasAttribute(QStringLiteral("href")))
                parts.links.append(attributes.value(QStringLiteral("href")).toString());
            if (open.last() == QStringLiteral("img"))
                parts.pictures.append({attributes.value(QStringLiteral("src")).toString(),
                    attributes.value(QStringLiteral("alt")).toString()});
        } else if (xml.isEndElement()) {
            open.removeLast();
        } else if (xml.isCharacters() && !open.isEmpty()) {
            if (open.last() == QStringLiteral("title"))
                parts.title += xml.text();
            if (open.last() == QStringLiteral("h1"))
                parts.heading += xml.text();
            if (!QStringList{QStringLiteral("kbd"), QStringLiteral("code"), QStringLiteral("pre")}.contains(
                    open.last()))
                parts.words += xml.text();
        }
    }
    parts.error = xml.errorString();
    return parts;
}

/// The object names of the program's windows, from its source.
QSet<QString> windowNames()
{
    QSet<QString> names;
    static const QRegularExpression name(QStringLiteral("\"(frm[A-Z][A-Za-z0-9]*|About)\""));
    QDirIterator each(
        QStringLiteral(KORVEX_SOURCE_DIR "/src"), {QStringLiteral("*.cpp")}, QDir::Files, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        const QString source = contentOf(each.next());
        for (auto match = name.globalMatch(source); match.hasNext();)
            names.insert(match.next().captured(1));
    }
    return names;
}

void addChapters(const QList<HelpChapter>& chapters, QStringList& pages)
{
    for (const HelpChapter& chapter : chapters) {
        if (chapter.parts.isEmpty())
            pages.append(chapter.page);
        addChapters(chapter.parts, pages);
    }
}

void addPages()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : helpPageNames())
        QTest::newRow(qPrintable(name)) << name;
}

}  // namespace

class HelpPagesTest : public QObject {
    Q_OBJECT

private slots:
    void everyFileTravelsInTheProgram();
    void pageIsWellFormed_data() { addPages(); }
    void pageIsWellFormed();
    void titleIsTheHeading_data() { addPages(); }
    void titleIsTheHeading();
    void linksLeadToPagesAndAnchors_data() { addPages(); }
    void linksLeadToPagesAndAnchors();
    void longPageLinksToItsSections_data() { addPages(); }
    void longPageLinksToItsSections();
    void picturesAreThoseOfWindowsAndAreDescribed();
    void pageIsInTheContentsOnce_data() { addPages(); }
    void pageIsInTheContentsOnce();
    void chaptersHaveTitlesAndPages();
    void everyWindowHasAPage();
    void everyPageNamedAsAWindowHasItsWindow();
    void noEnglishButtonIsNamed_data() { addPages(); }
    void noEnglishButtonIsNamed();
    void textIsReadInBlocks();
    void headingsAndKeywordsAreReadApart();
    void everyMessageHasARowOfItsOwn();
    void firstMessageOfATextCounts();
    void everyPageButTheContentsHasKeywords();
    void addressesOutsideTheHelpAreNoPages();
};

void HelpPagesTest::everyFileTravelsInTheProgram()
{
    const QStringList files = filesIn(sourceFolder);
    QVERIFY(files.contains(QStringLiteral("obsah.html")));
    QCOMPARE(filesIn(QStringLiteral(":/help/KORVEXV2001")), files);
}

void HelpPagesTest::pageIsWellFormed()
{
    QFETCH(const QString, name);
    QCOMPARE(partsOf(name).error, QString());
}

void HelpPagesTest::titleIsTheHeading()
{
    QFETCH(const QString, name);
    const PageParts parts = partsOf(name);
    QVERIFY(!parts.title.isEmpty());
    QCOMPARE(parts.title.simplified(), parts.heading.simplified());
    QCOMPARE(helpText(name).title, parts.title);
}

void HelpPagesTest::linksLeadToPagesAndAnchors()
{
    QFETCH(const QString, name);
    const PageParts parts = partsOf(name);
    QVERIFY(!parts.links.isEmpty() || parts.title.isEmpty());
    for (const QString& link : parts.links) {
        const QString target = helpPageAt(helpPageAddress(name).resolved(QUrl(link)));
        QVERIFY2(!target.isEmpty(), qPrintable(link));
        const QString anchor = QUrl(link).fragment();
        QVERIFY2(anchor.isEmpty() || partsOf(target).anchors.contains(anchor), qPrintable(link));
    }
}

void HelpPagesTest::longPageLinksToItsSections()
{
    QFETCH(const QString, name);
    constexpr qsizetype manySections = 4;
    const PageParts parts = partsOf(name);
    QStringList linked;
    for (const QString& link : parts.links) {
        if (link.startsWith(QLatin1Char('#')))
            linked.append(link.mid(1));
    }
    if (parts.sections.size() >= manySections)
        QCOMPARE(linked.mid(0, parts.sections.size()), parts.sections);
    QCOMPARE(QSet<QString>(linked.begin(), linked.end()).size(), linked.size());
}

void HelpPagesTest::picturesAreThoseOfWindowsAndAreDescribed()
{
    const QSet<QString> windows = windowNames();
    int pictures = 0;
    for (const QString& name : helpPageNames()) {
        for (const auto& [file, description] : partsOf(name).pictures) {
            ++pictures;
            QVERIFY2(
                file.startsWith(QStringLiteral("obrazky/")) && file.endsWith(QStringLiteral(".png")), qPrintable(file));
            QVERIFY2(windows.contains(file.section(QLatin1Char('/'), 1).chopped(4)), qPrintable(file));
            QVERIFY2(!description.isEmpty(), qPrintable(file));
        }
    }
    QVERIFY(pictures > 0);
}

void HelpPagesTest::pageIsInTheContentsOnce()
{
    QFETCH(const QString, name);
    QStringList pages;
    addChapters(helpChapters(), pages);
    QCOMPARE(pages.count(name), name == contentsHelpPage ? 0 : 1);
}

void HelpPagesTest::chaptersHaveTitlesAndPages()
{
    const QList<HelpChapter> groups = helpChapters();
    QCOMPARE(groups.size(), 6);
    for (const HelpChapter& group : groups) {
        QVERIFY(!group.title.isEmpty());
        QVERIFY(!group.parts.isEmpty());
        // A group shows the first of its pages.
        QCOMPARE(group.page, group.parts.first().page);
        for (const HelpChapter& part : group.parts) {
            QVERIFY(!part.title.isEmpty());
            QVERIFY(isHelpPage(part.page));
        }
    }
}

void HelpPagesTest::everyWindowHasAPage()
{
    const QSet<QString> windows = windowNames();
    QVERIFY(windows.contains(QStringLiteral("frmKORVEXZDR")));
    QVERIFY(windows.contains(QStringLiteral("frmPlosnyZdroj")));
    for (const QString& name : windows)
        QVERIFY2(isHelpPage(name), qPrintable(name));
}

void HelpPagesTest::everyPageNamedAsAWindowHasItsWindow()
{
    const QSet<QString> windows = windowNames();
    for (const QString& name : helpPageNames()) {
        if (name.startsWith(QStringLiteral("frm")) || name == QStringLiteral("About"))
            QVERIFY2(windows.contains(name), qPrintable(name));
    }
}

/// The program's buttons are Czech on every desktop.
void HelpPagesTest::noEnglishButtonIsNamed()
{
    QFETCH(const QString, name);
    static const QRegularExpression english(QStringLiteral(
        "\\b(OK|Cancel|Save|Open|Close|Yes|Help|Apply|Discard|Details|Browse|Exit|Quit|Retry|Ignore|Abort|"
        "Reset|Back|Forward|Search|Find|File|Edit)\\b"));
    const QRegularExpressionMatch match = english.match(partsOf(name).words);
    QVERIFY2(!match.hasMatch(), qPrintable(match.captured()));
}

void HelpPagesTest::textIsReadInBlocks()
{
    const QStringList blocks = helpText(QStringLiteral("frmTlak")).blocks;
    QCOMPARE(blocks.value(0), QStringLiteral("Nastavení tlaku vzduchu"));
    // A row of a table is one block, its cells apart.
    QVERIFY(blocks.contains(QStringLiteral("Storno, Esc Zavře okno, tlak zůstane.")));
}

void HelpPagesTest::headingsAndKeywordsAreReadApart()
{
    const HelpText text = helpText(QStringLiteral("vypocty"));
    QVERIFY(text.headings.contains(QStringLiteral("Střed úseku")));
    QVERIFY(text.blocks.contains(QStringLiteral("Střed úseku")));
    QVERIFY(!text.headings.contains(text.title));
    QVERIFY(text.keywords.contains(QStringLiteral("rovnice")));
    for (const QString& block : text.blocks) {
        QVERIFY(!block.contains(QStringLiteral("rovnice,")));
        QVERIFY2(!block.startsWith(QStringLiteral("Na této stránce")), qPrintable(block));
    }
    QVERIFY(helpText(QStringLiteral("slovnicek")).headings.contains(QStringLiteral("vznos vlečky")));
}

void HelpPagesTest::everyMessageHasARowOfItsOwn()
{
    static const QRegularExpression quoted(QStringLiteral("^„([^“]+)“"));
    // The log of the batch calculation is no box.
    static const QRegularExpression logged(QStringLiteral("^(Hotovo|Pro zdroj)"));
    QStringList rows;
    const HelpText page = helpText(messagesHelpPage);
    for (const QString& block : page.blocks) {
        if (block == page.headings.first())
            break;
        QString message = quoted.match(block).captured(1);
        if (message.isEmpty() || logged.match(message).hasMatch())
            continue;
        message.replace(u'…', u'7');
        const QString row = helpMessageSection(QStringLiteral("body.txt\n") + message);
        QVERIFY2(!row.isEmpty() && !rows.contains(row), qPrintable(message));
        rows.append(row);
    }
    QVERIFY(rows.size() > 30);
}

void HelpPagesTest::firstMessageOfATextCounts()
{
    const QString range = helpMessageSection(QStringLiteral("Číslo je mimo rozsah: 99999999999"));
    QCOMPARE(range, QStringLiteral("cislo-je-mimo-rozsah"));
    QCOMPARE(helpMessageSection(QStringLiteral("Řádek 3: Číslo je mimo rozsah: 1E+40\n\n"
                                               "V seznamu jsou jen zdroje načtené před chybou.")),
        range);
    QCOMPARE(helpMessageSection(QStringLiteral("Soubor již existuje.")), QString());
    QCOMPARE(helpMessageSection(QString()), QString());
}

void HelpPagesTest::everyPageButTheContentsHasKeywords()
{
    for (const QString& name : helpPageNames())
        QVERIFY2(helpText(name).keywords.isEmpty() == (name == contentsHelpPage), qPrintable(name));
}

void HelpPagesTest::addressesOutsideTheHelpAreNoPages()
{
    QCOMPARE(helpPageAt(helpPageAddress(QStringLiteral("prach"))), QStringLiteral("prach"));
    for (const char* const address :
        {"", "https://example.org/prach.html", "file:///prach.html", "qrc:/help/KORVEXV2001/neni.html",
            "qrc:/help/KORVEXV2001/styl.css", "qrc:/icons/prach.html", "qrc:/help/KORVEXV2001/a/prach.html"})
        QCOMPARE(helpPageAt(QUrl(QLatin1String(address))), QString());
    QVERIFY(!isHelpPage({}));
    QVERIFY(!isHelpPage(QStringLiteral("../KORVEXV2001/prach")));
}

}  // namespace korvex

QTEST_GUILESS_MAIN(korvex::HelpPagesTest)
#include "help_pages_test.moc"
