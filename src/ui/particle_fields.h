// A list of dust particles with the fields to enter them: what the group editor and the source's dust panel share.
#pragma once

#include "particle_list.h"

#include <QAbstractTableModel>
#include <QObject>

#include <string>

class QLineEdit;
class QTableView;

namespace korvex {

/// Diameter and share of each particle, as files write them.
class ParticleModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    [[nodiscard]] const ParticleList& list() const { return m_list; }
    void set(ParticleList list);
    void enter(DustParticle particle);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    ParticleList m_list;
};

/// Ties the list lsvPrach to the fields txtPrumer and txtZastoupeni: a click on a row copies it into the fields; Enter
/// in a field asks to enter the particle, so that a list can be typed without the mouse.
class ParticleFields : public QObject {
    Q_OBJECT

public:
    /// The widths have the proportion of the two columns.
    ParticleFields(QTableView& lsvPrach, QLineEdit& txtPrumer, QLineEdit& txtZastoupeni, int diameterWidth,
        int shareWidth, const std::string& decimalSeparator);

    [[nodiscard]] const ParticleList& list() const { return m_model.list(); }
    void set(ParticleList list) { m_model.set(std::move(list)); }
    void clearFields();
    /// Puts the first particle into the fields.
    void showFirst();

    /// Enters the particle of the fields by the rule of all particle lists; the focus goes to the diameter. Throws
    /// ArithmeticFault for a number out of range.
    void enterTyped();
    /// The same with share 0, which takes the row of the diameter away.
    void removeTyped();

signals:
    void enterPressed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void show(std::size_t row);
    [[nodiscard]] float typed(QLineEdit& field) const;

    ParticleModel m_model;
    QTableView& m_table;
    QLineEdit& m_diameter;
    QLineEdit& m_share;
    const std::string& m_decimalSeparator;
};

}  // namespace korvex
