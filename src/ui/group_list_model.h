// The entries of the group editor's list.
#pragma once

#include <QAbstractListModel>

namespace korvex {

class GroupLines;

/// Number and name of each stored group line, made up when they are shown.
class GroupListModel : public QAbstractListModel {
    Q_OBJECT

public:
    GroupListModel(const GroupLines& groups, QObject* parent) : QAbstractListModel(parent), m_groups(groups) { }

    /// The lines have changed, or will with the change.
    void refill();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    const GroupLines& m_groups;
    int m_shownCount = 0;
};

}  // namespace korvex
