// Going through the lines of a file.
#pragma once

#include "input_file.h"

#include <string>

namespace korvex {

/// Hands every line to take, which gives back a Result<void>; an error of it ends the run and is given back.
template <class Take>
[[nodiscard]] Result<void> forEachLine(const std::string& path, Take take)
{
    Result<InputFile> file = InputFile::open(path, FileCalls::system());
    if (!file.ok())
        return file.error();
    LineReader lines(file.value());
    TextLine line;
    for (;;) {
        const Result<bool> next = lines.next(line);
        if (!next.ok())
            return next.error();
        if (!next.value())
            return {};
        Result<void> taken = take(line);
        if (!taken.ok())
            return taken;
    }
}

}  // namespace korvex
