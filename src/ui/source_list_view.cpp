#include "source_list_view.h"

#include "focus_outline.h"
#include "source_list_access.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPen>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTimer>

#include <algorithm>

namespace korvex {

namespace {

/// Draws marked rows as selected; the focus is drawn around the whole row by the view.
class MarkDelegate : public QStyledItemDelegate {
public:
    MarkDelegate(const SourceListModel& model, QObject* parent) : QStyledItemDelegate(parent), m_model(model) { }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state.setFlag(QStyle::State_Selected, m_model.marked(index.row()));
        option->state.setFlag(QStyle::State_HasFocus, false);
    }

private:
    const SourceListModel& m_model;
};

/// The type code of Ctrl+1, Ctrl+2, Ctrl+3; 0 for another key. Digits are on the shifted row of a Czech keyboard,
/// where the keys send "+", "ě" and "š": what counts then is which key it was.
int typeOfDigitKey(const QKeyEvent& event)
{
    constexpr quint32 scanCodeOfOne = 10;  // of X11 and Wayland
    if (event.key() >= Qt::Key_1 && event.key() <= Qt::Key_3)
        return event.key() - Qt::Key_0;
    if (event.nativeScanCode() >= scanCodeOfOne && event.nativeScanCode() < scanCodeOfOne + 3)
        return static_cast<int>(event.nativeScanCode() - scanCodeOfOne) + 1;
    return 0;
}

bool isMarkingModifier(Qt::KeyboardModifiers modifiers)
{
    return modifiers.testFlag(Qt::ShiftModifier) || modifiers.testFlag(Qt::ControlModifier);
}

}  // namespace

SourceListView::SourceListView(SourceListModel& model, QWidget* parent) : QTableView(parent), m_model(model)
{
    // Before the list is first looked at: what is seen then stays.
    installSourceListAccess();
    setModel(&model);
    setItemDelegate(new MarkDelegate(model, this));
    setSelectionMode(QAbstractItemView::NoSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setAccessibleName(tr("Seznam zdrojů"));

    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(
        std::max(fontMetrics().height(), iconSize().height()) + fontMetrics().leading() + 4);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    connect(horizontalHeader(), &QHeaderView::sectionClicked, &model, &SourceListModel::sortByHeader);
    connect(&model, &SourceListModel::sortChanged, this, &SourceListView::showSortArrow);
    connect(&model, &SourceListModel::marksChanged, viewport(), qOverload<>(&QWidget::update));
    connect(&model, &SourceListModel::marksChanged, this, [this] { tellMarkOfCurrentRow(*this); });
    connect(&model, &QAbstractItemModel::modelReset, this, [this] { m_anchor = 0; });
}

void SourceListView::showSortArrow()
{
    QHeaderView* const header = horizontalHeader();
    const bool isSorted = m_model.sortColumn() >= 0;
    header->setSortIndicatorShown(isSorted);
    if (isSorted)
        header->setSortIndicator(m_model.sortColumn(),
            m_model.sortDirection() == SortDirection::Ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void SourceListView::makeCurrent(int row)
{
    if (row < 0)
        return;
    const QModelIndex index = m_model.index(row, SourceListModel::NumberColumn);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    scrollTo(index);
    viewport()->update();
}

void SourceListView::keyboardSearch(const QString& typed)
{
    const int rowCount = m_model.rowCount();
    if (rowCount == 0 || typed.isEmpty())
        return;
    const bool continues = m_sinceTyped.isValid() && m_sinceTyped.elapsed() < QApplication::keyboardInputInterval();
    m_searched = continues ? m_searched + typed : typed;
    m_sinceTyped.start();
    // The current row may still match a longer text; a new search begins behind it.
    const int first = std::max(currentRow(), 0) + (m_searched.size() > 1 ? 0 : 1);
    for (int i = 0; i < rowCount; ++i) {
        const int row = (first + i) % rowCount;
        if (m_model.numberText(row).startsWith(m_searched)) {
            makeCurrent(row);
            markByPress(row, Qt::NoModifier);
            return;
        }
    }
}

void SourceListView::keyPressEvent(QKeyEvent* event)
{
    const int rowBefore = currentRow();
    if (handleCommandKey(*event)) {
        event->accept();
    } else {
        QTableView::keyPressEvent(event);
        markByKey(*event, rowBefore);
    }
    emit statusOutdated();
}

bool SourceListView::handleCommandKey(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    // The signs last: with Ctrl, a Czech keyboard sends one for a digit.
    return (modifiers == Qt::NoModifier && handlePlainKey(event))
        || (modifiers == Qt::ControlModifier && handleControlKey(event))
        || (modifiers == (Qt::ControlModifier | Qt::ShiftModifier) && handleControlShiftKey(event))
        || handleSignKey(event);
}

/// Off the numeric pad the signs do nothing: the search by typing must not react to them.
bool SourceListView::handleSignKey(const QKeyEvent& event)
{
    const bool isCommand = event.modifiers() == Qt::KeypadModifier;
    switch (event.key()) {
    case Qt::Key_Asterisk:
        if (isCommand)
            emit invertRequested();
        return true;
    case Qt::Key_Plus:
        if (isCommand)
            emit markAllRequested();
        return true;
    case Qt::Key_Minus:
        if (isCommand)
            emit unmarkAllRequested();
        return true;
    default:
        return false;
    }
}

bool SourceListView::handlePlainKey(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Insert:
        emit newSourceMenuRequested();
        return true;
    case Qt::Key_Delete:
        emit deleteRequested();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit editRequested();
        return true;
    case Qt::Key_Space:
        if (currentRow() >= 0)
            markByPress(currentRow(), Qt::NoModifier);
        return true;
    default:
        return false;
    }
}

bool SourceListView::handleControlKey(const QKeyEvent& event)
{
    const bool isKeypad = event.modifiers().testFlag(Qt::KeypadModifier);
    if (const int typeId = isKeypad ? 0 : typeOfDigitKey(event); typeId != 0) {
        emit newSourceRequested(typeId);
        return true;
    }
    switch (event.key()) {
    case Qt::Key_A:
        m_model.markAll(true);
        return true;
    case Qt::Key_I:
        emit invertRequested();
        return true;
    case Qt::Key_Space:
        if (currentRow() < 0)
            return false;
        m_anchor = currentRow();
        m_model.mark(m_anchor, !m_model.marked(m_anchor));
        return true;
    default:
        return false;
    }
}

/// Not every keyboard has a numeric pad; and the header, which sorts, takes no focus.
bool SourceListView::handleControlShiftKey(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_A:
        emit unmarkAllRequested();
        return true;
    case Qt::Key_Z:
        m_model.sortByHeader(SourceListModel::NumberColumn);
        return true;
    case Qt::Key_N:
        m_model.sortByHeader(SourceListModel::NameColumn);
        return true;
    default:
        return false;
    }
}

/// After a key that moved the current row.
void SourceListView::markByKey(const QKeyEvent& event, int rowBefore)
{
    const int row = currentRow();
    if (row < 0 || row == rowBefore || event.modifiers().testFlag(Qt::ControlModifier))
        return;
    markByPress(row, event.modifiers() & Qt::ShiftModifier);
}

void SourceListView::markByPress(int row, Qt::KeyboardModifiers modifiers)
{
    if (modifiers.testFlag(Qt::ShiftModifier)) {
        markFromAnchor(row, modifiers);
        return;
    }
    m_anchor = row;
    if (modifiers.testFlag(Qt::ControlModifier))
        m_model.mark(row, !m_model.marked(row));
    else
        m_model.markOnly(row, row);
}

void SourceListView::markFromAnchor(int row, Qt::KeyboardModifiers modifiers)
{
    m_anchor = std::min(m_anchor, m_model.rowCount() - 1);
    const auto [first, last] = std::minmax(m_anchor, row);
    if (modifiers.testFlag(Qt::ControlModifier))
        m_model.markRange(first, last, true);
    else
        m_model.markOnly(first, last);
}

void SourceListView::mousePressEvent(QMouseEvent* event)
{
    QTableView::mousePressEvent(event);
    const int row = indexAt(event->pos()).row();
    const bool isLeft = event->button() == Qt::LeftButton;
    if (!isLeft && event->button() != Qt::RightButton)
        return;
    if (row < 0) {
        if (!isMarkingModifier(event->modifiers()) && m_model.rowCount() > 0)
            m_model.markAll(false);
        return;
    }
    makeCurrent(row);
    // The menu of a right click works on the marked rows; only a row beside them takes their place.
    if (isLeft || !m_model.marked(row))
        markByPress(row, event->modifiers());
    m_dragging = isLeft && !event->modifiers().testFlag(Qt::ControlModifier);
}

void SourceListView::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_dragging || !event->buttons().testFlag(Qt::LeftButton) || m_model.rowCount() == 0) {
        QTableView::mouseMoveEvent(event);
        return;
    }
    const int y = std::clamp(static_cast<int>(event->position().y()), 0, viewport()->height() - 1);
    int row = rowAt(y);
    if (row < 0)
        row = m_model.rowCount() - 1;
    if (row == currentRow())
        return;
    makeCurrent(row);
    markFromAnchor(row, Qt::NoModifier);
}

void SourceListView::mouseReleaseEvent(QMouseEvent* event)
{
    QTableView::mouseReleaseEvent(event);
    m_dragging = false;
    if (event->button() == Qt::RightButton) {
        emit sourceMenuRequested(event->globalPosition().toPoint());
    } else if (event->button() == Qt::LeftButton) {
        const int row = indexAt(event->pos()).row();
        if (row >= 0)
            emit rowClicked(row);
    }
}

void SourceListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        emit editRequested();
    else
        QTableView::mouseDoubleClickEvent(event);
}

void SourceListView::contextMenuEvent(QContextMenuEvent* event)
{
    // The mouse's comes on the press here; the menu opens on the release.
    if (event->reason() == QContextMenuEvent::Mouse)
        return;
    QPoint position = viewport()->rect().center();
    if (const QModelIndex current = currentIndex(); current.isValid())
        position = visualRect(current).bottomLeft();
    emit sourceMenuRequested(viewport()->mapToGlobal(position));
}

void SourceListView::focusInEvent(QFocusEvent* event)
{
    QTableView::focusInEvent(event);
    // Once the toolkit has told of the list itself.
    QTimer::singleShot(0, this, [this] { tellCurrentRow(*this); });
}

void SourceListView::focusOutEvent(QFocusEvent* event)
{
    QTableView::focusOutEvent(event);
    viewport()->update();
    emit statusOutdated();
}

void SourceListView::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    if (!currentIndex().isValid())
        drawFocusOutline(*this);
    if (!hasFocus() || !currentIndex().isValid())
        return;
    const QRect row = visualRect(currentIndex().siblingAtColumn(SourceListModel::NumberColumn))
                          .united(visualRect(currentIndex().siblingAtColumn(SourceListModel::NameColumn)));
    // An outline of our own: some styles veil the whole rectangle, and the text of a marked row with it.
    const bool isMarked = m_model.marked(currentRow());
    QPainter painter(viewport());
    painter.setPen(QPen(palette().color(isMarked ? QPalette::HighlightedText : QPalette::Text), 1, Qt::DotLine));
    painter.drawRect(row.adjusted(0, 0, -1, -1));
}

QModelIndex SourceListView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    // Rows are the only thing to move by: Home and End go to the first and last one, Left and Right nowhere.
    const int rowCount = m_model.rowCount();
    switch (action) {
    case MoveHome:
        return m_model.index(0, SourceListModel::NumberColumn);
    case MoveEnd:
        return m_model.index(rowCount - 1, SourceListModel::NumberColumn);
    case MoveLeft:
    case MoveRight:
        return currentIndex();
    case MoveNext:
    case MovePrevious:
        // Asked for when the list gets the focus without a current row.
        return m_model.index(0, SourceListModel::NumberColumn);
    default:
        return QTableView::moveCursor(action, modifiers & ~Qt::KeyboardModifiers(Qt::ControlModifier));
    }
}

void SourceListView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    // Not the table view's: it counts the cells with those of a header column that is not there.
    QAbstractItemView::currentChanged(current, previous);  // NOLINT(bugprone-parent-virtual-call)
    tellCurrentRow(*this);
}

}  // namespace korvex
