#include "main_menu.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace korvex {

namespace {

QMenu* topMenu(QMainWindow& window, const char* name, const char* caption)
{
    QMenu* const menu = window.menuBar()->addMenu(QString::fromUtf8(caption));
    menu->setObjectName(QLatin1String(name));
    return menu;
}

QMenu* subMenu(QMenu* parent, const char* name, const char* caption)
{
    QMenu* const menu = parent->addMenu(QString::fromUtf8(caption));
    menu->setObjectName(QLatin1String(name));
    return menu;
}

QAction* item(QMenu* menu, const char* name, const char* caption)
{
    QAction* const action = menu->addAction(QString::fromUtf8(caption));
    action->setObjectName(QLatin1String(name));
    // macOS-style guessing from the text would move items between menus.
    action->setMenuRole(QAction::NoRole);
    return action;
}

QAction* separator(QMenu* menu, const char* name)
{
    QAction* const action = menu->addSeparator();
    action->setObjectName(QLatin1String(name));
    return action;
}

}  // namespace

MainMenu::MainMenu(QMainWindow& window)
{
    mnuSoubor = topMenu(window, "mnuSoubor", "&Soubor");
    mnuVLoad = item(mnuSoubor, "mnuVLoad", "&Otevři");
    mnuSD2 = separator(mnuSoubor, "mnuSD2");
    mnuSkupinyPrachu = item(mnuSoubor, "mnuSkupinyPrachu", "Skupiny prachu");
    mnuMoznosti = item(mnuSoubor, "mnuMoznosti", "&Možnosti");
    mnuSD1 = separator(mnuSoubor, "mnuSD1");
    mnuExit = item(mnuSoubor, "mnuExit", "&Konec");

    mnuVybraneZdrojeZnecisteni = topMenu(window, "mnuVybraneZdrojeZnecisteni", "&Zdroje");
    mnuVSaveMark = item(mnuVybraneZdrojeZnecisteni, "mnuVSaveMark", "Ulož označené zdroje");
    mnuVSave = item(mnuVybraneZdrojeZnecisteni, "mnuVSave", "Ulož všechny zdroje");
    mnuVDelimiter1 = separator(mnuVybraneZdrojeZnecisteni, "mnuVDelimiter1");
    mnuVNovyZdrojX = subMenu(mnuVybraneZdrojeZnecisteni, "mnuVNovyZdrojX", "Nový zdroj");
    mnuVBodovyZdroj = item(mnuVNovyZdrojX, "mnuVBodovyZdroj", "&1. Bodový zdroj");
    mnuVPlosnyZdroj = item(mnuVNovyZdrojX, "mnuVPlosnyZdroj", "&2. Plošný zdroj");
    mnuVLiniovyZdroj = item(mnuVNovyZdrojX, "mnuVLiniovyZdroj", "&3. Liniový zdroj");
    mnuVNastavZdroj = item(mnuVybraneZdrojeZnecisteni, "mnuVNastavZdroj", "Nastav zdroj");
    mnuVDelimiter2 = separator(mnuVybraneZdrojeZnecisteni, "mnuVDelimiter2");
    mnuVZrusVybrane = item(mnuVybraneZdrojeZnecisteni, "mnuVZrusVybrane", "Zruš označené");
    mnuVZrus = item(mnuVybraneZdrojeZnecisteni, "mnuVZrus", "Zruš všechny");

    mnuVypocty = topMenu(window, "mnuVypocty", "&Výpočty a kontroly");
    mnuVypocetXY = item(mnuVypocty, "mnuVypocetXY", "&Výpočet středového bodu úseku pro vybrané liniové zdroje");
    mnuVypocetVsDw0 = item(mnuVypocty, "mnuVypocetVsDw0", "&Výpočet 'Vs', 'd', 'w0' pro vybrané bodové zdroje");
    mnuD11 = separator(mnuVypocty, "mnuD11");
    mnuVKontrolaDuplicit = item(mnuVypocty, "mnuVKontrolaDuplicit", "Kontrola duplicit");

    mnuSelect = topMenu(window, "mnuSelect", "&Označ zdroje");
    mnuSelectBodove = item(mnuSelect, "mnuSelectBodove", "&Bodové");
    mnuSelectLiniove = item(mnuSelect, "mnuSelectLiniove", "&Liniové");
    mnuSelectPlosne = item(mnuSelect, "mnuSelectPlosne", "&Plošné");
    mnuD10 = separator(mnuSelect, "mnuD10");
    mnuVSelectAll = item(mnuSelect, "mnuVSelectAll", "Označ vše");
    mnuVybraneZdrojeSchranka = item(mnuSelect, "mnuVybraneZdrojeSchranka", "Kopíruj do schránky");

    mnuNapoveda = topMenu(window, "mnuNapoveda", "Nápo&věda");
    mnuNHelp = item(mnuNapoveda, "mnuNHelp", "Nápověda pro KORVEXv2001 - Zdroje");
    mnuNDelim1 = separator(mnuNapoveda, "mnuNDelim1");
    mnuNOAplikaci = item(mnuNapoveda, "mnuNOAplikaci", "&O aplikaci");
}

}  // namespace korvex
