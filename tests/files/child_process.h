// Running a part of a test in a process of its own, for what the test program itself would not survive or must not
// keep.
#pragma once

#include <csignal>
#include <cstddef>
#include <cstdio>
#include <functional>
#include <optional>
#include <sys/ptrace.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace korvex::test {

/// Failed checks of a child are printed; to the parent they show as this exit code.
constexpr int childPassed = 0;
constexpr int childFailed = 1;
constexpr int childSkipped = 77;

struct ChildEnd {
    std::optional<int> exitCode;  // none when a signal ended it
    int signal = 0;

    [[nodiscard]] bool wasKilled() const { return signal == SIGKILL; }
};

[[nodiscard]] inline ChildEnd endOf(int status)
{
    ChildEnd end;
    if (WIFEXITED(status))
        end.exitCode = WEXITSTATUS(status);
    else if (WIFSIGNALED(status))
        end.signal = WTERMSIG(status);
    return end;
}

/// The work ends the child early by leaving it with an exit code of its own.
[[nodiscard]] inline ChildEnd inChild(const std::function<void()>& work)
{
    std::fflush(nullptr);
    const pid_t child = ::fork();
    EXPECT_GE(child, 0);
    if (child == 0) {
        work();
        ::_exit(testing::Test::HasFailure() ? childFailed : childPassed);
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return endOf(status);
}

/// Kills the child in front of its n-th call to the system, whoever makes it. Ends as the child does when that comes
/// first; as skipped where one process may not watch another.
[[nodiscard]] inline ChildEnd killedBeforeSystemCall(std::size_t n, const std::function<void()>& work)
{
    std::fflush(nullptr);
    const pid_t child = ::fork();
    EXPECT_GE(child, 0);
    if (child == 0) {
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            ::_exit(childSkipped);
        std::raise(SIGSTOP);
        work();
        ::_exit(childPassed);
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    if (!WIFSTOPPED(status))
        return endOf(status);
    // The child stops in front of every call and behind it.
    const std::size_t stops = 2 * n - 1;
    for (std::size_t stop = 0; stop < stops && WIFSTOPPED(status); ++stop) {
        EXPECT_EQ(::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr), 0);
        EXPECT_EQ(::waitpid(child, &status, 0), child);
    }
    if (!WIFSTOPPED(status))
        return endOf(status);
    EXPECT_EQ(::kill(child, SIGKILL), 0);
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return endOf(status);
}

}  // namespace korvex::test
