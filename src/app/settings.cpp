#include "settings.h"

#include "globals.h"
#include "number_text.h"
#include "settings_store.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cmath>

namespace korvex {

namespace {

const QString files = QStringLiteral("Soubory");
const QString tables = QStringLiteral("Tabulky");
const QString others = QStringLiteral("Ostatni");

/// Reads a value of the table into where it belongs; leaves the default where the store has none or a damaged one.
class Reader {
public:
    explicit Reader(const SettingsStore& store) : m_store(store) { }

    void path(const QString& section, const char* key, std::string& value) const
    {
        const QString text = get(section, key, QFile::decodeName(QByteArray::fromStdString(value)));
        value = QFile::encodeName(text).toStdString();
    }
    void integer(const QString& section, const char* key, std::int32_t& value) const
    {
        bool isNumber = false;
        const int number = get(section, key, QString()).toInt(&isNumber);
        if (isNumber)
            value = number;
    }
    void single(const QString& section, const char* key, float& value) const
    {
        bool isNumber = false;
        const float number = get(section, key, QString()).toFloat(&isNumber);
        if (isNumber && std::isfinite(number))
            value = number;
    }
    void boolean(const QString& section, const char* key, bool& value) const
    {
        const QString text = get(section, key, QString()).toLower();
        if (text == QStringLiteral("true"))
            value = true;
        else if (text == QStringLiteral("false"))
            value = false;
    }

private:
    [[nodiscard]] QString get(const QString& section, const char* key, const QString& defaultText) const
    {
        return m_store.get(section, QLatin1String(key), defaultText);
    }

    const SettingsStore& m_store;
};

class Writer {
public:
    explicit Writer(SettingsStore& store) : m_store(store) { }

    void path(const QString& section, const char* key, const std::string& value) const
    {
        save(section, key, QFile::decodeName(QByteArray::fromStdString(value)));
    }
    void integer(const QString& section, const char* key, std::int32_t value) const
    {
        save(section, key, QString::number(value));
    }
    void single(const QString& section, const char* key, float value) const
    {
        save(section, key, QString::fromStdString(singleText(value)));
    }
    void boolean(const QString& section, const char* key, bool value) const
    {
        save(section, key, value ? QStringLiteral("True") : QStringLiteral("False"));
    }

private:
    void save(const QString& section, const char* key, const QString& text) const
    {
        m_store.save(section, QLatin1String(key), text);
    }

    SettingsStore& m_store;
};

/// The table itself, for either direction.
template <class Direction, class Values>
void goThroughTable(const Direction& direction, Values& globals)
{
    direction.path(files, "LastPathFile:1", globals.files.points);
    direction.path(files, "LastPathFile:2", globals.files.description);
    direction.path(files, "LastPathFile:3", globals.files.dust);
    direction.boolean(files, "ZdrojeBezPopisu", globals.acceptMissingDescription);
    direction.path(files, "SouborSkupinPrachu", globals.dustGroupsPath);
    direction.integer(tables, "Tab1Sl1", globals.numberColumnWidth);
    direction.integer(tables, "Tab1Sl2", globals.nameColumnWidth);
    direction.integer(others, "MinNewID", globals.minNewId);
    direction.integer(others, "AutoCalcXY", globals.autoCalcXY);
    direction.single(others, "TlakVzduchu", globals.airPressure);
    direction.integer(others, "NoPrach", globals.noDust);
}

}  // namespace

void readSettings(const SettingsStore& store, Globals& globals)
{
    goThroughTable(Reader(store), globals);
}

void saveSettings(SettingsStore& store, const Globals& globals)
{
    goThroughTable(Writer(store), globals);
}

}  // namespace korvex
