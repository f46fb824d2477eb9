#include "csv_export.h"

#include "csv_text.h"
#include "geometry.h"
#include "source_columns.h"
#include "source_set.h"

#include <cstddef>
#include <filesystem>

namespace korvex {

namespace {

bool isWritten(std::size_t index, DustColumn dust)
{
    return index != column::Dust || dust == DustColumn::Present;
}

std::string_view typeName(ColumnKind kind)
{
    switch (kind) {
    case ColumnKind::Integer:
        return "\"Integer\"";
    case ColumnKind::Real:
        return "\"Real\"";
    case ColumnKind::Text:
        break;
    }
    return "\"String\"";
}

}  // namespace

OutputBytes csvBytes(const SourceSet& set, std::string_view comment, DustColumn dust)
{
    OutputBytes bytes;
    std::string line;
    for (std::size_t i = 0; i < column::Count; ++i) {
        if (isWritten(i, dust))
            line.append(sourceColumns[i].name).append(",");
    }
    bytes.room().append(line).append(commentColumn).append(",").append(geometryColumn).append("\r\n");

    SourceRow row;
    for (std::size_t position = 1; position <= set.size(); ++position) {
        const cZdroje& source = set.at(position);
        row.fill(source);
        line.clear();
        for (std::size_t i = 0; i < column::Count; ++i) {
            if (!isWritten(i, dust))
                continue;
            appendCsvField(line, row.texts[i]);
            line += ',';
        }
        if (position == 1)
            appendCsvField(line, comment);
        line += ',';
        appendCsvField(line, wellKnownText(source));
        bytes.room().append(line).append("\r\n");
    }
    return bytes;
}

OutputBytes csvTypeBytes(DustColumn dust)
{
    OutputBytes bytes;
    std::string& line = bytes.room();
    for (std::size_t i = 0; i < column::Count; ++i) {
        if (isWritten(i, dust))
            line.append(typeName(sourceColumns[i].kind)).append(",");
    }
    line += "\"String\",\"WKT\"\r\n";
    return bytes;
}

std::string csvTypePath(const std::string& csvPath)
{
    return std::filesystem::path(csvPath).replace_extension("csvt").string();
}

}  // namespace korvex
