// The companion tool's entry: makes its commands and runs the one that was asked for.
#include "calc_command.h"
#include "check_command.h"
#include "command_context.h"
#include "diff_command.h"
#include "export_command.h"
#include "extract_command.h"
#include "import_command.h"
#include "merge_command.h"
#include "program.h"
#include "renumber_command.h"
#include "restore_command.h"
#include "stat_command.h"
#include "text_output.h"

#include <CLI/CLI.hpp>

#include <csignal>
#include <cstddef>
#include <span>

int main(int argc, char** argv)
{
    using namespace korvex;
    // A reader that went away, or a limit on the size of files, is then an error of the write.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);

    const auto count = static_cast<std::size_t>(argc);
    const auto arguments = std::span<const char* const>(argv, count).subspan(count > 0 ? 1 : 0);
    TextOutput out(1);
    TextOutput err(2);
    CommandContext context{out, err, languageOf(arguments)};
    const auto app = makeApp(context);
    addCheckCommand(*app, context);
    addStatCommand(*app, context);
    addDiffCommand(*app, context);
    addMergeCommand(*app, context);
    addExtractCommand(*app, context);
    addRenumberCommand(*app, context);
    addExportCommand(*app, context);
    addImportCommand(*app, context);
    addCalcCommand(*app, context);
    addRestoreCommand(*app, context);
    return runApp(*app, context, arguments);
}
