// The editor's entry: makes what the whole process shares, shows the window and runs.
#include "arguments.h"
#include "context_help.h"
#include "czech_toolkit.h"
#include "file_dialogs.h"
#include "globals.h"
#include "main_window.h"
#include "message_boxes.h"
#include "settings_store.h"
#include "start_up.h"
#include "text_clipboard.h"
#include "version.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>

#include <csignal>
#include <cstddef>
#include <iostream>
#include <span>
#include <string_view>

namespace {

using namespace korvex;

/// Answers on the terminal, without a window. False: the arguments ask for no such thing.
bool answerOnTerminal(std::span<const char* const> arguments)
{
    if (arguments.size() != 1)
        return false;
    const std::string_view argument = arguments.front();
    if (argument == "--version") {
        std::cout << "korvexzdr " << version::number << '\n';
        return true;
    }
    if (argument == "--help") {
        std::cout << "Použití: korvexzdr [BODY POPIS [PRACH [SKUPINY]]] [/s] [/ini SOUBOR]\n"
                     "\n"
                     "  BODY, POPIS, PRACH  soubory s body, s popisem a s prachem; načtou se hned\n"
                     "  SKUPINY             soubor se skupinami prachu (*.spr)\n"
                     "  /s                  editor volajícího programu: při zavření se změny uloží\n"
                     "                      do týchž souborů\n"
                     "  /ini SOUBOR         do tohoto INI souboru se po uložení zapíší názvy souborů\n"
                     "\n"
                     "Bez souborů se otevře prázdné okno.\n";
        return true;
    }
    return false;
}

}  // namespace

int main(int argc, char** argv)
{
    const auto count = static_cast<std::size_t>(argc);
    const auto arguments = std::span<const char* const>(argv, count).subspan(count > 0 ? 1 : 0);
    if (answerOnTerminal(arguments))
        return 0;
    // A limit on the size of files is then an error of the write and not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);

    prepareToolkit();
    // The toolkit would take options of its own out of the arguments: to this program they are file names.
    int ownCount = argc > 0 ? 1 : 0;
    QApplication application(ownCount, argv);
    QApplication::setApplicationName(QStringLiteral("korvexzdr"));
    QApplication::setApplicationVersion(QString::fromUtf8(version::number));
    QGuiApplication::setDesktopFileName(QStringLiteral("korvexzdr"));
    makeToolkitCzech(application);
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/icons/korvexzdr-%1.png").arg(size), QSize(size, size));
    QApplication::setWindowIcon(icon);

    cArgumenty parsed;
    parsed.Parse(commandLineText(arguments));
    Globals globals;
    globals.decimalSeparator = QLocale::system().decimalPoint().toStdString();
    UserSettings settings;
    ToolkitMessageBoxes boxes;
    ToolkitFileChooser chooser(boxes);
    FileDialogs fileDialogs(chooser, settings);
    DesktopClipboard clipboard;
    const ContextHelp help(settings);
    frmKORVEXZDR window({globals, settings, boxes, fileDialogs, clipboard});
    startUp(parsed, window);
    return QApplication::exec();
}
