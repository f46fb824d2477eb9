// Shows the focus where the toolkit does not: around a list without a current row, and around a page.
#pragma once

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QPainter>
#include <QPen>

namespace korvex {

/// For a paint event, behind the toolkit's own.
inline void drawFocusOutline(const QAbstractScrollArea& area)
{
    if (!area.hasFocus())
        return;
    QPainter painter(area.viewport());
    painter.setPen(QPen(area.palette().color(QPalette::Text), 1, Qt::DotLine));
    painter.drawRect(area.viewport()->rect().adjusted(0, 0, -1, -1));
}

/// One of the toolkit's lists or tables that shows the focus without a row as well.
template <class List>
class FocusShowing : public List {
public:
    using List::List;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        List::paintEvent(event);
        if (!this->currentIndex().isValid())
            drawFocusOutline(*this);
    }
};

}  // namespace korvex
