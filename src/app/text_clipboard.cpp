#include "text_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace korvex {

void DesktopClipboard::put(const QString& text)
{
    QClipboard* const clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(text);
}

}  // namespace korvex
