// The files that a command is given, what it says about them, and whether it may write.
#pragma once

#include "inventory.h"
#include "selection.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace korvex {

struct CommandContext;

/// The three files of one inventory as positional arguments, the dust file optional.
struct InventoryArguments {
    std::string points;
    std::string description;
    std::string dust;

    [[nodiscard]] SourceFiles files() const { return {points, description, dust}; }
};
/// Gives back the options of these arguments, for addOutputOptions.
std::vector<CLI::Option*> addInventoryArguments(
    CLI::App& command, const CommandContext& context, InventoryArguments& arguments);

/// Whether files in UTF-8 are read all the same: their letters come out as others.
enum class Utf8Files { Refuse, Accept };

/// Where a command writes an inventory, and what it may do there.
struct OutputArguments {
    std::vector<std::string> paths;  // two or three; empty: none were given
    bool force = false;
    bool acceptLosses = false;
    bool withoutDust = false;
    std::vector<const CLI::Option*> inputs{};

    [[nodiscard]] Utf8Files utf8Files() const { return acceptLosses ? Utf8Files::Accept : Utf8Files::Refuse; }
};
void addForceOption(CLI::App& command, const CommandContext& context, bool& force);
void addLossOption(CLI::App& command, const CommandContext& context, bool& acceptLosses);
void addDustOption(CLI::App& command, const CommandContext& context, bool& withoutDust);
/// --output and the three above. inputs: the arguments for the files to read, which may stand on either side of it.
void addOutputOptions(CLI::App& command, const CommandContext& context, OutputArguments& arguments,
    const std::vector<CLI::Option*>& inputs);

/// Puts the files of a command that reads and writes where they belong: an option --output in front of the inputs has
/// taken some of these as well. False, and the user is told, when there are too few or too many.
[[nodiscard]] bool sortFiles(
    CommandContext& context, const CLI::App& command, InventoryArguments& input, OutputArguments& output);
/// The same for at least two inventories.
[[nodiscard]] bool sortFiles(
    CommandContext& context, const CLI::App& command, std::vector<std::string>& inputs, OutputArguments& output);

/// Two or three paths.
[[nodiscard]] SourceFiles filesOf(const std::vector<std::string>& paths);
/// The files of several inventories: "+" stands between them; two of the same kind need none. None when that cannot be
/// told apart.
[[nodiscard]] std::optional<std::vector<SourceFiles>> filesOfGroups(const std::vector<std::string>& paths);

/// Reads the source numbers that an option was given, such as "1-10,15". Nothing given leaves the ranges as they are.
/// False, and the user is told, when they cannot be understood.
[[nodiscard]] bool takeNumberRanges(
    CommandContext& context, const std::string& given, std::vector<NumberRange>& ranges);

/// Loads an inventory; unless it is for writing, says what its files lack, or hold in vain. None when it cannot be
/// loaded.
[[nodiscard]] std::optional<Inventory> load(
    CommandContext& context, const SourceFiles& files, LoadFor use, Utf8Files utf8Files = Utf8Files::Refuse);

/// Whether a finding is about something that the command leaves out or replaces because it was told to.
using IsOnPurpose = std::function<bool(const FindingPlace&)>;

/// Says what the files of an inventory lack, and what of them would be lost by writing it; whether the command may go
/// on.
[[nodiscard]] bool mayLose(
    CommandContext& context, const Inventory& inventory, bool acceptLosses, const IsOnPurpose& isOnPurpose = {});
/// Whether a file of an inventory would be lost to one of these, which are of another kind. Says which.
[[nodiscard]] bool replacesInput(
    CommandContext& context, const SourceFiles& input, const std::vector<std::string>& paths);
/// Whether these files may be written. Says why not.
[[nodiscard]] bool mayOverwrite(CommandContext& context, const std::vector<std::string>& paths, bool force);
/// Whether an inventory made of these may be written to these files: as many as there are to write, each over none of
/// another kind. Says why not.
[[nodiscard]] bool mayWrite(CommandContext& context, const std::vector<const Inventory*>& inputs,
    const SourceFiles& output, const OutputArguments& arguments, const IsOnPurpose& isOnPurpose = {});

/// Writes an inventory that may be written. False after an error, or when the next load would not read what was
/// written.
[[nodiscard]] bool write(CommandContext& context, const SourceFiles& files, const std::string& comment, SourceSet& set,
    const OutputArguments& arguments);

/// "Zapsané zdroje: 16" and the paths.
void sayWritten(CommandContext& context, std::size_t count, const std::vector<std::string>& paths);

}  // namespace korvex
