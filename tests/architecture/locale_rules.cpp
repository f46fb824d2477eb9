// The core reads and writes numbers and letters the same way in every locale: which words its code may not use.
#include "locale_rules.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <unordered_map>

namespace korvex::architecture {

namespace {

/// Words, parted by blanks, and what is wrong with them.
struct Rule {
    std::string_view words;
    std::string_view reason;
};

constexpr Rule rules[] = {
    {"strtod strtof strtold wcstod wcstof wcstold atof stof stod stold "
     "strtol strtoul strtoll strtoull wcstol wcstoul wcstoll wcstoull strtoimax strtoumax atoi atol atoll "
     "stoi stol stoul stoll stoull",
        "reads as the locale writes numbers; number_text.h does not"},
    {"printf fprintf sprintf snprintf dprintf asprintf vprintf vfprintf vsprintf vsnprintf vdprintf vasprintf "
     "wprintf fwprintf swprintf vwprintf vfwprintf vswprintf "
     "scanf fscanf sscanf vscanf vfscanf vsscanf wscanf fwscanf swscanf strfmon strfromd strfromf strfroml",
        "obeys the locale; number_text.h does not"},
    {"to_string to_wstring", "writes reals with the locale's decimal sign; number_text.h does not"},
    {"isdigit isalpha isalnum isspace isupper islower isxdigit ispunct isprint iscntrl isgraph isblank tolower toupper "
     "iswdigit iswalpha iswalnum iswspace iswupper iswlower iswxdigit iswpunct iswprint iswcntrl iswgraph iswblank "
     "towlower towupper isctype iswctype towctrans strcasecmp strncasecmp",
        "asks the locale what a character is; compare with the characters meant"},
    {"setlocale localeconv newlocale uselocale freelocale duplocale nl_langinfo locale imbue use_facet has_facet "
     "locale_t strcoll strxfrm wcscoll wcsxfrm strftime wcsftime put_time get_time put_money get_money regex wregex "
     "mbstowcs wcstombs mbrtowc wcrtomb mbtowc wctomb mblen btowc wctob",
        "is the locale's own business; the core has none"},
    {"stringstream istringstream ostringstream wstringstream wistringstream wostringstream strstream stringbuf "
     "spanstream ispanstream ospanstream fstream ifstream ofstream wfstream wifstream wofstream iostream istream "
     "ostream cin cout cerr clog wcin wcout wcerr wclog",
        "formats numbers as the global locale says; build the text with number_text.h"},
};

std::unordered_map<std::string_view, std::string_view> reasonsByWord()
{
    std::unordered_map<std::string_view, std::string_view> reasons;
    for (const Rule& rule : rules) {
        std::string_view rest = rule.words;
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find(' '), rest.size());
            reasons.emplace(rest.substr(0, end), rule.reason);
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    return reasons;
}

bool isFolder(const AllowedWord& allowed)
{
    return !allowed.path.empty() && allowed.path.back() == '/';
}

bool covers(const AllowedWord& allowed, const std::string& path, const std::string& word)
{
    if (allowed.word != word)
        return false;
    return isFolder(allowed) ? path.compare(0, allowed.path.size(), allowed.path) == 0 : path == allowed.path;
}

}  // namespace

std::vector<std::string> localeFaults(
    const FolderTable& table, const std::vector<SourceFile>& files, const std::vector<AllowedWord>& allowed)
{
    const auto reasons = reasonsByWord();
    std::vector<std::string> faults;
    std::map<const AllowedWord*, std::size_t> used;
    for (const SourceFile& file : files) {
        const FolderRow* const row = rowOf(table, file.path);
        if (row == nullptr || row->qt == QtUse::Allowed)
            continue;
        for (const Word& word : wordsOf(file.text)) {
            const auto reason = reasons.find(word.text);
            if (reason == reasons.end())
                continue;
            const auto place = std::find_if(allowed.begin(), allowed.end(),
                [&](const AllowedWord& candidate) { return covers(candidate, file.path, word.text); });
            if (place != allowed.end()) {
                ++used[&*place];
                continue;
            }
            faults.push_back("src/" + file.path + ':' + std::to_string(word.line) + ": " + word.text + ' '
                + std::string(reason->second));
        }
    }
    for (const AllowedWord& place : allowed) {
        if (!isFolder(place) && used[&place] != place.times)
            faults.push_back("src/" + place.path + ": " + place.word + " is allowed " + std::to_string(place.times)
                + " times but stands there " + std::to_string(used[&place]) + " times");
    }
    return faults;
}

}  // namespace korvex::architecture
