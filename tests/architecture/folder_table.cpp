// The folder table, cmake/folders.txt, and the rules for includes that follow from it.
#include "folder_table.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <stdexcept>
#include <utility>

namespace korvex::architecture {

namespace {

constexpr std::string_view blanks = " \t\r";

std::string_view trimmed(std::string_view text)
{
    const std::size_t begin = std::min(text.find_first_not_of(blanks), text.size());
    return text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
}

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(trimmed(text.substr(0, end)));
        if (end == std::string_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}

FolderRow parseRow(std::string_view line)
{
    const std::vector<std::string_view> cells = split(line, '|');
    const bool isRow = cells.size() == 3 && !cells[0].empty() && (cells[2] == "yes" || cells[2] == "no");
    if (!isRow)
        throw std::runtime_error("no row of the folder table: " + std::string(line));
    FolderRow row{std::string(cells[0]), {}, cells[2] == "yes" ? QtUse::Allowed : QtUse::Forbidden};
    for (const std::string_view name : split(cells[1], ' ')) {
        if (!name.empty())
            row.mayUse.emplace_back(name);
    }
    return row;
}

bool contains(const std::vector<std::string>& names, const std::string& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::string place(const SourceFile& file, std::size_t line)
{
    return "src/" + file.path + ':' + std::to_string(line) + ": ";
}

std::string fileName(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

/// The name under which a file can be included; empty for one that is no header.
std::string headerName(const std::string& path)
{
    std::string name = fileName(path);
    constexpr std::string_view filledIn = ".in";
    if (name.size() > filledIn.size() && name.compare(name.size() - filledIn.size(), filledIn.size(), filledIn) == 0)
        name.resize(name.size() - filledIn.size());
    const std::string extension = name.substr(std::min(name.rfind('.'), name.size()));
    return extension == ".cpp" || extension == ".cc" || extension == ".cxx" ? "" : name;
}

/// Beside the folders, not in one that was forgotten in the table.
bool standsAtTop(const SourceFile& file)
{
    return file.path.find('/') == std::string::npos;
}

/// QString, QtCore/QString, qglobal.h; not what merely begins with the letter, as queue does.
bool isQtHeader(std::string_view name)
{
    if (name.empty())
        return false;
    const bool isOldForm = name.front() == 'q' && name.size() > 2 && name.substr(name.size() - 2) == ".h";
    return name.front() == 'Q' || isOldForm;
}

/// What moc made of the very file, included at its end.
bool isOwnMocFile(const SourceFile& file, const std::string& name)
{
    const std::string own = fileName(file.path);
    return name == own.substr(0, own.rfind('.')) + ".moc";
}

class IncludeCheck {
public:
    IncludeCheck(const FolderTable& table, const std::vector<SourceFile>& files) : m_table(table)
    {
        for (const SourceFile& file : files) {
            if (const std::string name = headerName(file.path); !name.empty())
                m_paths.emplace(name, file.path);
        }
    }

    void check(const SourceFile& file)
    {
        const FolderRow* const row = rowOf(m_table, file.path);
        if (row == nullptr && !standsAtTop(file)) {
            m_faults.push_back("src/" + file.path + ": its folder has no row in cmake/folders.txt");
            return;
        }
        for (const Include& include : includesOf(file.text)) {
            const std::string fault = row == nullptr ? faultAtTop(include) : faultOf(file, *row, include);
            if (!fault.empty())
                m_faults.push_back(place(file, include.line) + fault);
        }
    }

    [[nodiscard]] std::vector<std::string> takeFaults() { return std::move(m_faults); }

private:
    [[nodiscard]] std::string faultAtTop(const Include& include) const
    {
        return include.form == IncludeForm::Quoted && m_paths.count(include.name) == 0 ? unknown(include) : "";
    }

    [[nodiscard]] std::string faultOf(const SourceFile& file, const FolderRow& row, const Include& include) const
    {
        switch (include.form) {
        case IncludeForm::Computed:
            return "an include by a macro cannot be checked: " + include.name;
        case IncludeForm::Angled:
            if (row.qt == QtUse::Forbidden && isQtHeader(include.name))
                return "src/" + row.folder + " may not use Qt: <" + include.name + '>';
            // An own header in brackets compiles as well.
            return m_paths.count(include.name) != 0 ? faultOfOwn(row, include) : "";
        case IncludeForm::Quoted:
            break;
        }
        if (row.qt == QtUse::Allowed && isOwnMocFile(file, include.name))
            return "";
        return m_paths.count(include.name) != 0 ? faultOfOwn(row, include) : unknown(include);
    }

    [[nodiscard]] std::string faultOfOwn(const FolderRow& row, const Include& include) const
    {
        const FolderRow* const used = rowOf(m_table, m_paths.at(include.name));
        if (used == nullptr)
            return "\"" + include.name + "\" belongs to no folder";
        if (used->folder == row.folder || contains(row.mayUse, used->folder))
            return "";
        return "src/" + row.folder + " may not use src/" + used->folder + ": \"" + include.name + '"';
    }

    [[nodiscard]] static std::string unknown(const Include& include)
    {
        return "no header of src/ has this name: \"" + include.name + '"';
    }

    const FolderTable& m_table;
    std::map<std::string, std::string> m_paths;  // of the headers by their names
    std::vector<std::string> m_faults;
};

}  // namespace

FolderTable parseFolderTable(std::string_view text)
{
    FolderTable table;
    for (const std::string_view line : split(text, '\n')) {
        if (!line.empty() && line.front() != '#')
            table.push_back(parseRow(line));
    }
    return table;
}

const FolderRow* rowOf(const FolderTable& table, std::string_view path)
{
    const FolderRow* deepest = nullptr;
    for (const FolderRow& row : table) {
        const std::string folder = row.folder + '/';
        if (path.substr(0, folder.size()) == folder
            && (deepest == nullptr || row.folder.size() > deepest->folder.size()))
            deepest = &row;
    }
    return deepest;
}

std::vector<std::string> tableFaults(const FolderTable& table)
{
    std::vector<std::string> faults;
    for (auto row = table.begin(); row != table.end(); ++row) {
        const auto above = [&](const std::string& name) {
            return std::find_if(table.begin(), row, [&](const FolderRow& other) { return other.folder == name; });
        };
        if (above(row->folder) != row)
            faults.push_back(row->folder + " has two rows");
        for (const std::string& used : row->mayUse) {
            const auto found = above(used);
            if (found == row)
                faults.push_back(row->folder + " uses " + used + ", which is no row above it");
            else if (row->qt == QtUse::Forbidden && found->qt == QtUse::Allowed)
                faults.push_back(row->folder + " has no Qt but uses " + used + ", which has");
        }
    }
    return faults;
}

std::vector<std::string> headerNameFaults(const std::vector<SourceFile>& files)
{
    std::vector<std::string> faults;
    std::map<std::string, std::string> paths;
    for (const SourceFile& file : files) {
        const std::string name = headerName(file.path);
        if (name.empty())
            continue;
        const auto [first, isNew] = paths.emplace(name, file.path);
        if (!isNew)
            faults.push_back("src/" + first->second + " and src/" + file.path + " have one name");
    }
    return faults;
}

std::vector<std::string> includeFaults(const FolderTable& table, const std::vector<SourceFile>& files)
{
    IncludeCheck check(table, files);
    for (const SourceFile& file : files)
        check.check(file);
    return check.takeFaults();
}

}  // namespace korvex::architecture
