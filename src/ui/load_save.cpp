#include "load_save.h"

#include "clipboard_text.h"
#include "detail_lines.h"
#include "duplicate_report.h"
#include "dust_group_editor.h"
#include "files_dialogs.h"
#include "globals.h"
#include "ini_write.h"
#include "main_window.h"
#include "message_boxes.h"
#include "text_clipboard.h"
#include "text_conversion.h"
#include "user_folders.h"
#include "window_progress.h"

#include <QFileInfo>
#include <QStringList>

#include <vector>

namespace korvex {

namespace {

const QString loadTitle = QStringLiteral("Načtení seznamu zdrojů");
const QString saveTitle = QStringLiteral("Uložení seznamu zdrojů");

void reportRecords(frmKORVEXZDR& window, const QString& text, const std::vector<RecordPlace>& places)
{
    if (places.empty())
        return;
    const QString details = detailLines(places, [](const RecordPlace& place) {
        return QStringLiteral("řádek %1: zdroj %2").arg(place.line).arg(place.number);
    });
    window.shell().boxes.show(
        &window, {loadTitle, text.arg(places.size()), BoxIcon::Exclamation, BoxButtons::Ok, details});
}

void takeComment(frmKORVEXZDR& window, const LoadReport& report, LoadMode mode)
{
    if (!report.comment)
        return;
    const QString loaded = QString::fromStdString(*report.comment);
    const bool isAppended = mode == LoadMode::Append;
    window.comment(isAppended ? window.comment().trimmed() + QStringLiteral(" * ") + loaded : loaded);
}

void showLoadError(frmKORVEXZDR& window, const FileError& error, const LoadReport& report, LoadMode mode)
{
    FileError shown = error;
    if (report.setTouched)
        shown.description += mode == LoadMode::Append ? "\nPřipojeny byly jen zdroje načtené před chybou."
                                                      : "\nV seznamu jsou jen zdroje načtené před chybou.";
    window.shell().boxes.show(
        &window, {loadTitle, QString::fromStdString(shown.message()), BoxIcon::Critical, BoxButtons::Ok, {}});
}

/// What the files cannot hold as it stands in the window.
void reportLosses(frmKORVEXZDR& window, const SaveReport& report)
{
    const auto show = [&window](const QString& text, const std::vector<std::int32_t>& numbers) {
        const QString details
            = detailLines(numbers, [](std::int32_t number) { return QStringLiteral("zdroj %1").arg(number); });
        window.shell().boxes.show(&window, {saveTitle, text, BoxIcon::Exclamation, BoxButtons::Ok, details});
    };
    const QString sourceCount = QStringLiteral("\nPočet zdrojů, kterých se to týká: %1.");
    if (!report.replacedIn.empty() || report.replacedInHeader) {
        QString text = QStringLiteral("Některé znaky nelze v souborech uložit a byly nahrazeny otazníkem.");
        if (!report.replacedIn.empty())
            text += sourceCount.arg(report.replacedIn.size());
        if (report.replacedInHeader)
            text += QStringLiteral("\nTýká se to i komentáře nebo názvu souboru v hlavičce.");
        show(text, report.replacedIn);
    }
    if (!report.semicolonIn.empty())
        show(QStringLiteral("Středník ukončuje v souboru název zdroje: při příštím načtení bude název zkrácen.")
                + sourceCount.arg(report.semicolonIn.size()),
            report.semicolonIn);
}

void recordInIni(const Globals& globals)
{
    if (globals.iniPath.empty())
        return;
    constexpr std::string_view section = "Global";
    const SafetyCopies copies(pathOf(iniCopiesFolder()));
    iniWrite(globals.iniPath, section, "VstZdrojBodTxt", globals.files.points, copies);
    iniWrite(globals.iniPath, section, "VstZdrojPopTxt", globals.files.description, copies);
    iniWrite(globals.iniPath, section, "VstZdrojPrachTxt", globals.files.dust, copies);
}

/// Of the files to be written those that the last load did not read to their end and that hold something.
QStringList filesNotWholeInTheList(const SourceFiles& files, const SourceFiles& broken)
{
    QStringList paths;
    for (const std::string& path : {files.points, files.description, files.dust}) {
        const bool isBroken = path == broken.points || path == broken.description || path == broken.dust;
        const QString shown = QString::fromStdString(path);
        if (!path.empty() && isBroken && QFileInfo(shown).size() > 0)
            paths.append(shown);
    }
    return paths;
}

/// What a load left out for an error is in its files only, and would be gone with a careless Ok.
bool mayReplaceBrokenFiles(frmKORVEXZDR& window, const SourceFiles& files)
{
    const QStringList paths = filesNotWholeInTheList(files, window.shell().globals.brokenFiles);
    if (paths.isEmpty())
        return true;
    // The first answer, which Enter gives, is the safe one.
    const BoxRequest question{saveTitle,
        QStringLiteral("Načtení těchto souborů skončilo chybou. Co není v seznamu, by se uložením ztratilo:\n%1\n\n"
                       "Mám je nechat, jak jsou ?")
            .arg(paths.join(QLatin1Char('\n'))),
        BoxIcon::Exclamation, BoxButtons::YesNo, {}};
    return window.shell().boxes.show(&window, question) == BoxAnswer::No;
}

/// Whether the sources on the screen may go: nothing in them is unsaved, it was saved now, or it is to be thrown away.
bool mayReplaceSources(frmKORVEXZDR& window)
{
    if (!window.list().set().modified())
        return true;
    const BoxRequest question{{}, QStringLiteral("Uložit změny ?"), BoxIcon::Question, BoxButtons::YesNoCancel, {}};
    switch (window.shell().boxes.show(&window, question)) {
    case BoxAnswer::Yes:
        return saveSources(window, SaveScope::All);
    case BoxAnswer::No:
        return true;
    default:
        return false;
    }
}

}  // namespace

void openSources(frmKORVEXZDR& window)
{
    Globals& globals = window.shell().globals;
    frmLoadZdroje dialog(window.shell(), window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const LoadMode mode = dialog.mode();
    const SourceFiles files = dialog.files();
    if (mode == LoadMode::Replace && !mayReplaceSources(window))
        return;
    globals.files = files;
    loadSources(window, files, {}, mode);
}

bool loadSources(frmKORVEXZDR& window, const SourceFiles& files, const std::string& dustGroupsPath, LoadMode mode)
{
    Globals& globals = window.shell().globals;
    const LoadRequest request{
        files, mode, globals.acceptMissingDescription ? MissingDescription::Accept : MissingDescription::Skip};
    LoadReport report;
    Result<void> loaded;
    {
        WindowProgress progress(window.statusLabel(), window.progressBar());
        loaded = loadSourceSet(request, window.list().set(), report, progress);
        takeComment(window, report, mode);
        // Where nothing has changed the marks and the order stay as well.
        if (report.setTouched)
            window.refill();
    }
    if (!loaded.ok()) {
        globals.brokenFiles = files;
        showLoadError(window, loaded.error(), report, mode);
        return false;
    }
    if (mode == LoadMode::Replace)
        globals.brokenFiles = {};
    else
        runDuplicateCheck(window, DuplicateReport::OnlyFound);
    // Not shown: only to make the file the current one, or to say at once that it cannot be read.
    if (!dustGroupsPath.empty())
        frmSkupinyPrachu(window.shell(), &window).OtevriSkupiny(dustGroupsPath, GroupListAfterReading::Keep);
    reportRecords(window, QStringLiteral("V popisném souboru nebylo\nnalezeno %1 zdrojů."), report.missingDescription);
    reportRecords(window, QStringLiteral("V souboru s prachem nebylo\nnalezeno %1 zdrojů."), report.missingDust);
    reportRecords(
        window, QStringLiteral("V souboru s body bylo vynecháno\n%1 zdrojů neznámého typu."), report.unknownType);
    return true;
}

bool saveSources(frmKORVEXZDR& window, SaveScope scope)
{
    Globals& globals = window.shell().globals;
    if (!globals.commandLineMode) {
        frmSaveZdroje dialog(window.shell(), window);
        if (dialog.exec() != QDialog::Accepted)
            return false;
        globals.files = dialog.files();
    }
    if (!mayReplaceBrokenFiles(window, globals.files))
        return false;
    SaveRequest request;
    request.files = globals.files;
    request.comment = window.comment().toStdString();
    request.scope = scope;
    request.copies = SafetyCopies(pathOf(stateFolder()));
    const Result<SaveReport> saved = [&] {
        WindowProgress progress(window.statusLabel(), window.progressBar());
        return saveSourceSet(request, window.list().set(), window.list().rows(), progress);
    }();
    if (!saved.ok()) {
        window.shell().boxes.show(&window,
            {saveTitle, QString::fromStdString(saved.error().message()), BoxIcon::Critical, BoxButtons::Ok, {}});
        return false;
    }
    globals.brokenFiles = {};
    recordInIni(globals);
    reportLosses(window, saved.value());
    return true;
}

void copyMarkedToClipboard(frmKORVEXZDR& window)
{
    const SourceListModel& list = window.list();
    window.shell().clipboard.put(QString::fromStdString(clipboardText(list.set(), list.rows())));
}

}  // namespace korvex
