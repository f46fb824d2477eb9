#include "help_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace korvex {

void sendHelpKey(QWidget& window)
{
    QApplication::postEvent(&window, new QKeyEvent(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier));
    QApplication::postEvent(&window, new QKeyEvent(QEvent::KeyRelease, Qt::Key_F1, Qt::NoModifier));
}

}  // namespace korvex
