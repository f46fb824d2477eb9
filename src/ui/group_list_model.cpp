#include "group_list_model.h"

#include "group_line.h"
#include "group_lines.h"
#include "text_conversion.h"

namespace korvex {

void GroupListModel::refill()
{
    beginResetModel();
    m_shownCount = static_cast<int>(m_groups.count());
    endResetModel();
}

int GroupListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_shownCount;
}

QVariant GroupListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole || static_cast<std::size_t>(index.row()) >= m_groups.count())
        return {};
    const std::string& line = m_groups.line(static_cast<std::size_t>(index.row()));
    return QStringLiteral("%1. %2").arg(groupNumberOf(line)).arg(toQString(groupNameOf(line)));
}

}  // namespace korvex
