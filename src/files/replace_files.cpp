#include "replace_files.h"

#include <cerrno>
#include <cstdlib>
#include <deque>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <utility>

namespace korvex {

namespace {

/// One file that is open for writing and not yet cut.
class Target {
public:
    Target(const Replacement& replacement, FileCalls& calls) : m_replacement(replacement), m_calls(calls) { }
    Target(const Target&) = delete;
    Target& operator=(const Target&) = delete;
    ~Target()
    {
        if (m_file >= 0)
            m_calls.close(m_file);
    }

    [[nodiscard]] Result<void> open()
    {
        // Without O_NONBLOCK the opening of a pipe that nobody reads from would wait for ever.
        constexpr int flags = O_WRONLY | O_CLOEXEC | O_NONBLOCK;
        constexpr mode_t newFileMode = 0666;
        const char* const path = m_replacement.path.c_str();
        m_file = retried([&] { return m_calls.open(path, flags, 0); });
        if (m_file < 0 && errno == ENOENT) {
            m_file = retried([&] { return m_calls.open(path, flags | O_CREAT, newFileMode); });
            m_created = m_file >= 0;
        }
        if (m_file < 0 || retried([this] { return m_calls.fstat(m_file, m_status); }) != 0)
            return failure(FileStep::Open, errno);
        if (!S_ISREG(m_status.st_mode) && !S_ISCHR(m_status.st_mode))
            return failure(FileStep::Open, ENODEV);
        return {};
    }

    [[nodiscard]] bool isSameFileAs(const Target& other) const
    {
        return isRegular() && m_status.st_dev == other.m_status.st_dev && m_status.st_ino == other.m_status.st_ino;
    }

    [[nodiscard]] Result<void> reserve()
    {
        const auto newSize = static_cast<off_t>(m_replacement.bytes.size());
        if (!isRegular() || newSize <= m_status.st_size)
            return {};
        m_reserved
            = retried([&] { return m_calls.reserve(m_file, m_status.st_size, newSize - m_status.st_size); }) == 0;
        if (m_reserved)
            return {};
        // A file system that cannot reserve room says so; the write itself will then find a full disk.
        if (errno == EOPNOTSUPP || errno == ENOSYS)
            return {};
        return failure(FileStep::Write, errno);
    }

    /// Gives back what was reserved and takes away a file that was only just created.
    void undo()
    {
        if (m_reserved && !m_created)
            retried([this] { return m_calls.ftruncate(m_file, m_status.st_size); });
        if (m_created)
            removeCreated();
    }

    [[nodiscard]] Result<void> write()
    {
        off_t written = 0;
        for (const std::string& block : m_replacement.bytes.blocks()) {
            std::string_view rest = block;
            while (!rest.empty()) {
                const ssize_t count = m_calls.write(m_file, rest.data(), rest.size());
                if (count < 0 && errno == EINTR)
                    continue;
                if (count <= 0)
                    return cutAfterFailure(written, count < 0 ? errno : EIO);
                written += count;
                rest.remove_prefix(static_cast<std::size_t>(count));
            }
        }
        const auto cut = [this, written] { return m_calls.ftruncate(m_file, written); };
        if (isRegular() && retried(cut) != 0)
            return cutAfterFailure(written, errno);
        if (isRegular() && retried([this] { return m_calls.fsync(m_file); }) != 0)
            return failure(FileStep::Write, errno);
        // Closed all the same after a signal; what was written is on the disk by now.
        if (m_calls.close(std::exchange(m_file, -1)) != 0 && errno != EINTR)
            return failure(FileStep::Write, errno);
        return {};
    }

    [[nodiscard]] FileError failure(FileStep step, int errorNumber) const
    {
        return systemError(step, m_replacement.path, errorNumber);
    }

private:
    [[nodiscard]] bool isRegular() const { return S_ISREG(m_status.st_mode); }

    /// What follows the new bytes is the rest of the old ones: a mixture would be worse than a part. With nothing
    /// written yet the old contents are whole, and stay.
    [[nodiscard]] FileError cutAfterFailure(off_t written, int errorNumber)
    {
        if (written == 0)
            undo();
        else if (isRegular())
            retried([this, written] { return m_calls.ftruncate(m_file, written); });
        return failure(FileStep::Write, errorNumber);
    }

    /// Again as long as only a signal got in the way.
    template <class Run>
    static int retried(Run run)
    {
        int result = run();
        while (result < 0 && errno == EINTR)
            result = run();
        return result;
    }

    void removeCreated()
    {
        // The path may be a link whose target was created: the link was there before and stays.
        const std::unique_ptr<char, decltype(&std::free)> target(
            ::realpath(m_replacement.path.c_str(), nullptr), &std::free);
        if (target)
            m_calls.unlink(target.get());
    }

    const Replacement& m_replacement;
    FileCalls& m_calls;
    int m_file = -1;
    struct stat m_status { };
    bool m_created = false;
    bool m_reserved = false;
};

Result<void> openAll(std::deque<Target>& targets)
{
    for (std::size_t i = 0; i < targets.size(); ++i) {
        Result<void> opened = targets[i].open();
        if (!opened.ok())
            return opened;
        for (std::size_t j = 0; j < i; ++j) {
            if (targets[i].isSameFileAs(targets[j])) {
                FileError error = targets[i].failure(FileStep::Open, 0);
                error.description = "Dva z ukládaných souborů mají stejný název.";
                error.english = "Two of the files to write are the same.";
                return error;
            }
        }
    }
    return {};
}

Result<void> reserveAll(std::deque<Target>& targets)
{
    for (Target& target : targets) {
        Result<void> reserved = target.reserve();
        if (!reserved.ok())
            return reserved;
    }
    return {};
}

FileError withoutCopies(const std::string& folder)
{
    FileError error{FileStep::Write, folder, 0, "Přepisované soubory nelze předem zkopírovat; nic se nezapsalo."};
    error.english = "The files to be replaced cannot be copied first; nothing was written.";
    return error;
}

}  // namespace

Result<void> replaceFiles(const std::vector<Replacement>& replacements, const SafetyCopies& copies, FileCalls& calls)
{
    std::deque<Target> targets;
    std::vector<std::string> paths;
    for (const Replacement& replacement : replacements) {
        targets.emplace_back(replacement, calls);
        paths.push_back(replacement.path);
    }

    Result<void> prepared = openAll(targets);
    // The room first: a copy must not take it away, and a save that ends here needs none.
    if (prepared.ok())
        prepared = reserveAll(targets);
    if (!prepared.ok()) {
        for (Target& target : targets)
            target.undo();
        return prepared;
    }

    const std::string copyFolder = copies.copy(paths);
    if (copies.refuses(copyFolder, paths)) {
        for (Target& target : targets)
            target.undo();
        return withoutCopies(copies.folder());
    }
    for (std::size_t i = 0; i < targets.size(); ++i) {
        const Result<void> written = targets[i].write();
        if (!written.ok()) {
            paths.resize(i + 1);
            for (std::size_t behind = i + 1; behind < targets.size(); ++behind)
                targets[behind].undo();
            FileError error = written.error();
            const std::string wholeFolder = copies.keep(copyFolder, paths);
            const std::string& named = copyFolder.empty() ? wholeFolder : copyFolder;
            if (!named.empty()) {
                error.description += "\nKopie původních souborů je ve složce:\n" + named;
                error.english += "\nA copy of the files as they were is in the folder:\n" + named;
            }
            if (named != wholeFolder) {
                error.description += "\nSoubory z doby před prvním nezdařeným uložením jsou ve složce:\n" + wholeFolder;
                error.english
                    += "\nThe files from before the first save that failed are in the folder:\n" + wholeFolder;
            }
            return error;
        }
    }
    copies.release(paths);
    return {};
}

}  // namespace korvex
