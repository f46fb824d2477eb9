// The menu tree of the main window: every item by its name, in display order.
#pragma once

class QAction;
class QMainWindow;
class QMenu;

namespace korvex {

struct MainMenu {
    /// Builds the tree on the window's menu bar.
    explicit MainMenu(QMainWindow& window);

    QMenu* mnuSoubor;
    QAction* mnuVLoad;
    QAction* mnuSD2;
    QAction* mnuSkupinyPrachu;
    QAction* mnuMoznosti;
    QAction* mnuSD1;
    QAction* mnuExit;

    QMenu* mnuVybraneZdrojeZnecisteni;  // also the list's pop-up menu
    QAction* mnuVSaveMark;
    QAction* mnuVSave;
    QAction* mnuVDelimiter1;
    QMenu* mnuVNovyZdrojX;  // also a pop-up menu of its own
    QAction* mnuVBodovyZdroj;
    QAction* mnuVPlosnyZdroj;
    QAction* mnuVLiniovyZdroj;
    QAction* mnuVNastavZdroj;
    QAction* mnuVDelimiter2;
    QAction* mnuVZrusVybrane;
    QAction* mnuVZrus;

    QMenu* mnuVypocty;
    QAction* mnuVypocetXY;
    QAction* mnuVypocetVsDw0;
    QAction* mnuD11;
    QAction* mnuVKontrolaDuplicit;

    QMenu* mnuSelect;
    QAction* mnuSelectBodove;
    QAction* mnuSelectLiniove;
    QAction* mnuSelectPlosne;
    QAction* mnuD10;
    QAction* mnuVSelectAll;
    QAction* mnuVybraneZdrojeSchranka;

    QMenu* mnuNapoveda;
    QAction* mnuNHelp;
    QAction* mnuNDelim1;
    QAction* mnuNOAplikaci;
};

}  // namespace korvex
