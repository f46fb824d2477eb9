#include "settings_store.h"

#include "user_folders.h"

#include <QStringList>
#include <QVariant>

namespace korvex {

namespace {

QString storeKey(const QString& section, const QString& key)
{
    return section + QLatin1Char('/') + key;
}

}  // namespace

UserSettings::UserSettings() : m_settings(settingsFolder() + QStringLiteral("/korvexzdr.ini"), QSettings::IniFormat) { }

QString UserSettings::get(const QString& section, const QString& key, const QString& defaultText) const
{
    const QVariant value = m_settings.value(storeKey(section, key));
    if (!value.isValid())
        return defaultText;
    // A text with commas that was edited by hand reads as a list.
    return value.toStringList().join(QLatin1Char(','));
}

void UserSettings::save(const QString& section, const QString& key, const QString& text)
{
    m_settings.setValue(storeKey(section, key), text);
}

}  // namespace korvex
