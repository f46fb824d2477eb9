#include "options_dialog.h"

#include "dialog_buttons.h"
#include "field_behaviour.h"
#include "globals.h"
#include "guard.h"
#include "number_text.h"
#include "source_number_counter.h"
#include "version.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <cmath>

namespace korvex {

frmOptions::frmOptions(Shell& shell, SourceNumberCounter& sourceNumbers, QWidget& owner)
    : QDialog(&owner), m_shell(shell), m_sourceNumbers(sourceNumbers)
{
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral("Možnosti"));
    setWindowModality(Qt::WindowModal);

    auto* const tabs = new QTabWidget(this);
    tabs->addTab(makeGeneralPage(), QStringLiteral("Obecné"));
    tabs->addTab(makeFilesPage(), QStringLiteral("Soubory"));
    const DialogButtons buttons = DialogButtons::make(*this);
    buttons.ok->setObjectName(QStringLiteral("cmdOk"));
    buttons.storno->setObjectName(QStringLiteral("Storno"));
    buttons.help->setObjectName(QStringLiteral("cbHelp"));
    connect(buttons.ok, &QPushButton::clicked, this, [this] {
        if (runGuarded(m_shell.boxes, this, [this] { takeOver(); }))
            accept();
    });

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addLayout(buttons.row());
    tbMinNewID->setFocus();
}

QWidget* frmOptions::makeGeneralPage()
{
    auto* const page = new QWidget(this);
    auto* const label
        = new QLabel(QStringLiteral("Počáteční hodnota čísla manuálně zadávaných stanic (standardně 50000)."), page);
    tbMinNewID = new QLineEdit(QString::number(m_shell.globals.minNewId), page);
    tbMinNewID->setObjectName(QStringLiteral("tbMinNewID"));
    constexpr int numberCharacters = 14;
    tbMinNewID->setMaximumWidth(numberCharacters * fontMetrics().horizontalAdvance(QLatin1Char('0')));
    label->setBuddy(tbMinNewID);
    SelectAllText(*tbMinNewID);

    const Globals& globals = m_shell.globals;
    chbNoPrach = new QCheckBox(QStringLiteral("Nenabízej možnost práce s prachem"), page);
    chbNoPrach->setObjectName(QStringLiteral("chbNoPrach"));
    chbNoPrach->setToolTip(QStringLiteral("Pokud nepracujete s prachem zatrhněte tuto volbu."));
    chbNoPrach->setChecked(globals.noDust == 1);
    // A caller that passes no dust groups file has switched dust work off for good.
    chbNoPrach->setVisible(!globals.commandLineMode || !globals.dustGroupsPath.empty());

    auto* const lblNazev = new QLabel(QString::fromUtf8(version::productName), page);
    lblNazev->setObjectName(QStringLiteral("lblNazev"));
    auto* const lblVerze = new QLabel(
        QStringLiteral("Verze %1.%2.%3").arg(version::major).arg(version::minor).arg(version::revision), page);
    lblVerze->setObjectName(QStringLiteral("lblVerze"));
    auto* const lblCopyright = new QLabel(QString::fromUtf8(version::legalNotice), page);
    lblCopyright->setObjectName(QStringLiteral("lblCopyright"));

    auto* const layout = new QVBoxLayout(page);
    layout->addWidget(label);
    layout->addWidget(tbMinNewID);
    layout->addWidget(chbNoPrach);
    layout->addStretch();
    layout->addSpacing(fontMetrics().lineSpacing());
    layout->addWidget(lblNazev);
    layout->addWidget(lblVerze);
    layout->addWidget(lblCopyright);
    return page;
}

QWidget* frmOptions::makeFilesPage()
{
    auto* const page = new QWidget(this);
    chZaradit
        = new QCheckBox(QStringLiteral("Při čtení zdrojů ze souboru akceptovat i zdroje s chybějícím popisem. "), page);
    chZaradit->setObjectName(QStringLiteral("chZaradit"));
    chZaradit->setChecked(m_shell.globals.acceptMissingDescription);
    auto* const layout = new QVBoxLayout(page);
    layout->addWidget(chZaradit);
    layout->addStretch();
    return page;
}

void frmOptions::takeOver()
{
    const std::int32_t number = roundToInteger(std::abs(static_cast<double>(fieldInteger(*tbMinNewID))));
    Globals& globals = m_shell.globals;
    globals.acceptMissingDescription = chZaradit->isChecked();
    globals.noDust = chbNoPrach->isChecked() ? 1 : 0;
    globals.minNewId = number;
    m_sourceNumbers.raiseTo(number);
}

}  // namespace korvex
