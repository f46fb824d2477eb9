// Texts and paths of the core, which are UTF-8 and bytes, as the toolkit has them.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <string>
#include <string_view>

namespace korvex {

[[nodiscard]] inline QString toQString(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

[[nodiscard]] inline QString pathText(const std::string& path)
{
    return QFile::decodeName(QByteArray::fromStdString(path));
}

[[nodiscard]] inline std::string pathOf(const QString& text)
{
    return QFile::encodeName(text).toStdString();
}

}  // namespace korvex
