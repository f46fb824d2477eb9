#include "text_output.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <unistd.h>

namespace korvex {

TextOutput& TextOutput::operator<<(std::string_view written)
{
    constexpr std::size_t mostBuffered = std::size_t{1} << 16;
    m_buffer += written;
    if (m_file != gathered && m_buffer.size() >= mostBuffered)
        flush();
    return *this;
}

void TextOutput::flush()
{
    if (m_file == gathered)
        return;
    std::string_view rest = m_buffer;
    while (!rest.empty() && !m_failed) {
        const ssize_t count = ::write(m_file, rest.data(), rest.size());
        if (count >= 0)
            rest.remove_prefix(static_cast<std::size_t>(count));
        else if (errno != EINTR)
            m_failed = true;
    }
    m_buffer.clear();
}

TextOutput& TextOutput::putNumber(unsigned long long magnitude, Sign sign)
{
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), magnitude).ptr;
    if (sign == Sign::Minus)
        *this << '-';
    return *this << std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data()));
}

}  // namespace korvex
