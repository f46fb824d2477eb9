#include "help_search.h"

#include "help_pages.h"

#include <QChar>

#include <algorithm>
#include <array>

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

/// How many of the words are in the text.
qsizetype wordsIn(const QString& text, const QStringList& words)
{
    return std::count_if(words.begin(), words.end(), [&text](const QString& word) { return text.contains(word); });
}

bool hasAll(const QString& text, const QStringList& words)
{
    return wordsIn(text, words) == words.size();
}

/// The first of the blocks with most of the words; a heading, which tells nothing, only for want of a longer one.
qsizetype tellingBlock(const QStringList& blocks, const QStringList& words)
{
    constexpr qsizetype longerThanAHeading = 40;
    qsizetype best = 0;
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
        const qsizetype place = foldedBlock.indexOf(word);
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
    words.removeDuplicates();
    return words;
}

HelpIndex::HelpIndex()
{
    for (const QString& name : helpPageNames()) {
        // The contents say the titles of all pages: it would be found by everything.
        if (name == contentsHelpPage)
            continue;
        const HelpText text = helpText(name);
        Page page{name, text.title, foldedText(text.title), text.blocks, {}};
        for (const QString& block : text.blocks)
            page.foldedBlocks.append(foldedText(block));
        m_pages.append(page);
    }
}

QList<HelpHit> HelpIndex::find(const QStringList& words) const
{
    if (words.isEmpty())
        return {};
    enum Closeness { InTitle, InOneBlock, InPage };
    std::array<QList<HelpHit>, InPage + 1> hits;
    for (const Page& page : m_pages) {
        if (!hasAll(page.foldedBlocks.join(QLatin1Char('\n')), words))
            continue;
        const qsizetype best = tellingBlock(page.foldedBlocks, words);
        Closeness closeness = InPage;
        if (hasAll(page.foldedTitle, words))
            closeness = InTitle;
        else if (hasAll(page.foldedBlocks.at(best), words))
            closeness = InOneBlock;
        hits.at(closeness).append(
            {page.name, page.title, contextIn(page.blocks.at(best), page.foldedBlocks.at(best), words)});
    }
    return hits[InTitle] + hits[InOneBlock] + hits[InPage];
}

}  // namespace korvex
