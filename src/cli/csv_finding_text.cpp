#include "csv_finding_text.h"

#include "counted_noun.h"
#include "message.h"

#include <array>
#include <string_view>

namespace korvex {

namespace {

struct FaultText {
    CsvFault fault;
    const char* czech;
    const char* english;
};

/// {0} is the detail of the finding, {1} the line or the number of fields it speaks of, {2} the number there is.
constexpr std::array faultTexts{
    FaultText{CsvFault::Encoding, "tabulka je v UTF-16 nebo v poškozeném UTF-8; uložte ji jako CSV UTF-8",
        "the table is UTF-16 or damaged UTF-8; save it as CSV UTF-8"},
    FaultText{CsvFault::OpenQuote, "uvozovka se nezavírá", "a quote is never closed"},
    FaultText{
        CsvFault::TextAfterQuote, "za uzavírající uvozovkou něco stojí", "something stands behind the closing quote"},
    FaultText{CsvFault::QuoteInside, "uvozovka uvnitř pole, které jí nezačíná",
        "a quote inside a field that does not begin with one"},
    FaultText{CsvFault::NoHeader, "chybí řádek s názvy sloupců", "the line with the names of the columns is missing"},
    FaultText{CsvFault::UnknownColumn, "neznámý sloupec", "unknown column"},
    FaultText{CsvFault::DoubledColumn, "sloupec je tu podruhé", "the column is there twice"},
    FaultText{CsvFault::MissingColumn, "sloupec chybí", "the column is missing"},
    FaultText{CsvFault::FieldCount, "řádek má {2}, řádek s názvy {1}", "the row has {2}, the header {1}"},
    FaultText{CsvFault::Empty, "hodnota chybí", "the value is missing"},
    FaultText{CsvFault::NotOfType, "tento typ zdroje hodnotu nemá", "this type of source has no such value"},
    FaultText{CsvFault::NotInteger, "není celé číslo", "not a whole number"},
    FaultText{CsvFault::NotReal, "není číslo s desetinnou tečkou", "not a number with a decimal point"},
    FaultText{CsvFault::ThousandsSeparators, "číslo nesmí mít oddělovače tisíců",
        "a number cannot have separators of thousands"},
    FaultText{CsvFault::OtherDecimalMark, "jiná desetinná značka než v číslech před ním",
        "another decimal mark than in the numbers before"},
    FaultText{CsvFault::OutOfRange, "číslo je mimo rozsah", "the number is out of range"},
    FaultText{CsvFault::UnusualValue, "hodnota je mimo rozsah {0}", "the value is out of the range {0}"},
    FaultText{CsvFault::Rounded, "zapsalo by se zaokrouhlené: {0}", "would be written rounded: {0}"},
    FaultText{CsvFault::UnknownType, "typ není 1, 2 ani 3", "the type is not 1, 2 or 3"},
    FaultText{CsvFault::TemperatureOfPlume, "plocha má Delta_h_m, když jsou d i w0 nula, a jinak ts_C",
        "an area has Delta_h_m when d and w0 are both zero, and ts_C otherwise"},
    FaultText{CsvFault::Semicolon, "název nesmí obsahovat středník", "a name cannot hold a semicolon"},
    FaultText{CsvFault::LineEnd, "text nesmí obsahovat konec řádku", "a text cannot hold a line end"},
    FaultText{CsvFault::ControlCharacter, "text má řídicí znak", "the text has a control character"},
    FaultText{CsvFault::UnusualDust,
        "prach není „hustota,skupina“ ani „hustota,0,počet“ s tolika dvojicemi průměr,zastoupení",
        "the dust is neither \"density,group\" nor \"density,0,count\" with as many pairs diameter,share"},
    FaultText{CsvFault::NotInCodePage, "znak, který kódová stránka souborů nemá",
        "a character that the code page of the files lacks"},
    FaultText{
        CsvFault::CommentDiffers, "jiná poznámka než na dřívějším řádku", "another comment than in an earlier row"},
    FaultText{CsvFault::CommentBlanks, "poznámka má na kraji mezeru", "the comment has a blank at its end"},
    FaultText{CsvFault::GeometryDiffers, "geometrie nesouhlasí se souřadnicemi na řádku (--ignore-wkt)",
        "the geometry does not agree with the coordinates of the row (--ignore-wkt)"},
    FaultText{CsvFault::DoubledNumber, "stejné číslo má už zdroj na řádku {1}",
        "the source on line {1} has this number already"},
    FaultText{CsvFault::SharedDescription, "dřívější zdroj má stejné číslo a jiný popis",
        "an earlier source has this number and another description"},
    FaultText{CsvFault::SharedDust, "dřívější zdroj má stejné číslo a jiný prach",
        "an earlier source has this number and other dust"},
    FaultText{CsvFault::ShiftedDust, "číslo se nevejde na 9 míst, prach by se při čtení posunul",
        "the number is wider than 9 places, its dust would be read shifted"},
};

constexpr CountedNoun fields{"pole", "pole", "polí", "field", "fields"};

}  // namespace

std::string textOf(Language language, const CsvFinding& finding)
{
    for (const FaultText& candidate : faultTexts) {
        if (candidate.fault == finding.fault) {
            return filled(text(language, candidate.czech, candidate.english),
                {finding.detail, countText(finding.expected), counted(language, finding.count, fields)});
        }
    }
    return {};
}

std::string textOf(Language language, const CsvForm& form)
{
    const bool isCodePage = form.encoding == CsvForm::Encoding::CodePage;
    if (!isCodePage && form.separator == ',')
        return {};
    std::string out = text(language, "tabulka se čte takto: kódování ", "the table is read as: encoding ")
        + (isCodePage ? "Windows-1250" : "UTF-8") + text(language, ", oddělovač ", ", separator ");
    if (form.separator == '\t')
        out += text(language, "tabulátor", "tab");
    else
        out += quotedText(language, std::string_view(&form.separator, 1));
    return out
        + (form.hasDecimalComma ? text(language, ", desetinná čárka", ", decimal comma")
                                : text(language, ", desetinná tečka", ", decimal point"));
}

}  // namespace korvex
