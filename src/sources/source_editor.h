// What a source's Edit needs from above: an editor that shows the values and hands them back.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace korvex {

struct SourceType;

/// The values of one source as an editor works on them: copies, so that a cancelled edit leaves no trace.
struct SourceValues {
    std::int32_t number = 0;
    std::int32_t stack = 0;
    std::string name;
    std::int32_t x = 0;         // m
    std::int32_t y = 0;         // m
    std::int32_t altitude = 0;  // m
    std::int32_t group = 0;
    std::int32_t cluster = 0;
    std::array<float, 9> parameters{};  // as many as the type has; units with the types
    std::string dust;
};

class SourceEditor {
public:
    SourceEditor() = default;
    SourceEditor(const SourceEditor&) = delete;
    SourceEditor& operator=(const SourceEditor&) = delete;
    virtual ~SourceEditor() = default;

    /// Shows the editor of the type, filled with the values; returns when the user is done with it. True when the
    /// user confirmed: then values holds what was edited. The number and the stack number are shown, not edited.
    [[nodiscard]] virtual bool edit(const SourceType& type, SourceValues& values) = 0;
};

}  // namespace korvex
