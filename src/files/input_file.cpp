#include "input_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <utility>

namespace korvex {

namespace {

constexpr std::size_t blockSize = std::size_t{1} << 18;

std::string_view withoutCarriageReturn(std::string_view line)
{
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    return line;
}

}  // namespace

Result<InputFile> InputFile::open(const std::string& path, FileCalls& calls)
{
    // Without O_NONBLOCK the opening of a pipe that nobody writes to would wait for ever.
    const int file = calls.open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK, 0);
    if (file < 0)
        return systemError(FileStep::Open, path, errno);
    InputFile opened(file, path, 0, calls);
    struct stat status { };
    if (calls.fstat(file, status) != 0)
        return systemError(FileStep::Open, path, errno);
    if (S_ISDIR(status.st_mode))
        return systemError(FileStep::Open, path, EISDIR);
    if (!S_ISREG(status.st_mode))
        return systemError(FileStep::Open, path, ENODEV);
    opened.m_size = static_cast<std::size_t>(status.st_size);
    return opened;
}

InputFile::InputFile(int file, std::string path, std::size_t size, FileCalls& calls)
    : m_file(file), m_path(std::move(path)), m_size(size), m_calls(calls)
{
}

InputFile::InputFile(InputFile&& other) noexcept
    : m_file(std::exchange(other.m_file, -1))
    , m_path(std::move(other.m_path))
    , m_size(other.m_size)
    , m_calls(other.m_calls)
{
}

InputFile::~InputFile()
{
    if (m_file >= 0)
        m_calls.close(m_file);
}

Result<std::size_t> InputFile::read(char* to, std::size_t size)
{
    for (;;) {
        const ssize_t got = m_calls.read(m_file, to, size);
        if (got >= 0)
            return static_cast<std::size_t>(got);
        if (errno != EINTR)
            return systemError(FileStep::Read, m_path, errno);
    }
}

Result<FileBytes> InputFile::readAll()
{
    // One byte more than the size, so that the end is seen without asking for more room.
    FileBytes bytes(m_size + 1);
    std::size_t filled = 0;
    for (;;) {
        if (filled == bytes.room()) {
            // The file has grown since it was opened.
            FileBytes larger(bytes.room() * 2);
            std::memcpy(larger.data(), bytes.data(), filled);
            bytes = std::move(larger);
        }
        const Result<std::size_t> got = read(bytes.data() + filled, bytes.room() - filled);
        if (!got.ok())
            return got.error();
        if (got.value() == 0) {
            bytes.size(filled);
            return bytes;
        }
        filled += got.value();
    }
}

std::string_view takeLine(std::string_view& text)
{
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    return withoutCarriageReturn(line);
}

Result<bool> LineReader::next(TextLine& line)
{
    for (;;) {
        if (takeBufferedLine(line))
            return true;
        m_searched = m_end;
        const Result<bool> more = refill();
        if (!more.ok())
            return more.error();
        if (!more.value()) {
            if (m_begin == m_end)
                return false;
            line.bytes = withoutCarriageReturn({m_buffer.data() + m_begin, m_end - m_begin});
            line.number = ++m_lineNumber;
            m_position += m_end - m_begin;
            m_begin = m_end;
            return true;
        }
    }
}

Result<std::size_t> LineReader::next(std::span<TextLine> lines)
{
    const Result<bool> first = next(lines.front());
    if (!first.ok())
        return first.error();
    if (!first.value())
        return std::size_t{0};
    std::size_t count = 1;
    // Reading on would take the lines given so far away.
    while (count < lines.size() && takeBufferedLine(lines[count]))
        ++count;
    return count;
}

/// A line whose end is in the buffer; false when there is none.
bool LineReader::takeBufferedLine(TextLine& line)
{
    const char* const begin = m_buffer.data() + m_begin;
    const char* const from = m_buffer.data() + m_searched;
    const void* const found = m_searched < m_end ? std::memchr(from, '\n', m_end - m_searched) : nullptr;
    if (found == nullptr)
        return false;
    const auto length = static_cast<std::size_t>(static_cast<const char*>(found) - begin);
    line.bytes = withoutCarriageReturn({begin, length});
    line.number = ++m_lineNumber;
    m_begin += length + 1;
    m_searched = m_begin;
    m_position += length + 1;
    return true;
}

/// Moves the unfinished line to the front and reads a block behind it; false at the end of the file.
Result<bool> LineReader::refill()
{
    if (m_begin > 0) {
        std::memmove(m_buffer.data(), m_buffer.data() + m_begin, m_end - m_begin);
        m_end -= m_begin;
        m_searched -= m_begin;
        m_begin = 0;
    }
    // Doubling keeps a line of many megabytes from being moved once a block. A small file needs no more than its size
    // and a byte for its end.
    const std::size_t wanted = std::min(blockSize, m_file.size() + 1);
    if (m_buffer.size() - m_end < wanted)
        m_buffer.resize(std::max(m_buffer.size() * 2, 2 * wanted));
    const Result<std::size_t> got = m_file.read(m_buffer.data() + m_end, m_buffer.size() - m_end);
    if (!got.ok())
        return got.error();
    m_end += got.value();
    return got.value() > 0;
}

}  // namespace korvex
