// The panel of the source editors that edits one source's dust: its density, and a dust group or particles by hand.
#pragma once

#include "shell.h"
#include "skupiny_prachu.h"

#include <QWidget>

#include <functional>
#include <string>
#include <string_view>

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace korvex {

class ParticleFields;

/// The host writes SouborSkupinyPrachu first, then Prach: a group can be selected only once the list holds it.
class uscPrach : public QWidget, private DustGroupsDesk {
    Q_OBJECT

public:
    uscPrach(Shell& shell, QWidget* parent);

    /// The path of the dust groups file; writing it reads the file and refills the list of groups.
    void SouborSkupinyPrachu(const std::string& path);
    [[nodiscard]] const std::string& SouborSkupinyPrachu() const { return m_groups.FileName(); }

    /// The source's dust description. A group that the file does not have leaves "(manuálně)" selected: reading then
    /// gives an empty list by hand. Throws ArithmeticFault for a number out of range.
    void Prach(std::string_view description);
    [[nodiscard]] std::string Prach() const;

private:
    bool readLines(const std::string& path, const std::function<void(std::string_view line)>& take) override;
    std::string edit(const std::string& path) override;

    void buildWidgets();
    void refillGroups();
    void groupSelected();
    void addParticle();
    void editGroups();
    void showCount();

    Shell& m_shell;
    cSkupinyPrachu m_groups;
    ParticleFields* m_particles = nullptr;

    QComboBox* cboPrachoveSkupiny = nullptr;
    QPushButton* cmdSkupinyPrachu = nullptr;
    QLineEdit* txtHustota = nullptr;
    QTableView* lsvPrach = nullptr;
    QLabel* lblCount = nullptr;
    QGroupBox* fraPopisCastice = nullptr;
    QLineEdit* txtPrumer = nullptr;
    QLineEdit* txtZastoupeni = nullptr;
    QPushButton* cmdAdd = nullptr;
};

}  // namespace korvex
