// How a found page is drawn in the list: its title in bold, the line of context below it.
#pragma once

#include <QStyledItemDelegate>

namespace korvex {

/// The item's text is the title, a line end and the context.
class HelpHitDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace korvex
