// The two texts of a source, its name and its dust description, in one block of memory.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace korvex {

/// A million sources are held at once; two strings a source would double what they take. Most sources have the
/// dust description of a new one ("0,0,0"), which takes no room at all.
class SourceTexts {
public:
    static constexpr std::string_view newDust = "0,0,0";

    SourceTexts() = default;
    /// From bytes of the code page; no dust: that of a new source.
    SourceTexts(std::string_view name, std::optional<std::string_view> dust);

    [[nodiscard]] std::string_view name() const;
    [[nodiscard]] std::string_view dust() const;
    void name(std::string_view name) { assign(name, dust()); }
    void dust(std::string_view dust) { assign(name(), dust); }

private:
    void assign(std::string_view name, std::string_view dust);
    char* makeBlock(std::size_t nameSize, std::optional<std::size_t> dustSize);

    std::unique_ptr<char[]> m_block;  // empty: no name and the dust of a new source
};

}  // namespace korvex
