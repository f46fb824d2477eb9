#include "description_panel.h"

#include "field_behaviour.h"
#include "number_text.h"
#include "text_conversion.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace korvex {

namespace {

void showNumber(QLineEdit& field, std::int32_t value, Pattern pattern = Pattern::Plain)
{
    field.setText(QString::fromStdString(integerText(value, pattern)));
}

}  // namespace

uscPopis::uscPopis(QWidget* parent)
    : QWidget(parent)
    , txtCisloZdroje(addField("txtCisloZdroje", QStringLiteral("Číslo zdroje")))
    , txtCisloKomina(addField("txtCisloKomina", QStringLiteral("Číslo komína")))
    , txtNazevZdroje(addField("txtNazevZdroje", QStringLiteral("Orientační název zdroje")))
    , txtSkupina(addField("txtSkupina", QStringLiteral("Indikace skupiny")))
    , txtShluk(addField("txtShluk", QStringLiteral("Indikace shluku")))
    , txtX(addField("txtX", QStringLiteral("X souřadnice zdroje")))
    , txtY(addField("txtY", QStringLiteral("Y souřadnice zdroje")))
    , txtZ(addField("txtZ", QStringLiteral("Nadmořská výška zdroje")))
{
    showOnly(*txtCisloZdroje);
    showOnly(*txtCisloKomina);
    for (QLineEdit* const field : {txtNazevZdroje, txtSkupina, txtShluk, txtX, txtY, txtZ})
        SelectAllText(*field);
    for (QLineEdit* const field : {txtSkupina, txtShluk, txtZ})
        filterKeys(*field, IsDigitKey);
    for (QLineEdit* const field : {txtX, txtY})
        filterKeys(*field, IsSignedDigitKey);

    struct Row {
        QString caption;
        QLineEdit* field;
        QString unit;
    };
    const QString metres = QStringLiteral("[m]");
    const Row rows[]{
        {QStringLiteral("Číslo zdroje"), txtCisloZdroje, {}},
        {QStringLiteral("Komín"), txtCisloKomina, {}},
        {QStringLiteral("Název zdroje"), txtNazevZdroje, {}},
        {QStringLiteral("Indikace skupiny:"), txtSkupina, {}},
        {QStringLiteral("Indikace shluku:"), txtShluk, {}},
        {QStringLiteral("X"), txtX, metres},
        {QStringLiteral("Y"), txtY, metres},
        {QStringLiteral("Z"), txtZ, metres},
    };
    auto* const layout = new QGridLayout(this);
    int line = 0;
    for (const Row& row : rows) {
        auto* const label = new QLabel(row.caption, this);
        label->setBuddy(row.field);
        layout->addWidget(label, line, 0);
        // A name takes the whole width, numbers stand in a column with their units beside them.
        layout->addWidget(row.field, line, 1, 1, row.field == txtNazevZdroje ? 3 : 1);
        if (!row.unit.isEmpty())
            layout->addWidget(new QLabel(row.unit, this), line, 2);
        ++line;
    }
    layout->setColumnStretch(3, 1);
    layout->setRowStretch(line, 1);
}

QLineEdit* uscPopis::addField(const char* objectName, const QString& toolTip)
{
    auto* const field = new QLineEdit(this);
    field->setObjectName(QLatin1String(objectName));
    field->setToolTip(toolTip);
    return field;
}

void uscPopis::letNumberBeTyped()
{
    txtCisloZdroje->setReadOnly(false);
    txtCisloZdroje->setPalette({});
    SelectAllText(*txtCisloZdroje);
}

std::int32_t uscPopis::CisloZdroje() const
{
    return fieldInteger(*txtCisloZdroje);
}

void uscPopis::CisloZdroje(std::int32_t number)
{
    showNumber(*txtCisloZdroje, number, Pattern::ShownNumber);
}

std::int32_t uscPopis::CisloKomina() const
{
    return fieldInteger(*txtCisloKomina);
}

void uscPopis::CisloKomina(std::int32_t number)
{
    showNumber(*txtCisloKomina, number, Pattern::Altitude);
}

std::string uscPopis::NazevZdroje() const
{
    return lineText(*txtNazevZdroje);
}

void uscPopis::NazevZdroje(std::string_view name)
{
    txtNazevZdroje->setText(toQString(name));
    txtNazevZdroje->setCursorPosition(0);
}

std::int32_t uscPopis::Skupina() const
{
    return fieldInteger(*txtSkupina);
}

void uscPopis::Skupina(std::int32_t group)
{
    showNumber(*txtSkupina, group);
}

std::int32_t uscPopis::Shluk() const
{
    return fieldInteger(*txtShluk);
}

void uscPopis::Shluk(std::int32_t cluster)
{
    showNumber(*txtShluk, cluster);
}

std::int32_t uscPopis::X() const
{
    return fieldInteger(*txtX);
}

void uscPopis::X(std::int32_t x)
{
    showNumber(*txtX, x);
}

std::int32_t uscPopis::Y() const
{
    return fieldInteger(*txtY);
}

void uscPopis::Y(std::int32_t y)
{
    showNumber(*txtY, y);
}

std::int32_t uscPopis::Z() const
{
    return fieldInteger(*txtZ);
}

void uscPopis::Z(std::int32_t altitude)
{
    showNumber(*txtZ, altitude);
}

}  // namespace korvex
