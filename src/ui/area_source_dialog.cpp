#include "area_source_dialog.h"

#include "field_behaviour.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace korvex {

namespace {

enum Choice { Temperature, PlumeRise };

}  // namespace

frmPlosnyZdroj::frmPlosnyZdroj(Shell& shell, QWidget& owner)
    : SourceDialog(shell, owner, "frmPlosnyZdroj", QStringLiteral("Plošný zdroj"), IsNumberKey)
{
    addParameter(QStringLiteral("Množství látky odcházející komínem [g/s] (ME):"));
    addParameter(QStringLiteral("Výška koruny komína nad terénem [m] (H):"));
    addParameter(QStringLiteral("Objem spalin za normálních podmínek [m3/s] (Vs):"));
    cboTeplotaVznos = new QComboBox(&parameterPage());
    cboTeplotaVznos->setObjectName(QStringLiteral("cboTeplotaVznos"));
    cboTeplotaVznos->setAccessibleName(QStringLiteral("Teplota spalin, nebo vznos vlečky"));
    cboTeplotaVznos->addItems(
        {QStringLiteral("Teplota spalin [°C] (ts)"), QStringLiteral("Vznos vlečky [m] (Delta h)")});
    addParameter(*cboTeplotaVznos);
    addParameter(QStringLiteral("Vnitřní průměr komína (pokud je zadáno ts) [m] (d):"));
    addParameter(QStringLiteral("Výstupní rychlost spalin (pokud je zadáno ts) [m/s] (w0):"));
    addParameter(QStringLiteral("Relativní roční využití maximálního výkonu [%/100] (Alfa):"));
    addParameter(QStringLiteral("Počet hodin za den, kdy je zdroj v činnosti [hod] (Pd):"));
    addParameter(QStringLiteral("Vzdálenost elementů zdroje od sebe [m] (Y0):"));
    connect(cboTeplotaVznos, &QComboBox::currentIndexChanged, this, &frmPlosnyZdroj::choiceMade);
    choiceMade();
    finish(QStringLiteral("&Nápověda…"));
}

bool frmPlosnyZdroj::isPlumeRise() const
{
    return cboTeplotaVznos->currentIndex() == PlumeRise;
}

void frmPlosnyZdroj::choiceMade()
{
    for (const Parameter parameter : {d, w0}) {
        tPar(parameter).setEnabled(!isPlumeRise());
        lbPar(parameter).setEnabled(!isPlumeRise());
    }
    tPar(tsOrDeltaH).setAccessibleName(cboTeplotaVznos->currentText());
}

void frmPlosnyZdroj::fill(const SourceValues& values)
{
    SourceDialog::fill(values);
    const bool hasStack = values.parameters.at(d) != 0.0F || values.parameters.at(w0) != 0.0F;
    cboTeplotaVznos->setCurrentIndex(hasStack ? Temperature : PlumeRise);
}

}  // namespace korvex
