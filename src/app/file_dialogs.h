// The open and save dialogs for files, which remember for each purpose what was chosen last.
#pragma once

#include <QString>

class QWidget;

namespace korvex {

class MessageBoxes;
class SettingsStore;

/// What a dialog is opened with. The filter is in pairs "description|pattern|…".
struct FileQuestion {
    QString title;
    QString filter;
    QString folder;
    QString name;  // proposed; may be empty
};

/// The dialogs themselves, so that a test can answer in their place. Both return the full path chosen, or an empty
/// text when the user cancels.
class FileChooser {
public:
    FileChooser() = default;
    FileChooser(const FileChooser&) = delete;
    FileChooser& operator=(const FileChooser&) = delete;
    virtual ~FileChooser() = default;

    /// Only a file that exists can be chosen.
    virtual QString open(QWidget* parent, const FileQuestion& question) = 0;
    /// Asks before a file that exists is chosen; a file in a folder that does not exist is refused with words.
    virtual QString save(QWidget* parent, const FileQuestion& question) = 0;
};

/// The toolkit's own dialogs, in Czech on every desktop.
class ToolkitFileChooser : public FileChooser {
public:
    explicit ToolkitFileChooser(MessageBoxes& boxes) : m_boxes(boxes) { }

    QString open(QWidget* parent, const FileQuestion& question) override;
    QString save(QWidget* parent, const FileQuestion& question) override;

private:
    MessageBoxes& m_boxes;
};

/// Purposes whose last file is remembered apart from one another.
enum class FilePurpose { Points = 1, Description = 2, Dust = 3, DustGroups = 5 };

/// Both dialogs begin at the file chosen last for the purpose; at first in the working folder with no name proposed.
/// They return an empty path, and remember nothing, when the user cancels.
class FileDialogs {
public:
    FileDialogs(FileChooser& chooser, SettingsStore& store) : m_chooser(chooser), m_store(store) { }

    QString openFile(QWidget* parent, const QString& title, const QString& filter, FilePurpose purpose);
    QString saveFile(QWidget* parent, const QString& title, const QString& filter, FilePurpose purpose);

private:
    using Ask = QString (FileChooser::*)(QWidget*, const FileQuestion&);
    QString ask(Ask dialog, QWidget* parent, const QString& title, const QString& filter, FilePurpose purpose);

    FileChooser& m_chooser;
    SettingsStore& m_store;
};

/// The text behind the last path separator.
[[nodiscard]] QString fileNamePart(const QString& path);
/// The path without its file name part; the separator at the end stays.
[[nodiscard]] QString folderPart(const QString& path);

/// "description|pattern|…" as the toolkit writes filters. "*.*" becomes "*", for names without a dot are files
/// too. The dialogs show the descriptions alone.
[[nodiscard]] QString toolkitFilter(const QString& filter);

}  // namespace korvex
