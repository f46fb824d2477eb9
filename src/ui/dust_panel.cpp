#include "dust_panel.h"

#include "dust_description.h"
#include "dust_group_editor.h"
#include "dust_groups_file.h"
#include "field_behaviour.h"
#include "fields.h"
#include "focus_outline.h"
#include "globals.h"
#include "guard.h"
#include "message_boxes.h"
#include "normalize_decimal.h"
#include "number_text.h"
#include "particle_fields.h"
#include "text_conversion.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTableView>

#include <utility>

namespace korvex {

uscPrach::uscPrach(Shell& shell, QWidget* parent) : QWidget(parent), m_shell(shell), m_groups(*this)
{
    setObjectName(QStringLiteral("uscPrach"));
    buildWidgets();
    refillGroups();
}

void uscPrach::buildWidgets()
{
    const auto labelOf = [](QWidget* field, const QString& caption) {
        auto* const label = new QLabel(caption, field->parentWidget());
        label->setBuddy(field);
        return label;
    };
    txtHustota = new QLineEdit(this);
    txtHustota->setObjectName(QStringLiteral("txtHustota"));
    // Typed as a whole number, on purpose; a decimal density can only come from the source.
    filterKeys(*txtHustota, IsDigitKey);
    SelectAllText(*txtHustota);
    cboPrachoveSkupiny = new QComboBox(this);
    cboPrachoveSkupiny->setObjectName(QStringLiteral("cboPrachoveSkupiny"));
    auto* const groups = new QListView(cboPrachoveSkupiny);
    // Else every one of a hundred thousand groups is measured when the list drops down.
    groups->setUniformItemSizes(true);
    groups->setAccessibleName(QStringLiteral("Seznam skupin prachu"));
    cboPrachoveSkupiny->setView(groups);
    constexpr int shownCharacters = 30;
    cboPrachoveSkupiny->setMinimumContentsLength(shownCharacters);
    cboPrachoveSkupiny->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboPrachoveSkupiny->setToolTip(QStringLiteral("Seznam skupin prachu"));
    cmdSkupinyPrachu = new QPushButton(QStringLiteral("Editace prachových skupin"), this);
    cmdSkupinyPrachu->setObjectName(QStringLiteral("cmdSkupinyPrachu"));
    lsvPrach = new FocusShowing<QTableView>(this);
    lsvPrach->setObjectName(QStringLiteral("lsvPrach"));
    lsvPrach->setToolTip(QStringLiteral("Uživatelem definované prachové částice"));
    lsvPrach->setAccessibleName(lsvPrach->toolTip());
    lblCount = new QLabel(QStringLiteral("Počet: 0"), this);
    lblCount->setObjectName(QStringLiteral("lblCount"));
    lblCount->setToolTip(QStringLiteral("Počet uživatelem definovaných prachových částic"));

    fraPopisCastice = new QGroupBox(QStringLiteral("Popis prašné částice"), this);
    fraPopisCastice->setObjectName(QStringLiteral("fraPopisCastice"));
    txtPrumer = new QLineEdit(fraPopisCastice);
    txtPrumer->setObjectName(QStringLiteral("txtPrumer"));
    txtZastoupeni = new QLineEdit(fraPopisCastice);
    txtZastoupeni->setObjectName(QStringLiteral("txtZastoupeni"));
    filterKeys(*txtPrumer, IsNumberKey);
    filterKeys(*txtZastoupeni, IsNumberKey);
    cmdAdd = new QPushButton(QStringLiteral("Přidej prachocou částici"), fraPopisCastice);
    cmdAdd->setObjectName(QStringLiteral("cmdAdd"));
    m_particles = new ParticleFields(*lsvPrach, *txtPrumer, *txtZastoupeni, 600, 750, m_shell.globals.decimalSeparator);

    auto* const particle = new QGridLayout(fraPopisCastice);
    particle->addWidget(labelOf(txtPrumer, QStringLiteral("Průměr prašné částice [um]:")), 0, 0);
    particle->addWidget(txtPrumer, 0, 1);
    particle->addWidget(labelOf(txtZastoupeni, QStringLiteral("Zastoupení částice [%/100]:")), 1, 0);
    particle->addWidget(txtZastoupeni, 1, 1);
    particle->addWidget(cmdAdd, 2, 0, 1, 2, Qt::AlignRight);
    auto* const layout = new QGridLayout(this);
    layout->addWidget(labelOf(txtHustota, QStringLiteral("Hustota prachových částic [kg/m3]:")), 0, 0);
    layout->addWidget(txtHustota, 0, 1);
    layout->addWidget(labelOf(cboPrachoveSkupiny, QStringLiteral("Prachová skupina:")), 1, 0);
    layout->addWidget(cboPrachoveSkupiny, 1, 1);
    layout->addWidget(cmdSkupinyPrachu, 2, 1, Qt::AlignRight);
    layout->addWidget(lsvPrach, 3, 0, 1, 2);
    layout->addWidget(lblCount, 4, 0, 1, 2);
    layout->addWidget(fraPopisCastice, 5, 0, 1, 2);
    layout->setRowStretch(3, 1);
    layout->setColumnStretch(1, 1);

    connect(cboPrachoveSkupiny, &QComboBox::currentIndexChanged, this, &uscPrach::groupSelected);
    const auto add = [this] { runGuarded(m_shell.boxes, this, [this] { addParticle(); }); };
    connect(cmdAdd, &QPushButton::clicked, this, add);
    connect(m_particles, &ParticleFields::enterPressed, this, add);
    connect(cmdSkupinyPrachu, &QPushButton::clicked, this, &uscPrach::editGroups);
}

void uscPrach::SouborSkupinyPrachu(const std::string& path)
{
    m_groups.FileName(path);
    refillGroups();
}

void uscPrach::refillGroups()
{
    cboPrachoveSkupiny->clear();
    cboPrachoveSkupiny->addItem(QStringLiteral("(manuálně)"), 0);
    for (std::int32_t i = 1; i <= m_groups.Count(); ++i)
        cboPrachoveSkupiny->addItem(QString::fromStdString(m_groups.SkupinaNazev(i)), m_groups.SkupinaCislo(i));
    cboPrachoveSkupiny->setCurrentIndex(0);
    const QString path = pathText(m_groups.FileName());
    cmdSkupinyPrachu->setToolTip(QStringLiteral("Soubor s prachovými skupinami (") + path + QLatin1Char(')'));
}

void uscPrach::groupSelected()
{
    const bool byHand = cboPrachoveSkupiny->currentData().toInt() == 0;
    // The fields and their labels go with their frame.
    for (QWidget* const widget :
        {static_cast<QWidget*>(lsvPrach), static_cast<QWidget*>(fraPopisCastice), static_cast<QWidget*>(lblCount)})
        widget->setEnabled(byHand);
}

void uscPrach::Prach(std::string_view description)
{
    const DustDescription dust = DustDescription::parse(description);
    m_particles->set({});
    if (!dust.isSet) {
        cboPrachoveSkupiny->setCurrentIndex(0);
        showCount();
        return;
    }
    txtHustota->setText(singleFieldText(readSingle(dust.Hustota), m_shell.globals.decimalSeparator));
    if (const int index = cboPrachoveSkupiny->findData(dust.group); index >= 0)
        cboPrachoveSkupiny->setCurrentIndex(index);
    m_particles->set(dust.particles);
    showCount();
}

std::string uscPrach::Prach() const
{
    if (cboPrachoveSkupiny->count() == 0)
        return {};
    DustDescription dust;
    dust.Hustota = NormalizeDecimal(lineText(*txtHustota), m_shell.globals.decimalSeparator);
    // What a paste leaves behind the number would be read as the group.
    dust.Hustota = std::string(field(dust.Hustota, ',', 1));
    dust.group = cboPrachoveSkupiny->currentData().toInt();
    dust.particles = m_particles->list();
    return dust.text();
}

void uscPrach::addParticle()
{
    m_particles->enterTyped();
    showCount();
}

void uscPrach::showCount()
{
    lblCount->setText(QStringLiteral("Počet: %1").arg(m_particles->list().count()));
}

void uscPrach::editGroups()
{
    m_groups.Edit();
    // A group chosen before is no longer selected: the file may have changed under it.
    refillGroups();
}

bool uscPrach::readLines(const std::string& path, const std::function<void(std::string_view line)>& take)
{
    const Result<void> read = readGroupsFile(path, take);
    if (read.ok())
        return true;
    // While the editor is being made the box belongs to the window behind it.
    QWidget* const owner = window()->isVisible() ? this : window()->parentWidget();
    m_shell.boxes.show(owner,
        {QStringLiteral("Čtení skupin prachu ze souboru"), QString::fromStdString(read.error().message()),
            BoxIcon::Critical, BoxButtons::Ok, {}});
    return false;
}

std::string uscPrach::edit(const std::string& path)
{
    frmSkupinyPrachu editor(m_shell, window());
    editor.FileName(path);
    editor.exec();
    return editor.FileName();
}

}  // namespace korvex
