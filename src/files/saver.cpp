#include "saver.h"

#include "blanks.h"
#include "code_page.h"
#include "number_text.h"
#include "replace_files.h"
#include "source_rows.h"
#include "source_set.h"

#include <cstddef>
#include <filesystem>
#include <initializer_list>
#include <string_view>
#include <system_error>
#include <utility>

namespace korvex {

namespace {

constexpr std::string_view lineEnd = "\r\n";

/// Lines in the code page. Returns how many characters the code page lacked.
std::size_t appendLine(OutputBytes& bytes, std::string_view utf8)
{
    std::string& room = bytes.room();
    const std::size_t replaced = appendCodePage(room, utf8);
    room += lineEnd;
    return replaced;
}

std::string fullPath(const std::string& path)
{
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute.string();
}

class SaveBytes {
public:
    explicit SaveBytes(const SaveRequest& request) : m_request(request), m_hasDust(!request.files.dust.empty()) { }

    void appendHeaders()
    {
        const std::string_view comment = trimBlanks(m_request.comment);
        if (comment.empty())
            return;
        const std::string commentLine = ";" + std::string(comment);
        const std::string pointsLine = ";Soubor s body: " + fullPath(m_request.files.points);
        const std::string descriptionLine = ";Soubor s popisem: " + fullPath(m_request.files.description);
        const std::string dustLine = ";Soubor s prachem: " + (m_hasDust ? fullPath(m_request.files.dust) : "");

        appendHeader(m_points, {commentLine, ";SOUBOR S BODY", descriptionLine});
        appendHeader(m_description, {commentLine, ";SOUBOR S POPISEM (bodů)", pointsLine});
        if (!m_hasDust)
            return;
        appendHeader(m_points, {dustLine});
        appendHeader(m_description, {dustLine});
        appendHeader(m_dust, {commentLine, ";SOUBOR S PRACHEM", descriptionLine, pointsLine});
    }

    void append(const cZdroje& source)
    {
        if (source.NazevZdroje().find(';') != std::string_view::npos)
            m_report.semicolonIn.push_back(source.ICZ());
        m_line.clear();
        source.appendLineSource(m_line);
        std::size_t replaced = appendLine(m_points, m_line);
        // Nothing but digits and commas: the same bytes in the code page.
        std::string& description = m_description.room();
        source.appendLineParameters(description, &m_singleTexts);
        description += lineEnd;
        if (m_hasDust) {
            m_line.clear();
            source.appendLineDust(m_line);
            replaced += appendLine(m_dust, m_line);
        }
        if (replaced > 0)
            m_report.replacedIn.push_back(source.ICZ());
    }

    /// What replaceFiles takes; the bytes are handed over.
    [[nodiscard]] std::vector<Replacement> takeReplacements()
    {
        std::vector<Replacement> replacements;
        replacements.push_back({m_request.files.points, std::move(m_points)});
        replacements.push_back({m_request.files.description, std::move(m_description)});
        if (m_hasDust)
            replacements.push_back({m_request.files.dust, std::move(m_dust)});
        return replacements;
    }

    [[nodiscard]] SaveReport takeReport() { return std::move(m_report); }

private:
    void appendHeader(OutputBytes& bytes, std::initializer_list<std::string_view> lines)
    {
        for (const std::string_view line : lines) {
            if (appendLine(bytes, line) > 0)
                m_report.replacedInHeader = true;
        }
    }

    const SaveRequest& m_request;
    bool m_hasDust;
    OutputBytes m_points;
    OutputBytes m_description;
    OutputBytes m_dust;
    std::string m_line;
    SingleTexts m_singleTexts;
    SaveReport m_report;
};

}  // namespace

Result<SaveReport> saveSourceSet(
    const SaveRequest& request, SourceSet& set, const SourceRows& rows, ProgressListener& listener, FileCalls& calls)
{
    if (request.files.points.empty())
        return missingName(FileStep::Open, "body");
    if (request.files.description.empty())
        return missingName(FileStep::Open, "popisem");
    listener.progressMaximum(rows.count() + 2);
    listener.progressValue(1);
    SaveBytes bytes(request);
    bytes.appendHeaders();
    for (std::size_t row = 0; row < rows.count(); ++row) {
        if (request.scope == SaveScope::All || rows.marked(row))
            bytes.append(set.at(rows.tag(row)));
        listener.progressValue(row + 1);
    }
    const Result<void> written = replaceFiles(bytes.takeReplacements(), request.copies, calls);
    if (!written.ok())
        return written.error();
    set.modified(false);
    return bytes.takeReport();
}

}  // namespace korvex
