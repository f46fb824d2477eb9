// Searching the help: all words of a question, in any of their Czech forms, with no regard to letter case and marks.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace korvex {

/// The text as it is searched: small letters without marks. Each character stays in its place.
[[nodiscard]] QString foldedText(const QString& text);
/// The words of a question, folded and without the ending that declines them, each once.
[[nodiscard]] QStringList foldedWords(const QString& question);

/// Where a word of the text begins with this one, from there on; -1 when none does. Both are folded.
[[nodiscard]] qsizetype beginningOf(const QString& word, const QString& text, qsizetype from = 0);
/// With how many of these a word of the text begins.
[[nodiscard]] qsizetype wordsIn(const QString& text, const QStringList& words);

struct HelpHit {
    QString page;
    QString title;
    QString context;  // one line of the page around a word that was found
};

/// All pages, read when it is made.
class HelpIndex {
public:
    HelpIndex();

    /// The pages that hold all the words, the closest first: see Closeness, then by how many blocks tell of them.
    [[nodiscard]] QList<HelpHit> find(const QStringList& words) const;

private:
    struct Page {
        QString name;
        QString title;
        QString foldedTitle;
        QString foldedKeywords;
        QStringList foldedHeadings;
        QStringList blocks;
        QStringList foldedBlocks;
    };
    /// Where all the words are together.
    enum class Closeness { Page, Block, Heading, TitleAndKeywords, WholeTitle };

    [[nodiscard]] static bool hasAllWords(const Page& page, const QStringList& words);
    [[nodiscard]] static Closeness closeness(const Page& page, const QStringList& words);

    QList<Page> m_pages;
};

}  // namespace korvex
