#include "geojson.h"

#include "geometry.h"
#include "source_columns.h"
#include "source_set.h"

#include <algorithm>
#include <cstddef>

namespace korvex {

namespace {

/// The form of the data files is one that JSON has. A real shows that it is one: mapping programs take a column whose
/// values all look whole for one of whole numbers.
void appendNumber(std::string& out, std::string_view text, ColumnKind kind)
{
    out += text;
    if (kind == ColumnKind::Real && text.find_first_of(".E") == std::string_view::npos)
        out += ".0";
}

void appendProperties(std::string& out, const SourceRow& row, bool hasDust)
{
    std::string_view separator;
    for (std::size_t i = 0; i < column::Count; ++i) {
        if (!row.applies[i] || (i == column::Dust && !hasDust))
            continue;
        out.append(separator).append("\"").append(sourceColumns[i].name).append("\": ");
        if (sourceColumns[i].kind == ColumnKind::Text)
            appendJsonText(out, row.texts[i]);
        else
            appendNumber(out, row.texts[i], sourceColumns[i].kind);
        separator = ", ";
    }
}

}  // namespace

void appendJsonText(std::string& out, std::string_view utf8)
{
    constexpr std::string_view digits = "0123456789abcdef";
    constexpr unsigned char firstPrintable = 0x20;
    out += '"';
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (byte < firstPrintable) {
            out.append("\\u00");
            out += digits[byte / 16U];
            out += digits[byte % 16U];
        } else {
            out += c;
        }
    }
    out += '"';
}

std::optional<std::string> coordinateSystemName(std::string_view text)
{
    constexpr std::string_view authority = "EPSG:";
    constexpr std::string_view name = "urn:ogc:def:crs:";
    if (text.substr(0, name.size()) == name && text.size() > name.size())
        return std::string(text);
    if (text.substr(0, authority.size()) != authority || text.size() == authority.size())
        return std::nullopt;
    const std::string_view code = text.substr(authority.size());
    if (!std::all_of(code.begin(), code.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    if (code.find_first_not_of('0') == std::string_view::npos)
        return std::nullopt;
    return "urn:ogc:def:crs:EPSG::" + std::string(code);
}

OutputBytes geoJsonBytes(
    const SourceSet& set, std::string_view comment, bool hasDust, std::string_view coordinateSystem)
{
    OutputBytes bytes;
    std::string line = "{\n\"type\": \"FeatureCollection\",\n\"name\": \"zdroje\",\n";
    if (!comment.empty()) {
        line += "\"soupis\": ";
        appendJsonText(line, comment);
        line += ",\n";
    }
    if (!coordinateSystem.empty()) {
        line += R"("crs": {"type": "name", "properties": {"name": )";
        appendJsonText(line, coordinateSystem);
        line += "}},\n";
    }
    line += "\"features\": [\n";
    bytes.room() += line;

    SourceRow row;
    for (std::size_t position = 1; position <= set.size(); ++position) {
        const cZdroje& source = set.at(position);
        row.fill(source);
        line = R"({"type": "Feature", "geometry": )";
        line.append(geoJsonGeometry(source)).append(R"(, "properties": {)");
        appendProperties(line, row, hasDust);
        line += position < set.size() ? "}},\n" : "}}\n";
        bytes.room() += line;
    }
    bytes.room() += "]\n}\n";
    return bytes;
}

}  // namespace korvex
