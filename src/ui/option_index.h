// Which option button of a group is on.
#pragma once

#include <QRadioButton>

#include <cstddef>
#include <span>

namespace korvex {

/// The index of the first option that is on; 0 when none is.
[[nodiscard]] inline std::size_t OptionIndex(std::span<QRadioButton* const> options)
{
    for (std::size_t i = 0; i < options.size(); ++i) {
        if (options[i]->isChecked())
            return i;
    }
    return 0;
}

}  // namespace korvex
