#include "inventory_check.h"

#include "checked_line.h"
#include "checked_points.h"
#include "code_page.h"
#include "description_check.h"
#include "dust_check.h"
#include "fields.h"
#include "input_file.h"
#include "points_check.h"

#include <optional>
#include <string_view>

namespace korvex {

namespace {

/// What is to be said of every line, comments included.
class LinesOfFile {
public:
    LinesOfFile(Findings& findings, CheckedFile file) : m_findings(findings), m_file(file) { }

    CheckedLine take(const TextLine& text)
    {
        CheckedLine line{text.bytes, m_file, text.number};
        if (asciiLength(line.bytes) == line.bytes.size())
            return line;
        line.isUtf8 = looksLikeUtf8(line.bytes);
        if (line.isUtf8 && !m_hasUtf8) {
            const std::size_t first = asciiLength(line.bytes);
            m_findings.add(Rule::Utf8, line.placeOf(line.bytes.data() + first), std::nullopt);
            m_hasUtf8 = true;
        }
        constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
        if (line.number == 1 && line.bytes.substr(0, byteOrderMark.size()) == byteOrderMark)
            line.bytes.remove_prefix(byteOrderMark.size());
        const bool isRecord = !isCommentLine(line.bytes);
        checkCodePage(m_findings, line, isRecord ? roundedOf(field(line.bytes, ',', 1)) : std::nullopt);
        return line;
    }

private:
    Findings& m_findings;
    CheckedFile m_file;
    bool m_hasUtf8 = false;
};

/// Opens a file and hands over its records.
template <class Take>
Result<void> forEachRecord(const std::string& path, CheckedFile kind, Findings& findings, FileCalls& calls, Take take)
{
    Result<InputFile> file = InputFile::open(path, calls);
    if (!file.ok())
        return file.error();
    LinesOfFile lines(findings, kind);
    LineReader reader(file.value());
    TextLine text;
    for (;;) {
        const Result<bool> more = reader.next(text);
        if (!more.ok())
            return more.error();
        if (!more.value())
            return {};
        const CheckedLine line = lines.take(text);
        if (!isCommentLine(line.bytes))
            take(line);
    }
}

}  // namespace

Result<CheckedInventory> checkInventory(const CheckRequest& request, Findings& findings, FileCalls& calls)
{
    CheckedPoints points;
    Result<void> read = forEachRecord(request.files.points, CheckedFile::Points, findings, calls,
        [&](const CheckedLine& line) { checkPointsRecord(findings, line, points); });
    if (!read.ok())
        return read.error();
    points.sort();
    checkNumbers(findings, points);
    checkPlaces(findings, points);

    DescriptionCheck description(findings, points, request.pressure);
    read = forEachRecord(request.files.description, CheckedFile::Description, findings, calls,
        [&](const CheckedLine& line) { description.take(line); });
    if (!read.ok())
        return read.error();

    GroupLinesByNumber groups;
    if (!request.groups.empty()) {
        read = forEachRecord(request.groups, CheckedFile::Groups, findings, calls,
            [&](const CheckedLine& line) { checkGroupLine(findings, line, groups); });
        if (!read.ok())
            return read.error();
    }
    if (!request.files.dust.empty()) {
        DustCheck dust(findings, points, request.groups.empty() ? nullptr : &groups);
        read = forEachRecord(
            request.files.dust, CheckedFile::Dust, findings, calls, [&](const CheckedLine& line) { dust.take(line); });
        if (!read.ok())
            return read.error();
    }
    checkPartners(findings, points, request.files.dust.empty() ? DustUse::None : DustUse::WithFile);
    return CheckedInventory{points.count()};
}

}  // namespace korvex
