#include "shown_texts.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QToolButton>

namespace korvex {

namespace {

class TextFinder {
public:
    void look(const QWidget& widget)
    {
        if (const auto* const label = qobject_cast<const QLabel*>(&widget))
            lookAt(*label);
        else if (const auto* const tool = qobject_cast<const QToolButton*>(&widget))
            lookAt(*tool);
        else if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
            lookAt(*button);
        else if (const auto* const tabs = qobject_cast<const QTabBar*>(&widget))
            lookAt(*tabs);
        else if (const auto* const group = qobject_cast<const QGroupBox*>(&widget))
            lookAt(*group);
        else if (const auto* const choice = qobject_cast<const QComboBox*>(&widget))
            lookAt(*choice);
        else if (const auto* const field = qobject_cast<const QLineEdit*>(&widget))
            lookAt(*field);
        else if (const auto* const header = qobject_cast<const QHeaderView*>(&widget))
            lookAt(*header);
        else if (const auto* const view = qobject_cast<const QAbstractItemView*>(&widget))
            lookAt(*view);
        else if (const auto* const page = qobject_cast<const QTextBrowser*>(&widget))
            lookAt(*page);
        else if (const auto* const bar = qobject_cast<const QMenuBar*>(&widget))
            lookAtActions(*bar);
        else if (const auto* const menu = qobject_cast<const QMenu*>(&widget))
            lookAtActions(*menu);
    }

    [[nodiscard]] const QList<ShownText>& texts() const { return m_texts; }

private:
    void add(const QWidget& widget, const QString& text, const QRect& place, QSize need)
    {
        add(widget, text, place, need, widget.isEnabled());
    }
    void add(const QWidget& widget, const QString& text, const QRect& place, QSize need, bool canBeUsed)
    {
        if (!text.trimmed().isEmpty())
            m_texts.append({&widget, text, visiblePart(widget, place), need, canBeUsed});
    }
    static QSize sizeOf(const QWidget& widget, const QString& text)
    {
        return widget.fontMetrics().size(Qt::TextShowMnemonic, text);
    }

    /// A number that is cut off is another number; of a name or a path the beginning will do.
    static int roomOfNumber(const QWidget& widget, const QString& text)
    {
        bool isNumber = false;
        QLocale(QLocale::Czech).toDouble(text, &isNumber);
        return isNumber ? widget.fontMetrics().horizontalAdvance(text) : 0;
    }

    void lookAt(const QLabel& label)
    {
        const QRect place = label.contentsRect();
        QSize need = sizeOf(label, label.text());
        if (label.wordWrap())
            need = label.fontMetrics().boundingRect(place, Qt::TextWordWrap, label.text()).size();
        if (label.sizePolicy().horizontalPolicy() == QSizePolicy::Ignored)
            need.setWidth(0);
        add(label, label.text(), place, need);
    }
    void lookAt(const QToolButton& button)
    {
        constexpr int edge = 3;
        QRect place = button.rect().adjusted(edge, edge, -edge, -edge);
        if (button.toolButtonStyle() == Qt::ToolButtonTextBesideIcon)
            place.setLeft(place.left() + button.iconSize().width());
        if (button.toolButtonStyle() != Qt::ToolButtonIconOnly || button.icon().isNull())
            add(button, button.text(), place, sizeOf(button, button.text()));
    }
    void lookAt(const QAbstractButton& button)
    {
        QStyleOptionButton option;
        option.initFrom(&button);
        option.text = button.text();
        QStyle::SubElement part = QStyle::SE_PushButtonContents;
        if (qobject_cast<const QCheckBox*>(&button) != nullptr)
            part = QStyle::SE_CheckBoxContents;
        else if (qobject_cast<const QRadioButton*>(&button) != nullptr)
            part = QStyle::SE_RadioButtonContents;
        add(button, button.text(), button.style()->subElementRect(part, &option, &button),
            sizeOf(button, button.text()));
    }
    void lookAt(const QTabBar& tabs)
    {
        constexpr int edge = 5;
        for (int i = 0; i < tabs.count(); ++i)
            add(tabs, tabs.tabText(i), tabs.tabRect(i).adjusted(edge, edge, -edge, -2), sizeOf(tabs, tabs.tabText(i)));
    }
    void lookAt(const QGroupBox& group)
    {
        QStyleOptionGroupBox option;
        option.initFrom(&group);
        option.text = group.title();
        option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
        const QRect place
            = group.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, &group);
        add(group, group.title(), place, place.size());
    }
    void lookAt(const QComboBox& choice)
    {
        QStyleOptionComboBox option;
        option.initFrom(&choice);
        option.subControls = QStyle::SC_All;
        const QRect place
            = choice.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &choice);
        add(choice, choice.currentText(), place, sizeOf(choice, choice.currentText()));
    }
    void lookAt(const QLineEdit& field)
    {
        constexpr int edge = 4;
        add(field, field.text(), field.rect().adjusted(edge, 2, -edge, -2),
            QSize(roomOfNumber(field, field.text()), field.fontMetrics().height()));
    }
    void lookAt(const QHeaderView& header)
    {
        if (header.orientation() == Qt::Vertical)
            return;
        constexpr int edge = 3;
        for (int i = 0; i < header.count(); ++i) {
            const QString text = header.model()->headerData(i, Qt::Horizontal).toString();
            const QRect place(header.sectionViewportPosition(i), 0, header.sectionSize(i), header.viewport()->height());
            add(*header.viewport(), text, place.adjusted(edge, 0, -edge, 0), sizeOf(header, text), header.isEnabled());
        }
    }
    void lookAt(const QAbstractItemView& view)
    {
        const QWidget& viewport = *view.viewport();
        constexpr int step = 6;  // finer than any row is high
        QSet<QModelIndex> indexes;
        for (int y = 0; y < viewport.height(); y += step) {
            for (int x = 0; x < viewport.width(); x += 2 * step)
                indexes.insert(view.indexAt(QPoint(x, y)));
        }
        indexes.remove(QModelIndex());
        for (const QModelIndex& index : indexes) {
            QRect place = view.visualRect(index).adjusted(2, 2, -2, -2);
            const bool isCutByTheEdge = place.bottom() > viewport.rect().bottom() || place.top() < 0;
            if (isCutByTheEdge)
                continue;
            if (index.data(Qt::DecorationRole).isValid())
                place.setLeft(place.left() + smallIconSize(view) + step);
            const bool canBeUsed = view.isEnabled() && index.flags().testFlag(Qt::ItemIsEnabled);
            constexpr int edges = 4;
            const QString text = index.data().toString();
            add(viewport, text, place, QSize(roomOfNumber(view, text), view.fontMetrics().height() - edges), canBeUsed);
        }
    }
    void lookAt(const QTextBrowser& page)
    {
        QTextCursor cursor(page.document());
        for (QTextBlock block = page.document()->begin(); block.isValid(); block = block.next()) {
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                cursor.setPosition(part.fragment().position());
                const QRect start = page.cursorRect(cursor);
                cursor.setPosition(part.fragment().position() + part.fragment().length());
                const QRect end = page.cursorRect(cursor);
                const QRect place(start.topLeft(), end.bottomRight());
                const bool isOnOneLine = start.top() == end.top() && place.width() > start.width();
                if (isOnOneLine && page.viewport()->rect().contains(place))
                    add(*page.viewport(), part.fragment().text(), place, {}, true);
            }
        }
    }
    template <class Menu>
    void lookAtActions(const Menu& menu)
    {
        for (QAction* const action : menu.actions()) {
            if (action->isVisible() && !action->isSeparator())
                add(menu, action->text(), menu.actionGeometry(action), sizeOf(menu, action->text()),
                    action->isEnabled());
        }
    }

    QList<ShownText> m_texts;
};

}  // namespace

int smallIconSize(const QWidget& widget)
{
    return widget.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &widget);
}

QRect visiblePart(const QWidget& widget, const QRect& place)
{
    QRect part = place & widget.rect();
    for (const QWidget* inner = &widget; !inner->isWindow(); inner = inner->parentWidget()) {
        const QWidget& outer = *inner->parentWidget();
        part &= outer.rect().translated(widget.mapFrom(&outer, QPoint()));
    }
    return part;
}

QList<ShownText> shownTexts(const QWidget& window)
{
    TextFinder finder;
    finder.look(window);
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->window() == &window)
            finder.look(*widget);
    }
    return finder.texts();
}

}  // namespace korvex
