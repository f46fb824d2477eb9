// The calls to the system that reading and writing files need, one by one, so that a test can make each of them fail.
#pragma once

#include <cstddef>
#include <sys/stat.h>
#include <sys/types.h>

namespace korvex {

/// Each call behaves as the system call of its name: -1 and errno on failure.
class FileCalls {
public:
    FileCalls() = default;
    FileCalls(const FileCalls&) = delete;
    FileCalls& operator=(const FileCalls&) = delete;
    virtual ~FileCalls() = default;

    virtual int open(const char* path, int flags, mode_t mode);
    virtual int fstat(int file, struct stat& status);
    virtual ssize_t read(int file, char* to, std::size_t size);
    virtual ssize_t write(int file, const char* from, std::size_t size);
    /// Reserves room behind the file's end without changing its size.
    virtual int reserve(int file, off_t offset, off_t size);
    virtual int ftruncate(int file, off_t size);
    virtual int fsync(int file);
    virtual int close(int file);
    virtual int unlink(const char* path);

    /// The calls that go to the system.
    static FileCalls& system();
};

}  // namespace korvex
