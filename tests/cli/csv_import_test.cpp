// What an import refuses, with line and column.
#include "inventory_files.h"

#include "csv_export.h"
#include "csv_finding_text.h"
#include "csv_import.h"
#include "source_columns.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace korvex {
namespace {

using testing::IsEmpty;

/// A table whose single values can be replaced.
class Table {
public:
    Table()
    {
        const test::TemporaryFolder folder;
        const Inventory inventory = test::loaded(test::writeThree(folder));
        const std::string csv = test::bytesOf(csvBytes(inventory.set, "", DustColumn::Present));
        CsvReader reader(csv);
        std::vector<CsvField> fields;
        while (reader.next(fields)) {
            std::vector<std::string>& row = m_rows.emplace_back();
            for (const CsvField& field : fields)
                row.push_back(field.text);
        }
        EXPECT_EQ(m_rows.size(), 4U);
    }

    /// row: 1 the stack, 2 the area source, 3 the segment.
    Table& set(std::size_t row, std::string_view column, std::string_view text)
    {
        m_rows[row][indexOf(column)] = text;
        return *this;
    }
    [[nodiscard]] std::size_t indexOf(std::string_view column) const
    {
        const auto found = std::find(m_rows[0].begin(), m_rows[0].end(), column);
        EXPECT_NE(found, m_rows[0].end()) << column;
        return static_cast<std::size_t>(found - m_rows[0].begin());
    }
    /// Where the field begins in its line, in characters.
    [[nodiscard]] std::size_t columnOf(std::size_t row, std::string_view column) const
    {
        std::size_t characters = 1;
        for (std::size_t i = 0; i < indexOf(column); ++i) {
            std::string written;
            appendCsvField(written, m_rows[row][i]);
            for (const char c : written)
                characters += (static_cast<unsigned char>(c) & 0xC0U) != 0x80U ? 1 : 0;
            ++characters;
        }
        return characters;
    }
    [[nodiscard]] std::string text() const { return text(","); }
    [[nodiscard]] std::string text(std::string_view separator) const
    {
        std::string text;
        for (const std::vector<std::string>& row : m_rows) {
            for (std::size_t i = 0; i < row.size(); ++i) {
                text += i > 0 ? separator : "";
                appendCsvField(text, row[i]);
            }
            text += "\r\n";
        }
        return text;
    }
    /// As a spreadsheet writes it where numbers have a decimal comma.
    [[nodiscard]] std::string withDecimalCommas(std::string_view separator) const
    {
        Table table = *this;
        for (std::size_t row = 1; row < m_rows.size(); ++row) {
            for (std::size_t i = indexOf("M_g_s"); i < indexOf("prach"); ++i)
                std::replace(table.m_rows[row][i].begin(), table.m_rows[row][i].end(), '.', ',');
        }
        return table.text(separator);
    }
    std::vector<std::vector<std::string>>& rows() { return m_rows; }

private:
    std::vector<std::vector<std::string>> m_rows;
};

void expectFinding(const CsvInventory& read, CsvFault fault, TextPlace place, std::string_view column)
{
    ASSERT_EQ(read.findings.size(), 1U) << column;
    EXPECT_EQ(read.findings[0].fault, fault) << column;
    EXPECT_EQ(read.findings[0].place, place) << column;
    EXPECT_EQ(read.findings[0].column, column);
}

TEST(CsvImport, AValueThatIsNoneIsFoundWhereItStands)
{
    struct Case {
        std::size_t row;
        std::string_view column;
        std::string_view text;
        CsvFault fault;
    };
    const Case cases[] = {
        {1, "cislo", "", CsvFault::Empty},
        {1, "cislo", "1.5", CsvFault::NotInteger},
        {1, "cislo", "1 5", CsvFault::NotInteger},
        {2, "X_m", "3000000000", CsvFault::OutOfRange},
        {1, "typ", "4", CsvFault::UnknownType},
        {1, "typ", "", CsvFault::UnknownType},
        {1, "M_g_s", "", CsvFault::Empty},
        {1, "M_g_s", "0,5", CsvFault::NotReal},
        {1, "M_g_s", "0.5 g", CsvFault::NotReal},
        {1, "M_g_s", "nan", CsvFault::NotReal},
        {1, "M_g_s", "0x1F", CsvFault::NotReal},
        {1, "M_g_s", "1e", CsvFault::NotReal},
        {1, "M_g_s", ".", CsvFault::NotReal},
        {1, "M_g_s", "1e39", CsvFault::OutOfRange},
        {1, "M_g_s", "1 234.5", CsvFault::ThousandsSeparators},
        {1, "M_g_s", "1\u00A0234", CsvFault::ThousandsSeparators},
        {1, "M_g_s", "1,234.5", CsvFault::ThousandsSeparators},
        {1, "M_g_s", "1.234.567", CsvFault::ThousandsSeparators},
        {1, "M_g_s", "1'234", CsvFault::ThousandsSeparators},
        {1, "M_g_s", "12.3.2026", CsvFault::NotReal},
        {1, "M_g_s", std::string_view("1\0", 2), CsvFault::NotReal},
        {1, "X_m", "641 889", CsvFault::ThousandsSeparators},
        {1, "X_m", "641.889", CsvFault::NotInteger},
        {1, "M_g_s", "0.12345678", CsvFault::Rounded},
        {1, "M_g_s", "16777216", CsvFault::Rounded},
        {1, "Alfa", "1.01", CsvFault::UnusualValue},
        {2, "Alfa", "-0.1", CsvFault::UnusualValue},
        {3, "Pd_h", "25", CsvFault::UnusualValue},
        {1, "skupina", "x", CsvFault::NotInteger},
        {1, "Y0_m", "40", CsvFault::NotOfType},
        {1, "Delta_h_m", "2", CsvFault::NotOfType},
        {2, "X1el_m", "1", CsvFault::NotOfType},
        {2, "prach", "0,0,0", CsvFault::NotOfType},
        {3, "ts_C", "20", CsvFault::NotOfType},
        {2, "ts_C", "20", CsvFault::TemperatureOfPlume},
        {1, "nazev", "a;b", CsvFault::Semicolon},
        {1, "nazev", "a\nb", CsvFault::LineEnd},
        {1, "nazev", "Ω", CsvFault::NotInCodePage},
        {1, "nazev", "x\x1By", CsvFault::ControlCharacter},
        {1, "nazev", std::string_view("x\0", 2), CsvFault::ControlCharacter},
        {1, "prach", "1800\n", CsvFault::LineEnd},
        {1, "prach", "", CsvFault::UnusualDust},
        {1, "prach", "abc", CsvFault::UnusualDust},
        {1, "prach", "5", CsvFault::UnusualDust},
        {1, "prach", "0,0", CsvFault::UnusualDust},
        {1, "prach", "1800;0", CsvFault::UnusualDust},
        {1, "prach", "1 800,0,0", CsvFault::UnusualDust},
        {1, "prach", "1800,2,1", CsvFault::UnusualDust},
        {1, "prach", "1800,0,4,2.5,0.3", CsvFault::UnusualDust},
        {1, "prach", "1800,0,1,2,5,1,0", CsvFault::UnusualDust},
        {3, "soupis", " okraje", CsvFault::CommentBlanks},
        {1, "WKT", "POINT (10 21)", CsvFault::GeometryDiffers},
    };
    for (const Case& given : cases) {
        Table table;
        table.set(given.row, given.column, given.text);
        SCOPED_TRACE(given.text);
        const CsvInventory read = readCsv(table.text(), GeometryColumn::Check);
        expectFinding(read, given.fault, {given.row + 1, table.columnOf(given.row, given.column)}, given.column);
        EXPECT_EQ(read.findings.empty() ? "" : read.findings[0].text, given.text);
    }
}

TEST(CsvImport, AllFaultsAreFoundInOneRun)
{
    Table table;
    table.set(1, "M_g_s", "x").set(1, "H_m", "").set(2, "Alfa", "y").set(3, "typ", "0");
    const CsvInventory read = readCsv(table.text(), GeometryColumn::Check);
    ASSERT_EQ(read.findings.size(), 4U);
    EXPECT_EQ(read.findings[0].column, "M_g_s");
    EXPECT_EQ(read.findings[3].place.line, 4U);
}

TEST(CsvImport, AnAreaWithADiameterHasATemperature)
{
    Table table;
    table.set(2, "d_m", "1.5").set(2, "Delta_h_m", "").set(2, "ts_C", "80");
    EXPECT_THAT(readCsv(table.text(), GeometryColumn::Check).findings, IsEmpty());
    table.set(2, "Delta_h_m", "2");
    expectFinding(readCsv(table.text(), GeometryColumn::Check), CsvFault::TemperatureOfPlume,
        {3, table.columnOf(2, "Delta_h_m")}, "Delta_h_m");
}

TEST(CsvImport, ColumnsMayStandInAnyOrderAndDerivedOnesMayBeMissing)
{
    Table table;
    for (std::vector<std::string>& row : table.rows()) {
        row.resize(row.size() - 2);  // the comment and the geometry
        std::reverse(row.begin(), row.end());
    }
    CsvInventory read = readCsv(table.text(), GeometryColumn::Check);
    EXPECT_THAT(read.findings, IsEmpty());
    ASSERT_EQ(read.set.size(), 3U);
    EXPECT_EQ(read.set.at(1).LineSource(), "000000001, 0000010, 0000020, 0300, 1, 2, 3 ;Pec, \"nová\"");
}

TEST(CsvImport, ColumnsThatAreUnknownDoubledOrMissingAreFound)
{
    Table unknown;
    unknown.set(0, "H_m", "vyska");
    const CsvInventory read = readCsv(unknown.text(), GeometryColumn::Check);
    ASSERT_EQ(read.findings.size(), 2U);
    EXPECT_EQ(read.findings[0].fault, CsvFault::MissingColumn);
    EXPECT_EQ(read.findings[0].column, "H_m");
    EXPECT_EQ(read.findings[1].fault, CsvFault::UnknownColumn);
    EXPECT_EQ(read.findings[1].column, "vyska");

    Table doubled;
    const std::size_t place = doubled.columnOf(0, "soupis");
    doubled.set(0, "soupis", "Alfa");
    expectFinding(readCsv(doubled.text(), GeometryColumn::Check), CsvFault::DoubledColumn, {1, place}, "Alfa");

    ASSERT_EQ(readCsv("", GeometryColumn::Check).findings.size(), 1U);
    EXPECT_EQ(readCsv("", GeometryColumn::Check).findings[0].fault, CsvFault::NoHeader);
}

TEST(CsvImport, ARowOfAnotherLengthIsFound)
{
    Table table;
    table.rows()[2].pop_back();
    const CsvInventory read = readCsv(table.text(), GeometryColumn::Check);
    expectFinding(read, CsvFault::FieldCount, {3, 1}, "");
    EXPECT_EQ(read.findings[0].count, table.rows()[0].size() - 1);
    EXPECT_EQ(read.findings[0].expected, table.rows()[0].size());
}

TEST(CsvImport, TwoSourcesOfOneNumberMustHaveTheRecordsThatTheyShare)
{
    Table table;
    table.set(2, "cislo", "1");
    const CsvInventory read = readCsv(table.text(), GeometryColumn::Check);
    expectFinding(read, CsvFault::SharedDescription, {3, 1}, "cislo");

    Table wide;
    wide.set(1, "cislo", "1000000000");
    expectFinding(readCsv(wide.text(), GeometryColumn::Check), CsvFault::ShiftedDust, {2, 1}, "cislo");

    Table alike;
    alike.rows().push_back(alike.rows()[1]);
    const CsvInventory doubled = readCsv(alike.text(), GeometryColumn::Check);
    expectFinding(doubled, CsvFault::DoubledNumber, {5, 1}, "cislo");
    EXPECT_EQ(doubled.findings[0].expected, 2U);
    EXPECT_EQ(doubled.set.size(), 4U) << "it can be accepted";
}

TEST(CsvImport, NumbersAreComparedBesideOtherFindings)
{
    Table table;
    table.set(1, "Alfa", "x").set(3, "cislo", "2");
    const CsvInventory read = readCsv(table.text(), GeometryColumn::Check);
    ASSERT_EQ(read.findings.size(), 2U);
    EXPECT_EQ(read.findings[1].fault, CsvFault::SharedDescription);
}

TEST(CsvImport, FindingsAreOrderedByPlaceWhateverTheOrderOfTheColumns)
{
    Table table;
    table.set(1, "prach", "0\n").set(1, "ts_C", "x").set(1, "cislo", "y").set(2, "nazev", "a;b").set(2, "soupis", " z");
    table.set(3, "cislo", "1");
    for (std::vector<std::string>& row : table.rows())
        std::reverse(row.begin(), row.end());
    const CsvInventory read = readCsv(table.text(), GeometryColumn::Check);
    ASSERT_EQ(read.findings.size(), 5U);
    EXPECT_TRUE(std::is_sorted(read.findings.begin(), read.findings.end(),
        [](const CsvFinding& a, const CsvFinding& b) { return a.place < b.place; }));
    EXPECT_EQ(read.findings[0].column, "prach");
    EXPECT_EQ(read.findings[2].column, "cislo");
}

TEST(CsvImport, WhatCanBeAcceptedIsReadAllTheSame)
{
    Table table;
    table.set(1, "M_g_s", "0.12345678").set(2, "Alfa", "2").set(3, "Pd_h", "x");
    CsvInventory read = readCsv(table.text(), GeometryColumn::Check);
    ASSERT_EQ(read.findings.size(), 3U);
    EXPECT_EQ(read.findings[0].detail, "0.1234568");
    EXPECT_EQ(read.findings[1].detail, "0–1");
    EXPECT_TRUE(isAcceptable(read.findings[0].fault));
    EXPECT_TRUE(isAcceptable(read.findings[1].fault));
    EXPECT_FALSE(isAcceptable(read.findings[2].fault));
    ASSERT_EQ(read.set.size(), 2U);
    EXPECT_EQ(read.set.at(2).values().parameters[6], 2.0F);
}

TEST(CsvImport, ANumberThatTheFilesHoldIsNotCalledRounded)
{
    for (const std::string_view text :
        {"0.5", "00.50", "+5E-1", "500e-3", "0.1234567", "1E+10", "0e99", "-0.0", "5.", ".5", "9999999", "1.5e1"}) {
        Table table;
        table.set(1, "M_g_s", text);
        EXPECT_THAT(readCsv(table.text(), GeometryColumn::Check).findings, IsEmpty()) << text;
    }
}

TEST(CsvImport, TheCommentMayStandInAnyRowButNotTwoOfThem)
{
    Table table;
    table.set(3, "soupis", "Rok 2026");
    EXPECT_EQ(readCsv(table.text(), GeometryColumn::Check).comment, "Rok 2026");
    table.set(1, "soupis", "Rok 2025");
    expectFinding(readCsv(table.text(), GeometryColumn::Check), CsvFault::CommentDiffers,
        {4, table.columnOf(3, "soupis")}, "soupis");
}

TEST(CsvImport, AGeometryThatWasLeftBehindCanBeIgnored)
{
    Table table;
    table.set(3, "X2el_m", "35");
    EXPECT_EQ(readCsv(table.text(), GeometryColumn::Check).findings.size(), 1U);
    EXPECT_THAT(readCsv(table.text(), GeometryColumn::Ignore).findings, IsEmpty());
}

TEST(CsvImport, ATableOfASpreadsheetGivesTheSameInventory)
{
    const Table table;
    const CsvInventory plain = readCsv(table.text(), GeometryColumn::Check);
    ASSERT_THAT(plain.findings, IsEmpty());
    EXPECT_EQ(plain.form.encoding, CsvForm::Encoding::Utf8);
    EXPECT_EQ(plain.form.separator, ',');
    EXPECT_FALSE(plain.form.hasDecimalComma);
    const std::string wanted = test::bytesOf(csvBytes(plain.set, plain.comment, DustColumn::Present));

    for (const std::string_view separator : {";", "\t"}) {
        for (const bool hasCommas : {false, true}) {
            const std::string text = hasCommas ? table.withDecimalCommas(separator) : table.text(separator);
            for (const std::string& bytes : {text, "\xEF\xBB\xBF" + text, encodeCodePage(text)}) {
                SCOPED_TRACE(bytes.substr(0, bytes.find('\r', bytes.find('\r') + 1)));
                const CsvInventory read = readCsv(bytes, GeometryColumn::Check);
                EXPECT_THAT(read.findings, IsEmpty());
                EXPECT_EQ(read.form.separator, separator.front());
                EXPECT_EQ(read.form.hasDecimalComma, hasCommas);
                EXPECT_EQ(read.form.encoding == CsvForm::Encoding::CodePage, bytes.size() < text.size());
                EXPECT_EQ(test::bytesOf(csvBytes(read.set, read.comment, DustColumn::Present)), wanted);
            }
        }
    }
}

TEST(CsvImport, PointsAndCommasInOneTableAreNotGuessedAt)
{
    Table table;
    table.set(1, "M_g_s", "1,234").set(2, "M_g_s", "1.234").set(3, "ML_g_s_m", "1 234,5");
    std::string text = table.withDecimalCommas(";");
    text.replace(text.find("1,234", text.find("Skládka")), 5, "1.234");
    const CsvInventory read = readCsv(text, GeometryColumn::Check);
    ASSERT_EQ(read.findings.size(), 2U);
    EXPECT_EQ(read.findings[0].fault, CsvFault::OtherDecimalMark);
    EXPECT_EQ(read.findings[0].place.line, 3U);
    EXPECT_EQ(read.findings[0].text, "1.234");
    EXPECT_EQ(read.findings[1].fault, CsvFault::ThousandsSeparators);
    EXPECT_EQ(read.set.size(), 1U);
}

TEST(CsvImport, AnotherEncodingAndDamagedUtf8AreRefused)
{
    Table table;
    table.set(2, "nazev", "Příliš");
    std::string damaged = table.text();
    damaged.replace(damaged.find("Pec"), 1, "\xE8");
    for (const std::string& bytes :
        {std::string("\xFF\xFE\x63"), std::string("\xFE\xFF\x63"), std::string("\xEF\xBB\xBF\x63,\xE8"), damaged})
        expectFinding(readCsv(bytes, GeometryColumn::Check), CsvFault::Encoding, {1, 1}, "");
}

TEST(CsvImport, AHeaderAloneIsAnInventoryWithoutSources)
{
    Table table;
    table.rows().resize(1);
    const CsvInventory read = readCsv(table.text() + "\r\n\n", GeometryColumn::Check);
    EXPECT_THAT(read.findings, IsEmpty());
    EXPECT_TRUE(read.set.empty());
}

TEST(CsvImport, TextsMayHaveAnyLength)
{
    const std::string longName(1 << 20, 'x');
    Table table;
    table.set(1, "nazev", longName);
    const CsvInventory read = readCsv(table.text(), GeometryColumn::Check);
    EXPECT_THAT(read.findings, IsEmpty());
    EXPECT_EQ(read.set.at(1).values().name, longName);
}

TEST(CsvImport, ControlCharactersAreKeptWhereTheyAreAccepted)
{
    for (const std::string& name : {std::string("a\rb"), std::string("a\0b", 3)}) {
        Table table;
        table.set(1, "nazev", name);
        const CsvInventory read = readCsv(table.text(), GeometryColumn::Check);
        ASSERT_EQ(read.findings.size(), 1U);
        EXPECT_EQ(read.findings[0].fault, CsvFault::ControlCharacter);
        EXPECT_TRUE(isAcceptable(CsvFault::ControlCharacter));
        EXPECT_EQ(read.set.at(1).values().name, name);
    }
}

TEST(CsvImport, ABrokenQuoteIsFoundWithItsPlace)
{
    Table table;
    const std::string text = table.text() + "4,1,\"Pec";
    expectFinding(readCsv(text, GeometryColumn::Check), CsvFault::OpenQuote, {5, 5}, "");
    expectFinding(readCsv("\"cislo,typ", GeometryColumn::Check), CsvFault::OpenQuote, {1, 1}, "");
    expectFinding(readCsv(table.text() + "4,\"1\"2", GeometryColumn::Check), CsvFault::TextAfterQuote, {5, 6}, "");
    expectFinding(readCsv(table.text() + "4,1\"2", GeometryColumn::Check), CsvFault::QuoteInside, {5, 4}, "");
}

TEST(CsvImport, EveryFaultHasATextInBothLanguages)
{
    std::set<std::string> texts;
    constexpr int last = static_cast<int>(CsvFault::ShiftedDust);
    for (int i = 0; i <= last; ++i) {
        for (const Language language : {Language::Czech, Language::English}) {
            const std::string text = textOf(language, {static_cast<CsvFault>(i), {}, {}, {}, {}});
            EXPECT_FALSE(text.empty()) << i;
            EXPECT_TRUE(texts.insert(text).second) << text;
        }
    }
}

TEST(CsvImport, NumbersOfFieldsHaveTheirNoun)
{
    const auto said = [](std::size_t count) {
        CsvFinding finding{CsvFault::FieldCount, {}, {}, {}, {}};
        finding.expected = 28;
        finding.count = count;
        return textOf(Language::Czech, finding);
    };
    EXPECT_EQ(said(1), "řádek má 1 pole, řádek s názvy 28");
    EXPECT_EQ(said(4), "řádek má 4 pole, řádek s názvy 28");
    EXPECT_EQ(said(5), "řádek má 5 polí, řádek s názvy 28");
    EXPECT_EQ(said(0), "řádek má 0 polí, řádek s názvy 28");
    EXPECT_EQ(said(22), "řádek má 22 polí, řádek s názvy 28");
}

TEST(CsvImport, WhatTheTableWasTakenForIsSaidUnlessItIsAsExported)
{
    EXPECT_EQ(textOf(Language::Czech, CsvForm{}), "");
    EXPECT_EQ(textOf(Language::Czech, CsvForm{CsvForm::Encoding::CodePage, ';', true}),
        "tabulka se čte takto: kódování Windows-1250, oddělovač „;“, desetinná čárka");
    EXPECT_EQ(textOf(Language::English, CsvForm{CsvForm::Encoding::Utf8, '\t', false}),
        "the table is read as: encoding UTF-8, separator tab, decimal point");
}

}  // namespace
}  // namespace korvex
