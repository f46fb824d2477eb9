#include "source_list_model.h"

#include "duplicate_check.h"
#include "name_order.h"
#include "number_text.h"
#include "text_conversion.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace korvex {

namespace {

QIcon smallIcon(const QString& name)
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48}) {
        const QString file = QStringLiteral(":/icons/%1-%2.png").arg(name).arg(size);
        // The same for marked rows: left to itself the toolkit tints it until the types look alike.
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected})
            icon.addFile(file, QSize(size, size), mode);
    }
    return icon;
}

}  // namespace

SourceListModel::SourceListModel(QObject* parent) : QAbstractTableModel(parent)
{
    m_icons[static_cast<std::size_t>(cBodovyZdroj.Icon)] = smallIcon(QStringLiteral("bodovy_zdroj"));
    m_icons[static_cast<std::size_t>(cLiniovyZdroj.Icon)] = smallIcon(QStringLiteral("liniovy_zdroj"));
    m_icons[static_cast<std::size_t>(cPlosnyZdroj.Icon)] = smallIcon(QStringLiteral("plosny_zdroj"));
}

QString SourceListModel::numberText(int row) const
{
    return QString::fromStdString(integerText(sourceAt(row).ICZ(), Pattern::SourceNumber));
}

QString SourceListModel::nameText(int row) const
{
    return shownName(tag(row));
}

QString SourceListModel::shownName(std::size_t position) const
{
    if (!m_keptNames.isEmpty()) {
        if (const auto kept = m_keptNames.constFind(position); kept != m_keptNames.constEnd())
            return *kept;
    }
    return toQString(m_set.at(position).NazevZdroje());
}

void SourceListModel::refill()
{
    beginResetModel();
    m_rows.refill(m_set.size());
    m_keptNames.clear();
    m_sortColumn = -1;
    endResetModel();
    emit sortChanged();
}

void SourceListModel::addRow(bool mark)
{
    const int row = rowCount();
    beginInsertRows({}, row, row);
    m_rows.add(mark);
    endInsertRows();
}

void SourceListModel::keepNameShown(int row)
{
    m_keptNames.insert(tag(row), nameText(row));
}

void SourceListModel::nameChanged(int row)
{
    m_keptNames.remove(tag(row));
    const QModelIndex changed = index(row, NameColumn);
    emit dataChanged(changed, changed);
}

void SourceListModel::mark(int row, bool on)
{
    m_rows.mark(static_cast<std::size_t>(row), on);
    emit marksChanged();
}

void SourceListModel::markRange(int first, int last, bool on)
{
    m_rows.markRange(static_cast<std::size_t>(first), static_cast<std::size_t>(last), on);
    emit marksChanged();
}

void SourceListModel::markOnly(int first, int last)
{
    m_rows.markAll(false);
    markRange(first, last, true);
}

void SourceListModel::markAll(bool on)
{
    m_rows.markAll(on);
    emit marksChanged();
}

void SourceListModel::invertMarks()
{
    m_rows.invertMarks();
    emit marksChanged();
}

void SourceListModel::markByType(std::int32_t typeId)
{
    m_rows.markByType(m_set, typeId);
    emit marksChanged();
}

void SourceListModel::sortByHeader(int column)
{
    const bool isReversal = column == m_sortColumn && m_sortDirection == SortDirection::Ascending;
    sortRows(column, isReversal ? SortDirection::Descending : SortDirection::Ascending);
}

std::size_t SourceListModel::checkDuplicates()
{
    emit layoutAboutToBeChanged();
    const std::size_t count = markDuplicates(m_set, m_rows);
    m_sortColumn = NumberColumn;
    m_sortDirection = SortDirection::Ascending;
    emit layoutChanged();
    emit sortChanged();
    emit marksChanged();
    return count;
}

void SourceListModel::sortRows(int column, SortDirection direction)
{
    emit layoutAboutToBeChanged();
    if (column == NumberColumn)
        m_rows.sortByNumber(m_set, direction);
    else
        sortByName(direction);
    m_sortColumn = column;
    m_sortDirection = direction;
    emit layoutChanged();
    emit sortChanged();
}

void SourceListModel::sortByName(SortDirection direction)
{
    const auto name = [this](std::size_t index) { return shownName(index + 1); };
    m_rows.sortByRank(czechRanks(m_set.size(), name), direction);
}

int SourceListModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid())
        return 0;
    constexpr std::size_t most = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(m_rows.count(), most));
}

int SourceListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant SourceListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const cZdroje& source = sourceAt(index.row());
    if (role == Qt::DisplayRole)
        return index.column() == NumberColumn ? numberText(index.row()) : nameText(index.row());
    if (role == Qt::DecorationRole && index.column() == NumberColumn)
        return m_icons[static_cast<std::size_t>(source.Icon())];
    if (role == Qt::AccessibleTextRole && index.column() == NumberColumn)
        return QStringLiteral("%1, %2").arg(toQString(source.TypZdroje()), numberText(index.row()));
    return {};
}

QVariant SourceListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::DisplayRole)
        return section == NumberColumn ? QStringLiteral("Zdroj") : QStringLiteral("Název zdroje");
    if (role == Qt::ToolTipRole)
        return section == NumberColumn ? QStringLiteral("Seřadit podle čísla (Ctrl+Shift+Z)")
                                       : QStringLiteral("Seřadit podle názvu (Ctrl+Shift+N)");
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

}  // namespace korvex
