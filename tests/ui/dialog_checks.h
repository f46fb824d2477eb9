// What the tests of the dialogs look at alike: mnemonics, the way of the Tab key, names for assistive technology.
#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QObject>
#include <QPushButton>
#include <QString>
#include <QStringList>
#include <QTabBar>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace korvex {

template <class Widget>
[[nodiscard]] Widget& child(const QWidget& dialog, const char* objectName)
{
    auto* const found = dialog.findChild<Widget*>(QLatin1String(objectName));
    if (found == nullptr)
        qFatal("The dialog has no %s of this type.", objectName);
    return *found;
}

/// The toolkit's own wait is content when the dialog's owner has the focus.
[[nodiscard]] inline bool waitUntilActive(const QDialog& dialog)
{
    return QTest::qWaitFor([&dialog] { return QApplication::activeWindow() == &dialog; });
}

/// The caption of the label that names the field.
[[nodiscard]] inline QString captionOf(const QWidget& dialog, const QWidget& field)
{
    for (const QLabel* const label : dialog.findChildren<QLabel*>()) {
        if (label->buddy() == &field)
            return label->text();
    }
    return {};
}

/// The letters of all mnemonics, sorted, twice when used twice.
[[nodiscard]] inline QString mnemonics(const QWidget& dialog)
{
    QStringList captions;
    for (const QAbstractButton* const button : dialog.findChildren<QAbstractButton*>())
        captions << button->text();
    for (const QLabel* const label : dialog.findChildren<QLabel*>()) {
        if (label->buddy() != nullptr)
            captions << label->text();
    }
    for (const QTabBar* const tabs : dialog.findChildren<QTabBar*>()) {
        for (int tab = 0; tab < tabs->count(); ++tab)
            captions << tabs->tabText(tab);
    }
    QString letters;
    for (const QString& caption : captions) {
        const qsizetype mark = caption.indexOf(QLatin1Char('&'));
        if (mark >= 0 && mark + 1 < caption.size())
            letters += caption.at(mark + 1).toUpper();
    }
    std::sort(letters.begin(), letters.end());
    return letters;
}

/// The object names that the Tab key brings the focus to, from the widget that has it now, once round.
[[nodiscard]] inline QStringList tabOrder()
{
    QStringList names;
    const QWidget* const first = QApplication::focusWidget();
    constexpr int most = 50;
    while (QApplication::focusWidget() != nullptr && names.size() < most) {
        names << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        if (QApplication::focusWidget() == first)
            break;
    }
    return names;
}

/// The widgets that can have the focus and have no name that can be spoken. A bar of tabs speaks by its tabs.
[[nodiscard]] inline QStringList namelessWidgets(const QWidget& dialog)
{
    QStringList names;
    for (QWidget* const widget : dialog.findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->focusProxy() != nullptr
            || qobject_cast<QTabBar*>(widget) != nullptr || widget->objectName().startsWith(QStringLiteral("qt_")))
            continue;
        QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(widget);
        if (accessible == nullptr || accessible->text(QAccessible::Name).trimmed().isEmpty())
            names << QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') + widget->objectName();
    }
    return names;
}

/// To the window and not to the field, for only then does the press bring the focus.
inline void clickInto(const QWidget& field)
{
    const QWidget* const window = field.window();
    constexpr int inside = 6;
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, field.mapTo(window, QPoint(inside, inside)));
}

/// The widget's centre, in the window.
[[nodiscard]] inline QPoint placeOf(const QWidget& widget)
{
    return widget.mapTo(widget.window(), widget.rect().center());
}

/// The push buttons that Enter presses.
[[nodiscard]] inline QStringList defaultButtons(const QWidget& dialog)
{
    QStringList names;
    for (const QPushButton* const button : dialog.findChildren<QPushButton*>()) {
        if (button->isDefault())
            names << button->objectName();
    }
    return names;
}

/// Counts the presses of F1 that reach a window.
class HelpKeySpy : public QObject {
public:
    explicit HelpKeySpy(QWidget& window) { window.installEventFilter(this); }

    [[nodiscard]] int presses() const { return m_presses; }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F1)
            ++m_presses;
        return QObject::eventFilter(watched, event);
    }

private:
    int m_presses = 0;
};

}  // namespace korvex
