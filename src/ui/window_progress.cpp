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

BarProgress::BarProgress(QProgressBar& bar) : m_bar(bar)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

BarProgress::~BarProgress()
{
    m_bar.setValue(0);
    QApplication::restoreOverrideCursor();
}

void BarProgress::progressMaximum(std::size_t maximum)
{
    m_perStep = maximum / static_cast<std::size_t>(std::numeric_limits<int>::max()) + 1;
    m_bar.setRange(0, static_cast<int>(maximum / m_perStep));
    m_bar.setValue(0);
}

void BarProgress::progressValue(std::size_t value)
{
    // The toolkit's bar is slow in being told what it does not show: a million steps would take most of a run.
    constexpr int visibleSteps = 1000;
    const int shown = static_cast<int>(value / m_perStep);
    if (shown - m_bar.value() > m_bar.maximum() / visibleSteps)
        m_bar.setValue(shown);
}

WindowProgress::WindowProgress(QLabel& status, QProgressBar& bar) : BarProgress(bar), m_status(status), m_bar(bar) { }

WindowProgress::~WindowProgress()
{
    showStatusText(m_status, "");
    m_bar.hide();
}

void WindowProgress::statusText(std::string_view text)
{
    showStatusText(m_status, text);
}

void WindowProgress::progressMaximum(std::size_t maximum)
{
    BarProgress::progressMaximum(maximum);
    m_bar.show();
}

}  // namespace korvex
