#include "file_look.h"

#include "blanks.h"
#include "checked_line.h"
#include "input_file.h"
#include "source_files.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace korvex {

namespace {

constexpr std::size_t looked = std::size_t{1} << 16;
constexpr std::array allKinds{CheckedFile::Points, CheckedFile::Description, CheckedFile::Dust, CheckedFile::Groups};

bool isPlainCount(std::string_view field)
{
    return !field.empty() && field.find_first_not_of("0123456789") == std::string_view::npos;
}

/// "density,group" or "density,0,count,…" behind the number, or nothing, and no blank anywhere.
bool isDustRecord(std::string_view record)
{
    if (record.find_first_of(" \t;") != std::string_view::npos)
        return false;
    const std::vector<std::string_view> fields = splitFields(record);
    constexpr std::size_t group = 2;
    constexpr std::size_t count = 3;
    if (!isPlainCount(fields.front()) || fields.size() == 2)
        return false;
    if (fields.size() <= count)
        return fields.size() == 1 || isPlainCount(fields[group]);
    return fields[group] == "0" && integerOf(fields[count]) == static_cast<int>((fields.size() - count - 1) / 2)
        && fields.size() % 2 == 0;
}

/// Whether a record is just like those of a file.
bool isLike(CheckedFile kind, std::string_view record)
{
    const std::size_t semicolon = record.find(';');
    const bool hasName = semicolon != std::string_view::npos;
    const auto commas = std::count(
        record.begin(), hasName ? record.begin() + static_cast<std::ptrdiff_t>(semicolon) : record.end(), ',');
    switch (kind) {
    case CheckedFile::Points:
        return hasName && commas == 6;
    case CheckedFile::Description:
        return !hasName && commas == 9 && !isDustRecord(record);
    case CheckedFile::Dust:
        return isDustRecord(record);
    case CheckedFile::Groups:
        break;
    }
    return hasName && commas % 2 == 1;
}

/// Another file, when all records are like its, and none like those of the expected one.
std::optional<CheckedFile> otherKind(const std::vector<std::string_view>& records, CheckedFile expected)
{
    const auto anyIsLike = [&records](CheckedFile kind) {
        return std::any_of(
            records.begin(), records.end(), [kind](std::string_view record) { return isLike(kind, record); });
    };
    if (records.empty() || anyIsLike(expected))
        return std::nullopt;
    for (const CheckedFile kind : allKinds) {
        if (std::all_of(
                records.begin(), records.end(), [kind](std::string_view record) { return isLike(kind, record); }))
            return kind;
    }
    return std::nullopt;
}

std::string kindText(const Findings& findings, CheckedFile kind)
{
    switch (kind) {
    case CheckedFile::Points:
        return findings.text("soubor s body", "the points file");
    case CheckedFile::Description:
        return findings.text("soubor s popisem", "the description file");
    case CheckedFile::Dust:
        return findings.text("soubor s prachem", "the dust file");
    case CheckedFile::Groups:
        break;
    }
    return findings.text("soubor se skupinami prachu", "the dust groups file");
}

/// Text in two bytes a character: in Czech every other one is zero.
std::string zeroBytesText(const Findings& findings, std::string_view bytes)
{
    std::array<std::size_t, 2> zeros{};
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\0')
            ++zeros[i % 2];
    }
    const bool isLittle = bytes.substr(0, 2) == "\xFF\xFE" || zeros[1] > 3 * zeros[0];
    if (!isLittle && bytes.substr(0, 2) != "\xFE\xFF" && zeros[0] <= 3 * zeros[1])
        return findings.text("soubor není text; zkontrolujte, zda jste zadali ten pravý",
            "the file is no text; check that it is the right one");
    const std::string name = isLittle ? "UTF-16LE" : "UTF-16BE";
    return findings.text("soubor je v ", "the file is in ") + name
        + findings.text(", program čte Windows-1250; převeďte jej (iconv -f ",
            ", the program reads Windows-1250; convert it (iconv -f ")
        + name + " -t WINDOWS-1250)";
}

std::vector<std::string_view> recordsOf(std::string_view bytes, bool isWhole)
{
    constexpr std::size_t most = 50;
    // The last line of a part of a file is no whole line.
    if (!isWhole)
        bytes = bytes.substr(0, bytes.rfind('\n') + 1);
    std::vector<std::string_view> records;
    while (!bytes.empty() && records.size() < most) {
        const std::string_view line = takeLine(bytes);
        if (!isCommentLine(line))
            records.push_back(line);
    }
    return records;
}

/// What is wrong with a file; empty: nothing.
std::string faultOf(const Findings& findings, CheckedFile expected, std::string_view bytes, bool isWhole)
{
    // Stray zeros are a fault of their record, many are one of the file.
    const auto zeros = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\0'));
    if (zeros > bytes.size() / 4)
        return zeroBytesText(findings, bytes);
    if (bytes.find('\n') == std::string_view::npos && trimBlanks(bytes).find('\r') + 1 < bytes.size()
        && bytes.find('\r') != std::string_view::npos)
        return findings.text("řádky končí jen znakem CR, soubor se čte jako jediný řádek; převeďte konce na CR LF",
            "the lines end with CR alone, the file is read as one line; convert the ends to CR LF");
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (bytes.substr(0, byteOrderMark.size()) == byteOrderMark)
        bytes.remove_prefix(byteOrderMark.size());
    const std::vector<std::string_view> records = recordsOf(bytes, isWhole);
    const std::optional<CheckedFile> other = otherKind(records, expected);
    if (!other)
        return {};
    return findings.text("vypadá jako ", "this looks like ") + kindText(findings, *other)
        + findings.text(", má to však být ", ", but should be ") + kindText(findings, expected)
        + findings.text("; zkontrolujte pořadí souborů", "; check the order of the files");
}

}  // namespace

Result<bool> looksRight(Findings& findings, CheckedFile kind, const std::string& path, FileCalls& calls)
{
    Result<InputFile> file = InputFile::open(path, calls);
    if (!file.ok())
        return file.error();
    std::string bytes(looked, '\0');
    std::size_t filled = 0;
    while (filled < looked) {
        const Result<std::size_t> got = file.value().read(bytes.data() + filled, looked - filled);
        if (!got.ok())
            return got.error();
        if (got.value() == 0)
            break;
        filled += got.value();
    }
    bytes.resize(filled);
    const std::string fault = faultOf(findings, kind, bytes, filled < looked);
    if (!fault.empty())
        findings.add(Rule::WrongFile, {kind, 1, 1}, std::nullopt, [&fault] { return std::vector{fault}; });
    return fault.empty();
}

}  // namespace korvex
