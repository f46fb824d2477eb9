#include "context_help.h"

#include "help_pages.h"
#include "help_viewer.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QWidget>

namespace korvex {

namespace {

/// The page of the window; of the window over which it stands when it has none; at last the contents.
QString pageFor(const QWidget* window)
{
    while (window != nullptr) {
        if (isHelpPage(window->objectName()))
            return window->objectName();
        const QWidget* const owner = window->parentWidget();
        window = owner != nullptr ? owner->window() : nullptr;
    }
    return contentsHelpPage;
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
    m_viewer->open(pageFor(window));
}

}  // namespace korvex
