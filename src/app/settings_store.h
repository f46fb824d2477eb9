// The per-user settings: texts by section and key.
#pragma once

#include <QSettings>
#include <QString>

namespace korvex {

class SettingsStore {
public:
    SettingsStore() = default;
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;
    virtual ~SettingsStore() = default;

    [[nodiscard]] virtual QString get(const QString& section, const QString& key, const QString& defaultText) const = 0;
    virtual void save(const QString& section, const QString& key, const QString& text) = 0;
};

/// The real store: $XDG_CONFIG_HOME/korvexzdr/korvexzdr.ini. A folder that cannot be written to loses what is saved,
/// without a word: the user's data are not in it.
class UserSettings : public SettingsStore {
public:
    UserSettings();

    [[nodiscard]] QString get(const QString& section, const QString& key, const QString& defaultText) const override;
    void save(const QString& section, const QString& key, const QString& text) override;

private:
    QSettings m_settings;
};

}  // namespace korvex
