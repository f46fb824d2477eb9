// A file opened for reading, whole or line by line.
#pragma once

#include "file_calls.h"
#include "file_error.h"
#include "large_memory.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace korvex {

/// The bytes of a whole file. A text would be filled with zeros before it is read into.
class FileBytes {
public:
    FileBytes() = default;
    explicit FileBytes(std::size_t room) : m_bytes(LargeMemory<char>().allocate(room), {room}) { }

    [[nodiscard]] char* data() { return m_bytes.get(); }
    [[nodiscard]] std::size_t room() const { return m_bytes.get_deleter().room; }
    /// How much of the room is filled.
    void size(std::size_t size) { m_size = size; }
    [[nodiscard]] std::string_view view() const { return {m_bytes.get(), m_size}; }

private:
    struct Release {
        std::size_t room;
        void operator()(char* bytes) const { LargeMemory<char>().deallocate(bytes, room); }
    };

    std::unique_ptr<char, Release> m_bytes;
    std::size_t m_size = 0;
};

/// Only ordinary files are opened: a folder, a pipe or a device is refused, for a pipe could hang and a device never
/// end. Closed when it goes out of scope; nothing is lost when closing a file that was only read fails.
class InputFile {
public:
    [[nodiscard]] static Result<InputFile> open(const std::string& path, FileCalls& calls);

    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    InputFile(InputFile&& other) noexcept;
    InputFile& operator=(InputFile&&) = delete;
    ~InputFile();

    [[nodiscard]] const std::string& path() const { return m_path; }
    /// The size in bytes when the file was opened.
    [[nodiscard]] std::size_t size() const { return m_size; }

    /// Reads up to size bytes; 0 at the end of the file.
    [[nodiscard]] Result<std::size_t> read(char* to, std::size_t size);
    /// Everything from here to the end.
    [[nodiscard]] Result<FileBytes> readAll();

private:
    InputFile(int file, std::string path, std::size_t size, FileCalls& calls);

    int m_file;
    std::string m_path;
    std::size_t m_size;
    FileCalls& m_calls;
};

/// One line of a file, without its end (LF or CR LF).
struct TextLine {
    std::string_view bytes;  // valid until the next line is asked for
    std::size_t number = 0;  // from 1
};

/// The line that begins at the front of a text; takes it away from the text together with its end.
[[nodiscard]] std::string_view takeLine(std::string_view& text);

/// Goes through a file line by line in memory of the longest line, not of the file.
class LineReader {
public:
    explicit LineReader(InputFile& file) : m_file(file) { }

    /// False at the end of the file.
    [[nodiscard]] Result<bool> next(TextLine& line);
    /// The next lines, valid together until more are asked for: at least one and at most as many as there is room for;
    /// none at the end of the file. Returns how many.
    [[nodiscard]] Result<std::size_t> next(std::span<TextLine> lines);
    /// How many bytes were used so far.
    [[nodiscard]] std::size_t position() const { return m_position; }

private:
    [[nodiscard]] bool takeBufferedLine(TextLine& line);
    [[nodiscard]] Result<bool> refill();

    InputFile& m_file;
    std::string m_buffer;
    std::size_t m_begin = 0;     // where the next line begins in the buffer
    std::size_t m_searched = 0;  // no line end before this
    std::size_t m_end = 0;       // what is filled of the buffer
    std::size_t m_position = 0;
    std::size_t m_lineNumber = 0;
};

}  // namespace korvex
