#include "help_browser.h"

#include "colour_contrast.h"
#include "focus_outline.h"
#include "help_pages.h"
#include "help_search.h"

#include <QEvent>
#include <QFile>
#include <QImage>
#include <QPalette>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>

namespace korvex {

namespace {

/// The palette's colour of links. Dark themes often leave it at dark blue: then it is drawn towards the colour of text.
QColor linkColour(const QPalette& palette)
{
    constexpr double readable = 4.5;
    return drawnTowards(
        palette.color(QPalette::Link), palette.color(QPalette::Text), {palette.color(QPalette::Base)}, readable);
}

/// A page without the pictures that there are none of.
QString withoutMissingPictures(QString html)
{
    static const QRegularExpression picture(QStringLiteral("(<p>)?<img src=\"([^\"]*)\"[^>]*/>(?(1)</p>)"));
    qsizetype from = 0;
    for (;;) {
        const QRegularExpressionMatch match = picture.match(html, from);
        if (!match.hasMatch())
            return html;
        const QString file = helpPageAddress(contentsHelpPage).resolved(QUrl(match.captured(2))).path();
        from = match.capturedEnd();
        if (!QFile::exists(QLatin1Char(':') + file)) {
            html.remove(match.capturedStart(), match.capturedLength());
            from = match.capturedStart();
        }
    }
}

}  // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent)
{
    // Of an address outside the help the toolkit would make an empty page.
    setOpenLinks(false);
    connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::follow);
    connect(this, &QTextBrowser::sourceChanged, this, &HelpBrowser::pageHasChanged);
    // What scrolls takes the outline of the focus with it.
    for (const QScrollBar* const bar : {verticalScrollBar(), horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, viewport(), qOverload<>(&QWidget::update));
    applyColours();
    document()->setDocumentMargin(2.0 * fontMetrics().averageCharWidth());
}

void HelpBrowser::showPage(const QString& page)
{
    setSource(helpPageAddress(page));
}

/// The toolkit's own source() is still the old one then.
void HelpBrowser::pageHasChanged(const QUrl& address)
{
    m_page = helpPageAt(address);
    showHighlights();
    emit pageChanged();
}

void HelpBrowser::focusInEvent(QFocusEvent* event)
{
    QTextBrowser::focusInEvent(event);
    viewport()->update();
}

void HelpBrowser::focusOutEvent(QFocusEvent* event)
{
    QTextBrowser::focusOutEvent(event);
    viewport()->update();
}

void HelpBrowser::paintEvent(QPaintEvent* event)
{
    QTextBrowser::paintEvent(event);
    drawFocusOutline(*this);
}

void HelpBrowser::follow(const QUrl& address)
{
    if (!helpPageAt(address).isEmpty())
        setSource(address);
}

void HelpBrowser::highlight(const QStringList& words)
{
    m_words = words;
    showHighlights();
}

void HelpBrowser::showHighlights()
{
    // The text has a character for each place of the document.
    const QString text = foldedText(document()->toPlainText());
    QList<ExtraSelection> found;
    for (const QString& word : m_words) {
        for (qsizetype at = beginningOf(word, text); at >= 0; at = beginningOf(word, text, at + word.size())) {
            ExtraSelection selection;
            selection.cursor = QTextCursor(document());
            selection.cursor.setPosition(static_cast<int>(at));
            selection.cursor.setPosition(static_cast<int>(at + word.size()), QTextCursor::KeepAnchor);
            selection.format.setBackground(palette().highlight());
            selection.format.setForeground(palette().highlightedText());
            found.append(selection);
        }
    }
    setExtraSelections(found);
}

void HelpBrowser::scrollToHighlight()
{
    const QList<ExtraSelection> found = extraSelections();
    if (found.isEmpty())
        return;
    // Where most of the words are; the title has them for the whole page.
    const ExtraSelection* best = &found.first();
    qsizetype mostWords = 0;
    for (const ExtraSelection& selection : found) {
        const QTextBlock block = selection.cursor.block();
        const qsizetype count = wordsIn(foldedText(block.text()), m_words);
        if (count > mostWords && block != document()->firstBlock()) {
            best = &selection;
            mostWords = count;
        }
    }
    const QRect place = cursorRect(best->cursor);
    constexpr int linesAbove = 3;
    verticalScrollBar()->setValue(
        verticalScrollBar()->value() + place.top() - linesAbove * fontMetrics().lineSpacing());
}

void HelpBrowser::zoomTo(int steps)
{
    constexpr int smallest = -4;
    constexpr int largest = 16;
    const int bounded = std::clamp(steps, smallest, largest);
    zoomIn(bounded - m_zoom);
    m_zoom = bounded;
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name)
{
    QVariant resource = QTextBrowser::loadResource(type, name);
    if (type == QTextDocument::HtmlResource)
        return withoutMissingPictures(QString::fromUtf8(resource.toByteArray()));
    if (type == QTextDocument::ImageResource) {
        QImage image;
        // The bar comes when the page has been read, and takes its room then.
        const int room = width() - 2 * frameWidth() - verticalScrollBar()->sizeHint().width()
            - 2 * static_cast<int>(document()->documentMargin()) - 2 * fontMetrics().averageCharWidth();
        if (image.loadFromData(resource.toByteArray()) && image.width() > room && room > 0)
            return image.scaledToWidth(room, Qt::SmoothTransformation);
    }
    return resource;
}

void HelpBrowser::applyColours()
{
    const QPalette& colours = palette();
    constexpr double borderStrength = 0.35;
    document()->setDefaultStyleSheet(
        QStringLiteral("a { color: %1; } th { background-color: %2; } table { border-color: %3; }")
            .arg(linkColour(colours).name(), colours.color(QPalette::AlternateBase).name(),
                mixed(colours.color(QPalette::Base), colours.color(QPalette::Text), borderStrength).name()));
}

void HelpBrowser::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    applyColours();
    if (m_page.isEmpty())
        return;
    // Colours are put into a page when it is read.
    const int place = verticalScrollBar()->value();
    reload();
    verticalScrollBar()->setValue(place);
}

}  // namespace korvex
