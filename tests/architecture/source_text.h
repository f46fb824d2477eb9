// C++ source files as text: what is code, what is comment or literal, and which headers are included.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::architecture {

struct SourceFile {
    std::string path;  // below src/
    std::string text;
};

/// Every C++ file below a folder, headers that CMake fills in ("version.h.in") too, sorted by path.
[[nodiscard]] std::vector<SourceFile> readSourceFiles(const std::filesystem::path& root);

enum class Literals { Keep, Blank };

/// The text with comments, and if wanted string and character literals, turned into blanks. Every
/// character that stays keeps its place.
[[nodiscard]] std::string withoutComments(std::string_view text, Literals literals);

enum class IncludeForm {
    Quoted,
    Angled,
    Computed,  // by a macro
};

struct Include {
    std::size_t line = 0;  // from 1
    IncludeForm form = IncludeForm::Quoted;
    std::string name;  // what stands between the quotes or brackets
};

[[nodiscard]] std::vector<Include> includesOf(std::string_view text);

struct Word {
    std::size_t line = 0;  // from 1
    std::string text;
};

/// The identifiers and key words of the code, those of include lines left out.
[[nodiscard]] std::vector<Word> wordsOf(std::string_view text);

}  // namespace korvex::architecture
