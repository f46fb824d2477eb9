// The bytes of a file before it is written: nothing is lost or swapped between the blocks.
#include "output_bytes.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace korvex {
namespace {

TEST(OutputBytes, EmptyHasNoBytes)
{
    const OutputBytes bytes;
    EXPECT_EQ(bytes.size(), 0U);
    EXPECT_TRUE(bytes.blocks().empty());
}

TEST(OutputBytes, RecordsOfAnyLengthStayInOrderAcrossBlocks)
{
    OutputBytes bytes;
    std::string expected;
    for (std::size_t i = 0; i < 400; ++i) {
        const std::string record(i * i % 20011, static_cast<char>('a' + i % 26));
        bytes.room() += record;
        expected += record;
    }
    std::string joined;
    for (const std::string& block : bytes.blocks())
        joined += block;
    EXPECT_GT(bytes.blocks().size(), 2U);
    EXPECT_EQ(bytes.size(), expected.size());
    EXPECT_TRUE(joined == expected);
}

}  // namespace
}  // namespace korvex
