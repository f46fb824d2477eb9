// What an import refuses, with line and column.
#include "inventory_files.h"

#include "csv_export.h"
#include "csv_import.h"
#include "source_columns.h"

#include <gmock/gmock.h>

#include <array>

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
    [[nodiscard]] std::string text() const
    {
        std::string text;
        for (const std::vector<std::string>& row : m_rows) {
            for (std::size_t i = 0; i < row.size(); ++i) {
                text += i > 0 ? "," : "";
                appendCsvField(text, row[i]);
            }
            text += "\r\n";
        }
        return text;
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
        {1, "Y0_m", "40", CsvFault::NotOfType},
        {1, "Delta_h_m", "2", CsvFault::NotOfType},
        {2, "X1el_m", "1", CsvFault::NotOfType},
        {2, "prach", "0,0,0", CsvFault::NotOfType},
        {3, "ts_C", "20", CsvFault::NotOfType},
        {2, "ts_C", "20", CsvFault::TemperatureOfPlume},
        {1, "nazev", "a;b", CsvFault::Semicolon},
        {1, "nazev", "a\nb", CsvFault::LineEnd},
        {1, "nazev", "Ω", CsvFault::NotInCodePage},
        {1, "nazev", "\xE8", CsvFault::NotInCodePage},
        {1, "prach", "1800\n", CsvFault::LineEnd},
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
    EXPECT_EQ(read.findings[0].fault, CsvFault::UnknownColumn);
    EXPECT_EQ(read.findings[0].column, "vyska");
    EXPECT_EQ(read.findings[1].fault, CsvFault::MissingColumn);
    EXPECT_EQ(read.findings[1].column, "H_m");

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
    expectFinding(readCsv(table.text(), GeometryColumn::Check), CsvFault::FieldCount, {3, 1}, "");
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

TEST(CsvImport, ABrokenQuoteIsFoundWithItsPlace)
{
    Table table;
    const std::string text = table.text() + "4,1,\"Pec";
    expectFinding(readCsv(text, GeometryColumn::Check), CsvFault::OpenQuote, {5, 5}, "");
}

}  // namespace
}  // namespace korvex
