// What the tool writes: texts and whole numbers, and the knowledge that it could not be written.
#include "text_output.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <limits>
#include <string>
#include <unistd.h>

namespace korvex {
namespace {

TEST(TextOutput, TextsAndWholeNumbersAreGathered)
{
    TextOutput out;
    out << "a" << std::string("b") << 'c' << ' ' << 0 << ' ' << -7 << ' ' << std::size_t{1000000};
    EXPECT_EQ(out.text(), "abc 0 -7 1000000");
}

TEST(TextOutput, TheSmallestNumberIsWrittenWhole)
{
    TextOutput out;
    out << std::numeric_limits<std::int32_t>::min() << ' ' << std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(out.text(), "-2147483648 -9223372036854775808");
}

TEST(TextOutput, AFullDiskIsNoticed)
{
    const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(full, 0);
    TextOutput out(full);
    out << "text";
    EXPECT_FALSE(out.failed()) << "nothing has been written yet";
    out.flush();
    EXPECT_TRUE(out.failed());
    close(full);
}

TEST(TextOutput, MoreThanTheBufferHoldsIsWrittenAlongTheWay)
{
    const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(full, 0);
    TextOutput out(full);
    out << std::string(std::size_t{1} << 17, 'x');
    EXPECT_TRUE(out.failed());
    close(full);
}

}  // namespace
}  // namespace korvex
