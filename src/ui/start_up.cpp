#include "start_up.h"

#include "arguments.h"
#include "globals.h"
#include "load_save.h"
#include "main_window.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>
#include <QWindow>

#include <chrono>

namespace korvex {

namespace {

/// A load begins at once and takes a second for a large inventory: without this the window would stay black so long,
/// for it is painted only when the display says that it can be seen. What the user does meanwhile is kept for later.
void waitUntilPainted(const QWidget& window)
{
    constexpr std::chrono::seconds longest(1);  // a window started minimised never is
    constexpr std::chrono::milliseconds pause(20);
    const QDeadlineTimer deadline(longest);
    QTimer wakeUp;
    wakeUp.start(pause);
    while (!window.windowHandle()->isExposed() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
}

}  // namespace

void startUp(const cArgumenty& arguments, frmKORVEXZDR& window)
{
    constexpr std::int16_t fewestWithFiles = 2;
    if (arguments.Count() < fewestWithFiles) {
        window.show();
        return;
    }
    Globals& globals = window.shell().globals;
    // Also the empty ones: what the caller did not name is not to be remembered from another run.
    globals.files.points = arguments.Value("0", "");
    globals.files.description = arguments.Value("1", "");
    globals.files.dust = arguments.Value("2", "");
    globals.dustGroupsPath = arguments.Value("3", "");
    globals.iniPath = arguments.Value("ini", "");
    globals.commandLineMode = arguments.Exists("s");
    // Saved with the settings, so that such a run switches dust work off for later ones too; callers rely on it.
    if (globals.dustGroupsPath.empty() && globals.commandLineMode)
        globals.noDust = 1;
    window.updateMenuState();
    window.show();
    waitUntilPainted(window);
    loadSources(window, globals.files, globals.dustGroupsPath, LoadMode::Replace);
}

}  // namespace korvex
