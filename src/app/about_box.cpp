#include "about_box.h"

#include "version.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace korvex {

namespace {

constexpr int shadowOffset = 3;  // 50 twips

/// The title over its shadow, which stands a little above and to the right.
QWidget* makeTitle(QWidget& box)
{
    auto* const place = new QWidget(&box);
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(2.6 * box.font().pointSizeF());
    font.setBold(true);

    auto* const lbStin = new QLabel(QStringLiteral("stín"), place);
    lbStin->setObjectName(QStringLiteral("lbStin"));
    auto* const lbNazev = new QLabel(QString::fromUtf8(version::applicationTitle), place);
    lbNazev->setObjectName(QStringLiteral("lbNazev"));
    lbStin->setText(lbNazev->text());
    lbStin->setForegroundRole(QPalette::Mid);
    for (QLabel* const label : {lbStin, lbNazev}) {
        label->setFont(font);
        label->adjustSize();
    }
    const QPoint designed(0, shadowOffset);
    lbNazev->move(designed);
    lbStin->move(designed + QPoint(shadowOffset, -shadowOffset));
    place->setFixedSize(lbNazev->size() + QSize(shadowOffset, shadowOffset));
    return place;
}

QLabel* makeLabel(QWidget& box, const char* name, const QString& text)
{
    auto* const label = new QLabel(text, &box);
    label->setObjectName(QLatin1String(name));
    return label;
}

}  // namespace

About::About(QWidget& owner) : QDialog(&owner)
{
    setObjectName(QStringLiteral("About"));
    setWindowTitle(QStringLiteral("O aplikaci"));
    setWindowModality(Qt::WindowModal);

    constexpr int pictureSize = 64;
    auto* const Image1 = makeLabel(*this, "Image1", {});
    Image1->setPixmap(QIcon(QStringLiteral(":/icons/korvexzdr-128.png")).pixmap(pictureSize, pictureSize));
    auto* const Line1 = new QFrame(this);
    Line1->setObjectName(QStringLiteral("Line1"));
    Line1->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    auto* const cbOk = new QPushButton(QStringLiteral("&Ok"), this);
    cbOk->setObjectName(QStringLiteral("cbOk"));
    cbOk->setDefault(true);
    connect(cbOk, &QPushButton::clicked, this, &QDialog::accept);

    auto* const texts = new QGridLayout;
    texts->setHorizontalSpacing(2 * fontMetrics().averageCharWidth());
    texts->addWidget(Image1, 0, 0, 5, 1, Qt::AlignTop);
    texts->addWidget(makeTitle(*this), 0, 1);
    texts->addWidget(Line1, 1, 1);
    texts->addWidget(
        makeLabel(*this, "lbAplikace", QStringLiteral("Produkt: ") + QString::fromUtf8(version::productName)), 2, 1);
    texts->addWidget(
        makeLabel(*this, "lbVerze",
            QStringLiteral("Verze: %1.%2.%3").arg(version::major).arg(version::minor).arg(version::revision)),
        3, 1);
    texts->addWidget(makeLabel(*this, "lbCopyright", QString::fromUtf8(version::legalNotice)), 4, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(texts);
    layout->addSpacing(fontMetrics().lineSpacing());
    layout->addWidget(cbOk, 0, Qt::AlignHCenter);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void About::showEvent(QShowEvent* event)
{
    adjustSize();
    const QRect owner = parentWidget()->frameGeometry();
    // Not yet shown, the box has no frame of its own to ask for.
    QRect own(QPoint(), size() + owner.size() - parentWidget()->size());
    own.moveCenter(owner.center());
    move(own.topLeft());
    QDialog::showEvent(event);
}

}  // namespace korvex
