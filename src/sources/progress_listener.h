// What a long run tells the one who watches it.
#pragma once

#include <cstddef>
#include <string_view>

namespace korvex {

class ProgressListener {
public:
    ProgressListener() = default;
    ProgressListener(const ProgressListener&) = delete;
    ProgressListener& operator=(const ProgressListener&) = delete;
    virtual ~ProgressListener() = default;

    /// A new status text, in Czech; empty clears it.
    virtual void statusText(std::string_view text) = 0;
    /// Once before the first progressValue: the value at which the bar would be full.
    virtual void progressMaximum(std::size_t maximum) = 0;
    virtual void progressValue(std::size_t value) = 0;
};

}  // namespace korvex
