#include "pressure_dialog.h"

#include "dialog_buttons.h"
#include "field_behaviour.h"
#include "globals.h"
#include "guard.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace korvex {

namespace {

const QString normalPressure = QStringLiteral("101325");

}  // namespace

frmTlak::frmTlak(Shell& shell, QWidget& owner)
    : QDialog(&owner), m_shell(shell), txtTlak(new QLineEdit(normalPressure, this))
{
    setObjectName(QStringLiteral("frmTlak"));
    setWindowTitle(QStringLiteral("Nastavení tlaku vzduchu"));
    setWindowModality(Qt::WindowModal);

    auto* const label = new QLabel(QStringLiteral("Tlak vzduchu 'p':"), this);
    txtTlak->setObjectName(QStringLiteral("txtTlak"));
    label->setBuddy(txtTlak);
    SelectAllText(*txtTlak);
    txtTlak->installEventFilter(this);

    // The tool tip of both buttons is that of the calculation the dialog was first made for; users know it so.
    const QString toolTip = QStringLiteral("Vypočítej (Vs)");
    auto* const cmdOk = dialogButton(*this, QStringLiteral("&Ok"), toolTip);
    cmdOk->setObjectName(QStringLiteral("cmdOk"));
    cmdOk->setDefault(true);
    auto* const cmdCancel = dialogButton(*this, QStringLiteral("&Storno"), toolTip);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(cmdOk, &QPushButton::clicked, this, [this] { runGuarded(m_shell.boxes, this, [this] { takeOver(); }); });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* const fields = new QGridLayout;
    fields->addWidget(label, 0, 0);
    fields->addWidget(txtTlak, 0, 1);
    fields->addWidget(new QLabel(QStringLiteral("[Pa]"), this), 0, 2);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdCancel);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void frmTlak::Tlak(float pressure)
{
    m_pressure = pressure;
    txtTlak->setText(singleFieldText(pressure, m_shell.globals.decimalSeparator));
}

void frmTlak::placeOver(const QWidget& widget)
{
    adjustSize();
    const QPoint top = widget.mapToGlobal(QPoint(widget.width() / 2, 0));
    const QRect screen = widget.screen()->availableGeometry();
    // A button at the edge of the screen must not take the dialog out of it.
    // The dialog has no frame before it is shown, but will get one like the owner's.
    const QWidget& owner = *widget.window();
    const QSize size = this->size() + owner.frameGeometry().size() - owner.size();
    const int left = std::max(std::min(top.x() - size.width() / 2, screen.right() + 1 - size.width()), screen.left());
    move(left, std::max(std::min(top.y(), screen.bottom() + 1 - size.height()), screen.top()));
}

void frmTlak::takeOver()
{
    m_pressure = fieldSingle(*txtTlak, m_shell.globals.decimalSeparator);
    m_confirmed = true;
    accept();
}

bool frmTlak::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == txtTlak && event->type() == QEvent::MouseButtonDblClick) {
        // A quick way back to the normal pressure.
        txtTlak->setText(normalPressure);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace korvex
