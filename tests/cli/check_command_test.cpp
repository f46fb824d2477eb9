// The command check: its JSON is what a JSON parser reads, whatever the files hold.
#include "check_command.h"
#include "check_rules.h"
#include "inventory_files.h"
#include "program.h"

#include <CLI/CLI.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <utility>
#include <vector>

namespace korvex::test {
namespace {

using nlohmann::json;

struct ToolRun {
    std::string out;
    std::string err;
    int exitCode = 0;
};

ToolRun run(std::vector<std::string> arguments)
{
    std::vector<const char*> texts{"check"};
    for (const std::string& argument : arguments)
        texts.push_back(argument.c_str());
    TextOutput out;
    TextOutput err;
    CommandContext context{out, err, languageOf(texts)};
    const auto app = makeApp(context);
    addCheckCommand(*app, context);
    const int exitCode = runApp(*app, context, texts);
    return {out.text(), err.text(), exitCode};
}

std::vector<std::string> filesWithName(const TemporaryFolder& folder, const std::string& name)
{
    return {folder.write("body.txt", "000000001, 0641862, 1078344, 431, 1, 1, 1 ;" + name + "\r\n"),
        folder.write("popis.txt", "000000001, 0.16, 32, 3.119339, 145, 0.8, 9.5, 0.45, 24, 0\r\n")};
}

TEST(CheckCommand, JsonHoldsEveryTextUnharmed)
{
    for (const char* const name : {"\"A\\B\";x\"\\", "\x01\x1F;\x01", "\xE8\xED;\xE8", "\xC4\x8D;\xC4\x8D", "\x81;\x81",
             "\xED\xA0\x80;\xED\xA0\x80"}) {
        for (const char* const language : {"cs", "en"}) {
            const TemporaryFolder folder;
            std::vector<std::string> arguments = filesWithName(folder, name);
            arguments.insert(arguments.end(), {"--json", "--lang", language, "--max", "0"});
            const ToolRun result = run(arguments);
            EXPECT_EQ(result.exitCode, 1);
            const json report = json::parse(result.out, nullptr, false);
            ASSERT_FALSE(report.is_discarded()) << result.out;
            EXPECT_EQ(report["count"], report["findings"].size());
            EXPECT_EQ(report["listed"], report["findings"].size());
            EXPECT_EQ(report["rules"]["name-semicolon"], 1);
            const json& first = report["findings"][0];
            EXPECT_EQ(first["file"], arguments.front());
            EXPECT_EQ(first["line"], 1);
            EXPECT_FALSE(first["message"].get<std::string>().empty());
        }
    }
}

TEST(CheckCommand, JsonWithoutFindingsIsWhole)
{
    const TemporaryFolder folder;
    std::vector<std::string> arguments = filesWithName(folder, "x");
    arguments.insert(arguments.end(), {"--json", "--skip", "rewritten"});
    const ToolRun result = run(arguments);
    EXPECT_EQ(result.exitCode, 0);
    const json report = json::parse(result.out);
    EXPECT_EQ(report["sources"], 1);
    EXPECT_EQ(report["count"], 0);
    EXPECT_TRUE(report["rules"].empty() && report["rules"].is_object());
    EXPECT_TRUE(report["findings"].empty() && report["findings"].is_array());
}

TEST(CheckCommand, ExplanationsAreJsonWhenAskedFor)
{
    const json one = json::parse(run({"--explain", "range-w0", "--json", "--lang", "en"}).out);
    ASSERT_EQ(one.size(), 1U);
    EXPECT_EQ(one[0]["rule"], "range-w0");
    EXPECT_EQ(one[0]["severity"], "warning");
    EXPECT_EQ(one[0]["limits"][0]["value"], "0.01 to 125 m/s");
    EXPECT_FALSE(one[0]["limits"][0]["reason"].get<std::string>().empty());
    EXPECT_EQ(json::parse(run({"--explain", "all", "--json"}).out).size(), ruleCount);
}

TEST(CheckCommand, ANegativeCountIsRefused)
{
    const TemporaryFolder folder;
    for (const char* const count : {"-3", "-1", "x"}) {
        std::vector<std::string> arguments = filesWithName(folder, "x");
        arguments.insert(arguments.end(), {"--max", count});
        EXPECT_EQ(run(arguments).exitCode, 2) << count;
    }
}

TEST(CheckCommand, ErrorsOfTheSystemAreInTheChosenLanguage)
{
    EXPECT_THAT(run({"/does/not/exist", "x"}).err, testing::HasSubstr("Soubor nebo složka neexistuje."));
    EXPECT_THAT(
        run({"/does/not/exist", "x", "--lang", "en"}).err, testing::HasSubstr("The file or folder does not exist."));
}

}  // namespace
}  // namespace korvex::test
