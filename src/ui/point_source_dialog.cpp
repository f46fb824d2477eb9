#include "point_source_dialog.h"

#include "dialog_buttons.h"
#include "field_behaviour.h"
#include "globals.h"
#include "guard.h"
#include "message_boxes.h"
#include "pressure_dialog.h"
#include "stack_gas.h"

#include <QLineEdit>
#include <QPushButton>

#include <array>

namespace korvex {

frmBodovyZdroj::frmBodovyZdroj(Shell& shell, QWidget& owner)
    : SourceDialog(shell, owner, "frmBodovyZdroj", QStringLiteral("Bodový zdroj"), IsNumberKey)
{
    for (const QString& caption : {
             QStringLiteral("Množství látky odcházející komínem [g/s] (M):"),
             QStringLiteral("Výška koruny komína nad terénem [m] (H):"),
             QStringLiteral("Objem spalin za normálních podmínek [m3/s] (Vs):"),
             QStringLiteral("Teplota spalin [°C] (ts):"),
             QStringLiteral("Vnitřní průměr komína [m] (d):"),
             QStringLiteral("Výstupní rychlost spalin [m/s] (w0):"),
             QStringLiteral("Relativní roční využití maximálního výkonu [%/100] (Alfa):"),
             QStringLiteral("Počet hodin za den, kdy je zdroj v činnosti [hod] (Pd):"),
         })
        addParameter(caption);

    struct Calculation {
        const char* objectName;
        QString caption;
        Parameter target;
        void (frmBodovyZdroj::*calculate)();
    };
    const std::array<Calculation, 3> calculations{{
        {"cmdCalcVs", QStringLiteral("Vypočítej (Vs)"), Vs, &frmBodovyZdroj::calculateVs},
        {"cmdCalcD", QStringLiteral("Vypočítej (d)"), d, &frmBodovyZdroj::calculateD},
        {"cmdCalcW0", QStringLiteral("Vypočítej (w0)"), w0, &frmBodovyZdroj::calculateW0},
    }};
    for (const Calculation& calculation : calculations) {
        auto* const button = new QPushButton(calculation.caption, &parameterPage());
        button->setObjectName(QLatin1String(calculation.objectName));
        connectCalculation(*button, calculation.calculate);
        addBeside(calculation.target, *button);
    }
    cmdNastavitTlak = new QPushButton(QStringLiteral("Nastavit &tlak"), &parameterPage());
    cmdNastavitTlak->setObjectName(QStringLiteral("cmdNastavitTlak"));
    connect(cmdNastavitTlak, &QPushButton::clicked, this, &frmBodovyZdroj::setPressure);
    addBeside(Pd, *cmdNastavitTlak);
    showPressure();
    finish(QStringLiteral("&Nápověda"));
}

void frmBodovyZdroj::connectCalculation(QPushButton& button, void (frmBodovyZdroj::*calculate)())
{
    connect(&button, &QPushButton::clicked, this,
        [this, calculate] { runGuarded(shell().boxes, this, [this, calculate] { (this->*calculate)(); }); });
}

void frmBodovyZdroj::calculateVs()
{
    const float p = shell().globals.airPressure;
    showParameter(Vs, StackGas(p).CalcVs(parameter(ts), parameter(d), parameter(w0), p));
    tPar(ts).setFocus();
}

void frmBodovyZdroj::calculateD()
{
    const float p = shell().globals.airPressure;
    const float temperature = parameter(ts);
    const float volume = parameter(Vs);
    const float velocity = parameter(w0);
    if (!checkDivisors(QStringLiteral("Vypočet (d)"), velocity, QStringLiteral("Parametr 'w0' nesmí být nulový.")))
        return;
    showParameter(d, StackGas(p).CalcD(temperature, volume, velocity, p));
    tPar(w0).setFocus();
}

void frmBodovyZdroj::calculateW0()
{
    const float p = shell().globals.airPressure;
    const float temperature = parameter(ts);
    const float volume = parameter(Vs);
    const float diameter = parameter(d);
    if (!checkDivisors(QStringLiteral("Vypočet (w0)"), diameter, QStringLiteral("Parametr 'd' nesmí být nulový.")))
        return;
    showParameter(w0, StackGas(p).CalcW0(temperature, volume, diameter, p));
    tPar(Alfa).setFocus();
}

bool frmBodovyZdroj::checkDivisors(const QString& title, float divisor, const QString& divisorIsZero)
{
    QString refusal;
    if (divisor == 0.0F)
        refusal = divisorIsZero;
    else if (shell().globals.airPressure == 0.0F)
        refusal = QStringLiteral("Tlak vzduchu nesmí být nulový.");
    if (refusal.isEmpty())
        return true;
    shell().boxes.show(this, {title, refusal, BoxIcon::Exclamation, BoxButtons::Ok, {}});
    return false;
}

/// The pressure stays changed for the rest of the run, also when the editor is then left by Storno.
void frmBodovyZdroj::setPressure()
{
    frmTlak dialog(shell(), *this);
    dialog.Tlak(shell().globals.airPressure);
    dialog.placeOver(*cmdNastavitTlak);
    dialog.exec();
    if (!dialog.confirmed())
        return;
    shell().globals.airPressure = dialog.Tlak();
    showPressure();
}

void frmBodovyZdroj::showPressure()
{
    const QString pressure = singleFieldText(shell().globals.airPressure, shell().globals.decimalSeparator);
    cmdNastavitTlak->setToolTip(QStringLiteral("Tlak (p) = %1 Pa").arg(pressure));
}

}  // namespace korvex
