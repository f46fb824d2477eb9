// What the bytes of a file tell beside its records: their encoding and the ends of the lines.
#pragma once

#include "checked_line.h"
#include "findings.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace korvex {

/// Is handed all lines of a file, comments included.
class CheckedText {
public:
    CheckedText(Findings& findings, CheckedFile file) : m_findings(findings), m_file(file) { }

    /// size: what the line takes in the file, with its end.
    CheckedLine take(std::string_view bytes, std::size_t number, std::size_t size);
    /// Behind the last line: reports what is reported once a file.
    void finish();

private:
    void takeLetters(const CheckedLine& line, bool isRecord);
    void checkPiece(const CheckedLine& line, bool isRecord);
    void checkControls(const CheckedLine& line, bool isRecord);
    void checkByte(const CheckedLine& line, std::size_t at, bool isRecord);
    void reportUtf8();
    void reportIso88592();
    void reportLineEnds();

    Findings& m_findings;
    CheckedFile m_file;
    bool m_hasMark = false;         // the file begins with a byte order mark
    Place m_utf8;                   // first of such a text; line 0: none
    bool m_hasCodePage = false;     // text that is no UTF-8
    bool m_hasWindowsOnly = false;  // bytes that are controls in ISO-8859-2
    Place m_iso;                    // first byte that would rather be a letter of ISO-8859-2
    unsigned char m_isoByte = 0;
    bool m_isIsoSure = false;  // one such byte that can hardly be anything else, or two different ones
    Place m_lineEnd;           // of the first record that does not end with CR LF
    std::size_t m_otherLineEnds = 0;
    bool m_isLastOpen = false;  // that record ends with the file, and is the only one
};

}  // namespace korvex
