// The main window: the list of sources with its menus, count, comment, status text and progress bar.
#pragma once

#include "main_menu.h"
#include "placement.h"
#include "shell.h"
#include "source_list_model.h"
#include "source_list_view.h"
#include "source_number_counter.h"

#include <QMainWindow>
#include <QSet>

#include <functional>

class QLabel;
class QLineEdit;
class QProgressBar;

namespace korvex {

class frmKORVEXZDR : public QMainWindow {
    Q_OBJECT

public:
    /// Loads the window: settings, caption, file filters, columns and menu state. It is not shown yet.
    explicit frmKORVEXZDR(Shell shell);
    ~frmKORVEXZDR() override;
    Q_DISABLE_COPY_MOVE(frmKORVEXZDR)

    [[nodiscard]] Shell& shell() { return m_shell; }
    /// The source set and the rows that show it.
    [[nodiscard]] SourceListModel& list() { return *m_list; }
    [[nodiscard]] SourceListView& listView() { return *lsvZdroje; }
    [[nodiscard]] MainMenu& menu() { return m_menu; }
    [[nodiscard]] QLabel& statusLabel() { return *m_status; }
    [[nodiscard]] QProgressBar& progressBar() { return *paProgress; }
    [[nodiscard]] SourceNumberCounter& sourceNumbers() { return m_sourceNumbers; }

    /// The inventory's comment, kept in the header of the data files.
    [[nodiscard]] QString comment() const;
    void comment(const QString& text);

    /// Shows all sources in set order, unmarked, and updates the menu state.
    void refill();
    /// Makes the commands available that the set and the way of running allow; shows the count.
    void updateMenuState();
    void showStatus(const QString& text);

protected:
    /// The shutdown: asks whether to save changes, can be refused, writes the settings.
    void closeEvent(QCloseEvent* event) override;

private:
    void buildWidgets();
    void connectCommands();
    void connectList();
    void buildFileFilters();
    void applyColumnWidths();
    void command(QAction* action, void (frmKORVEXZDR::*run)());
    void enable(QAction* action, bool enabled);

    void open();
    void saveMarked();
    void saveAll();
    void editDustGroups();
    void showOptions();
    void showHelp();
    void showAbout();
    void copyMarked();
    void showStackGas();
    void calculateXY();
    void showRowStatus(int row);
    void editCurrentRow();
    void editCurrentSource();
    void deleteMarked();
    void deleteAll();
    void markByType(std::int32_t typeId);
    void markAll();
    void unmarkAll();
    void invertMarks();
    void checkDuplicates();
    [[nodiscard]] bool confirmClosing();

    Shell m_shell;
    FreePlacement m_placement;
    MainMenu m_menu;
    SourceListModel* m_list;
    SourceListView* lsvZdroje = nullptr;
    QLabel* lbPocetZdroju = nullptr;
    QLineEdit* tbKomentar = nullptr;
    QLabel* m_status = nullptr;  // the panel of StatusBar1
    QProgressBar* paProgress = nullptr;
    SourceNumberCounter m_sourceNumbers;
    QSet<QAction*> m_commands;  // those that do something: the others stay disabled
};

}  // namespace korvex
