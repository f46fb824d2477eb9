#include "line_source_dialog.h"

#include "description_panel.h"
#include "field_behaviour.h"
#include "globals.h"
#include "guard.h"
#include "midpoint.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

namespace korvex {

frmLiniovyZdroj::frmLiniovyZdroj(Shell& shell, QWidget& owner)
    // The ends of a segment can have negative coordinates: here the minus sign can be typed.
    : SourceDialog(shell, owner, "frmLiniovyZdroj", QStringLiteral("Liniový zdroj"), IsSignedNumberKey)
{
    for (const QString& caption : {
             QStringLiteral("Množství látky [g/s/m] (ML):"),
             QStringLiteral("X-sourad počátečního bodu úseku [m] (X1el):"),
             QStringLiteral("Y-sourad počátečního bodu úseku [m] (Y1el):"),
             QStringLiteral("X-sourad konečného bodu úseku [m] (X2el):"),
             QStringLiteral("Y-sourad konečného bodu úseku [m] (Y2el):"),
             QStringLiteral("Šířka úseku [m] (X0el):"),
             QStringLiteral("Výška úseku [m] (Z0el):"),
             QStringLiteral("Relativní roční využití maximálního výkonu [%/100] (Alfa):"),
             QStringLiteral("Počet hodin za den, kdy je zdroj v činnosti [hod] (Pd):"),
         })
        addParameter(caption);
    chbAutoCalcXY = new QCheckBox(QStringLiteral("Automatický výpočet středu úseku (X,Y)"), &parameterPage());
    chbAutoCalcXY->setObjectName(QStringLiteral("chbAutoCalcXY"));
    addBelow(*chbAutoCalcXY);
    cmdCalcXY = new QPushButton(QStringLiteral("Vypočítej střed úseku (X,Y)"), &parameterPage());
    cmdCalcXY->setObjectName(QStringLiteral("cmdCalcXY"));
    // The form stays as it is when the button hides.
    QSizePolicy policy = cmdCalcXY->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    cmdCalcXY->setSizePolicy(policy);
    addBelow(*cmdCalcXY);

    connect(chbAutoCalcXY, &QCheckBox::toggled, cmdCalcXY, &QWidget::setHidden);
    chbAutoCalcXY->setChecked(shell.globals.autoCalcXY != 0);
    connect(cmdCalcXY, &QPushButton::clicked, this,
        [this] { runGuarded(this->shell().boxes, this, [this] { calculateMidpoint(); }); });
    finish(QStringLiteral("&Nápověda…"));
}

void frmLiniovyZdroj::calculateMidpoint()
{
    // Unlike all other fields these are read without the user's decimal separator, on purpose: a comma ends them.
    std::int32_t x = 0;
    std::int32_t y = 0;
    CalcXY(x, y, plainFieldSingle(tPar(X1el)), plainFieldSingle(tPar(Y1el)), plainFieldSingle(tPar(X2el)),
        plainFieldSingle(tPar(Y2el)));
    description().X(x);
    description().Y(y);
}

void frmLiniovyZdroj::readBack(SourceValues& values)
{
    if (chbAutoCalcXY->isChecked())
        calculateMidpoint();
    SourceDialog::readBack(values);
}

void frmLiniovyZdroj::done(int result)
{
    shell().globals.autoCalcXY = chbAutoCalcXY->isChecked() ? 1 : 0;
    SourceDialog::done(result);
}

}  // namespace korvex
