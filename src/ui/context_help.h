// The key F1: the help of the window that it is pressed in.
#pragma once

#include <QObject>

#include <memory>

class QWidget;

namespace korvex {

class HelpViewer;
class SettingsStore;

/// Takes F1 from all windows of the program, also under modal dialogs and in open menus, where no shortcut of a
/// window would fire. No window ever sees the key. The viewer is made by the first press.
class ContextHelp : public QObject {
    Q_OBJECT

public:
    explicit ContextHelp(SettingsStore& settings);
    ~ContextHelp() override;
    Q_DISABLE_COPY_MOVE(ContextHelp)

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showFor(const QWidget* window);

    SettingsStore& m_settings;
    std::unique_ptr<HelpViewer> m_viewer;
};

}  // namespace korvex
