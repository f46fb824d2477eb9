// Where a command writes: the terminal or a pipe, or a text in a test.
#pragma once

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>

namespace korvex {

/// Takes texts and whole numbers only: a real would have to be written by singleText, for no locale may have a say.
class TextOutput {
public:
    /// Gathers what is written; text() gives it.
    TextOutput() = default;
    /// Writes to an open file (1 the standard output, 2 the standard error), which stays open.
    explicit TextOutput(int file) : m_file(file) { }
    TextOutput(const TextOutput&) = delete;
    TextOutput& operator=(const TextOutput&) = delete;
    ~TextOutput() { flush(); }

    TextOutput& operator<<(std::string_view written);
    TextOutput& operator<<(char written) { return *this << std::string_view(&written, 1); }
    template <std::integral Number>
    requires(!std::same_as<Number, bool>) TextOutput& operator<<(Number number)
    {
        return number < 0 ? putNumber(0U - static_cast<unsigned long long>(number), Sign::Minus)
                          : putNumber(static_cast<unsigned long long>(number), Sign::None);
    }
    template <class Other>
    requires(std::floating_point<Other> || std::same_as<Other, bool>) TextOutput& operator<<(Other other) = delete;

    void flush();
    /// Whether something could not be written: a full disk, a closed pipe.
    [[nodiscard]] bool failed() const { return m_failed; }
    [[nodiscard]] const std::string& text() const { return m_buffer; }

private:
    enum class Sign { None, Minus };
    static constexpr int gathered = -1;

    TextOutput& putNumber(unsigned long long magnitude, Sign sign);

    int m_file = gathered;
    std::string m_buffer;
    bool m_failed = false;
};

}  // namespace korvex
