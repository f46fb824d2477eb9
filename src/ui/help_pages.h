// The pages of the help, which travel in the program: their files, titles, texts and contents.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

namespace korvex {

/// A page is known by the name of its file without ".html"; the page of a window has the window's object name.
extern const QString contentsHelpPage;
extern const QString messagesHelpPage;

[[nodiscard]] QStringList helpPageNames();
[[nodiscard]] bool isHelpPage(const QString& name);
[[nodiscard]] QUrl helpPageAddress(const QString& name);
/// Empty for an address that is no page of the help.
[[nodiscard]] QString helpPageAt(const QUrl& address);

struct HelpText {
    QString title;
    /// What people look for here in other words than the page's own.
    QString keywords;
    /// Those within the page.
    QStringList headings;
    /// The texts of headings, paragraphs, entries and table rows, one after the other, without the links to the
    /// page's own sections.
    QStringList blocks;
};

[[nodiscard]] HelpText helpText(const QString& name);

/// Where the page of messages tells of the first one that this text holds: the id in its row. Empty when it does not.
[[nodiscard]] QString helpMessageSection(const QString& text);

struct HelpChapter {
    QString title;
    QString page;
    QList<HelpChapter> parts;
};

/// The contents page as a tree.
[[nodiscard]] QList<HelpChapter> helpChapters();

}  // namespace korvex
