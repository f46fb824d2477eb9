#include "help_pages.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>

namespace korvex {

namespace {

const QString folder = QStringLiteral(":/help/KORVEXV2001/");
const QString ending = QStringLiteral(".html");

/// The pages are well-formed XML, and a test holds them to it.
class PageReader {
public:
    explicit PageReader(const QString& name) : m_file(folder + name + ending)
    {
        if (m_file.open(QIODevice::ReadOnly))
            m_xml.setDevice(&m_file);
    }

    [[nodiscard]] QXmlStreamReader& xml() { return m_xml; }

private:
    QFile m_file;
    QXmlStreamReader m_xml;
};

/// Collects what is between the marks of the page, a block at a time.
class BlockCollector {
public:
    void add(QStringView text) { m_block += text; }
    void endCell() { m_block += QLatin1Char(' '); }
    /// Gives it back as well.
    QString endBlock()
    {
        QString text = m_block.simplified();
        if (!text.isEmpty())
            m_blocks.append(text);
        m_block.clear();
        return text;
    }
    [[nodiscard]] QStringList blocks() const { return m_blocks; }

private:
    QString m_block;
    QStringList m_blocks;
};

bool isBlock(QStringView element)
{
    static const QSet<QString> blocks{QStringLiteral("h1"), QStringLiteral("h2"), QStringLiteral("h3"),
        QStringLiteral("p"), QStringLiteral("li"), QStringLiteral("tr"), QStringLiteral("pre"), QStringLiteral("dt"),
        QStringLiteral("dd")};
    return blocks.contains(element.toString());
}

bool isHeading(QStringView element)
{
    return element == QStringLiteral("h2") || element == QStringLiteral("h3") || element == QStringLiteral("dt");
}

bool isCell(QStringView element)
{
    return element == QStringLiteral("td") || element == QStringLiteral("th");
}

/// What is always the same in a message quoted by the page: its words up to the first that stand for others.
QString fixedWords(const QString& quoted)
{
    const qsizetype begin = quoted.indexOf(u'„') + 1;
    static const QRegularExpression end(QStringLiteral("[…“]"));
    return quoted.mid(begin, quoted.indexOf(end, begin) - begin).simplified();
}

QList<HelpChapter> readList(QXmlStreamReader& xml);

/// Stands in the start of an entry and reads to its end.
HelpChapter readEntry(QXmlStreamReader& xml)
{
    HelpChapter chapter;
    while (xml.readNextStartElement()) {
        if (xml.name() == QStringLiteral("a")) {
            chapter.page = helpPageAt(QUrl(QStringLiteral("qrc") + folder + xml.attributes().value("href").toString()));
            chapter.title = xml.readElementText().simplified();
        } else if (xml.name() == QStringLiteral("ul")) {
            chapter.parts = readList(xml);
        } else {
            xml.skipCurrentElement();
        }
    }
    return chapter;
}

/// Stands in the start of a list and reads to its end.
QList<HelpChapter> readList(QXmlStreamReader& xml)
{
    QList<HelpChapter> chapters;
    while (xml.readNextStartElement())
        chapters.append(readEntry(xml));
    return chapters;
}

}  // namespace

const QString contentsHelpPage = QStringLiteral("obsah");
const QString messagesHelpPage = QStringLiteral("hlaseni");

QStringList helpPageNames()
{
    QStringList names;
    for (const QString& file : QDir(folder).entryList({QLatin1Char('*') + ending}, QDir::Files, QDir::Name))
        names.append(file.chopped(ending.size()));
    return names;
}

bool isHelpPage(const QString& name)
{
    return !name.isEmpty() && !name.contains(QLatin1Char('/')) && QFile::exists(folder + name + ending);
}

QUrl helpPageAddress(const QString& name)
{
    return QUrl(QStringLiteral("qrc") + folder + name + ending);
}

QString helpPageAt(const QUrl& address)
{
    const QString path = address.path();
    if (address.scheme() != QStringLiteral("qrc") || !path.endsWith(ending))
        return {};
    const QString name = path.chopped(ending.size()).section(QLatin1Char('/'), -1);
    return isHelpPage(name) && helpPageAddress(name).path() == path ? name : QString();
}

HelpText helpText(const QString& name)
{
    PageReader reader(name);
    QXmlStreamReader& xml = reader.xml();
    HelpText text;
    BlockCollector collector;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QStringLiteral("title"))
            text.title = xml.readElementText().simplified();
        else if (xml.isStartElement() && xml.attributes().value("name") == QStringLiteral("keywords"))
            text.keywords = xml.attributes().value("content").toString();
        else if (xml.isStartElement() && xml.attributes().value("class") == QStringLiteral("na-strance"))
            xml.skipCurrentElement();
        else if (xml.isCharacters())
            collector.add(xml.text());
        else if (xml.isEndElement() && isHeading(xml.name()))
            text.headings.append(collector.endBlock());
        else if ((xml.isStartElement() || xml.isEndElement()) && isBlock(xml.name()))
            collector.endBlock();
        else if (xml.isEndElement() && isCell(xml.name()))
            collector.endCell();
    }
    text.blocks = collector.blocks();
    return text;
}

QString helpMessageSection(const QString& text)
{
    const QString said = text.simplified();
    PageReader reader(messagesHelpPage);
    QXmlStreamReader& xml = reader.xml();
    QString section;
    qsizetype first = said.size();
    while (!xml.atEnd()) {
        xml.readNext();
        const QString row = xml.attributes().value(QStringLiteral("id")).toString();
        if (!xml.isStartElement() || xml.name() != QStringLiteral("td") || row.isEmpty())
            continue;
        const qsizetype place = said.indexOf(fixedWords(xml.readElementText(QXmlStreamReader::IncludeChildElements)));
        if (place >= 0 && place < first) {
            first = place;
            section = row;
        }
    }
    return section;
}

QList<HelpChapter> helpChapters()
{
    PageReader reader(contentsHelpPage);
    QXmlStreamReader& xml = reader.xml();
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QStringLiteral("ul"))
            return readList(xml);
    }
    return {};
}

}  // namespace korvex
