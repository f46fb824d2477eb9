#include "source_dialog.h"

#include "description_panel.h"
#include "dialog_buttons.h"
#include "dust_panel.h"
#include "field_behaviour.h"
#include "globals.h"
#include "guard.h"
#include "message_boxes.h"
#include "placement.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <utility>

namespace korvex {

namespace {

enum Column { LabelColumn, FieldColumn, ButtonColumn };

}  // namespace

SourceDialog::SourceDialog(
    Shell& shell, QWidget& owner, const char* objectName, const QString& caption, bool (*acceptsKey)(int))
    : QDialog(&owner)
    , m_shell(shell)
    , m_acceptsKey(acceptsKey)
    , SSTab1(new QTabWidget(this))
    , uscPopis1(new uscPopis(SSTab1))
    , m_parameterPage(new QWidget(SSTab1))
    , m_parameterLayout(new QGridLayout(m_parameterPage))
{
    setObjectName(QLatin1String(objectName));
    setWindowTitle(caption);
    setWindowModality(Qt::WindowModal);
    m_placement = new FreePlacement(*this, m_shell.settings, Resizable::Yes);

    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    uscPopis1->setObjectName(QStringLiteral("uscPopis1"));
    SSTab1->addTab(uscPopis1, QStringLiteral("Popis"));
    SSTab1->addTab(m_parameterPage, QStringLiteral("Parametry"));
}

QWidget* SourceDialog::makeDustPage()
{
    const bool usesDust = m_shell.globals.noDust == 0;
    auto* const page = new QWidget(SSTab1);
    uscPrach1 = new uscPrach(m_shell, page);
    uscPrach1->setObjectName(QStringLiteral("uscPrach1"));
    // Also when it is not shown: it keeps a source's reference to a group of the file.
    uscPrach1->SouborSkupinyPrachu(m_shell.globals.dustGroupsPath);
    uscPrach1->setVisible(usesDust);
    auto* const Label1 = new QLabel(QStringLiteral("Použití prachu bylo vypnuto v okně Soubor / Možnosti…"), page);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setAlignment(Qt::AlignCenter);
    Label1->setVisible(!usesDust);
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins({});
    layout->addWidget(uscPrach1);
    layout->addWidget(Label1);
    return page;
}

void SourceDialog::addParameter(const QString& caption)
{
    auto* const label = new QLabel(caption, m_parameterPage);
    label->setObjectName(QStringLiteral("lbPar%1").arg(m_parameters.size()));
    m_labels.push_back(label);
    addParameterField(*label);
    label->setBuddy(m_parameters.back());
}

void SourceDialog::addParameter(QWidget& inPlaceOfLabel)
{
    m_labels.push_back(nullptr);
    addParameterField(inPlaceOfLabel);
}

void SourceDialog::addParameterField(QWidget& before)
{
    auto* const field = new QLineEdit(m_parameterPage);
    field->setObjectName(QStringLiteral("tPar%1").arg(m_parameters.size()));
    field->setToolTip(QStringLiteral("Parametry zdroje"));
    // Every number that can be computed is to be seen whole.
    constexpr int shownDigits = 13;
    field->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * shownDigits);
    filterKeys(*field, m_acceptsKey);
    SelectAllText(*field);
    const auto row = static_cast<int>(m_parameters.size());
    m_parameterLayout->addWidget(&before, row, LabelColumn);
    m_parameterLayout->addWidget(field, row, FieldColumn);
    m_parameters.push_back(field);
}

void SourceDialog::addBeside(std::size_t parameter, QWidget& widget)
{
    m_parameterLayout->addWidget(&widget, static_cast<int>(parameter), ButtonColumn);
}

void SourceDialog::addBelow(QWidget& widget)
{
    m_parameterLayout->addWidget(
        &widget, m_parameterLayout->rowCount(), LabelColumn, 1, ButtonColumn + 1, Qt::AlignLeft);
}

void SourceDialog::finish(const QString& helpCaption)
{
    m_parameterLayout->setColumnStretch(FieldColumn, 1);
    m_parameterLayout->setRowStretch(m_parameterLayout->rowCount(), 1);
    // Made in this order, the widgets are reached by Tab from top to bottom.
    SSTab1->addTab(makeDustPage(), m_shell.globals.noDust == 0 ? QStringLiteral("Prach") : QStringLiteral("(Prach)"));
    QHBoxLayout* const buttons = makeButtons(helpCaption);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(SSTab1);
    layout->addLayout(buttons);
    connectPages();
    SSTab1->setCurrentIndex(m_shell.globals.lastEditorTab);
    adjustSize();
    m_placement->restore();
    focusFirstField();
}

QHBoxLayout* SourceDialog::makeButtons(const QString& helpCaption)
{
    const DialogButtons buttons = DialogButtons::make(*this);
    cbOK = buttons.ok;
    cbOK->setObjectName(QStringLiteral("cbOK"));
    buttons.storno->setObjectName(QStringLiteral("cbStorno"));
    buttons.help->setObjectName(QStringLiteral("cbHelp"));
    buttons.help->setText(helpCaption);
    connect(cbOK, &QPushButton::clicked, this, [this] {
        if (runGuarded(m_shell.boxes, this, [this] { takeOver(); }))
            accept();
    });
    return buttons.row();
}

void SourceDialog::connectPages()
{
    connect(SSTab1, &QTabWidget::currentChanged, this, [this] {
        // Typing can start at once; with the focus on the tabs themselves the arrow keys go on turning them.
        if (!SSTab1->tabBar()->hasFocus())
            focusFirstField();
    });
    const auto turnPage = [this](const char* keys, int step) {
        connect(new QShortcut(QKeySequence(QLatin1String(keys)), this), &QShortcut::activated, this,
            [this, step] { SSTab1->setCurrentIndex((SSTab1->currentIndex() + step) % SSTab1->count()); });
    };
    turnPage("Ctrl+PgDown", 1);
    turnPage("Ctrl+PgUp", SSTab1->count() - 1);
}

void SourceDialog::focusFirstField()
{
    // Not the number fields, which only show.
    for (QLineEdit* const field : SSTab1->currentWidget()->findChildren<QLineEdit*>()) {
        if (!field->isReadOnly() && field->isVisibleTo(this)) {
            field->setFocus();
            return;
        }
    }
    // Not the tabs: there the focus would stay when a page with fields is turned up.
    cbOK->setFocus();
}

void SourceDialog::letNumberBeTyped()
{
    m_isNumberTyped = true;
    uscPopis1->letNumberBeTyped();
}

bool SourceDialog::edit(SourceValues& values)
{
    m_values = values;
    fill(values);
    m_shownTexts = typedTexts();
    const int result = exec();
    // When the question of Escape and the editor close in one go, a window manager can lose the keys on the way.
    parentWidget()->activateWindow();
    if (result != QDialog::Accepted)
        return false;
    values = std::move(m_values);
    return true;
}

void SourceDialog::fill(const SourceValues& values)
{
    uscPopis1->CisloZdroje(values.number);
    uscPopis1->CisloKomina(values.stack);
    uscPopis1->NazevZdroje(values.name);
    uscPopis1->X(values.x);
    uscPopis1->Y(values.y);
    uscPopis1->Z(values.altitude);
    uscPopis1->Skupina(values.group);
    uscPopis1->Shluk(values.cluster);
    for (std::size_t i = 0; i < m_parameters.size(); ++i)
        showParameter(i, values.parameters.at(i));
    uscPrach1->Prach(values.dust);
}

void SourceDialog::readBack(SourceValues& values)
{
    if (m_isNumberTyped)
        values.number = uscPopis1->CisloZdroje();
    values.name = uscPopis1->NazevZdroje();
    values.x = uscPopis1->X();
    values.y = uscPopis1->Y();
    values.altitude = uscPopis1->Z();
    values.group = uscPopis1->Skupina();
    values.cluster = uscPopis1->Shluk();
    for (std::size_t i = 0; i < m_parameters.size(); ++i)
        values.parameters.at(i) = parameter(i);
    values.dust = uscPrach1->Prach();
}

void SourceDialog::takeOver()
{
    SourceValues read = m_values;
    readBack(read);
    m_values = std::move(read);
}

float SourceDialog::parameter(std::size_t index) const
{
    if (!tPar(index).isEnabledTo(m_parameterPage))
        return 0.0F;
    return fieldSingle(tPar(index), m_shell.globals.decimalSeparator);
}

void SourceDialog::showParameter(std::size_t index, float value)
{
    tPar(index).setText(singleFieldText(value, m_shell.globals.decimalSeparator));
}

QStringList SourceDialog::typedTexts()
{
    QStringList texts;
    for (const QLineEdit* const field : uscPopis1->findChildren<QLineEdit*>())
        texts.append(field->text());
    for (const QLineEdit* const field : m_parameters)
        texts.append(field->text());
    texts.append(QString::fromStdString(uscPrach1->Prach()));
    return texts;
}

void SourceDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Cancel))
        leaveByEscape();
    else
        QDialog::keyPressEvent(event);
}

/// A stray Escape must not throw away what took minutes to type; Storno is not pressed by mistake.
void SourceDialog::leaveByEscape()
{
    if (typedTexts() == m_shownTexts) {
        reject();
        return;
    }
    const BoxAnswer answer = m_shell.boxes.show(this,
        {windowTitle(), QStringLiteral("Byly provedeny změny zdroje.\nMám tyto změny převzít ?"), BoxIcon::Question,
            BoxButtons::YesNoCancel, {}});
    if (answer == BoxAnswer::Yes)
        cbOK->click();
    else if (answer == BoxAnswer::No)
        reject();
}

void SourceDialog::done(int result)
{
    m_shell.globals.lastEditorTab = SSTab1->currentIndex();
    // The groups may have been edited from the panel. A file that could not be read stays the current one: with its
    // name forgotten, the next editor would show the source without its group, and not even say why.
    if (!uscPrach1->SouborSkupinyPrachu().empty())
        m_shell.globals.dustGroupsPath = uscPrach1->SouborSkupinyPrachu();
    m_placement->store();
    QDialog::done(result);
}

}  // namespace korvex
