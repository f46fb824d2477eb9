// What a load says of a record: the file, the line, the field and its text, whatever lines stand around the record.
#include "failing_file_calls.h"

#include "loader.h"
#include "source_set.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace korvex {
namespace {

using Lines = std::vector<std::string>;

enum class File { Points, Description, Dust };
constexpr std::size_t sources = 5;

std::string joined(const Lines& fields)
{
    std::string record;
    for (const std::string& field : fields)
        record += (record.empty() ? "" : ", ") + field;
    return record;
}

std::string padded(std::size_t number)
{
    const std::string digits = std::to_string(number);
    return std::string(9 - digits.size(), '0') + digits;
}

/// The fields of a good record of a stack.
Lines fieldsOf(File file, std::size_t number)
{
    switch (file) {
    case File::Points:
        return {padded(number), "0642915", "1079021", "0447", "1", "2", "0 ;Zdroj " + std::to_string(number)};
    case File::Description:
        return {padded(number), "0.16", "32", "3.1", "145", "0.8", "9.5", "0.45", "24", "0"};
    case File::Dust:
        break;
    }
    return {padded(number) + ",1800,0,0"};
}

/// A record with one number that no field of its kind can hold, and what is said of it.
struct Fault {
    File file;
    std::size_t field;  // from 1
    std::string value;

    [[nodiscard]] std::string record(std::size_t number) const
    {
        Lines fields = fieldsOf(file, number);
        // The last field of a points record has the name behind it, the number of a dust record the description.
        std::string& wrong = fields.at(field - 1);
        wrong.replace(0, wrong.find_first_of(" ,"), value);
        return joined(fields);
    }
    [[nodiscard]] std::string description() const
    {
        return "Číslo je mimo rozsah: pole " + std::to_string(field) + ", „" + value + "“.";
    }
};

std::vector<Fault> everyFault()
{
    std::vector<Fault> faults;
    for (std::size_t field = 1; field <= 7; ++field) {
        for (const char* const value : {"2147483648", "-2147483649", "2147483647.5", "-2147483648.51", "+3E9",
                 "99999999999999999999", "1E400", "-1E400", "1E-400"})
            faults.push_back({File::Points, field, value});
    }
    for (const File file : {File::Description, File::Dust}) {
        for (const char* const value : {"1E309", "+1E999", "-1E999", "1E-400"})
            faults.push_back({file, 1, value});
    }
    for (std::size_t field = 2; field <= 9; ++field) {
        for (const char* const value :
            {"3.5E38", "-1E39", "1E-60", "-1E-60", "1E400", "9999999999999999999999999999999999999999"})
            faults.push_back({File::Description, field, value});
    }
    return faults;
}

/// One fault of each way in which a file is read.
std::vector<Fault> oneFaultOfEachKind()
{
    return {{File::Points, 1, "9999999999"}, {File::Points, 2, "-3E9"}, {File::Points, 7, "1E10"},
        {File::Description, 1, "1E999"}, {File::Description, 9, "1E39"}, {File::Dust, 1, "1E999"}};
}

/// What stands around the records.
struct Layout {
    std::string name;
    Lines before;                   // in front of the first record
    Lines between;                  // behind every record but the last
    std::vector<std::string> ends;  // of the lines, over and over
    bool lastEnd;
};

std::vector<Layout> everyLayout()
{
    const Lines none;
    const Lines comments{";Soupis", ";SOUBOR S BODY", "; 99999999999, 1E999, 1E999"};
    const Lines blanks{"", "  ", "\t", " \t;1E999"};
    const std::vector<std::pair<std::string, std::pair<Lines, Lines>>> surroundings{{"records alone", {none, none}},
        {"comments before", {comments, none}}, {"blank lines before", {blanks, none}},
        {"comments and blank lines everywhere", {blanks, {"", ";poznámka", " "}}}};
    const std::vector<std::pair<std::string, std::vector<std::string>>> lineEnds{
        {"CR LF", {"\r\n"}}, {"LF", {"\n"}}, {"CR LF and LF", {"\r\n", "\n"}}, {"LF and CR LF", {"\n", "\n", "\r\n"}}};
    std::vector<Layout> layouts;
    for (const auto& [surroundingsName, lines] : surroundings) {
        for (const auto& [endsName, ends] : lineEnds) {
            for (const bool lastEnd : {true, false})
                layouts.push_back({surroundingsName + ", " + endsName + (lastEnd ? "" : ", no last line end"),
                    lines.first, lines.second, ends, lastEnd});
        }
    }
    return layouts;
}

/// The bytes of a file and the line of each of its records.
struct FileOfRecords {
    std::string bytes;
    std::vector<std::size_t> lineOf;  // by the place among the records
};

FileOfRecords laidOut(const Lines& records, const Layout& layout)
{
    Lines lines = layout.before;
    FileOfRecords file;
    for (std::size_t i = 0; i < records.size(); ++i) {
        lines.push_back(records[i]);
        file.lineOf.push_back(lines.size());
        if (i + 1 < records.size())
            lines.insert(lines.end(), layout.between.begin(), layout.between.end());
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
        file.bytes += lines[i];
        if (i + 1 < lines.size() || layout.lastEnd)
            file.bytes += layout.ends[i % layout.ends.size()];
    }
    return file;
}

/// In which order the source numbers stand in the three files: in number order a file is followed, else it is indexed.
struct Order {
    std::string name;
    std::vector<std::size_t> points;
    std::vector<std::size_t> description;
    std::vector<std::size_t> dust;

    [[nodiscard]] const std::vector<std::size_t>& of(File file) const
    {
        return file == File::Points ? points : file == File::Description ? description : dust;
    }
};

std::vector<Order> everyOrder()
{
    const std::vector<std::size_t> up{1, 2, 3, 4, 5};
    const std::vector<std::size_t> down{5, 4, 3, 2, 1};
    const std::vector<std::size_t> mixed{2, 5, 1, 3, 4};
    return {{"all in number order", up, up, up}, {"points from the last", down, up, up},
        {"description from the last", up, down, up}, {"dust from the last", up, up, down},
        {"all from the last", down, down, down}, {"each otherwise", mixed, down, up}};
}

class LoadMessages : public testing::Test {
protected:
    Result<void> load(
        const Order& order, const Layout& layout, const std::function<std::string(File, std::size_t)>& record)
    {
        const auto lay = [&](File file, const char* name) {
            Lines records;
            for (const std::size_t number : order.of(file))
                records.push_back(record(file, number));
            FileOfRecords laid = laidOut(records, layout);
            const auto index = static_cast<std::size_t>(file);
            lineOf.at(index) = laid.lineOf;
            // Most files are as they were for the load before; to write them all again would take most of the time.
            if (files.at(index).empty() || bytesOf.at(index) != laid.bytes)
                files.at(index) = folder.write(name, laid.bytes);
            bytesOf.at(index) = std::move(laid.bytes);
            return files.at(index);
        };
        LoadRequest request;
        request.files
            = {lay(File::Points, "body.txt"), lay(File::Description, "popis.txt"), lay(File::Dust, "prach.txt")};
        return load(request);
    }

    Result<void> load(const LoadRequest& request)
    {
        set.clear();
        report = {};
        listener.clear();
        return loadSourceSet(request, set, report, listener);
    }

    void expectError(const Result<void>& loaded, const std::string& path, std::size_t line, const std::string& words)
    {
        ASSERT_FALSE(loaded.ok());
        EXPECT_EQ(loaded.error().step, FileStep::Read);
        EXPECT_EQ(loaded.error().path, path);
        EXPECT_EQ(loaded.error().line, line);
        EXPECT_EQ(loaded.error().description, words);
        EXPECT_EQ(loaded.error().message(), "Řádek " + std::to_string(line) + ": " + words + "\n\n" + path);
    }

    /// The number of every place, with its line.
    [[nodiscard]] static std::string textOf(const std::vector<RecordPlace>& places)
    {
        std::string text;
        for (const RecordPlace& place : places)
            text += std::to_string(place.number) + "@" + std::to_string(place.line) + " ";
        return text;
    }

    test::TemporaryFolder folder;
    SourceSet set;
    LoadReport report;
    test::RecordingListener listener;
    std::array<std::string, 3> files;  // their paths
    std::array<std::string, 3> bytesOf;
    std::array<std::vector<std::size_t>, 3> lineOf;  // by file, then by the place in its order
};

std::size_t placeOf(std::size_t number, const std::vector<std::size_t>& order)
{
    return static_cast<std::size_t>(std::find(order.begin(), order.end(), number) - order.begin());
}

TEST_F(LoadMessages, GoodFilesOfEveryLayoutAndOrderGiveNoMessage)
{
    for (const Layout& layout : everyLayout()) {
        for (const Order& order : everyOrder()) {
            SCOPED_TRACE(layout.name + "; " + order.name);
            const Result<void> loaded
                = load(order, layout, [](File file, std::size_t number) { return joined(fieldsOf(file, number)); });
            ASSERT_TRUE(loaded.ok()) << loaded.error().message();
            EXPECT_EQ(set.size(), sources);
            EXPECT_EQ(textOf(report.missingDescription) + textOf(report.missingDust) + textOf(report.unknownType), "");
        }
    }
}

TEST_F(LoadMessages, EveryNumberOutOfRangeIsNamedByFileLineFieldAndText)
{
    const Layout layout{"", {";Soupis", ""}, {}, {"\r\n"}, true};
    for (const Order& order : everyOrder()) {
        for (const Fault& fault : everyFault()) {
            SCOPED_TRACE(order.name + "; " + fault.record(3));
            const Result<void> loaded = load(order, layout, [&](File file, std::size_t number) {
                return number == 3 && file == fault.file ? fault.record(3) : joined(fieldsOf(file, number));
            });
            const std::size_t line = 3 + placeOf(3, order.of(fault.file));
            expectError(loaded, files.at(static_cast<std::size_t>(fault.file)), line, fault.description());
        }
    }
}

TEST_F(LoadMessages, LineIsRightInEveryLayoutAndOrderWhereverTheRecordStands)
{
    for (const Layout& layout : everyLayout()) {
        for (const Order& order : everyOrder()) {
            for (const Fault& fault : oneFaultOfEachKind()) {
                const std::vector<std::size_t>& numbers = order.of(fault.file);
                for (const std::size_t place : {std::size_t{0}, std::size_t{2}, sources - 1}) {
                    const std::size_t wrong = numbers.at(place);
                    SCOPED_TRACE(layout.name + "; " + order.name + "; " + fault.record(wrong));
                    const Result<void> loaded = load(order, layout, [&](File file, std::size_t number) {
                        return number == wrong && file == fault.file ? fault.record(wrong)
                                                                     : joined(fieldsOf(file, number));
                    });
                    const auto file = static_cast<std::size_t>(fault.file);
                    expectError(loaded, files.at(file), lineOf.at(file).at(place), fault.description());

                    // A record that pairs by no number is found before the first source is made.
                    const bool isRead = fault.file == File::Points || fault.field > 1;
                    EXPECT_EQ(report.setTouched, isRead);
                    EXPECT_EQ(set.size(), isRead ? placeOf(wrong, order.points) : 0);
                }
            }
        }
    }
}

TEST_F(LoadMessages, LinesAreCountedRightInLongFiles)
{
    constexpr std::size_t many = 12'000;
    std::vector<std::size_t> up(many);
    for (std::size_t i = 0; i < many; ++i)
        up[i] = i + 1;
    const std::vector<std::size_t> down(up.rbegin(), up.rend());
    const Layout layout{"", {";Soupis"}, {""}, {"\r\n", "\n"}, false};
    // Around the ends of what is read at once, and in the last line.
    for (const std::size_t place : {31U, 32U, 33U, 63U, 64U, 65U, 5000U, 11'999U}) {
        for (const Fault& fault : {Fault{File::Points, 4, "1E10"}, Fault{File::Description, 5, "1E39"}}) {
            for (const Order& order : {Order{"in order", up, up, up}, Order{"from the last", up, down, down}}) {
                const std::size_t wrong = order.of(fault.file).at(place);
                SCOPED_TRACE(order.name + "; " + fault.record(wrong));
                const Result<void> loaded = load(order, layout, [&](File file, std::size_t number) {
                    return number == wrong && file == fault.file ? fault.record(wrong) : joined(fieldsOf(file, number));
                });
                expectError(loaded, files.at(static_cast<std::size_t>(fault.file)), 2 + 2 * place, fault.description());
                EXPECT_EQ(set.size(), wrong - 1);
            }
        }
    }
}

TEST_F(LoadMessages, OfTwoWrongRecordsInAFileTheOneReadFirstIsNamed)
{
    const Layout layout{"", {}, {}, {"\n"}, true};
    for (const Order& order : everyOrder()) {
        for (const Fault& fault : oneFaultOfEachKind()) {
            SCOPED_TRACE(order.name + "; " + fault.record(0));
            const Result<void> loaded = load(order, layout, [&](File file, std::size_t number) {
                const bool isWrong = (number == 2 || number == 4) && file == fault.file;
                return isWrong ? fault.record(number) : joined(fieldsOf(file, number));
            });
            // The parameters are read in the order of the points, all else in the order of its own file.
            const bool followsPoints = fault.file == File::Description && fault.field > 1;
            const std::vector<std::size_t>& readBy = followsPoints ? order.points : order.of(fault.file);
            const std::size_t named = placeOf(2, readBy) < placeOf(4, readBy) ? 2 : 4;
            expectError(loaded, files.at(static_cast<std::size_t>(fault.file)),
                1 + placeOf(named, order.of(fault.file)), fault.description());
        }
    }
}

TEST_F(LoadMessages, OfWrongNumbersInSeveralFilesTheDescriptionComesFirstThenTheDust)
{
    const Layout layout{"", {";Soupis"}, {}, {"\r\n"}, false};
    const Fault points{File::Points, 1, "1E10"};
    const Fault description{File::Description, 1, "1E999"};
    const Fault dust{File::Dust, 1, "-1E999"};
    for (const Order& order : everyOrder()) {
        SCOPED_TRACE(order.name);
        const auto loadWith = [&](const std::vector<Fault>& faults) {
            return load(order, layout, [&](File file, std::size_t number) {
                for (const Fault& fault : faults) {
                    if (fault.file == file && number == 3)
                        return fault.record(3);
                }
                return joined(fieldsOf(file, number));
            });
        };
        expectError(loadWith({points, description, dust}), files[1], 2 + placeOf(3, order.description),
            description.description());
        expectError(loadWith({points, dust}), files[2], 2 + placeOf(3, order.dust), dust.description());
        expectError(loadWith({points}), files[0], 2 + placeOf(3, order.points), points.description());
    }
}

TEST_F(LoadMessages, WhatIsNoNumberIsNeverOutOfRange)
{
    // Comments, the name, the dust description, fields behind the last one and records without a source.
    LoadRequest request;
    request.files = {folder.write("body.txt", ";1E999, 1E999\r\n1, 0, 0, 0, 1, 0, 0 ;1E999, 1E999;1E999\r\n"),
        folder.write("popis.txt", " ; 1E999, 1E999\n1, 0, 0, 0, 0, 0, 0, 0, 0, 1E999, 1E999\n2, 1E999\n"),
        folder.write("prach.txt", ";1E999,1E999\n000000001,1E999,0,1,1E999,1E999")};
    const Result<void> loaded = load(request);
    ASSERT_TRUE(loaded.ok()) << loaded.error().message();
    ASSERT_EQ(set.size(), 1U);
    EXPECT_EQ(set.at(1).LineDust(), "000000001,1E999,0,1,1E999,1E999");
}

TEST_F(LoadMessages, ReportsCarryTheNumberAndThePointsLineOfEachRecord)
{
    for (const Layout& layout : everyLayout()) {
        for (const Order& order : everyOrder()) {
            SCOPED_TRACE(layout.name + "; " + order.name);
            // 2 and 5 have no description, 3 no dust, 4 a type that there is not. What is gone is a comment.
            const Result<void> loaded = load(order, layout, [](File file, std::size_t number) {
                const bool isGone = (file == File::Description && (number == 2 || number == 5))
                    || (file == File::Dust && number == 3);
                Lines fields = fieldsOf(file, number);
                if (file == File::Points && number == 4)
                    fields.at(4) = "7";
                if (isGone)
                    fields.front().insert(0, "; ");
                return joined(fields);
            });
            ASSERT_TRUE(loaded.ok()) << loaded.error().message();
            const auto expected = [&](const std::vector<std::size_t>& numbers) {
                std::string text;
                for (std::size_t place = 0; place < sources; ++place) {
                    const std::size_t number = order.points.at(place);
                    if (std::find(numbers.begin(), numbers.end(), number) != numbers.end())
                        text += std::to_string(number) + "@" + std::to_string(lineOf[0].at(place)) + " ";
                }
                return text;
            };
            EXPECT_EQ(textOf(report.missingDescription), expected({2, 5}));
            EXPECT_EQ(textOf(report.missingDust), expected({3}));
            EXPECT_EQ(textOf(report.unknownType), expected({4}));
        }
    }
}

}  // namespace
}  // namespace korvex
