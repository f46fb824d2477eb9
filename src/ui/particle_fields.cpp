#include "particle_fields.h"

#include "field_behaviour.h"
#include "number_text.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>

#include <utility>

namespace korvex {

namespace {

QString particleText(float value)
{
    return QString::fromStdString(singleText(value));
}

}  // namespace

void ParticleModel::set(ParticleList list)
{
    beginResetModel();
    m_list = std::move(list);
    endResetModel();
}

void ParticleModel::enter(DustParticle particle)
{
    beginResetModel();
    m_list.enter(particle);
    endResetModel();
}

int ParticleModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_list.count());
}

int ParticleModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant ParticleModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    const DustParticle& particle = m_list.particles().at(static_cast<std::size_t>(index.row()));
    return particleText(index.column() == 0 ? particle.Prumer : particle.Zastoupeni);
}

QVariant ParticleModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == 0 ? QStringLiteral("Průměr") : QStringLiteral("Zastoupení");
}

ParticleFields::ParticleFields(QTableView& lsvPrach, QLineEdit& txtPrumer, QLineEdit& txtZastoupeni, int diameterWidth,
    int shareWidth, const std::string& decimalSeparator)
    : QObject(&lsvPrach)
    , m_table(lsvPrach)
    , m_diameter(txtPrumer)
    , m_share(txtZastoupeni)
    , m_decimalSeparator(decimalSeparator)
{
    m_table.setModel(&m_model);
    m_table.setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table.setSelectionMode(QAbstractItemView::SingleSelection);
    m_table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table.setTabKeyNavigation(false);
    m_table.setShowGrid(false);
    m_table.verticalHeader()->hide();
    m_table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table.verticalHeader()->setDefaultSectionSize(m_table.fontMetrics().lineSpacing() + 4);
    m_table.horizontalHeader()->setHighlightSections(false);
    m_table.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    // What a number of seven digits needs gives the size, the widths give the proportion.
    const int numberWidth = m_table.fontMetrics().horizontalAdvance(QStringLiteral("0.0000000000"));
    m_table.setColumnWidth(0, numberWidth);
    m_table.setColumnWidth(1, numberWidth * shareWidth / diameterWidth);

    // Not the current row: the table makes its first one current when it only gets the focus.
    connect(m_table.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        const QModelIndexList rows = m_table.selectionModel()->selectedRows();
        if (!rows.isEmpty())
            show(static_cast<std::size_t>(rows.front().row()));
    });
    connect(&m_table, &QTableView::clicked, this,
        [this](const QModelIndex& row) { show(static_cast<std::size_t>(row.row())); });
    for (QLineEdit* const field : {&m_diameter, &m_share}) {
        SelectAllText(*field);
        field->installEventFilter(this);
    }
}

void ParticleFields::clearFields()
{
    m_diameter.clear();
    m_share.clear();
}

void ParticleFields::showFirst()
{
    if (list().count() > 0)
        show(0);
}

void ParticleFields::show(std::size_t row)
{
    const DustParticle& particle = list().particles().at(row);
    m_diameter.setText(particleText(particle.Prumer));
    m_share.setText(particleText(particle.Zastoupeni));
}

float ParticleFields::typed(QLineEdit& field) const
{
    return fieldSingle(field, m_decimalSeparator);
}

void ParticleFields::enterTyped()
{
    const std::size_t before = list().count();
    m_model.enter({typed(m_diameter), typed(m_share)});
    if (list().count() > before)
        m_table.scrollToBottom();
    m_diameter.setFocus();
}

void ParticleFields::removeTyped()
{
    m_model.enter({typed(m_diameter), 0.0F});
    m_diameter.setFocus();
}

bool ParticleFields::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            emit enterPressed();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace korvex
