// What the tests of file access share: calls to the system that fail on demand, a folder of files that goes away again,
// and one who writes down the progress of a run.
#pragma once

#include "file_calls.h"
#include "progress_listener.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

namespace korvex::test {

enum class Call : std::size_t { Open, Fstat, Read, Write, Reserve, Ftruncate, Fsync, Close, Unlink };

/// Goes to the system, counts, and fails where it is told to. A failing close closes all the same, as the system does.
class FailingFileCalls : public FileCalls {
public:
    /// Call n of all calls (from 1) fails; the others go through.
    void failCall(std::size_t n, int errorNumber) { failCalls(n, n, errorNumber); }
    /// Call n and every call behind it fail.
    void failFrom(std::size_t n, int errorNumber)
    {
        failCalls(n, std::numeric_limits<std::size_t>::max(), errorNumber);
    }
    /// Every second call of this kind fails, beginning with the first.
    void failEverySecond(Call kind, int errorNumber) { m_everySecond.at(static_cast<std::size_t>(kind)) = errorNumber; }
    /// Every call of this kind fails.
    void failEvery(Call kind, int errorNumber) { m_every.at(static_cast<std::size_t>(kind)) = errorNumber; }
    /// One read or write moves no more bytes than this.
    void shortTransfers(std::size_t most) { m_mostTransferred = most; }
    /// The process is killed in front of call n, as by a user who ends a program that does not answer.
    void killBefore(std::size_t n) { m_killedBefore = n; }
    /// Flushing is counted but does not wait for the disk; for tests of very many saves.
    void skipFlushing() { m_flushes = false; }

    [[nodiscard]] std::size_t count() const { return m_count; }
    [[nodiscard]] std::size_t count(Call kind) const { return m_countOfKind.at(static_cast<std::size_t>(kind)); }
    /// The kind of the call that failed last.
    [[nodiscard]] std::optional<Call> lastFailed() const { return m_lastFailed; }
    /// Opened and not closed again.
    [[nodiscard]] std::size_t openFiles() const { return m_openFiles; }

    int open(const char* path, int flags, mode_t mode) override
    {
        if (fails(Call::Open))
            return -1;
        const int file = FileCalls::open(path, flags, mode);
        if (file >= 0)
            ++m_openFiles;
        return file;
    }
    int fstat(int file, struct stat& status) override
    {
        return fails(Call::Fstat) ? -1 : FileCalls::fstat(file, status);
    }
    ssize_t read(int file, char* to, std::size_t size) override
    {
        return fails(Call::Read) ? -1 : FileCalls::read(file, to, std::min(size, m_mostTransferred));
    }
    ssize_t write(int file, const char* from, std::size_t size) override
    {
        return fails(Call::Write) ? -1 : FileCalls::write(file, from, std::min(size, m_mostTransferred));
    }
    int reserve(int file, off_t offset, off_t size) override
    {
        return fails(Call::Reserve) ? -1 : FileCalls::reserve(file, offset, size);
    }
    int ftruncate(int file, off_t size) override
    {
        return fails(Call::Ftruncate) ? -1 : FileCalls::ftruncate(file, size);
    }
    int fsync(int file) override
    {
        if (fails(Call::Fsync))
            return -1;
        return m_flushes ? FileCalls::fsync(file) : 0;
    }
    int close(int file) override
    {
        const bool failing = fails(Call::Close);
        const int errorNumber = errno;
        const int closed = FileCalls::close(file);
        if (closed == 0)
            --m_openFiles;
        errno = failing ? errorNumber : errno;
        return failing ? -1 : closed;
    }
    int unlink(const char* path) override { return fails(Call::Unlink) ? -1 : FileCalls::unlink(path); }

private:
    static constexpr std::size_t kinds = static_cast<std::size_t>(Call::Unlink) + 1;

    void failCalls(std::size_t first, std::size_t last, int errorNumber)
    {
        m_firstFailing = first;
        m_lastFailing = last;
        m_errorNumber = errorNumber;
    }

    bool fails(Call call)
    {
        const auto kind = static_cast<std::size_t>(call);
        ++m_count;
        if (m_count == m_killedBefore)
            std::raise(SIGKILL);
        ++m_countOfKind.at(kind);
        int errorNumber = m_every.at(kind);
        if (m_count >= m_firstFailing && m_count <= m_lastFailing)
            errorNumber = m_errorNumber;
        else if (m_countOfKind.at(kind) % 2 == 1 && m_everySecond.at(kind) != 0)
            errorNumber = m_everySecond.at(kind);
        if (errorNumber == 0)
            return false;
        errno = errorNumber;
        m_lastFailed = call;
        return true;
    }

    std::size_t m_count = 0;
    std::array<std::size_t, kinds> m_countOfKind{};
    std::size_t m_openFiles = 0;
    std::optional<Call> m_lastFailed;
    std::size_t m_firstFailing = 0;
    std::size_t m_lastFailing = 0;
    int m_errorNumber = 0;
    std::array<int, kinds> m_every{};
    std::array<int, kinds> m_everySecond{};
    std::size_t m_mostTransferred = std::numeric_limits<std::size_t>::max();
    std::size_t m_killedBefore = 0;  // 0: never
    bool m_flushes = true;
};

[[nodiscard]] inline std::string bytesOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

inline void writeBytes(const std::filesystem::path& path, std::string_view bytes)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    EXPECT_TRUE(file.good()) << path;
}

/// Memory: for tests of very many saves, which a busy disk would hold up; where there is none, the disk all the same.
enum class FolderOn { Disk, Memory };

/// A new folder below the tests' temporary one; removed with everything in it.
class TemporaryFolder {
public:
    explicit TemporaryFolder(FolderOn place = FolderOn::Disk)
    {
        // Two test programs may run at once, and one program may want several folders.
        static std::atomic<unsigned> made{0};
        const std::string pid = std::to_string(::getpid());
        const std::filesystem::path memory = "/dev/shm";
        const bool inMemory = place == FolderOn::Memory && ::access(memory.c_str(), W_OK | X_OK) == 0;
        m_path = (inMemory ? memory : std::filesystem::path(testing::TempDir()))
            / ("korvex_" + pid + '_' + std::to_string(++made));
        std::filesystem::remove_all(m_path);
        EXPECT_TRUE(std::filesystem::create_directories(m_path)) << m_path;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    [[nodiscard]] std::string path() const { return m_path.string(); }
    [[nodiscard]] std::string path(std::string_view name) const { return (m_path / name).string(); }
    [[nodiscard]] bool has(std::string_view name) const
    {
        return std::filesystem::exists(std::filesystem::symlink_status(m_path / name));
    }
    [[nodiscard]] std::string bytes(std::string_view name) const { return bytesOf(m_path / name); }
    /// Returns the file's path.
    std::string write(std::string_view name, std::string_view bytes) const
    {
        writeBytes(m_path / name, bytes);
        return path(name);
    }
    /// Everything in it, sorted.
    [[nodiscard]] std::vector<std::string> names() const
    {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(m_path))
            found.push_back(entry.path().filename().string());
        std::sort(found.begin(), found.end());
        return found;
    }

private:
    std::filesystem::path m_path;
};

/// The administrator may read and write everything; refusals show only to an ordinary user.
class OrdinaryUser {
public:
    OrdinaryUser()
    {
        constexpr uid_t nobody = 65534;
        m_wasAdministrator = ::geteuid() == 0;
        m_isOrdinary = !m_wasAdministrator || ::seteuid(nobody) == 0;
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser()
    {
        if (m_wasAdministrator) {
            EXPECT_EQ(::seteuid(0), 0);
        }
    }

    /// False where the administrator may not become somebody else: then nothing can be shown.
    [[nodiscard]] bool isOrdinary() const { return m_isOrdinary; }

private:
    bool m_wasAdministrator = false;
    bool m_isOrdinary = false;
};

/// Records one run.
class RecordingListener : public ProgressListener {
public:
    void clear()
    {
        statuses.clear();
        maxima.clear();
        values.clear();
    }

    void statusText(std::string_view text) override { statuses.emplace_back(text); }
    void progressMaximum(std::size_t maximum) override
    {
        EXPECT_TRUE(values.empty()) << "the maximum comes before the values";
        maxima.push_back(maximum);
    }
    void progressValue(std::size_t value) override { values.push_back(value); }

    std::vector<std::string> statuses;
    std::vector<std::size_t> maxima;
    std::vector<std::size_t> values;
};

}  // namespace korvex::test
