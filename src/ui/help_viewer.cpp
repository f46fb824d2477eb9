#include "help_viewer.h"

#include "help_browser.h"
#include "help_hit_delegate.h"
#include "help_pages.h"
#include "help_search.h"
#include "version.h"

#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyle>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace korvex {

namespace {

constexpr int pageRole = Qt::UserRole;

QString pageOf(const QTreeWidgetItem* item)
{
    return item != nullptr ? item->data(0, pageRole).toString() : QString();
}

}  // namespace

// Without an owner: the help stays usable beside a modal dialog, and open when that closes.
HelpViewer::HelpViewer(SettingsStore& settings)
    : m_placement(*this, settings, Resizable::Yes), m_browser(new HelpBrowser(this))
{
    setObjectName(QStringLiteral("HelpViewer"));
    setWindowTitle(QStringLiteral("Nápověda – ") + QString::fromUtf8(version::productName));
    // The program ends with its own windows.
    setAttribute(Qt::WA_QuitOnClose, false);

    m_browser->setObjectName(QStringLiteral("page"));
    m_browser->setAccessibleName(QStringLiteral("Stránka nápovědy"));
    // A picture is made to fit before it is known that the page needs the bar.
    m_browser->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    buildActions();
    auto* const topRow = makeTopRow();
    auto* const splitter = new QSplitter(this);
    splitter->setObjectName(QStringLiteral("splitter"));
    splitter->addWidget(makeLeftSide());
    splitter->addWidget(m_browser);
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(topRow);
    layout->addWidget(splitter, 1);
    setTabOrder(m_results, m_browser);

    connect(m_browser, &HelpBrowser::pageChanged, this, &HelpViewer::followPage);
    takeSize();
    m_contents->resizeColumnToContents(0);
    const int contentsWidth = m_contents->columnWidth(0) + 2 * m_contents->frameWidth()
        + m_contents->verticalScrollBar()->sizeHint().width();
    splitter->setSizes({contentsWidth, width() - contentsWidth});
}

HelpViewer::~HelpViewer()
{
    // The program ended and left the window open.
    if (isVisible())
        m_placement.store();
}

void HelpViewer::buildActions()
{
    const auto action = [this](const char* name, const char* caption, QStyle::StandardPixmap icon, const char* key) {
        auto* const made = new QAction(style()->standardIcon(icon), QString::fromUtf8(caption), this);
        made->setObjectName(QLatin1String(name));
        made->setShortcut(QKeySequence(QLatin1String(key)));
        addAction(made);
        return made;
    };
    m_back = action("back", "Zpět", QStyle::SP_ArrowBack, "Alt+Left");
    m_forward = action("forward", "Vpřed", QStyle::SP_ArrowForward, "Alt+Right");
    m_home = action("home", "Domů", QStyle::SP_DirHomeIcon, "Alt+Home");
    m_back->setToolTip(QStringLiteral("Předchozí stránka (Alt+šipka vlevo)"));
    m_forward->setToolTip(QStringLiteral("Další stránka (Alt+šipka vpravo)"));
    m_home->setToolTip(QStringLiteral("Obsah nápovědy (Alt+Home)"));
    m_back->setEnabled(false);
    m_forward->setEnabled(false);
    connect(m_back, &QAction::triggered, m_browser, &QTextBrowser::backward);
    connect(m_forward, &QAction::triggered, m_browser, &QTextBrowser::forward);
    connect(m_browser, &QTextBrowser::backwardAvailable, m_back, &QAction::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, m_forward, &QAction::setEnabled);
    connect(m_home, &QAction::triggered, this, [this] { m_browser->showPage(contentsHelpPage); });

    const auto key = [this](const char* keys, const std::function<void()>& act) {
        connect(new QShortcut(QKeySequence(QLatin1String(keys)), this), &QShortcut::activated, this, act);
    };
    key("Ctrl+F", [this] {
        m_question->setFocus(Qt::ShortcutFocusReason);
        m_question->selectAll();
    });
    key("Esc", [this] { escape(); });
    // With and without Shift, for the two keys stand elsewhere on every keyboard.
    for (const char* const keys : {"Ctrl++", "Ctrl+="})
        key(keys, [this] { m_browser->zoomTo(m_browser->zoom() + 1); });
    key("Ctrl+-", [this] { m_browser->zoomTo(m_browser->zoom() - 1); });
    key("Ctrl+0", [this] { m_browser->zoomTo(0); });
}

QHBoxLayout* HelpViewer::makeTopRow()
{
    auto* const row = new QHBoxLayout;
    for (QAction* const action : {m_back, m_forward, m_home}) {
        auto* const button = new QToolButton(this);
        button->setObjectName(action->objectName() + QStringLiteral("Button"));
        button->setDefaultAction(action);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setAutoRaise(true);
        row->addWidget(button);
    }
    row->addStretch();
    auto* const label = new QLabel(QStringLiteral("&Hledat:"), this);
    m_question = new QLineEdit(this);
    m_question->setObjectName(QStringLiteral("question"));
    m_question->setToolTip(QStringLiteral("Slova, která má stránka obsahovat (Ctrl+F)"));
    m_question->setClearButtonEnabled(true);
    constexpr int shownCharacters = 30;
    m_question->setMinimumWidth(shownCharacters * fontMetrics().averageCharWidth());
    m_question->installEventFilter(this);
    label->setBuddy(m_question);
    row->addWidget(label);
    row->addWidget(m_question);
    connect(m_question, &QLineEdit::textChanged, this, &HelpViewer::search);
    connect(m_question, &QLineEdit::returnPressed, this, &HelpViewer::openFirstHit);
    return row;
}

QWidget* HelpViewer::makeLeftSide()
{
    m_left = new QStackedWidget(this);
    m_contents = new QTreeWidget(m_left);
    m_contents->setObjectName(QStringLiteral("contents"));
    m_contents->setAccessibleName(QStringLiteral("Obsah nápovědy"));
    m_contents->setHeaderHidden(true);
    // Titles that are wider than the tree can be scrolled to.
    m_contents->header()->setStretchLastSection(false);
    m_contents->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    addChapter({helpText(contentsHelpPage).title, contentsHelpPage, {}}, nullptr);
    addChapters(helpChapters(), nullptr);
    m_contents->expandAll();
    connect(m_contents, &QTreeWidget::currentItemChanged, this, &HelpViewer::showCurrentChapter);
    m_left->addWidget(m_contents);

    m_resultPage = new QWidget(m_left);
    m_resultCount = new QLabel(m_resultPage);
    m_resultCount->setObjectName(QStringLiteral("resultCount"));
    m_resultCount->setTextFormat(Qt::PlainText);
    m_resultCount->setWordWrap(true);
    m_results = new QListWidget(m_resultPage);
    m_results->setObjectName(QStringLiteral("results"));
    m_results->setAccessibleName(QStringLiteral("Nalezené stránky"));
    m_results->setItemDelegate(new HelpHitDelegate(m_results));
    // The lines are broken anew for another width.
    m_results->setResizeMode(QListView::Adjust);
    m_results->setAlternatingRowColors(true);
    m_results->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(m_results, &QListWidget::itemActivated, this, &HelpViewer::openHit);
    connect(m_results, &QListWidget::itemClicked, this, &HelpViewer::openHit);
    auto* const layout = new QVBoxLayout(m_resultPage);
    layout->setContentsMargins({});
    layout->addWidget(m_resultCount);
    layout->addWidget(m_results, 1);
    m_left->addWidget(m_resultPage);
    return m_left;
}

void HelpViewer::addChapters(const QList<HelpChapter>& chapters, QTreeWidgetItem* group)
{
    for (const HelpChapter& chapter : chapters)
        addChapter(chapter, group);
}

void HelpViewer::addChapter(const HelpChapter& chapter, QTreeWidgetItem* group)
{
    auto* const item = group != nullptr ? new QTreeWidgetItem(group) : new QTreeWidgetItem(m_contents);
    item->setText(0, chapter.title);
    item->setData(0, pageRole, chapter.page);
    // A group shows the first of its pages, which stands below it once more: that is where the page is at home.
    m_chapterOfPage[chapter.page] = item;
    addChapters(chapter.parts, item);
}

void HelpViewer::takeSize()
{
    constexpr int shownCharacters = 150;
    constexpr int shownLines = 42;
    const QSize designed(shownCharacters * fontMetrics().averageCharWidth(), shownLines * fontMetrics().lineSpacing());
    resize(designed.boundedTo(screen()->availableSize()));
    // Never placed before, it is for the window manager to find a place beside the window that asked.
    if (m_placement.isStored())
        m_placement.restore();
}

void HelpViewer::open(const QString& page, const QString& section)
{
    m_question->clear();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    // Where a section stands is known in the width that the page is shown in.
    show();
    QUrl address = helpPageAddress(page);
    if (!section.isEmpty())
        address.setFragment(section);
    // Of a page that is shown elsewhere, too: the key would otherwise seem to do nothing.
    m_browser->setSource(address);
    raise();
    activateWindow();
    m_browser->setFocus();
}

QString HelpViewer::page() const
{
    return m_browser->page();
}

void HelpViewer::showCurrentChapter()
{
    const QString chosen = pageOf(m_contents->currentItem());
    if (!chosen.isEmpty() && chosen != page())
        m_browser->showPage(chosen);
}

void HelpViewer::followPage()
{
    const QString shown = page();
    m_browser->setAccessibleDescription(m_browser->documentTitle());
    // A group that was chosen stays chosen: going up the tree would otherwise end at its first page.
    if (pageOf(m_contents->currentItem()) != shown)
        m_contents->setCurrentItem(m_chapterOfPage.value(shown));
}

void HelpViewer::search()
{
    const QStringList words = foldedWords(m_question->text());
    m_results->clear();
    m_browser->highlight(words);
    m_left->setCurrentWidget(words.isEmpty() ? static_cast<QWidget*>(m_contents) : m_resultPage);
    if (words.isEmpty())
        return;
    if (!m_index)
        m_index = std::make_unique<HelpIndex>();
    for (const HelpHit& hit : m_index->find(words)) {
        auto* const item = new QListWidgetItem(hit.title + QLatin1Char('\n') + hit.context, m_results);
        item->setData(pageRole, hit.page);
    }
    m_resultCount->setText(m_results->count() > 0
            ? QStringLiteral("Nalezené stránky: %1").arg(m_results->count())
            : QStringLiteral("Nic nenalezeno. Zkuste méně slov nebo jen jejich začátek."));
}

void HelpViewer::openHit(const QListWidgetItem* hit)
{
    m_browser->showPage(hit->data(pageRole).toString());
    m_browser->scrollToHighlight();
}

void HelpViewer::openFirstHit()
{
    if (m_results->count() == 0)
        return;
    if (m_results->currentRow() < 0)
        m_results->setCurrentRow(0);
    openHit(m_results->currentItem());
    m_results->setFocus();
}

void HelpViewer::escape()
{
    if (m_question->text().isEmpty()) {
        close();
        return;
    }
    m_question->clear();
    m_browser->setFocus();
}

bool HelpViewer::eventFilter(QObject* watched, QEvent* event)
{
    const bool isDown = event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down;
    if (watched == m_question && isDown && m_results->count() > 0) {
        if (m_results->currentRow() < 0)
            m_results->setCurrentRow(0);
        m_results->setFocus();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void HelpViewer::closeEvent(QCloseEvent* event)
{
    m_placement.store();
    QWidget::closeEvent(event);
}

}  // namespace korvex
