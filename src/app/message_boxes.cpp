#include "message_boxes.h"

#include "version.h"

#include <QApplication>
#include <QFontMetrics>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QSpacerItem>

#include <map>

namespace korvex {

namespace {

QMessageBox::Icon toolkitIcon(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::Exclamation:
        return QMessageBox::Warning;
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    case BoxIcon::Information:
        break;
    }
    return QMessageBox::Information;
}

/// A path is one long word; without places to break it the box would be wider than the screen.
QString breakable(QString text)
{
    return text.replace(QLatin1Char('/'), QStringLiteral("/\u200B"));
}

/// A title names the operation: a box with a short text must not be narrower.
void makeRoomForTitle(QMessageBox& box)
{
    constexpr int windowButtons = 16;  // in characters
    const QFontMetrics metrics(QApplication::font("QMdiSubWindowTitleBar"));
    const int width = metrics.horizontalAdvance(box.windowTitle()) + windowButtons * metrics.averageCharWidth();
    auto* const layout = qobject_cast<QGridLayout*>(box.layout());
    if (layout != nullptr)
        layout->addItem(new QSpacerItem(width, 0), layout->rowCount(), 0, 1, layout->columnCount());
}

std::map<QAbstractButton*, BoxAnswer> addButtons(QMessageBox& box, BoxButtons buttons)
{
    if (buttons == BoxButtons::Ok)
        return {{box.addButton(QMessageBox::Ok), BoxAnswer::Ok}};
    // One role for both: with the roles of Yes and No the toolkit takes Escape and the close box for No.
    std::map<QAbstractButton*, BoxAnswer> answers{
        {box.addButton(QStringLiteral("&Ano"), QMessageBox::YesRole), BoxAnswer::Yes},
        {box.addButton(QStringLiteral("&Ne"), QMessageBox::YesRole), BoxAnswer::No},
    };
    if (buttons == BoxButtons::YesNoCancel) {
        QPushButton* const cancel = box.addButton(QMessageBox::Cancel);
        // The toolkit's own text has no letter to press with Alt.
        cancel->setText(QStringLiteral("&Storno"));
        box.setEscapeButton(cancel);
        answers[cancel] = BoxAnswer::Cancel;
    }
    return answers;
}

}  // namespace

BoxAnswer ToolkitMessageBoxes::show(QWidget* parent, const BoxRequest& request)
{
    QMessageBox box(parent);
    box.setWindowTitle(request.title.isEmpty() ? QString::fromUtf8(version::applicationTitle) : request.title);
    box.setIcon(toolkitIcon(request.icon));
    box.setTextFormat(Qt::PlainText);
    box.setText(breakable(request.text));
    box.setDetailedText(request.details);
    // Not application-modal: the help window must take input beside it.
    box.setWindowModality(parent != nullptr ? Qt::WindowModal : Qt::ApplicationModal);
    const auto answers = addButtons(box, request.buttons);
    makeRoomForTitle(box);
    box.exec();
    const auto answer = answers.find(box.clickedButton());
    // A box that is closed with the program has no clicked button: nothing is lost by staying.
    return answer != answers.end() ? answer->second : BoxAnswer::Cancel;
}

}  // namespace korvex
