#include "source_list_access.h"

#include "source_list_model.h"
#include "source_list_view.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QHeaderView>
#include <QRect>

#include <utility>

namespace korvex {

namespace {

constexpr int headerRow = -1;

/// The place of a cell among the children of the list.
int childIndex(int row, int column)
{
    return (row + 1) * SourceListModel::ColumnCount + column;
}

class ListAccess : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit ListAccess(SourceListView& view) : QAccessibleWidget(&view, QAccessible::Table), m_view(view) { }
    ListAccess(const ListAccess&) = delete;
    ListAccess& operator=(const ListAccess&) = delete;
    ~ListAccess() override { dropCells(); }

    [[nodiscard]] SourceListView& view() const { return m_view; }
    /// As long as there is one: a window that closes may lose it before the view.
    [[nodiscard]] bool hasList() const { return qobject_cast<SourceListModel*>(m_view.model()) != nullptr; }
    [[nodiscard]] SourceListModel& list() const { return *static_cast<SourceListModel*>(m_view.model()); }
    bool markRow(int row, bool on) const;

    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] int childCount() const override { return childIndex(rowCount(), 0); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override;
    [[nodiscard]] int selectedCellCount() const override { return selectedRowCount() * columnCount(); }
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override;
    [[nodiscard]] QString columnDescription(int column) const override;
    [[nodiscard]] QString rowDescription(int /*row*/) const override { return {}; }
    [[nodiscard]] int selectedColumnCount() const override { return 0; }
    [[nodiscard]] int selectedRowCount() const override;
    [[nodiscard]] int columnCount() const override { return SourceListModel::ColumnCount; }
    [[nodiscard]] int rowCount() const override { return hasList() ? list().rowCount() : 0; }
    [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
    [[nodiscard]] QList<int> selectedRows() const override;
    [[nodiscard]] bool isColumnSelected(int /*column*/) const override { return false; }
    [[nodiscard]] bool isRowSelected(int row) const override;
    bool selectRow(int row) override { return markRow(row, true); }
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int row) override { return markRow(row, false); }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

private:
    void dropCells();

    SourceListView& m_view;
    mutable QHash<int, QAccessible::Id> m_cells;  // those asked for since the list was filled, by child index
};

/// The number of a row speaks the type before it and is described by the name, so that one cell tells the source.
class Cell : public QAccessibleInterface, public QAccessibleTableCellInterface, public QAccessibleActionInterface {
public:
    Cell(const ListAccess& list, int row, int column) : m_list(list), m_row(row), m_column(column) { }

    [[nodiscard]] bool isOf(const ListAccess& list) const { return &m_list == &list; }
    [[nodiscard]] int index() const { return childIndex(m_row, m_column); }

    [[nodiscard]] bool isValid() const override
    {
        return m_list.isValid() && m_list.hasList() && m_row < m_list.rowCount();
    }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override { return m_list.window(); }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override { return table(); }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override { }
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] bool isSelected() const override { return m_list.isRowSelected(m_row); }
    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override;
    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    [[nodiscard]] int columnIndex() const override { return m_column; }
    [[nodiscard]] int rowIndex() const override { return m_row; }
    [[nodiscard]] int columnExtent() const override { return 1; }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* table() const override
    {
        return QAccessible::queryAccessibleInterface(&m_list.view());
    }

    /// Of a row: to go to it, to mark it or take its mark away. Of the header: to sort by its column.
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    [[nodiscard]] bool isHeader() const { return m_row == headerRow; }
    [[nodiscard]] QString headerText(QAccessible::Text kind) const;

    const ListAccess& m_list;
    int m_row;
    int m_column;
};

bool ListAccess::markRow(int row, bool on) const
{
    if (row < 0 || row >= rowCount())
        return false;
    list().mark(row, on);
    return true;
}

QAccessible::State ListAccess::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.multiSelectable = true;
    return state;
}

QAccessibleInterface* ListAccess::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    if (const auto known = m_cells.constFind(index); known != m_cells.constEnd())
        return QAccessible::accessibleInterface(*known);
    // The toolkit's register of interfaces owns the cell.
    auto* const cell = new Cell(*this, index / columnCount() - 1, index % columnCount());
    m_cells.insert(index, QAccessible::registerAccessibleInterface(cell));
    return cell;
}

int ListAccess::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* const cell = dynamic_cast<const Cell*>(child);
    return cell == nullptr || !cell->isOf(*this) ? -1 : cell->index();
}

QAccessibleInterface* ListAccess::childAt(int x, int y) const
{
    const QHeaderView& header = *m_view.horizontalHeader();
    const QPoint inHeader = header.viewport()->mapFromGlobal(QPoint(x, y));
    if (header.viewport()->rect().contains(inHeader)) {
        const int column = header.logicalIndexAt(inHeader);
        return column < 0 ? nullptr : child(childIndex(headerRow, column));
    }
    const QPoint inRows = m_view.viewport()->mapFromGlobal(QPoint(x, y));
    const QModelIndex cell = m_view.viewport()->rect().contains(inRows) ? m_view.indexAt(inRows) : QModelIndex();
    return cell.isValid() ? cellAt(cell.row(), cell.column()) : nullptr;
}

QAccessibleInterface* ListAccess::focusChild() const
{
    return m_view.hasFocus() ? cellAt(m_view.currentRow(), SourceListModel::NumberColumn) : nullptr;
}

void* ListAccess::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface* ListAccess::cellAt(int row, int column) const
{
    if (row < 0 || column < 0 || column >= columnCount())
        return nullptr;
    return child(childIndex(row, column));
}

QList<QAccessibleInterface*> ListAccess::selectedCells() const
{
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows()) {
        for (int column = 0; column < columnCount(); ++column)
            cells.append(cellAt(row, column));
    }
    return cells;
}

QString ListAccess::columnDescription(int column) const
{
    return m_view.model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
}

int ListAccess::selectedRowCount() const
{
    return static_cast<int>(selectedRows().size());
}

QList<int> ListAccess::selectedRows() const
{
    QList<int> rows;
    for (int row = 0; row < rowCount(); ++row) {
        if (list().marked(row))
            rows.append(row);
    }
    return rows;
}

bool ListAccess::isRowSelected(int row) const
{
    return row >= 0 && row < rowCount() && list().marked(row);
}

void ListAccess::modelChange(QAccessibleTableModelChangeEvent* event)
{
    // A row added at the end leaves the cells before it what they are.
    if (event->modelChangeType() == QAccessibleTableModelChangeEvent::ModelReset)
        dropCells();
}

void ListAccess::dropCells()
{
    for (const QAccessible::Id cell : std::as_const(m_cells))
        QAccessible::deleteAccessibleInterface(cell);
    m_cells.clear();
}

QString Cell::text(QAccessible::Text kind) const
{
    if (!isValid())
        return {};
    if (isHeader())
        return headerText(kind);
    const SourceListModel& list = m_list.list();
    if (kind == QAccessible::Description && m_column == SourceListModel::NumberColumn)
        return list.nameText(m_row);
    if (kind != QAccessible::Name)
        return {};
    const QModelIndex index = list.index(m_row, m_column);
    return list.data(index, m_column == SourceListModel::NumberColumn ? Qt::AccessibleTextRole : Qt::DisplayRole)
        .toString();
}

QString Cell::headerText(QAccessible::Text kind) const
{
    const SourceListModel& list = m_list.list();
    if (kind == QAccessible::Name)
        return m_list.columnDescription(m_column);
    if (kind != QAccessible::Description || list.sortColumn() != m_column)
        return {};
    return list.sortDirection() == SortDirection::Ascending ? SourceListView::tr("seřazeno vzestupně")
                                                            : SourceListView::tr("seřazeno sestupně");
}

QRect Cell::rect() const
{
    if (!isValid())
        return {};
    const SourceListView& view = m_list.view();
    if (isHeader()) {
        const QHeaderView& header = *view.horizontalHeader();
        const QRect section(header.sectionViewportPosition(m_column), 0, header.sectionSize(m_column), header.height());
        return section.translated(header.viewport()->mapToGlobal(QPoint()));
    }
    return view.visualRect(m_list.list().index(m_row, m_column)).translated(view.viewport()->mapToGlobal(QPoint()));
}

QAccessible::Role Cell::role() const
{
    return isHeader() ? QAccessible::ColumnHeader : QAccessible::Cell;
}

QAccessible::State Cell::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const SourceListView& view = m_list.view();
    state.invisible = !view.isVisible();
    state.offscreen = !rect().intersects(m_list.rect());
    if (isHeader())
        return state;
    state.selectable = true;
    state.focusable = true;
    state.readOnly = true;
    state.selected = isSelected();
    state.active = m_row == view.currentRow() && m_column == SourceListModel::NumberColumn;
    state.focused = state.active && view.hasFocus();
    return state;
}

void* Cell::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableCellInterface && !isHeader())
        return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

QList<QAccessibleInterface*> Cell::columnHeaderCells() const
{
    return {m_list.child(childIndex(headerRow, m_column))};
}

QStringList Cell::actionNames() const
{
    if (isHeader())
        return {QAccessibleActionInterface::pressAction()};
    return {QAccessibleActionInterface::setFocusAction(), QAccessibleActionInterface::toggleAction()};
}

void Cell::doAction(const QString& name)
{
    if (!isValid() || !actionNames().contains(name))
        return;
    if (isHeader())
        m_list.list().sortByHeader(m_column);
    else if (name == QAccessibleActionInterface::toggleAction())
        m_list.markRow(m_row, !isSelected());
    else
        m_list.view().makeCurrent(m_row);
}

QAccessibleInterface* accessOfSourceList(const QString& className, QObject* object)
{
    if (className != QLatin1String(SourceListView::staticMetaObject.className()))
        return nullptr;
    return new ListAccess(*static_cast<SourceListView*>(object));
}

}  // namespace

void installSourceListAccess()
{
    QAccessible::installFactory(accessOfSourceList);
}

void tellCurrentRow(SourceListView& view)
{
    if (!QAccessible::isActive() || !view.hasFocus() || view.currentRow() < 0)
        return;
    QAccessibleEvent event(&view, QAccessible::Focus);
    event.setChild(childIndex(view.currentRow(), SourceListModel::NumberColumn));
    QAccessible::updateAccessibility(&event);
}

void tellMarkOfCurrentRow(SourceListView& view)
{
    if (!QAccessible::isActive() || view.currentRow() < 0)
        return;
    QAccessibleEvent event(&view, QAccessible::Selection);
    event.setChild(childIndex(view.currentRow(), SourceListModel::NumberColumn));
    QAccessible::updateAccessibility(&event);
}

}  // namespace korvex
