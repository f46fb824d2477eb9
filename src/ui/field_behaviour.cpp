#include "field_behaviour.h"

#include "arithmetic_fault.h"
#include "normalize_decimal.h"
#include "number_text.h"

#include <QEvent>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPalette>
#include <QTabWidget>
#include <QTimer>

#include <algorithm>

namespace korvex {

namespace {

class FocusSelection : public QObject {
public:
    explicit FocusSelection(QLineEdit& field) : QObject(&field), m_field(field) { }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
            const bool isOfWindow = static_cast<QFocusEvent*>(event)->reason() == Qt::ActiveWindowFocusReason;
            // Back from another window the user goes on typing where the text was left.
            const bool isBack = isOfWindow && m_isLeftByWindow;
            m_isLeftByWindow = isOfWindow && event->type() == QEvent::FocusOut;
            // At once would be too early: the click that brings the focus would undo it.
            if (event->type() == QEvent::FocusIn && !isBack)
                QTimer::singleShot(0, &m_field, &QLineEdit::selectAll);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QLineEdit& m_field;
    bool m_isLeftByWindow = false;
};

class KeyFilter : public QObject {
public:
    KeyFilter(QLineEdit& field, bool (*accepts)(int)) : QObject(&field), m_accepts(accepts) { }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress && refuses(*static_cast<QKeyEvent*>(event)))
            return true;
        // A dead key with its letter arrives as a finished text. The event itself passes: it also takes away what the
        // field showed of the dead key.
        if (event->type() == QEvent::InputMethod) {
            auto& input = *static_cast<QInputMethodEvent*>(event);
            if (!acceptsAll(input.commitString()))
                input.setCommitString({});
        }
        return QObject::eventFilter(watched, event);
    }

private:
    [[nodiscard]] bool refuses(const QKeyEvent& event) const
    {
        // Shortcuts are not typed characters.
        constexpr Qt::KeyboardModifiers shortcut = Qt::ControlModifier | Qt::MetaModifier;
        if (event.modifiers() & shortcut)
            return false;
        const QString text = event.text();
        const bool isTyped = !text.isEmpty() && text.front().category() != QChar::Other_Control;
        return isTyped && !acceptsAll(text);
    }
    [[nodiscard]] bool acceptsAll(const QString& text) const
    {
        return std::all_of(text.begin(), text.end(), [this](QChar c) { return m_accepts(c.unicode()); });
    }

    bool (*m_accepts)(int);
};

/// The ground of a field that only shows: the window's, and the new one when the desktop changes its colours.
class WindowGround : public QObject {
public:
    explicit WindowGround(QLineEdit& field) : QObject(&field), m_field(field) { take(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::PaletteChange && m_field.isReadOnly())
            take();
        return QObject::eventFilter(watched, event);
    }

private:
    void take()
    {
        QPalette palette = m_field.palette();
        if (palette.base() == palette.window())
            return;
        palette.setBrush(QPalette::Base, palette.window());
        m_field.setPalette(palette);
    }

    QLineEdit& m_field;
};

void bringBeforeUser(QWidget& field)
{
    for (QWidget* page = &field; page != nullptr && !page->isWindow(); page = page->parentWidget()) {
        // A tab's page stands in a stack that the tabs keep to themselves.
        auto* const tabs
            = page->parentWidget() ? qobject_cast<QTabWidget*>(page->parentWidget()->parentWidget()) : nullptr;
        if (tabs != nullptr && tabs->indexOf(page) >= 0)
            tabs->setCurrentWidget(page);
    }
    field.setFocus();
}

template <class Read>
auto readField(QLineEdit& field, Read read)
{
    try {
        return read();
    } catch (const ArithmeticFault&) {
        bringBeforeUser(field);
        throw;
    }
}

}  // namespace

void filterKeys(QLineEdit& field, bool (*accepts)(int keyCode))
{
    field.installEventFilter(new KeyFilter(field, accepts));
}

void showOnly(QLineEdit& field)
{
    field.setReadOnly(true);
    field.installEventFilter(new WindowGround(field));
}

void SelectAllText(QLineEdit& field)
{
    field.installEventFilter(new FocusSelection(field));
}

std::string lineText(const QLineEdit& field)
{
    QString text = field.text();
    for (const QChar lineEnd : {QLatin1Char('\r'), QLatin1Char('\n')})
        text.replace(lineEnd, QLatin1Char(' '));
    return text.toStdString();
}

float fieldSingle(QLineEdit& field, const std::string& decimalSeparator)
{
    return readField(field, [&] { return readSingle(NormalizeDecimal(field.text().toStdString(), decimalSeparator)); });
}

float plainFieldSingle(QLineEdit& field)
{
    return readField(field, [&field] { return readSingle(field.text().toStdString()); });
}

std::int32_t fieldInteger(QLineEdit& field)
{
    return readField(field, [&field] { return readInteger(field.text().toStdString()); });
}

QString singleFieldText(float value, const std::string& decimalSeparator)
{
    return QString::fromStdString(localSingleText(value, decimalSeparator));
}

}  // namespace korvex
