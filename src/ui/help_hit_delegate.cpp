#include "help_hit_delegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QStyle>

namespace korvex {

namespace {

QFont titleFont(const QFont& font)
{
    QFont bold = font;
    bold.setBold(true);
    return bold;
}

/// Where title and context stand in a place of this width.
struct HitLayout {
    HitLayout(const QString& text, const QFont& font, const QRect& place)
        : title(text.section(QLatin1Char('\n'), 0, 0)), context(text.section(QLatin1Char('\n'), 1))
    {
        const QFontMetrics metrics(font);
        margin = metrics.averageCharWidth() / 2;
        const QRect room = place.adjusted(margin, margin, -margin, -margin);
        titlePlace = QFontMetrics(titleFont(font)).boundingRect(room, flags, title);
        contextPlace = metrics.boundingRect(room.adjusted(0, titlePlace.height(), 0, 0), flags, context);
    }

    static constexpr int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;
    QString title;
    QString context;
    int margin = 0;
    QRect titlePlace;
    QRect contextPlace;
};

}  // namespace

void HelpHitDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    // Not the text of the style option, whose line ends are others.
    const HitLayout layout(index.data().toString(), item.font, item.rect);
    item.text.clear();
    const QStyle* const style = item.widget != nullptr ? item.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);

    const bool isSelected = item.state.testFlag(QStyle::State_Selected);
    const QPalette::ColorGroup group
        = item.state.testFlag(QStyle::State_Active) ? QPalette::Normal : QPalette::Inactive;
    painter->save();
    painter->setPen(item.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text));
    painter->setFont(item.font);
    painter->drawText(layout.contextPlace, HitLayout::flags, layout.context);
    painter->setFont(titleFont(item.font));
    painter->drawText(layout.titlePlace, HitLayout::flags, layout.title);
    painter->restore();
}

QSize HelpHitDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const auto* const view = qobject_cast<const QAbstractItemView*>(option.widget);
    const int width = view != nullptr ? view->viewport()->width() : option.rect.width();
    constexpr int enoughForAll = 10000;
    const HitLayout layout(index.data().toString(), option.font, QRect(0, 0, width, enoughForAll));
    return {width, layout.contextPlace.bottom() + 1 + layout.margin};
}

}  // namespace korvex
