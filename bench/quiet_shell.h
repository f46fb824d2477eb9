// What the main window is made from when nobody sits before it: settings in memory, and no question that can be asked.
#pragma once

#include "file_dialogs.h"
#include "globals.h"
#include "message_boxes.h"
#include "settings_store.h"
#include "shell.h"
#include "text_clipboard.h"

#include <QMap>
#include <QString>

#include <stdexcept>

namespace korvex::bench {

class SettingsInMemory : public SettingsStore {
public:
    [[nodiscard]] QString get(const QString& section, const QString& key, const QString& defaultText) const override
    {
        return m_texts.value(section + QLatin1Char('/') + key, defaultText);
    }
    void save(const QString& section, const QString& key, const QString& text) override
    {
        m_texts[section + QLatin1Char('/') + key] = text;
    }

private:
    QMap<QString, QString> m_texts;
};

/// A box in a measured run means that what is measured is not what was meant.
class NoBoxes : public MessageBoxes {
public:
    BoxAnswer show(QWidget* /*parent*/, const BoxRequest& request) override
    {
        m_asked = request.text;
        return request.buttons == BoxButtons::Ok ? BoxAnswer::Ok : BoxAnswer::No;
    }
    void expectNone() const
    {
        if (!m_asked.isNull())
            throw std::runtime_error("an unexpected box: " + m_asked.toStdString());
    }

private:
    QString m_asked;
};

class NoFileDialogs : public FileChooser {
public:
    QString open(QWidget* /*parent*/, const FileQuestion& /*question*/) override { return {}; }
    QString save(QWidget* /*parent*/, const FileQuestion& /*question*/) override { return {}; }
};

class NoClipboard : public TextClipboard {
public:
    void put(const QString& /*text*/) override { }
};

struct QuietShell {
    [[nodiscard]] Shell shell() { return {globals, settings, boxes, fileDialogs, clipboard}; }

    Globals globals;
    SettingsInMemory settings;
    NoBoxes boxes;
    NoFileDialogs chooser;
    FileDialogs fileDialogs{chooser, settings};
    NoClipboard clipboard;
};

}  // namespace korvex::bench
