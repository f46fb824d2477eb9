#include "dialog_buttons.h"

#include "help_key.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>

namespace korvex {

QPushButton* dialogButton(QDialog& dialog, const QString& caption, const QString& toolTip)
{
    auto* const made = new QPushButton(caption, &dialog);
    made->setToolTip(toolTip);
    return made;
}

DialogButtons DialogButtons::make(QDialog& dialog)
{
    DialogButtons buttons;
    buttons.ok = dialogButton(dialog, QStringLiteral("&Ok"), QStringLiteral("Zpět s provedením změn"));
    buttons.ok->setDefault(true);
    buttons.storno = dialogButton(dialog, QStringLiteral("&Storno"), QStringLiteral("Zpět bez provedení změn"));
    QObject::connect(buttons.storno, &QPushButton::clicked, &dialog, &QDialog::reject);
    buttons.help = dialogButton(dialog, QStringLiteral("&Nápověda"), QStringLiteral("Nápověda k programu"));
    QObject::connect(buttons.help, &QPushButton::clicked, &dialog, [&dialog] { sendHelpKey(dialog); });
    return buttons;
}

QHBoxLayout* DialogButtons::row() const
{
    auto* const layout = new QHBoxLayout;
    layout->addStretch();
    for (QPushButton* const present : {ok, storno, help})
        layout->addWidget(present);
    return layout;
}

}  // namespace korvex
