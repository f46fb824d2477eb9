#include "file_calls.h"

#include <fcntl.h>
#include <unistd.h>

namespace korvex {

int FileCalls::open(const char* path, int flags, mode_t mode)
{
    return ::open(path, flags, mode);
}

int FileCalls::fstat(int file, struct stat& status)
{
    return ::fstat(file, &status);
}

ssize_t FileCalls::read(int file, char* to, std::size_t size)
{
    return ::read(file, to, size);
}

ssize_t FileCalls::write(int file, const char* from, std::size_t size)
{
    return ::write(file, from, size);
}

int FileCalls::reserve(int file, off_t offset, off_t size)
{
    return ::fallocate(file, FALLOC_FL_KEEP_SIZE, offset, size);
}

int FileCalls::ftruncate(int file, off_t size)
{
    return ::ftruncate(file, size);
}

int FileCalls::fsync(int file)
{
    return ::fsync(file);
}

int FileCalls::close(int file)
{
    return ::close(file);
}

int FileCalls::unlink(const char* path)
{
    return ::unlink(path);
}

FileCalls& FileCalls::system()
{
    static FileCalls calls;
    return calls;
}

}  // namespace korvex
