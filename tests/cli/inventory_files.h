// What the tests of the tool's computing parts share: inventories written into a folder and loaded.
#pragma once

#include "failing_file_calls.h"

#include "code_page.h"
#include "inventory.h"
#include "output_bytes.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::test {

/// The lines in UTF-8, written in the code page with CR LF.
inline std::string writeLines(
    const TemporaryFolder& folder, std::string_view name, const std::vector<std::string_view>& lines)
{
    std::string bytes;
    for (const std::string_view line : lines)
        bytes += encodeCodePage(line) + "\r\n";
    return folder.write(name, bytes);
}

inline Inventory loaded(const SourceFiles& files, LoadFor use = LoadFor::Writing)
{
    Result<Inventory> inventory = loadInventory(files, use);
    EXPECT_TRUE(inventory.ok()) << inventory.error().message();
    return inventory.ok() ? std::move(inventory.value()) : Inventory();
}

inline SourceFiles exampleFiles()
{
    const std::string folder = KORVEX_SOURCE_DIR "/examples/";
    return {folder + "body.txt", folder + "popis.txt", folder + "prach.txt"};
}

inline SourceFiles filesIn(const std::filesystem::path& folder, bool withDust)
{
    return {(folder / "body.txt").string(), (folder / "popis.txt").string(),
        withDust ? (folder / "prach.txt").string() : ""};
}

/// A stack, an area source and a segment.
inline SourceFiles writeThree(const TemporaryFolder& folder, std::string_view suffix = "")
{
    const auto name = [suffix](std::string_view stem) { return std::string(stem).append(suffix).append(".txt"); };
    return {
        writeLines(folder, name("body"),
            {";Soupis", "000000001, 0000010, 0000020, 0300, 1, 2, 3 ;Pec, \"nová\"",
                "000000002, 0000030, 0000040, 0310, 2, 0, 0 ;Skládka", "000000003, 0000050, 0000060, 0320, 3, 4, 0 ;"}),
        writeLines(folder, name("popis"),
            {"000000001, 0.5, 30, 3.1, 150, 1.2, 8.5, 0.8, 24, 0", "000000002, 0.25, 4, 0, 2, 0, 0, 0.5, 10, 40",
                "000000003, 0.01, 0, 0, 30, 40, 12, 1.5, 0.4, 24"}),
        writeLines(folder, name("prach"), {"000000001,1800,0,1,10,1", "000000002", "000000003"})};
}

inline std::vector<std::int32_t> numbersOf(const SourceSet& set)
{
    std::vector<std::int32_t> numbers;
    for (std::size_t position = 1; position <= set.size(); ++position)
        numbers.push_back(set.at(position).ICZ());
    return numbers;
}

inline std::string bytesOf(const OutputBytes& bytes)
{
    std::string all;
    for (const std::string& block : bytes.blocks())
        all += block;
    return all;
}

}  // namespace korvex::test
