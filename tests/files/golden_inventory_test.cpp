// Inventories with an oddity each: loaded and saved again, their files are compared with the expected ones as bytes.
#include "failing_file_calls.h"

#include "code_page.h"
#include "loader.h"
#include "saver.h"
#include "source_rows.h"
#include "source_set.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace korvex {
namespace {

namespace fs = std::filesystem;

/// The header lines carry full paths; in the expected files this stands for the folder.
constexpr std::string_view folderMark = "<slozka>";

std::string withFolderMarked(std::string bytes, const std::string& folder)
{
    const std::string folderBytes = encodeCodePage(folder);
    for (std::size_t at = 0; (at = bytes.find(folderBytes, at)) != std::string::npos; at += folderMark.size())
        bytes.replace(at, folderBytes.size(), folderMark);
    return bytes;
}

SourceFiles filesIn(const fs::path& folder, bool withDust)
{
    return {(folder / "body.txt").string(), (folder / "popis.txt").string(),
        withDust ? (folder / "prach.txt").string() : ""};
}

void expectGolden(const fs::path& folder)
{
    ASSERT_TRUE(fs::exists(folder / "note.txt"));
    const bool withDust = fs::exists(folder / "input/prach.txt");
    test::RecordingListener listener;
    LoadRequest request;
    request.files = filesIn(folder / "input", withDust);
    request.missingDescription = MissingDescription::Accept;
    SourceSet set;
    LoadReport report;
    const Result<void> loaded = loadSourceSet(request, set, report, listener);
    ASSERT_TRUE(loaded.ok()) << loaded.error().message();
    EXPECT_FALSE(set.empty());

    const test::TemporaryFolder saved;
    SaveRequest saving;
    saving.files = filesIn(saved.path(), withDust);
    saving.comment = report.comment.value_or("");
    SourceRows rows;
    rows.refill(set.size());
    listener.clear();
    const Result<SaveReport> result = saveSourceSet(saving, set, rows, listener);
    ASSERT_TRUE(result.ok()) << result.error().message();
    EXPECT_TRUE(result.value().replacedIn.empty()) << "what was read can be written";

    std::size_t compared = 0;
    for (const auto& entry : fs::directory_iterator(folder / "expected")) {
        const std::string name = entry.path().filename().string();
        ASSERT_TRUE(saved.has(name)) << name;
        EXPECT_EQ(withFolderMarked(saved.bytes(name), saved.path()), test::bytesOf(entry.path())) << name;
        ++compared;
    }
    EXPECT_EQ(compared, saved.names().size());
    EXPECT_EQ(compared, withDust ? 3U : 2U);
}

TEST(GoldenInventory, EveryCaseIsSavedAsExpected)
{
    std::size_t cases = 0;
    for (const auto& entry : fs::directory_iterator(KORVEX_SOURCE_DIR "/tests/golden/inventory")) {
        SCOPED_TRACE(entry.path().filename().string());
        ++cases;
        expectGolden(entry.path());
    }
    EXPECT_GE(cases, 16U);
}

}  // namespace
}  // namespace korvex
