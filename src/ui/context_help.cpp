#include "context_help.h"

#include "help_pages.h"
#include "help_search.h"
#include "help_viewer.h"

#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QTabWidget>
#include <QWidget>

#include <algorithm>
#include <array>

namespace korvex {

namespace {

/// A page and the section of it to begin with, which may be empty.
struct Topic {
    QString page;
    QString section;
};

/// What a message box is about, told by its title or by how its text begins. Without a page: the owner's.
struct BoxTopic {
    const char* words;
    const char* page;
    const char* section;
};

constexpr std::array boxTopics{
    BoxTopic{"Kontrola duplicit", "duplicity", "postup"},
    BoxTopic{"Výpočet středového bodu úseku liniových zdrojů", "vypocty", "stred"},
    BoxTopic{"Uložit změny ?", "ukladani", "zmena"},
    BoxTopic{"Čtení skupin prachu ze souboru", "prach", "ztrata"},
    BoxTopic{"Byly provedeny změny zdroje.", "", "tlacitka"},
};

/// Sections that tell of a page of tabs have its title in small letters without marks.
QString sectionOfTab(const QWidget& window)
{
    const auto* const tabs = window.findChild<QTabWidget*>(QString(), Qt::FindDirectChildrenOnly);
    if (tabs == nullptr)
        return {};
    QString section = foldedText(tabs->tabText(tabs->currentIndex()));
    section.removeIf([](QChar character) { return !character.isLetter(); });
    return section;
}

/// The page of the window; of the window over which it stands when it has none; at last the contents.
Topic topicOfWindow(const QWidget* window)
{
    while (window != nullptr) {
        if (isHelpPage(window->objectName()))
            return {window->objectName(), sectionOfTab(*window)};
        const QWidget* const owner = window->parentWidget();
        window = owner != nullptr ? owner->window() : nullptr;
    }
    return {contentsHelpPage, {}};
}

/// A box has something to say that mostly stands on another page than its owner's.
Topic topicOfBox(const QMessageBox& box)
{
    Topic ofOwner = topicOfWindow(&box);
    const auto* const known = std::find_if(boxTopics.begin(), boxTopics.end(), [&box](const BoxTopic& topic) {
        const QString words = QString::fromUtf8(topic.words);
        return box.windowTitle() == words || box.text().startsWith(words);
    });
    if (known != boxTopics.end()) {
        const QString page = QString::fromLatin1(known->page);
        return {page.isEmpty() ? ofOwner.page : page, QString::fromLatin1(known->section)};
    }
    // A file dialog has boxes of the toolkit, too, which the page of messages does not know.
    const bool isOfFileDialog = qobject_cast<QFileDialog*>(box.parentWidget()) != nullptr;
    if (isOfFileDialog)
        return ofOwner;
    const QString message = helpMessageSection(box.text());
    const bool isFault = box.icon() == QMessageBox::Warning || box.icon() == QMessageBox::Critical;
    return isFault || !message.isEmpty() ? Topic{messagesHelpPage, message} : ofOwner;
}

Topic topicOf(const QWidget* window)
{
    const auto* const box = qobject_cast<const QMessageBox*>(window);
    return box != nullptr ? topicOfBox(*box) : topicOfWindow(window);
}

/// A menu keeps all keys and the mouse for itself until it is closed, and the menu bar keeps the keys after it.
void closeMenus()
{
    while (QWidget* const popup = QApplication::activePopupWidget()) {
        if (!popup->close())
            break;
    }
    if (auto* const bar = qobject_cast<QMenuBar*>(QApplication::focusWidget())) {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(bar, &escape);
    }
}

}  // namespace

ContextHelp::ContextHelp(SettingsStore& settings) : m_settings(settings)
{
    QCoreApplication::instance()->installEventFilter(this);
}

ContextHelp::~ContextHelp() = default;

bool ContextHelp::eventFilter(QObject* watched, QEvent* event)
{
    // A key comes to the system's window first and from there to the widget with the focus.
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1 || (key->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    event->accept();
    if (!key->isAutoRepeat())
        showFor(static_cast<QWidget*>(watched)->window());
    return true;
}

void ContextHelp::showFor(const QWidget* window)
{
    closeMenus();
    if (window->windowType() == Qt::Popup)
        window = QApplication::activeWindow();
    if (window == m_viewer.get() && m_viewer)
        return;
    if (!m_viewer)
        m_viewer = std::make_unique<HelpViewer>(m_settings);
    const Topic topic = topicOf(window);
    m_viewer->open(topic.page, topic.section);
}

}  // namespace korvex
