// Progress bar, status text and pointer during a long run.
#pragma once

#include "progress_listener.h"

#include <cstddef>
#include <string_view>

class QLabel;
class QProgressBar;

namespace korvex {

/// From its making to its end the pointer is the hourglass; at the end the bar is back at its beginning, whatever way
/// the run ended.
class BarProgress : public ProgressListener {
public:
    explicit BarProgress(QProgressBar& bar);
    BarProgress(const BarProgress&) = delete;
    BarProgress& operator=(const BarProgress&) = delete;
    ~BarProgress() override;

    void statusText(std::string_view /*text*/) override { }
    void progressMaximum(std::size_t maximum) override;
    void progressValue(std::size_t value) override;

private:
    QProgressBar& m_bar;
    std::size_t m_perStep = 1;  // a file can have more bytes than the bar can count
};

/// The same with the main window's status text and with a bar that is there only during the run.
class WindowProgress : public BarProgress {
public:
    WindowProgress(QLabel& status, QProgressBar& bar);
    WindowProgress(const WindowProgress&) = delete;
    WindowProgress& operator=(const WindowProgress&) = delete;
    ~WindowProgress() override;

    void statusText(std::string_view text) override;
    void progressMaximum(std::size_t maximum) override;

private:
    QLabel& m_status;
    QProgressBar& m_bar;
};

/// Shows a status text at once, also while the program is busy.
void showStatusText(QLabel& status, std::string_view text);

}  // namespace korvex
