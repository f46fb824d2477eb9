#include "batch_dialog.h"

#include "batch_runs.h"
#include "dialog_buttons.h"
#include "field_behaviour.h"
#include "focus_outline.h"
#include "globals.h"
#include "guard.h"
#include "help_key.h"
#include "message_boxes.h"
#include "option_index.h"
#include "placement.h"
#include "source_list_model.h"
#include "window_progress.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QStringListModel>
#include <QVBoxLayout>

#include <string>
#include <vector>

namespace korvex {

namespace {

const QString title = QStringLiteral("Výpočet hodnot bodových zdrojů");

QStringList toStringList(const std::vector<std::string>& lines)
{
    QStringList list;
    list.reserve(static_cast<qsizetype>(lines.size()));
    for (const std::string& line : lines)
        list << QString::fromStdString(line);
    return list;
}

}  // namespace

frmVypocetVsDw0::frmVypocetVsDw0(Shell& shell, SourceListModel& list, QWidget& owner)
    : QDialog(&owner), m_shell(shell), m_list(list), m_owner(owner)
{
    setObjectName(QStringLiteral("frmVypocetVsDw0"));
    setWindowTitle(title);
    setWindowModality(Qt::WindowModal);
    buildWidgets();
    restoreSubordinatePlacement(*this, m_owner, m_shell.settings, Resizable::Yes);
}

void frmVypocetVsDw0::buildWidgets()
{
    auto* const Frame1 = new QGroupBox(QStringLiteral("Počítaná hodnota"), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    auto* const options = new QVBoxLayout(Frame1);
    const std::array<QString, 3> captions{QStringLiteral("Výpočet hodnoty 'Vs'"), QStringLiteral("Výpočet hodnoty 'd'"),
        QStringLiteral("Výpočet hodnoty 'w0'")};
    for (std::size_t i = 0; i < optVypocet.size(); ++i) {
        optVypocet.at(i) = new QRadioButton(captions.at(i), Frame1);
        optVypocet.at(i)->setObjectName(QStringLiteral("optVypocet%1").arg(i));
        options->addWidget(optVypocet.at(i));
    }
    optVypocet.front()->setChecked(true);
    options->addStretch();

    auto* const Frame2 = new QGroupBox(QStringLiteral("Tlak vzduchu 'p'"), this);
    Frame2->setObjectName(QStringLiteral("Frame2"));
    txtTlak = new QLineEdit(QStringLiteral("101325"), Frame2);
    txtTlak->setObjectName(QStringLiteral("txtTlak"));
    txtTlak->setAccessibleName(Frame2->title());
    SelectAllText(*txtTlak);
    auto* const Label1 = new QLabel(QStringLiteral("[Pa]"), Frame2);
    Label1->setObjectName(QStringLiteral("Label1"));
    auto* const Label3 = new QLabel(QStringLiteral("Hodnota bude použita pouze pro tento výpočet."), Frame2);
    Label3->setObjectName(QStringLiteral("Label3"));
    auto* const pressure = new QVBoxLayout(Frame2);
    auto* const pressureField = new QHBoxLayout;
    pressureField->addWidget(txtTlak);
    pressureField->addWidget(Label1);
    pressure->addLayout(pressureField);
    pressure->addWidget(Label3);
    pressure->addStretch();

    auto* const Label2 = new QLabel(QStringLiteral("Záznam o chybách:"), this);
    Label2->setObjectName(QStringLiteral("Label2"));
    m_log = new QStringListModel(this);
    lstLog = new FocusShowing<QListView>(this);
    lstLog->setObjectName(QStringLiteral("lstLog"));
    lstLog->setModel(m_log);
    lstLog->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // Else every line of a log of a million is measured.
    lstLog->setUniformItemSizes(true);
    Label2->setBuddy(lstLog);
    // Item views do not take their label's text for a name.
    lstLog->setAccessibleName(QStringLiteral("Záznam o chybách"));
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setAccessibleName(QStringLiteral("Průběh"));
    ProgressBar1->setTextVisible(false);
    ProgressBar1->setValue(0);

    auto* const cbStart = dialogButton(*this, QStringLiteral("&Start"), QStringLiteral("Spuštění výpočtu."));
    cbStart->setObjectName(QStringLiteral("cbStart"));
    cbStart->setDefault(true);
    cbStorno = dialogButton(*this, QStringLiteral("&Zpět"), QStringLiteral("Zpět."));
    cbStorno->setObjectName(QStringLiteral("cbStorno"));
    auto* const cbHelp = dialogButton(*this, QStringLiteral("&Nápověda…"), QStringLiteral("Nápověda k programu."));
    cbHelp->setObjectName(QStringLiteral("cbHelp"));
    connect(cbStart, &QPushButton::clicked, this, &frmVypocetVsDw0::start);
    connect(cbStorno, &QPushButton::clicked, this, &QDialog::reject);
    connect(cbHelp, &QPushButton::clicked, this, [this] { sendHelpKey(*this); });

    auto* const choices = new QHBoxLayout;
    choices->addWidget(Frame1);
    choices->addWidget(Frame2, 1);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* const button : {cbStart, cbStorno, cbHelp})
        buttons->addWidget(button);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(choices);
    layout->addWidget(Label2);
    layout->addWidget(lstLog, 1);
    layout->addWidget(ProgressBar1);
    layout->addLayout(buttons);
    optVypocet.front()->setFocus();
}

void frmVypocetVsDw0::done(int result)
{
    storeSubordinatePlacement(*this, m_owner, m_shell.settings, Resizable::Yes);
    QDialog::done(result);
}

void frmVypocetVsDw0::start()
{
    runGuarded(m_shell.boxes, this, [this] { run(); });
    cbStorno->setFocus();
}

void frmVypocetVsDw0::run()
{
    const float p = fieldSingle(*txtTlak, m_shell.globals.decimalSeparator);
    if (p == 0.0F) {
        m_shell.boxes.show(
            this, {title, QStringLiteral("Tlak 'p' nesmí být nulový."), BoxIcon::Exclamation, BoxButtons::Ok, {}});
        return;
    }
    const auto quantity = static_cast<StackGasQuantity>(OptionIndex(optVypocet));
    m_log->setStringList({});
    std::vector<std::string> log;
    // d and w0 use the program's own pressure, whatever was typed here.
    const StackGas stackGas(m_shell.globals.airPressure);
    try {
        BarProgress progress(*ProgressBar1);
        runStackGas(m_list.set(), m_list.rows(), quantity, p, stackGas, log, progress);
    } catch (...) {
        m_log->setStringList(toStringList(log));
        throw;
    }
    m_log->setStringList(toStringList(log));
}

}  // namespace korvex
