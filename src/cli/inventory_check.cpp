#include "inventory_check.h"

#include "checked_line.h"
#include "checked_points.h"
#include "checked_text.h"
#include "description_check.h"
#include "dust_check.h"
#include "file_look.h"
#include "input_file.h"
#include "points_check.h"
#include "source_files.h"

#include <cstddef>
#include <string>

namespace korvex {

namespace {

/// Opens a file and hands over its records.
template <class Take>
Result<void> forEachRecord(const std::string& path, CheckedFile kind, Findings& findings, FileCalls& calls, Take take)
{
    Result<InputFile> file = InputFile::open(path, calls);
    if (!file.ok())
        return file.error();
    CheckedText checked(findings, kind);
    LineReader reader(file.value());
    TextLine text;
    for (;;) {
        const std::size_t begin = reader.position();
        const Result<bool> more = reader.next(text);
        if (!more.ok())
            return more.error();
        if (!more.value()) {
            checked.finish();
            return {};
        }
        const CheckedLine line = checked.take(text.bytes, text.number, reader.position() - begin);
        if (!isCommentLine(line.bytes))
            take(line);
    }
}

/// Which of the files are what they should be; false also for one that is not given.
struct SoundFiles {
    bool points = false;
    bool description = false;
    bool dust = false;
    bool groups = false;
};

Result<SoundFiles> lookAtFiles(const CheckRequest& request, Findings& findings, FileCalls& calls)
{
    SoundFiles sound;
    struct Look {
        CheckedFile kind;
        const std::string& path;
        bool& isSound;
    };
    for (const Look& look : {Look{CheckedFile::Points, request.files.points, sound.points},
             Look{CheckedFile::Description, request.files.description, sound.description},
             Look{CheckedFile::Dust, request.files.dust, sound.dust},
             Look{CheckedFile::Groups, request.groups, sound.groups}}) {
        const bool isLeftOut
            = look.path.empty() && (look.kind == CheckedFile::Dust || look.kind == CheckedFile::Groups);
        if (isLeftOut)
            continue;
        const Result<bool> right = looksRight(findings, look.kind, look.path, calls);
        if (!right.ok())
            return right.error();
        look.isSound = right.value();
    }
    return sound;
}

}  // namespace

Result<CheckedInventory> checkInventory(const CheckRequest& request, Findings& findings, FileCalls& calls)
{
    const Result<SoundFiles> looked = lookAtFiles(request, findings, calls);
    if (!looked.ok())
        return looked.error();
    const SoundFiles sound = looked.value();
    CheckedPoints points;
    // Without the points nothing can be told of the other files.
    if (!sound.points)
        return CheckedInventory{};
    Result<void> read = forEachRecord(request.files.points, CheckedFile::Points, findings, calls,
        [&](const CheckedLine& line) { checkPointsRecord(findings, line, points); });
    if (!read.ok())
        return read.error();
    points.sort();
    checkNumbers(findings, points);
    checkPlaces(findings, points);

    if (sound.description) {
        DescriptionCheck description(findings, points, request.pressure);
        read = forEachRecord(request.files.description, CheckedFile::Description, findings, calls,
            [&](const CheckedLine& line) { description.take(line); });
        if (!read.ok())
            return read.error();
    }
    GroupLinesByNumber groups;
    if (sound.groups) {
        read = forEachRecord(request.groups, CheckedFile::Groups, findings, calls,
            [&](const CheckedLine& line) { checkGroupLine(findings, line, groups); });
        if (!read.ok())
            return read.error();
    }
    if (sound.dust) {
        DustCheck dust(findings, points, sound.groups ? &groups : nullptr);
        read = forEachRecord(
            request.files.dust, CheckedFile::Dust, findings, calls, [&](const CheckedLine& line) { dust.take(line); });
        if (!read.ok())
            return read.error();
    }
    checkPartners(findings, points, {sound.description, sound.dust});
    return CheckedInventory{points.count()};
}

}  // namespace korvex
