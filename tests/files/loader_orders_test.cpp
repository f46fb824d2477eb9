// A load gives the same whether the files are in number order, and are followed, or are not, and are indexed.
#include "failing_file_calls.h"

#include "loader.h"
#include "source_set.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace korvex {
namespace {

class LoaderOrders : public testing::Test {
protected:
    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_random); }

    /// A record of one of the files, at times missing, doubled, of an odd layout, or a comment in its place.
    void appendRecords(std::string& file, const std::string& number, const std::string& rest)
    {
        switch (below(24)) {
        case 0:
            return;
        case 1:
            file += number + rest + number + rest;
            return;
        case 2:
            file += "; poznámka\r\n";
            return;
        case 3:
            file += " " + number + " " + rest;
            return;
        case 4:
            file += "+" + number + rest;
            return;
        case 5:
            file += number + ".5" + rest;
            return;
        default:
            file += number + rest;
        }
    }

    void makeFiles()
    {
        points = ";Komentář\r\n";
        description = dust = "";
        std::int32_t number = -3;
        for (std::size_t count = below(60); count > 0; --count) {
            number += static_cast<std::int32_t>(below(3));
            const std::string text = std::to_string(number);
            const std::string type = std::to_string(1 + below(4));
            appendRecords(points, text, ", 1, 2, 3, " + type + ", 5, 6 ;Zdroj " + text + "\r\n");
            appendRecords(
                description, text, ", 1.5, 2, 3, 4, 5, 6, 7, 8, 9" + std::string(below(9) == 0 ? "x" : "") + "\r\n");
            appendRecords(dust, text, ",2500,0,0\r\n");
            if (below(200) == 0)
                description += "1E999, 1\r\n";
            if (below(200) == 0)
                points += "99999999999, 1, 1, 1, 1\r\n";
        }
    }

    /// Everything that a load does, as one text.
    std::string load(LoadMode mode)
    {
        SourceSet set;
        set.addFromRecords(cLiniovyZdroj, "77, 1, 1, 1, 3, 1, 1 ;Starý", "77, 1");
        const LoadRequest request{
            {folder.write("b.txt", points), folder.write("p.txt", description), folder.write("d.txt", dust)}, mode,
            MissingDescription::Accept};
        LoadReport report;
        test::RecordingListener listener;
        const Result<void> loaded = loadSourceSet(request, set, report, listener);
        std::string text = loaded.ok() ? "" : loaded.error().message() + "\n";
        text += report.setTouched ? "touched\n" : "untouched\n";
        for (std::size_t position = 1; position <= set.size(); ++position) {
            const cZdroje& source = set.at(position);
            text += source.LineSource() + '|' + source.LineParameters() + '|' + source.LineDust() + '\n';
        }
        for (const auto* const places : {&report.missingDescription, &report.missingDust, &report.unknownType}) {
            for (const RecordPlace& place : *places)
                text += std::to_string(place.number) + '@' + std::to_string(place.line) + ' ';
            text += '\n';
        }
        return text;
    }

    test::TemporaryFolder folder;
    std::string points;
    std::string description;
    std::string dust;

private:
    std::mt19937 m_random{7};
};

/// A record that no points record has, in front of a file, puts the file out of order and changes nothing else but the
/// lines of errors in it; so it goes to a line that is a comment otherwise.
TEST_F(LoaderOrders, FollowedAndIndexedFilesGiveTheSame)
{
    const std::string stranger = "2147483647, 0\r\n";
    const std::string comment = "; nic\r\n";
    int errors = 0;
    for (int round = 0; round < 600; ++round) {
        makeFiles();
        const LoadMode mode = round % 2 == 0 ? LoadMode::Replace : LoadMode::Append;
        const std::string ownDescription = description;
        const std::string ownDust = dust;
        description = comment + ownDescription;
        dust = comment + ownDust;
        const std::string followed = load(mode);
        description = stranger + ownDescription;
        ASSERT_EQ(load(mode), followed) << points << ownDescription << ownDust;
        description = comment + ownDescription;
        dust = stranger + ownDust;
        ASSERT_EQ(load(mode), followed) << points << ownDescription << ownDust;
        if (followed.find("Řádek") != std::string::npos)
            ++errors;
    }
    EXPECT_GT(errors, 20);
}

/// The order is lost in the middle of a file: what was read until then is forgotten, not doubled.
TEST_F(LoaderOrders, OrderLostOnTheWayDoublesNothing)
{
    points = description = dust = "";
    for (int number = 1; number <= 1000; ++number) {
        const std::string text = std::to_string(number == 900 ? 5000 : number);
        points += text + ", 1, 2, 3, 1, 5, 6 ;Zdroj\r\n";
        description += text + ", 1, 2, 3, 4, 5, 6, 7, 8, 0\r\n";
        dust += text + ",0,0,0\r\n";
    }
    const std::string loaded = load(LoadMode::Append);
    EXPECT_EQ(std::count(loaded.begin(), loaded.end(), '\n'), 1 + 1001 + 3);
    EXPECT_EQ(loaded.find('@'), std::string::npos) << "every record found its partners";
}

}  // namespace
}  // namespace korvex
