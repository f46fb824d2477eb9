// The source list's rows for the view: number, name and icon of each source, its mark, and the sorting.
#pragma once

#include "source_rows.h"
#include "source_set.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QIcon>
#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>

namespace korvex {

/// A model over the set: it holds no row of its own, so that a million sources cost the view nothing.
class SourceListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { NumberColumn, NameColumn, ColumnCount };

    explicit SourceListModel(QObject* parent = nullptr);

    [[nodiscard]] SourceSet& set() { return m_set; }
    [[nodiscard]] const SourceSet& set() const { return m_set; }
    [[nodiscard]] const SourceRows& rows() const { return m_rows; }

    [[nodiscard]] const cZdroje& sourceAt(int row) const { return m_set.at(tag(row)); }
    [[nodiscard]] cZdroje& sourceAt(int row) { return m_set.at(tag(row)); }
    [[nodiscard]] std::size_t tag(int row) const { return m_rows.tag(static_cast<std::size_t>(row)); }
    [[nodiscard]] QString numberText(int row) const;
    [[nodiscard]] QString nameText(int row) const;

    /// Rows for all sources in set order, unmarked; the order of a sort is forgotten.
    void refill();
    /// A row for the source just appended to the set.
    void addRow(bool mark);
    /// The source of the row has a new name, which the row is to show.
    void nameChanged(int row);
    /// The row goes on showing the name it shows now, whatever becomes of its source's, until the next refill.
    void keepNameShown(int row);

    [[nodiscard]] bool marked(int row) const { return m_rows.marked(static_cast<std::size_t>(row)); }
    void mark(int row, bool on);
    void markRange(int first, int last, bool on);
    /// Marks these rows and no others.
    void markOnly(int first, int last);
    void markAll(bool on);
    void invertMarks();
    void markByType(std::int32_t typeId);

    /// Sorts as the header asks: the other column ascending, the same column the other way round.
    void sortByHeader(int column);
    /// Sorts by number and marks the duplicates; returns how many there are.
    std::size_t checkDuplicates();
    /// -1: set order.
    [[nodiscard]] int sortColumn() const { return m_sortColumn; }
    [[nodiscard]] SortDirection sortDirection() const { return m_sortDirection; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
    void marksChanged();
    /// The column and direction by which the rows are sorted now.
    void sortChanged();

private:
    void sortRows(int column, SortDirection direction);
    void sortByName(SortDirection direction);
    [[nodiscard]] QString shownName(std::size_t position) const;

    SourceSet m_set;
    SourceRows m_rows;
    int m_sortColumn = -1;
    SortDirection m_sortDirection = SortDirection::Ascending;
    QHash<std::size_t, QString> m_keptNames;  // by position; of rows that show another name than their source has
    std::array<QIcon, 4> m_icons;             // by Icon, which counts from 1
};

}  // namespace korvex
