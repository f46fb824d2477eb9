// The window of the help: contents and search on the left, the page on the right.
#pragma once

#include "placement.h"

#include <QHash>
#include <QWidget>

#include <memory>

class QAction;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QStackedWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace korvex {

class HelpBrowser;
class HelpIndex;
class SettingsStore;
struct HelpChapter;

class HelpViewer : public QWidget {
    Q_OBJECT

public:
    explicit HelpViewer(SettingsStore& settings);
    ~HelpViewer() override;
    Q_DISABLE_COPY_MOVE(HelpViewer)

    /// Shows the page in the window, which comes to the front with the focus, from the section on if one is named.
    void open(const QString& page, const QString& section = {});
    [[nodiscard]] QString page() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildActions();
    [[nodiscard]] QHBoxLayout* makeTopRow();
    [[nodiscard]] QWidget* makeLeftSide();
    void addChapters(const QList<HelpChapter>& chapters, QTreeWidgetItem* group);
    void addChapter(const HelpChapter& chapter, QTreeWidgetItem* group);
    void takeSize();

    void showCurrentChapter();
    void followPage();
    void search();
    void openHit(const QListWidgetItem* hit);
    void openFirstHit();
    void escape();

    FreePlacement m_placement;
    QAction* m_back = nullptr;
    QAction* m_forward = nullptr;
    QAction* m_home = nullptr;
    QLineEdit* m_question = nullptr;
    QStackedWidget* m_left = nullptr;
    QTreeWidget* m_contents = nullptr;
    QWidget* m_resultPage = nullptr;
    QLabel* m_resultCount = nullptr;
    QListWidget* m_results = nullptr;
    HelpBrowser* m_browser = nullptr;
    QHash<QString, QTreeWidgetItem*> m_chapterOfPage;
    std::unique_ptr<HelpIndex> m_index;  // made by the first search
};

}  // namespace korvex
