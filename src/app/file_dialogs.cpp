#include "file_dialogs.h"

#include "message_boxes.h"
#include "settings_store.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetrics>
#include <QHeaderView>
#include <QStringList>
#include <QTreeView>

namespace korvex {

namespace {

const QString section = QStringLiteral("FileDialog");

void prepare(QFileDialog& dialog, const FileQuestion& question)
{
    dialog.setWindowTitle(question.title);
    dialog.setNameFilter(toolkitFilter(question.filter));
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    // The descriptions themselves tell the patterns.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setDirectory(question.folder);
    // All columns of the list are seen.
    const QFontMetrics metrics = dialog.fontMetrics();
    constexpr int shownCharacters = 110;
    constexpr int shownLines = 30;
    dialog.resize(shownCharacters * metrics.averageCharWidth(), shownLines * metrics.lineSpacing());
    // The toolkit cuts dates and sizes off and gives the names room they do not need.
    if (const auto* const list = dialog.findChild<QTreeView*>()) {
        QHeaderView* const header = list->header();
        header->setStretchLastSection(false);
        header->setSectionResizeMode(QHeaderView::ResizeToContents);
        header->setSectionResizeMode(0, QHeaderView::Stretch);
    }
    if (!question.name.isEmpty())
        dialog.selectFile(question.name);
}

QString run(QFileDialog& dialog)
{
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.selectedFiles().value(0);
}

}  // namespace

QString ToolkitFileChooser::open(QWidget* parent, const FileQuestion& question)
{
    QFileDialog dialog(parent);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    prepare(dialog, question);
    return run(dialog);
}

QString ToolkitFileChooser::save(QWidget* parent, const FileQuestion& question)
{
    QFileDialog dialog(parent);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    prepare(dialog, question);
    for (;;) {
        QString path = run(dialog);
        // The toolkit's dialog would take a folder that does not exist.
        if (path.isEmpty() || QFileInfo(path).dir().exists())
            return path;
        m_boxes.show(&dialog,
            {question.title, QStringLiteral("Složka neexistuje.\n\n") + folderPart(path), BoxIcon::Exclamation,
                BoxButtons::Ok, {}});
    }
}

QString FileDialogs::openFile(QWidget* parent, const QString& title, const QString& filter, FilePurpose purpose)
{
    return ask(&FileChooser::open, parent, title, filter, purpose);
}

QString FileDialogs::saveFile(QWidget* parent, const QString& title, const QString& filter, FilePurpose purpose)
{
    return ask(&FileChooser::save, parent, title, filter, purpose);
}

QString FileDialogs::ask(Ask dialog, QWidget* parent, const QString& title, const QString& filter, FilePurpose purpose)
{
    const QString key = QStringLiteral("LastPathFile:%1").arg(static_cast<int>(purpose));
    const QString last = m_store.get(section, key, QDir::currentPath() + QLatin1Char('/'));
    QString chosen = (m_chooser.*dialog)(parent, {title, filter, folderPart(last), fileNamePart(last)});
    if (!chosen.isEmpty())
        m_store.save(section, key, chosen);
    return chosen;
}

QString fileNamePart(const QString& path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

QString folderPart(const QString& path)
{
    return path.left(path.lastIndexOf(QLatin1Char('/')) + 1);
}

QString toolkitFilter(const QString& filter)
{
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString pattern = parts[i + 1].trimmed();
        // The toolkit would take it to hide names without a dot.
        if (pattern == QStringLiteral("*.*"))
            pattern = QStringLiteral("*");
        filters << parts[i].trimmed() + QStringLiteral(" (") + pattern + QLatin1Char(')');
    }
    return filters.join(QStringLiteral(";;"));
}

}  // namespace korvex
