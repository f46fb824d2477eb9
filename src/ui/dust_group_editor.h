// The dust group editor: one dust groups file, its comment, its groups and their particles.
#pragma once

#include "group_lines.h"
#include "shell.h"

#include <QDialog>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

class QGroupBox;
class QLineEdit;
class QListView;
class QPushButton;
class QTableView;

namespace korvex {

class FreePlacement;
class GroupListModel;
class ParticleFields;

enum class GroupListAfterReading { Refill, Keep };

class frmSkupinyPrachu : public QDialog {
    Q_OBJECT

public:
    frmSkupinyPrachu(Shell& shell, QWidget* owner);

    /// The path opened or saved last without an error; empty until then.
    [[nodiscard]] const std::string& FileName() const { return m_fileName; }
    /// Opens the file unless the path is empty.
    void FileName(const std::string& path);

    /// Reads a file into the editor. After an error, which is shown, the lines read until then are stored and nothing
    /// else has changed.
    void OtevriSkupiny(const std::string& path, GroupListAfterReading list);
    /// Writes the comment and the groups. After an error, which is shown, the editor stays changed.
    void UlozSkupiny(const std::string& path);

    /// Storno, Escape and the close box: asks about changes first.
    void reject() override;
    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QGroupBox* makeGroupsFrame();
    QGroupBox* makeDetailFrame();
    QGroupBox* makeParticleFrame();
    QGroupBox* makeFileFrame();
    void connectWidgets();
    bool guarded(void (frmSkupinyPrachu::*command)());

    void switchDetail(bool on);
    void clearDetail();
    void refillGroups();
    void takeFocusFromName(const QPoint& position);
    [[nodiscard]] std::optional<std::size_t> selectedGroup() const;
    void showSelectedGroup();
    void storeShownGroup();
    void storeEditedName();
    void newGroup();
    void deleteGroup();
    void addParticle();
    void removeParticle();
    void openFile();
    void newFile();
    void saveFile();
    void reportReplacedCharacters(const std::vector<std::size_t>& lines);

    Shell& m_shell;
    FreePlacement* m_placement;
    GroupLines m_groups;
    std::string m_fileName;
    bool m_changed = false;
    bool m_saveFailed = false;
    bool m_readBrokeOff = false;
    int m_pressedGroup = 0;
    GroupListModel* m_groupList;
    ParticleFields* m_particles = nullptr;

    QListView* lstSkupiny = nullptr;
    QPushButton* cmdNew = nullptr;
    QPushButton* cmdDel = nullptr;
    QGroupBox* m_detail = nullptr;
    QLineEdit* txtSkupina = nullptr;
    QLineEdit* txtNazevSkupiny = nullptr;
    QTableView* lsvPrach = nullptr;
    QGroupBox* fraPopisCastice = nullptr;
    QLineEdit* txtPrumer = nullptr;
    QLineEdit* txtZastoupeni = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdZrusCastici = nullptr;
    QLineEdit* txtFile = nullptr;
    QLineEdit* txtKomentar = nullptr;
    QPushButton* cmdOpenFile = nullptr;
    QPushButton* cmdNewFile = nullptr;
    QPushButton* cmdSaveFile = nullptr;
};

}  // namespace korvex
