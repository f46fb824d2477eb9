#include "loader.h"

#include "arithmetic_fault.h"
#include "code_page.h"
#include "input_file.h"
#include "kept_records.h"
#include "plain_number.h"
#include "plain_records.h"
#include "record_fields.h"
#include "source_set.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex {

namespace {

/// The number with its comma that every dust record begins with is ten characters wide: numbers are padded.
constexpr std::size_t dustNumberWidth = 10;

/// UTF-8 of a line; only lines with letters beyond ASCII are copied.
class DecodedLine {
public:
    std::string_view operator()(std::string_view bytes)
    {
        if (asciiLength(bytes) == bytes.size())
            return bytes;
        m_text = decodeCodePage(bytes);
        return m_text;
    }

private:
    std::string m_text;
};

FileError faultAt(const std::string& path, std::size_t line, const ArithmeticFault& fault)
{
    return {FileStep::Read, path, line, fault.what()};
}

/// The files of one load, opened before the first of them is read.
struct OpenFiles {
    InputFile points;
    InputFile description;
    std::optional<InputFile> dust;
};

/// contents: what the file holds, for the one that has no name.
Result<InputFile> openNamed(const std::string& path, const char* contents, ProgressListener* listener, FileCalls& calls)
{
    if (path.empty())
        return missingName(FileStep::Open, contents);
    if (listener != nullptr)
        listener->statusText("Otevírám " + path);
    return InputFile::open(path, calls);
}

/// listener: is told the names; null when it was told them before.
Result<OpenFiles> openFiles(const SourceFiles& files, ProgressListener* listener, FileCalls& calls)
{
    Result<InputFile> points = openNamed(files.points, "body", listener, calls);
    if (!points.ok())
        return points.error();
    Result<InputFile> description = openNamed(files.description, "popisem", listener, calls);
    if (!description.ok())
        return description.error();
    OpenFiles open{std::move(points.value()), std::move(description.value()), std::nullopt};
    if (!files.dust.empty()) {
        Result<InputFile> dust = openNamed(files.dust, "prachem", listener, calls);
        if (!dust.ok())
            return dust.error();
        open.dust.emplace(std::move(dust.value()));
    }
    return open;
}

/// Turns points records into sources, with the kept records of the other two files at hand.
class PointsPass {
public:
    PointsPass(
        const LoadRequest& request, KeptRecords& description, KeptRecords* dust, SourceSet& set, LoadReport& report)
        : m_request(request), m_description(description), m_dust(dust), m_set(set), m_report(report)
    {
    }

    /// Whether a followed file is not in number order.
    [[nodiscard]] bool isLost() const { return m_description.isLost() || (m_dust != nullptr && m_dust->isLost()); }

    /// Makes room for the sources of the whole file, going by those of its beginning.
    void expect(std::size_t fileSize, std::size_t position)
    {
        // A little more: to run short at the end would mean to copy all.
        const std::size_t all = m_set.size() * (fileSize / 16) / (position / 16);
        // Not more than a file that only begins with short records could make us ask for.
        constexpr std::size_t most = 4'000'000;
        m_set.reserve(std::min(all + all / 16, most));
    }

    /// The lines that will be taken next.
    void announce(std::span<const TextLine> lines)
    {
        if (!m_description.isOutOfOrder() && (m_dust == nullptr || !m_dust->isOutOfOrder()))
            return;
        m_announced.clear();
        for (const TextLine& line : lines) {
            std::int32_t number = 0;
            if (PlainFields(line.bytes).next(number))
                m_announced.push_back(number);
        }
        m_description.announce(m_announced);
        if (m_dust != nullptr)
            m_dust->announce(m_announced);
    }

    [[nodiscard]] Result<void> take(const TextLine& line)
    {
        if (isCommentLine(line.bytes)) {
            takeComment(line.bytes);
            return {};
        }
        try {
            PlainPoints plain;
            if (plain.read(line.bytes) && takePlain(plain))
                return {};
            return takeRecord(m_pointsText(line.bytes), line.number);
        } catch (const ArithmeticFault& fault) {
            return faultAt(m_request.files.points, line.number, fault);
        }
    }

private:
    void takeComment(std::string_view bytes)
    {
        const std::string_view trimmed = trimBlanks(bytes);
        if (m_report.comment || trimmed.empty())
            return;
        const std::string_view text = trimBlanks(trimmed.substr(1));
        if (!text.empty())
            m_report.comment = decodeCodePage(text);
    }

    /// The fast way: a source with both records in order. False when something is not as nearly always; then nothing
    /// was done, and the general way tells what there is to tell.
    bool takePlain(const PlainPoints& points)
    {
        const SourceType* const type = sourceTypeOf(points.typeId);
        if (type == nullptr)
            return false;
        const auto description = m_description.find(points.number);
        PlainParameters parameters;
        if (!description || !readPlainParameters(*description, type->parameterCount, parameters))
            return false;
        std::optional<std::string_view> dust;
        if (m_dust != nullptr) {
            dust = m_dust->find(points.number);
            if (!dust)
                return false;
            const std::string_view line = takeLine(*dust);
            dust = line.substr(std::min(dustNumberWidth, line.size()));
        }
        m_set.addPlain(*type, points, parameters, dust);
        return true;
    }

    /// Throws ArithmeticFault for a number of the points record.
    Result<void> takeRecord(std::string_view record, std::size_t line)
    {
        RecordFields fields(record);
        const std::int32_t number = fields.nextInteger();
        for (int i = 0; i < 3; ++i)
            fields.skip();  // the position: the source reads it
        const SourceType* const type = sourceTypeOf(fields.nextInteger());
        if (type == nullptr) {
            m_report.unknownType.push_back({number, line});
            return {};
        }
        auto found = m_description.find(number);
        if (!found) {
            m_report.missingDescription.push_back({number, line});
            // Such a source is not looked up in the dust file either.
            if (m_request.missingDescription == MissingDescription::Accept)
                m_set.addFromRecords(*type, record, {});
            return {};
        }
        Result<void> added = addPaired(*type, record, takeLine(*found));
        if (added.ok())
            takeDust(number, line);
        return added;
    }

    Result<void> addPaired(const SourceType& type, std::string_view record, std::string_view description)
    {
        try {
            m_set.addFromRecords(type, record, m_descriptionText(description));
            return {};
        } catch (const ArithmeticFault& fault) {
            cZdroje(type).LineSource(record);  // throws when the points record is the one to blame
            return faultAt(m_description.path(), m_description.lineOf(description), fault);
        }
    }

    void takeDust(std::int32_t number, std::size_t line)
    {
        if (m_dust == nullptr)
            return;
        if (auto dust = m_dust->find(number))
            m_set.last().LineDust(behindCharacters(m_dustText(takeLine(*dust)), dustNumberWidth));
        else
            m_report.missingDust.push_back({number, line});
    }

    const LoadRequest& m_request;
    KeptRecords& m_description;
    KeptRecords* m_dust;
    SourceSet& m_set;
    LoadReport& m_report;
    std::vector<std::int32_t> m_announced;
    DecodedLine m_pointsText;
    DecodedLine m_descriptionText;
    DecodedLine m_dustText;
};

/// Reads the points file to its end, to an error, or to where one of the followed files is lost.
Result<void> readPoints(InputFile& file, PointsPass& pass, ProgressListener& listener)
{
    constexpr std::size_t batchesBetweenReports = 64;
    LineReader reader(file);
    std::array<TextLine, 64> batch;
    for (std::size_t batchNumber = 1;; ++batchNumber) {
        const Result<std::size_t> count = reader.next(batch);
        if (!count.ok())
            return count.error();
        const std::span<const TextLine> lines = std::span(batch).first(count.value());
        if (lines.empty() || pass.isLost())
            return {};
        pass.announce(lines);
        for (const TextLine& line : lines) {
            Result<void> taken = pass.take(line);
            if (!taken.ok())
                return taken;
        }
        if (batchNumber % batchesBetweenReports == 0) {
            listener.progressValue(reader.position());
            if (batchNumber == batchesBetweenReports)
                pass.expect(file.size(), reader.position());
        }
    }
}

/// The way of files in number order: the description and dust files are followed beside the points file. The sources
/// are gathered apart and join the set when both files are known to be sound to their ends. False when a file is not in
/// order: nothing was done.
Result<bool> loadInOrder(
    const LoadRequest& request, OpenFiles& files, SourceSet& set, LoadReport& report, ProgressListener& listener)
{
    KeptRecords description;
    description.follow(files.description);
    KeptRecords dust;
    if (files.dust)
        dust.follow(*files.dust);
    SourceSet loaded;
    LoadReport found;
    PointsPass pass(request, description, files.dust ? &dust : nullptr, loaded, found);
    const Result<void> read = readPoints(files.points, pass, listener);

    const Result<void> descriptionEnd = description.finish();
    const Result<void> dustEnd = files.dust ? dust.finish() : Result<void>();
    if (pass.isLost())
        return false;
    if (!descriptionEnd.ok())
        return descriptionEnd.error();
    if (!dustEnd.ok())
        return dustEnd.error();
    found.setTouched = true;
    report = std::move(found);
    if (request.mode == LoadMode::Replace)
        set.clear();
    set.append(std::move(loaded));
    if (!read.ok())
        return read.error();
    return true;
}

/// The way of files in any order: the description and dust records are kept by number.
Result<void> loadByIndex(
    const LoadRequest& request, OpenFiles& files, SourceSet& set, LoadReport& report, ProgressListener& listener)
{
    KeptRecords description;
    Result<void> read = description.read(files.description);
    if (!read.ok())
        return read;
    KeptRecords dust;
    if (files.dust) {
        read = dust.read(*files.dust);
        if (!read.ok())
            return read;
    }

    // Only now: a mistyped name must not cost the user the inventory that is on the screen.
    report.setTouched = true;
    if (request.mode == LoadMode::Replace)
        set.clear();
    // As many sources as descriptions, as a rule; with more the set grows as it goes.
    set.reserve(set.size() + description.count());
    PointsPass pass(request, description, files.dust ? &dust : nullptr, set, report);
    return readPoints(files.points, pass, listener);
}

}  // namespace

Result<void> loadSourceSet(
    const LoadRequest& request, SourceSet& set, LoadReport& report, ProgressListener& listener, FileCalls& calls)
{
    Result<OpenFiles> opened = openFiles(request.files, &listener, calls);
    if (!opened.ok())
        return opened.error();
    listener.statusText("Porovnávám…");
    listener.progressMaximum(opened.value().points.size());
    const Result<bool> inOrder = loadInOrder(request, opened.value(), set, report, listener);
    if (!inOrder.ok())
        return inOrder.error();
    if (!inOrder.value()) {
        // From the beginning, and in silence: the user was told already.
        Result<OpenFiles> again = openFiles(request.files, nullptr, calls);
        if (!again.ok())
            return again.error();
        Result<void> loaded = loadByIndex(request, again.value(), set, report, listener);
        if (!loaded.ok())
            return loaded;
    }
    set.modified(false);
    return {};
}

}  // namespace korvex
