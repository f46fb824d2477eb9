#include "window_progress.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>

#include <limits>

namespace korvex {

void showStatusText(QLabel& status, std::string_view text)
{
    const QString shown = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    if (shown == status.text())
        return;
    status.setText(shown);
    status.repaint();
}

WindowProgress::WindowProgress(QLabel& status, QProgressBar& bar) : m_status(status), m_bar(bar)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

WindowProgress::~WindowProgress()
{
    showStatusText(m_status, "");
    m_bar.hide();
    m_bar.reset();
    QApplication::restoreOverrideCursor();
}

void WindowProgress::statusText(std::string_view text)
{
    showStatusText(m_status, text);
}

void WindowProgress::progressMaximum(std::size_t maximum)
{
    m_perStep = maximum / static_cast<std::size_t>(std::numeric_limits<int>::max()) + 1;
    m_bar.setRange(0, static_cast<int>(maximum / m_perStep));
    m_bar.setValue(0);
    m_bar.show();
}

void WindowProgress::progressValue(std::size_t value)
{
    m_bar.setValue(static_cast<int>(value / m_perStep));
}

}  // namespace korvex
