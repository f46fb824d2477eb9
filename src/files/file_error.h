// What a file operation gives back: a value, or what went wrong in which file.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace korvex {

enum class FileStep { Open, Read, Write };

struct FileError {
    FileStep step = FileStep::Open;
    std::string path;
    std::size_t line = 0;     // from 1; 0 when no line is to blame
    std::string description;  // what went wrong, in Czech
    std::string english{};    // the same for the companion tool; empty where there is only the Czech text

    /// The text of the error's message box: the line, the description, an empty line, the path if there is one.
    [[nodiscard]] std::string message() const;
};

/// What the system says of an error number, in Czech where we know the number.
[[nodiscard]] std::string systemErrorText(int errorNumber);
[[nodiscard]] std::string englishSystemErrorText(int errorNumber);

/// An error of the system at one step of working with a file; errno is the usual number.
[[nodiscard]] FileError systemError(FileStep step, const std::string& path, int errorNumber);

/// A file that was given no name; contents: what it holds, in Czech behind "Soubor s".
[[nodiscard]] FileError missingName(FileStep step, const char* contents);

template <class T>
class [[nodiscard]] Result {
public:
    Result(T value) : m_content(std::in_place_index<0>, std::move(value)) { }
    Result(FileError error) : m_content(std::in_place_index<1>, std::move(error)) { }

    [[nodiscard]] bool ok() const { return m_content.index() == 0; }
    /// Only when ok().
    [[nodiscard]] T& value() { return std::get<0>(m_content); }
    [[nodiscard]] const T& value() const { return std::get<0>(m_content); }
    /// Only when not ok().
    [[nodiscard]] const FileError& error() const { return std::get<1>(m_content); }

private:
    std::variant<T, FileError> m_content;
};

template <>
class [[nodiscard]] Result<void> {
public:
    Result() = default;
    Result(FileError error) : m_error(std::move(error)) { }

    [[nodiscard]] bool ok() const { return !m_error.has_value(); }
    /// Only when not ok().
    [[nodiscard]] const FileError& error() const { return *m_error; }

private:
    std::optional<FileError> m_error;
};

}  // namespace korvex
