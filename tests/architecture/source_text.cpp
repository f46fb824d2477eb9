// C++ source files as text: what is code, what is comment or literal, and which headers are included.
#include "source_text.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace korvex::architecture {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view blanks = " \t\r\v\f";

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isWordCharacter(char c)
{
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool isCppFile(const fs::path& path)
{
    constexpr std::array<std::string_view, 9> extensions{
        ".h", ".hpp", ".hxx", ".inc", ".inl", ".ipp", ".cpp", ".cc", ".cxx"};
    const fs::path filledIn = path.extension() == ".in" ? path.stem() : path.filename();
    return std::find(extensions.begin(), extensions.end(), filledIn.extension().string()) != extensions.end();
}

std::string textOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Goes through a text once and blanks what is no code.
class Blanker {
public:
    Blanker(std::string_view text, Literals literals) : m_text(text), m_literals(literals), m_out(text) { }

    std::string run()
    {
        while (m_at < m_text.size()) {
            if (startsWith("//"))
                lineComment();
            else if (startsWith("/*"))
                blankTo(endBehind("*/", m_at + 2));
            else if (m_text[m_at] == '"')
                isRawString() ? rawString() : literal('"');
            else if (m_text[m_at] == '\'' && !isDigitSeparator())
                literal('\'');
            else
                ++m_at;
        }
        return m_out;
    }

private:
    [[nodiscard]] bool startsWith(std::string_view what) const { return m_text.substr(m_at, what.size()) == what; }

    [[nodiscard]] std::size_t endBehind(std::string_view what, std::size_t from) const
    {
        const std::size_t found = m_text.find(what, from);
        return found == std::string_view::npos ? m_text.size() : found + what.size();
    }

    void blankTo(std::size_t end)
    {
        for (; m_at < end; ++m_at) {
            if (m_text[m_at] != '\n')
                m_out[m_at] = ' ';
        }
    }

    void literalTo(std::size_t end)
    {
        if (m_literals == Literals::Blank)
            blankTo(end);
        m_at = end;
    }

    void lineComment()
    {
        std::size_t end = m_text.find('\n', m_at);
        while (end != std::string_view::npos && m_text[end - 1] == '\\')
            end = m_text.find('\n', end + 1);
        blankTo(std::min(end, m_text.size()));
    }

    /// Up to the closing mark, at most to the end of the line: the apostrophe of an #error text opens nothing.
    void literal(char mark)
    {
        std::size_t end = m_at + 1;
        while (end < m_text.size() && m_text[end] != mark && m_text[end] != '\n')
            end += m_text[end] == '\\' ? 2U : 1U;
        literalTo(std::min(end + 1, m_text.size()));
    }

    [[nodiscard]] bool isRawString() const
    {
        if (m_at == 0 || m_text[m_at - 1] != 'R')
            return false;
        std::size_t begin = m_at - 1;
        while (begin > 0 && isWordCharacter(m_text[begin - 1]))
            --begin;
        const std::string_view prefix = m_text.substr(begin, m_at - begin);
        return prefix == "R" || prefix == "u8R" || prefix == "uR" || prefix == "UR" || prefix == "LR";
    }

    void rawString()
    {
        const std::size_t open = std::min(m_text.find('(', m_at), m_text.size());
        const std::string close = ")" + std::string(m_text.substr(m_at + 1, open - m_at - 1)) + '"';
        literalTo(endBehind(close, open));
    }

    /// The apostrophe in 1'000'000.
    [[nodiscard]] bool isDigitSeparator() const
    {
        std::size_t begin = m_at;
        while (begin > 0 && (isWordCharacter(m_text[begin - 1]) || m_text[begin - 1] == '\''))
            --begin;
        return begin < m_at && isDigit(m_text[begin]);
    }

    std::string_view m_text;
    Literals m_literals;
    std::string m_out;
    std::size_t m_at = 0;
};

std::string_view behindBlanks(std::string_view text)
{
    return text.substr(std::min(text.find_first_not_of(blanks), text.size()));
}

/// What stands behind "#include" in a line of code; no data when the line is none.
std::string_view behindInclude(std::string_view line)
{
    line = behindBlanks(line);
    if (line.empty() || line.front() != '#')
        return {};
    line = behindBlanks(line.substr(1));
    const auto isNoWord = [](char c) { return !isWordCharacter(c); };
    const auto wordEnd = std::find_if(line.begin(), line.end(), isNoWord);
    const std::string_view word = line.substr(0, static_cast<std::size_t>(wordEnd - line.begin()));
    if (word != "include" && word != "include_next" && word != "import")
        return {};
    return line.substr(word.size());
}

std::string_view takeLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

Include parsedInclude(std::size_t line, std::string_view operand)
{
    operand = behindBlanks(operand);
    const char open = operand.empty() ? ' ' : operand.front();
    if (open != '"' && open != '<')
        return {line, IncludeForm::Computed, std::string(operand)};
    const std::size_t close = operand.find(open == '"' ? '"' : '>', 1);
    const std::string_view name = operand.substr(1, close == std::string_view::npos ? close : close - 1);
    return {line, open == '"' ? IncludeForm::Quoted : IncludeForm::Angled, std::string(name)};
}

}  // namespace

std::vector<SourceFile> readSourceFiles(const fs::path& root)
{
    std::vector<SourceFile> files;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (entry.is_regular_file() && isCppFile(entry.path()))
            files.push_back({entry.path().lexically_relative(root).generic_string(), textOf(entry.path())});
    }
    std::sort(files.begin(), files.end(), [](const auto& left, const auto& right) { return left.path < right.path; });
    return files;
}

std::string withoutComments(std::string_view text, Literals literals)
{
    return Blanker(text, literals).run();
}

std::vector<Include> includesOf(std::string_view text)
{
    const std::string code = withoutComments(text, Literals::Blank);
    const std::string withNames = withoutComments(text, Literals::Keep);
    std::vector<Include> includes;
    std::string_view codeRest = code;
    std::string_view namesRest = withNames;
    for (std::size_t line = 1; !codeRest.empty(); ++line) {
        const std::string_view codeLine = takeLine(codeRest);
        const std::string_view namesLine = takeLine(namesRest);
        // Where the code says include; what looks so inside a literal is blank here.
        if (behindInclude(codeLine).data() != nullptr)
            includes.push_back(parsedInclude(line, behindInclude(namesLine)));
    }
    return includes;
}

std::vector<Word> wordsOf(std::string_view text)
{
    const std::string code = withoutComments(text, Literals::Blank);
    std::vector<Word> words;
    std::string_view rest = code;
    for (std::size_t number = 1; !rest.empty(); ++number) {
        const std::string_view line = takeLine(rest);
        if (behindInclude(line).data() != nullptr)
            continue;
        auto at = line.begin();
        while (at != line.end()) {
            const auto begin = std::find_if(at, line.end(), isWordCharacter);
            at = std::find_if(begin, line.end(), [](char c) { return !isWordCharacter(c); });
            // The apostrophes left over part the digits of a number.
            const bool isRestOfNumber = begin != line.begin() && *(begin - 1) == '\'';
            if (begin != at && !isDigit(*begin) && !isRestOfNumber)
                words.push_back({number, std::string(begin, at)});
        }
    }
    return words;
}

}  // namespace korvex::architecture
