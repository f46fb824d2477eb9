// Files that exist only in memory, behind the calls that the core makes.
#pragma once

#include "file_calls.h"

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace korvex::fuzz {

class MemoryFiles : public FileCalls {
public:
    void put(const std::string& path, std::string_view bytes) { made(path).bytes = bytes; }
    [[nodiscard]] const std::string& bytes(const std::string& path) { return made(path).bytes; }
    /// Opened and not closed again.
    [[nodiscard]] std::size_t openCount() const { return m_open.size(); }

    int open(const char* path, int flags, mode_t /*mode*/) override
    {
        const auto found = m_files.find(path);
        if (found == m_files.end() && (flags & O_CREAT) == 0)
            return fail(ENOENT);
        m_open[m_next] = {&made(path), 0};
        return m_next++;
    }
    int fstat(int file, struct stat& status) override
    {
        status = {};
        status.st_mode = S_IFREG;
        status.st_ino = m_open.at(file).file->number;
        status.st_size = static_cast<off_t>(m_open.at(file).file->bytes.size());
        return 0;
    }
    ssize_t read(int file, char* to, std::size_t size) override
    {
        Open& from = m_open.at(file);
        const std::string_view rest = std::string_view(from.file->bytes).substr(from.position);
        const std::size_t count = rest.copy(to, size);
        from.position += count;
        return static_cast<ssize_t>(count);
    }
    ssize_t write(int file, const char* from, std::size_t size) override
    {
        Open& to = m_open.at(file);
        std::string& bytes = to.file->bytes;
        if (bytes.size() < to.position + size)
            bytes.resize(to.position + size);
        std::memcpy(bytes.data() + to.position, from, size);
        to.position += size;
        return static_cast<ssize_t>(size);
    }
    int reserve(int /*file*/, off_t /*offset*/, off_t /*size*/) override { return 0; }
    int ftruncate(int file, off_t size) override
    {
        m_open.at(file).file->bytes.resize(static_cast<std::size_t>(size));
        return 0;
    }
    int fsync(int /*file*/) override { return 0; }
    int close(int file) override { return m_open.erase(file) == 1 ? 0 : fail(EBADF); }
    int unlink(const char* path) override { return m_files.erase(path) == 1 ? 0 : fail(ENOENT); }

private:
    struct File {
        std::string bytes;
        ino_t number = 0;
    };
    struct Open {
        File* file = nullptr;
        std::size_t position = 0;
    };

    static int fail(int errorNumber)
    {
        errno = errorNumber;
        return -1;
    }
    File& made(const std::string& path)
    {
        const auto [place, isNew] = m_files.try_emplace(path);
        if (isNew)
            place->second.number = ++m_made;
        return place->second;
    }

    std::map<std::string, File> m_files;
    std::map<int, Open> m_open;
    ino_t m_made = 0;
    int m_next = 3;
};

}  // namespace korvex::fuzz
