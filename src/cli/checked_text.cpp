#include "checked_text.h"

#include "code_page.h"
#include "fields.h"
#include "message.h"
#include "number_text.h"
#include "source_files.h"
#include "utf8_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

namespace korvex {

namespace {

/// The letters whose bytes differ between the two code pages and that Czech has.
struct OtherLetter {
    unsigned char byte;
    const char* iso88592;
    const char* windows1250;
};
constexpr std::array otherLetters{OtherLetter{0xA9, "Š", "©"}, OtherLetter{0xAB, "Ť", "«"}, OtherLetter{0xAE, "Ž", "®"},
    OtherLetter{0xB9, "š", "ą"}, OtherLetter{0xBB, "ť", "»"}, OtherLetter{0xBE, "ž", "ľ"}};

bool isLetter(std::string_view line, std::size_t at)
{
    if (at >= line.size())
        return false;
    const auto byte = static_cast<unsigned char>(line[at]);
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') || byte >= 0xC0;
}

/// How likely a byte is the letter of ISO-8859-2.
enum class IsoEvidence { None, Weak, Strong };

/// The sign ® stands apart or behind a word, quotation marks at its ends: a letter is likely elsewhere. But © may stand
/// in front of a name, and where the other bytes are š or ž, ą or ľ of another language may be meant.
IsoEvidence isoEvidence(std::string_view line, std::size_t at)
{
    const auto weak = [](bool isThere) { return isThere ? IsoEvidence::Weak : IsoEvidence::None; };
    const auto strong = [](bool isThere) { return isThere ? IsoEvidence::Strong : IsoEvidence::None; };
    const bool hasBefore = at > 0 && isLetter(line, at - 1);
    const bool hasBehind = isLetter(line, at + 1);
    switch (static_cast<unsigned char>(line[at])) {
    case 0xA9:
        return weak(hasBehind);
    case 0xAE:
        return strong(hasBehind);
    case 0xAB:
    case 0xBB:
        return strong(hasBefore && hasBehind);
    case 0xB9:
    case 0xBE:
        return weak(hasBefore || hasBehind);
    default:
        return IsoEvidence::None;
    }
}

bool isControl(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return (byte < ' ' && c != '\t') || byte == 0x7F;
}

/// What there may be to look for on a line: on nearly all nothing.
struct LineLook {
    bool isAscii = true;
    bool mayHaveControl = false;  // a tab counts as one

    static LineLook at(std::string_view line)
    {
        constexpr std::uint64_t ones = 0x0101010101010101U;
        constexpr std::uint64_t highBits = 0x80U * ones;
        if (line.size() < sizeof ones)
            return {asciiLength(line) == line.size(), std::any_of(line.begin(), line.end(), isControl)};
        // Of the high bits: those of the bytes, and whether a byte is below a blank, or 7F.
        std::uint64_t upper = 0;
        std::uint64_t control = 0;
        const auto look = [&](std::size_t at) {
            std::uint64_t word = 0;
            std::memcpy(&word, line.data() + at, sizeof word);
            const std::uint64_t low = word & ~highBits;
            upper |= word;
            control |= (~(low + (0x80U - ' ') * ones) | (low + ones)) & ~word;
        };
        for (std::size_t at = 0; at + sizeof ones < line.size(); at += sizeof ones)
            look(at);
        look(line.size() - sizeof ones);
        return {(upper & highBits) == 0, (control & highBits) != 0};
    }
};

/// The number that a finding about a line belongs to.
std::optional<std::int32_t> sourceOf(const CheckedLine& line, bool isRecord)
{
    return isRecord ? roundedOf(field(line.bytes, ',', 1)) : std::nullopt;
}

std::string hexadecimal(unsigned char byte)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    return {digits[byte >> 4U], digits[byte & 15U]};
}

}  // namespace

CheckedLine CheckedText::take(std::string_view bytes, std::size_t number, std::size_t size)
{
    CheckedLine line{bytes, m_file, static_cast<std::uint32_t>(number)};
    const LineLook look = LineLook::at(bytes);
    const bool isAscii = look.isAscii;
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (!isAscii && number == 1 && bytes.substr(0, byteOrderMark.size()) == byteOrderMark) {
        m_hasMark = true;
        line.bytes.remove_prefix(byteOrderMark.size());
    }
    const bool isRecord = !isCommentLine(line.bytes);
    if (!isAscii)
        line.isUtf8 = looksLikeUtf8(line.bytes);
    if (line.isUtf8 && m_utf8.line == 0)
        m_utf8 = line.placeOf(line.bytes.data() + asciiLength(line.bytes));
    if (!isAscii && !line.isUtf8)
        takeLetters(line, isRecord);
    if (look.mayHaveControl)
        checkControls(line, isRecord);
    if (isRecord && size != bytes.size() + 2) {
        m_isLastOpen = size == bytes.size() && m_otherLineEnds == 0;
        if (m_otherLineEnds++ == 0)
            m_lineEnd = line.placeOf(line.bytes.data() + line.bytes.size());
    }
    return line;
}

void CheckedText::takeLetters(const CheckedLine& line, bool isRecord)
{
    for (std::size_t at = asciiLength(line.bytes); at < line.bytes.size(); ++at) {
        const auto byte = static_cast<unsigned char>(line.bytes[at]);
        if (byte < 0x80)
            continue;
        m_hasCodePage = true;
        if (byte < 0xC0)
            checkByte(line, at, isRecord);
    }
    checkPiece(line, isRecord);
}

void CheckedText::checkPiece(const CheckedLine& line, bool isRecord)
{
    const Utf8Piece piece = findUtf8Piece(line.bytes);
    if (piece.length == 0)
        return;
    const std::string_view bytes = line.bytes.substr(piece.at, piece.length);
    m_findings.add(Rule::Utf8Letters, line.placeOf(bytes.data()), sourceOf(line, isRecord), [bytes] {
        return std::array{printable(decodeCodePage(bytes)), std::string(bytes)};
    });
}

void CheckedText::checkControls(const CheckedLine& line, bool isRecord)
{
    const auto* const found = std::find_if(line.bytes.begin(), line.bytes.end(), isControl);
    if (found == line.bytes.end())
        return;
    m_findings.add(Rule::ControlCharacter, line.placeOf(&*found), sourceOf(line, isRecord),
        [found] { return std::array{hexadecimal(static_cast<unsigned char>(*found))}; });
}

void CheckedText::checkByte(const CheckedLine& line, std::size_t at, bool isRecord)
{
    const auto byte = static_cast<unsigned char>(line.bytes[at]);
    m_hasWindowsOnly = m_hasWindowsOnly || byte < 0xA0;
    if (const IsoEvidence evidence = isoEvidence(line.bytes, at); evidence != IsoEvidence::None) {
        m_isIsoSure = m_isIsoSure || evidence == IsoEvidence::Strong || (m_iso.line != 0 && byte != m_isoByte);
        if (m_iso.line == 0) {
            m_iso = line.placeOf(line.bytes.data() + at);
            m_isoByte = byte;
        }
    }
    constexpr std::string_view undefined = "\x81\x83\x88\x90\x98";
    if (undefined.find(line.bytes[at]) == std::string_view::npos)
        return;
    m_findings.add(Rule::CodePage, line.placeOf(line.bytes.data() + at), sourceOf(line, isRecord),
        [byte] { return std::array{hexadecimal(byte)}; });
}

void CheckedText::finish()
{
    reportUtf8();
    reportIso88592();
    reportLineEnds();
}

void CheckedText::reportUtf8()
{
    const bool hasUtf8 = m_utf8.line != 0;
    if (!hasUtf8 && !m_hasMark)
        return;
    m_findings.add(Rule::Utf8, m_hasMark ? Place{m_file, 1, 1} : m_utf8, std::nullopt, [&] {
        if (!m_hasCodePage) {
            return std::array{m_findings.text(
                "text je v UTF-8, program jej čte jako Windows-1250; soubor převeďte (iconv -f UTF-8 -t WINDOWS-1250)",
                "the text is UTF-8, the program reads Windows-1250; convert the file (iconv -f UTF-8 -t "
                "WINDOWS-1250)")};
        }
        return std::array{hasUtf8
                ? m_findings.text("část textu je v UTF-8 a část ve Windows-1250, kterou program čte; řádky v UTF-8 "
                                  "přepište",
                    "some of the text is UTF-8 and some Windows-1250, which the program reads; rewrite the lines in "
                    "UTF-8")
                : m_findings.text("soubor začíná značkou UTF-8 (BOM, bajty EF BB BF), text je však ve Windows-1250; "
                                  "tyto tři bajty odstraňte",
                    "the file begins with a UTF-8 byte order mark (bytes EF BB BF), but its text is Windows-1250; "
                    "delete these three bytes")};
    });
}

void CheckedText::reportIso88592()
{
    if (!m_isIsoSure || m_hasWindowsOnly)
        return;
    const auto* const letter = std::find_if(otherLetters.begin(), otherLetters.end(),
        [this](const OtherLetter& candidate) { return candidate.byte == m_isoByte; });
    m_findings.add(Rule::Iso88592, m_iso, std::nullopt, [&] {
        return std::array<std::string, 3>{hexadecimal(m_isoByte), letter->iso88592, letter->windows1250};
    });
}

void CheckedText::reportLineEnds()
{
    if (m_otherLineEnds == 0)
        return;
    m_findings.add(Rule::Rewritten, m_lineEnd, std::nullopt, [&] {
        const std::string what = m_isLastOpen
            ? m_findings.text("poslední řádek bez konce", "the last line without an end")
            : m_findings.text("konec řádku LF (takových záznamů ", "the line end LF (so many records have it: ")
                + integerText(static_cast<std::int32_t>(m_otherLineEnds)) + ')';
        return std::array{what, m_findings.text("řádek s CR LF", "a line with CR LF")};
    });
}

}  // namespace korvex
