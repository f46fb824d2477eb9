#include "help_search.h"

#include "help_pages.h"

#include <QChar>

#include <algorithm>
#include <tuple>

namespace korvex {

namespace {

QChar folded(QChar character)
{
    if (character.isSpace())
        return QLatin1Char(' ');
    while (character.decompositionTag() == QChar::Canonical) {
        const QString parts = character.decomposition();
        if (parts.isEmpty())
            break;
        character = parts.at(0);
    }
    return character.toCaseFolded();
}

/// Without its Czech ending, so that "komínů" and "uložit" are found as "komíny" and "uložení". Short words stay.
QString stem(const QString& word)
{
    constexpr qsizetype shortest = 4;
    // The longer ones first, for they hold the shorter.
    static const QStringList endings = QStringLiteral("ovani avani ovat avat enim ani eni ami emi ach ech ich ych eho "
                                                      "iho emu imu ovi at et it ut am em im om um ym ou a e i o u y")
                                           .split(QLatin1Char(' '));
    for (const QString& ending : endings) {
        if (word.endsWith(ending) && word.size() - ending.size() >= shortest)
            return word.chopped(ending.size());
    }
    return word;
}

bool hasAll(const QString& text, const QStringList& words)
{
    return wordsIn(text, words) == words.size();
}

bool anyHasAll(const QStringList& texts, const QStringList& words)
{
    return std::any_of(texts.begin(), texts.end(), [&words](const QString& text) { return hasAll(text, words); });
}

/// The first of the blocks with most of the words; a heading, which tells nothing, only for want of a longer one.
/// Where no block has any, what the page begins with.
qsizetype tellingBlock(const QStringList& blocks, const QStringList& words)
{
    constexpr qsizetype longerThanAHeading = 40;
    qsizetype best = std::min<qsizetype>(1, blocks.size() - 1);
    qsizetype mostWords = 0;
    // The first block is the title, which is shown anyway.
    for (qsizetype i = 1; i < blocks.size(); ++i) {
        const qsizetype count = wordsIn(blocks.at(i), words);
        const bool tellsMore = blocks.at(best).size() < longerThanAHeading && blocks.at(i).size() >= longerThanAHeading;
        if (count > mostWords || (count > 0 && count == mostWords && tellsMore)) {
            best = i;
            mostWords = count;
        }
    }
    return best;
}

/// The part of a block around the first of the words in it, cut at blanks.
QString contextIn(const QString& block, const QString& foldedBlock, const QStringList& words)
{
    constexpr qsizetype before = 30;
    constexpr qsizetype longest = 110;
    qsizetype found = block.size();
    for (const QString& word : words) {
        const qsizetype place = beginningOf(word, foldedBlock);
        if (place >= 0)
            found = std::min(found, place);
    }
    qsizetype begin = 0;
    if (found < block.size() && found > before)
        begin = foldedBlock.lastIndexOf(QLatin1Char(' '), found - before) + 1;
    qsizetype end = block.size();
    if (end - begin > longest) {
        end = foldedBlock.lastIndexOf(QLatin1Char(' '), begin + longest);
        if (end <= found)
            end = begin + longest;
    }
    return (begin > 0 ? QStringLiteral("…") : QString()) + block.mid(begin, end - begin)
        + (end < block.size() ? QStringLiteral("…") : QString());
}

}  // namespace

QString foldedText(const QString& text)
{
    QString result = text;
    for (QChar& character : result)
        character = folded(character);
    return result;
}

QStringList foldedWords(const QString& question)
{
    // Marks that were typed or pasted as characters of their own would stay.
    const QString folded = foldedText(question.normalized(QString::NormalizationForm_C));
    QStringList words = folded.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    std::transform(words.begin(), words.end(), words.begin(), stem);
    words.removeDuplicates();
    return words;
}

qsizetype beginningOf(const QString& word, const QString& text, qsizetype from)
{
    qsizetype place = text.indexOf(word, from);
    // Within another word it mostly means something else.
    while (place > 0 && text.at(place - 1).isLetterOrNumber() && word.at(0).isLetterOrNumber())
        place = text.indexOf(word, place + 1);
    return place;
}

qsizetype wordsIn(const QString& text, const QStringList& words)
{
    return std::count_if(
        words.begin(), words.end(), [&text](const QString& word) { return beginningOf(word, text) >= 0; });
}

HelpIndex::HelpIndex()
{
    for (const QString& name : helpPageNames()) {
        // The contents say the titles of all pages: it would be found by everything.
        if (name == contentsHelpPage)
            continue;
        const HelpText text = helpText(name);
        Page page{name, text.title, foldedText(text.title), foldedText(text.keywords), {}, text.blocks, {}};
        for (const QString& heading : text.headings)
            page.foldedHeadings.append(foldedText(heading));
        for (const QString& block : text.blocks)
            page.foldedBlocks.append(foldedText(block));
        m_pages.append(page);
    }
}

bool HelpIndex::hasAllWords(const Page& page, const QStringList& words)
{
    return hasAll(page.foldedKeywords + QLatin1Char('\n') + page.foldedBlocks.join(QLatin1Char('\n')), words);
}

HelpIndex::Closeness HelpIndex::closeness(const Page& page, const QStringList& words)
{
    if (foldedWords(page.title) == words)
        return Closeness::WholeTitle;
    if (hasAll(page.foldedTitle + QLatin1Char('\n') + page.foldedKeywords, words))
        return Closeness::TitleAndKeywords;
    if (anyHasAll(page.foldedHeadings, words))
        return Closeness::Heading;
    return anyHasAll(page.foldedBlocks, words) ? Closeness::Block : Closeness::Page;
}

QList<HelpHit> HelpIndex::find(const QStringList& words) const
{
    if (words.isEmpty())
        return {};
    struct Found {
        HelpHit hit;
        Closeness closeness;
        qsizetype blocks;
    };
    QList<Found> found;
    for (const Page& page : m_pages) {
        if (!hasAllWords(page, words))
            continue;
        const qsizetype best = tellingBlock(page.foldedBlocks, words);
        const qsizetype blocks = std::count_if(page.foldedBlocks.begin(), page.foldedBlocks.end(),
            [&words](const QString& block) { return wordsIn(block, words) > 0; });
        found.append({{page.name, page.title, contextIn(page.blocks.at(best), page.foldedBlocks.at(best), words)},
            closeness(page, words), blocks});
    }
    std::stable_sort(found.begin(), found.end(), [](const Found& one, const Found& other) {
        return std::tie(one.closeness, one.blocks) > std::tie(other.closeness, other.blocks);
    });
    QList<HelpHit> hits;
    for (const Found& one : found)
        hits.append(one.hit);
    return hits;
}

}  // namespace korvex
