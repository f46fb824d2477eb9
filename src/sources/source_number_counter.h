// Automatic numbers of new sources.
#pragma once

#include <cstdint>
#include <optional>

namespace korvex {

/// Hands out numbers behind a start value; does not look at the numbers of loaded sources.
class SourceNumberCounter {
public:
    static constexpr std::int32_t limit = 99999;

    /// The next number; none when the limit is passed. The test comes before the step, so that the last number
    /// handed out is limit + 1.
    std::optional<std::int32_t> next()
    {
        if (m_last > limit)
            return std::nullopt;
        return ++m_last;
    }
    /// Gives a number back; done also when next() had none to give.
    void giveBack() { --m_last; }

    void reset(std::int32_t startValue) { m_last = startValue; }
    /// Takes a raised start value over; a lower one waits for the next reset.
    void raiseTo(std::int32_t startValue)
    {
        if (m_last < startValue)
            m_last = startValue;
    }

    /// The number handed out last, or the start value.
    [[nodiscard]] std::int32_t last() const { return m_last; }

private:
    std::int32_t m_last = 0;
};

}  // namespace korvex
