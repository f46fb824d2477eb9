// Searching the help: all words of a question, with no regard to letter case and to the marks of Czech letters.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace korvex {

/// The text as it is searched: small letters without marks. Each character stays in its place.
[[nodiscard]] QString foldedText(const QString& text);
/// The words of a question, folded, each once.
[[nodiscard]] QStringList foldedWords(const QString& question);

struct HelpHit {
    QString page;
    QString title;
    QString context;  // one line of the page around a word that was found
};

/// All pages, read when it is made.
class HelpIndex {
public:
    HelpIndex();

    /// The pages that hold all the words: first those with all of them in the title, then those with all of them
    /// in one block, then the others.
    [[nodiscard]] QList<HelpHit> find(const QStringList& words) const;

private:
    struct Page {
        QString name;
        QString title;
        QString foldedTitle;
        QStringList blocks;
        QStringList foldedBlocks;
    };

    QList<Page> m_pages;
};

}  // namespace korvex
