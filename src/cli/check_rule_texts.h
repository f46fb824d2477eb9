// Every rule of the check with its messages and its help, in both languages.
#pragma once

#include "check_rules.h"

#include <array>

namespace korvex {

inline constexpr std::array<RuleText, ruleCount> ruleTexts{{
    {Rule::WrongFile, "wrong-file", RuleGroup::Records, Severity::Error, "{0}", "{0}",
        "Soubor jako celek není to, co se na jeho místě čeká: je v UTF-16, binární, s jinými konci řádků, nebo je to "
        "jiný ze souborů soupisu. Jeho záznamy se pak nekontrolují a jinde se nehlásí, že chybějí. Soubor bez záznamů "
        "chybou není.",
        "The file as a whole is not what belongs in its place: it is in UTF-16, binary, has other line ends, or is "
        "another one of the inventory's files. Its records are then not checked, nor are they missed elsewhere. A file "
        "without records is no fault."},
    {Rule::NumberText, "number-text", RuleGroup::Records, Severity::Error, "{0}: {1} se čte jako {2}; napište jen {3}",
        "{0}: {1} is read as {2}; write {3} and nothing else",
        "Pole má být číslo. Program čte jen číslo, kterým pole začíná; co následuje, přeskočí, a pole, které číslem "
        "nezačíná (i prázdné), je 0. Žádné hlášení přitom nedá. Počet částic a skupina prachu se zaokrouhlí na celé "
        "číslo.",
        "The field should be a number. The program reads the number that the field begins with, skips what follows, "
        "and takes a field that begins with no number (also an empty one) for 0, without a message. The count of "
        "particles and the dust group are rounded to a whole number."},
    {Rule::NumberRange, "number-range", RuleGroup::Records, Severity::Error,
        "{0}: {1} je mimo rozsah čísla; soubor takto nelze načíst, opravte hodnotu",
        "{0}: {1} is beyond the range of its type; the file cannot be loaded like this, correct the value",
        "Celá čísla se vejdou do rozsahu ±2147483647, reálná do ±3.4E+38. Takové číslo v souborech soupisu načtení "
        "ukončí.",
        "Whole numbers lie within ±2147483647, reals within ±3.4E+38. Such a number in the files of an inventory ends "
        "the load."},
    {Rule::NumberWidth, "number-width", RuleGroup::Records, Severity::Error, "číslo zdroje {0} nemá 9 číslic; {1}",
        "the source number {0} has not 9 digits; {1}",
        "Popis prachu se čte od 11. znaku řádku a čárka se nehledá. Číslo s méně nebo více než 9 číslicemi, nebo "
        "záporné, proto popis posune. Doplňte číslo nulami na 9 číslic nebo zdroj přečíslujte.",
        "The dust description is read from the 11th character of the line on; no comma is searched for. A number with "
        "fewer or more than 9 digits, or a negative one, shifts it. Pad the number with zeros or renumber the source."},
    {Rule::DecimalComma, "decimal-comma", RuleGroup::Records, Severity::Error,
        "desetinná čárka v {0}: čárka dělí pole a všechna další se posunou; napište tečku (nebo mezeru za čárku, "
        "jsou-li "
        "to dvě hodnoty)",
        "decimal comma in {0}: a comma ends the field and shifts all that follow; write a point (or a blank behind the "
        "comma, if these are two values)",
        "Čárka odděluje pole, číslo 3,5 se tedy čte jako dvě pole, 3 a 5, a všechna další pole se posunou. V bodech a "
        "popisu se pozná podle chybějící mezery nebo podle posunutých Alfa a Pd, v prachu podle počtu částic a součtu "
        "zastoupení.",
        "A comma separates fields, so 3,5 is read as two fields, 3 and 5, and all fields behind it are shifted. In "
        "points and descriptions it is told by the missing blank or by shifted Alfa and Pd, in dust by the count of "
        "particles and the sum of the shares."},
    {Rule::FieldCount, "field-count", RuleGroup::Records, Severity::Error, "záznam má {0} místo {1}; {2}",
        "the record has {0} instead of {1}; {2}",
        "Chybějící pole se čtou jako 0, nadbytečná se přeskočí. Bod má 7 polí a jméno za středníkem, popis 10 polí, "
        "prach komína aspoň číslo, hustotu a skupinu (za odkazem na skupinu nic), skupina prachu aspoň číslo a počet. "
        "Sloupec ukazuje na první nadbytečné pole, nebo kam chybějící patří.",
        "Missing fields are read as 0, surplus ones are skipped. A point has 7 fields and a name behind a semicolon, a "
        "description 10 fields, the dust of a stack at least number, density and group (behind a reference to a group "
        "nothing), a dust group at least number and count. The column is that of the first surplus field, or where the "
        "missing one belongs."},
    {Rule::TypeCode, "type-code", RuleGroup::Records, Severity::Error,
        "typ zdroje {0} není 1 (bodový), 2 (plošný) ani 3 (liniový); zdroj se nenačte",
        "source type {0} is not 1 (point), 2 (area) or 3 (line); the source is not loaded",
        "Páté pole bodu udává typ. Zdroj s jiným typem se nenačte a při uložení zmizí ze všech tří souborů.",
        "The fifth field of a point is its type. A source of another type is not loaded, and the next save drops it "
        "from all three files."},
    {Rule::NameSemicolon, "name-semicolon", RuleGroup::Records, Severity::Warning,
        "jméno končí středníkem, {0} se ztratí; středník ve jméně nahraďte",
        "the name ends at its semicolon, {0} is lost; replace the semicolon",
        "Jméno je to, co stojí mezi prvním a druhým středníkem. Zbytek řádku se nečte a při uložení zmizí.",
        "A name is what stands between the first semicolon and the second. The rest of the line is not read and is "
        "gone after the next save."},
    {Rule::CodePage, "code-page", RuleGroup::Records, Severity::Warning,
        "bajt {0} (šestnáctkově) nemá v kódování Windows-1250 žádný znak; přepište jej",
        "the byte {0} (hexadecimal) is no character of Windows-1250; replace it",
        "Bajty 81, 83, 88, 90 a 98 kódování Windows-1250 neobsahuje. Program je zachová, ale jiné programy je "
        "zobrazí různě nebo soubor odmítnou. Bývá to znak z jiného kódování.",
        "Windows-1250 has no characters 81, 83, 88, 90 and 98. The program keeps them, but others show them in "
        "different ways or refuse the file. Mostly they come from another code page."},
    {Rule::ControlCharacter, "control-character", RuleGroup::Records, Severity::Warning,
        "bajt {0} (šestnáctkově) je řídicí znak; odstraňte jej",
        "the byte {0} (hexadecimal) is a control character; delete it",
        "Bajty 00 až 1F kromě tabulátoru a bajt 7F nejsou text: ve jméně nejsou vidět, znak 00 v mnoha programech text "
        "ukončí, 0D je část konce řádku a 1B ovládá terminál. Hlásí se první na každém řádku.",
        "The bytes 00 to 1F, a tab excepted, and the byte 7F are no text: nobody sees them in a name, 00 ends the text "
        "for many programs, 0D is a part of a line end, and 1B controls a terminal. The first of each line is "
        "reported."},
    {Rule::Utf8, "utf8", RuleGroup::Records, Severity::Error, "{0}", "{0}",
        "Kódování se nezjišťuje: písmena s diakritikou by ze souboru v UTF-8 byla načtena jako dvojice cizích znaků. "
        "Značka na začátku souboru (BOM) navíc způsobí, že první řádek není poznámkou; hlásí se i u textu ve "
        "Windows-1250. Hlásí se první takové místo každého souboru.",
        "The encoding is never guessed: accented letters of a file in UTF-8 are read as pairs of strange characters. "
        "A byte order mark moreover keeps the first line from being a comment; it is reported beside text in "
        "Windows-1250 too. The first such place of each file is reported."},
    {Rule::Utf8Letters, "utf8-letters", RuleGroup::Records, Severity::Warning,
        "„{0}“ je nejspíš „{1}“ v UTF-8, ostatní text řádku je ve Windows-1250; přepište je",
        "\"{0}\" most likely is \"{1}\" in UTF-8, while the rest of the line is Windows-1250; rewrite it",
        "Vložením z jiného programu se na řádek ve Windows-1250 dostane kus textu v UTF-8, z každého jeho písmene jsou "
        "pak dvě. Pozná se podle dvojic, které v češtině, slovenštině ani němčině nestojí: velké písmeno uvnitř slova "
        "nebo znaménko mezi písmeny. Slova z velkých písmen, například PAMÄŤ, se nehlásí. Hlásí se první na řádku.",
        "Pasting from another program brings a piece of UTF-8 into a line of Windows-1250, and each of its letters "
        "becomes two. It is told by pairs that stand in no Czech, Slovak or German word: a capital inside of a word, "
        "or a sign between letters. Words in capitals such as PAMÄŤ are not reported. The first of each line is."},
    {Rule::Iso88592, "iso-8859-2", RuleGroup::Records, Severity::Warning,
        "text vypadá jako ISO-8859-2: bajt {0} by byl „{1}“, ve Windows-1250 je to „{2}“; soubor převeďte (iconv -f "
        "ISO-8859-2 -t WINDOWS-1250)",
        "the text looks like ISO-8859-2: the byte {0} would be \"{1}\", in Windows-1250 it is \"{2}\"; convert the "
        "file "
        "(iconv -f ISO-8859-2 -t WINDOWS-1250)",
        "Obě kódování se liší hlavně v písmenech š, ť a ž. Soubor, který má jejich bajty podle ISO-8859-2 u písmen a "
        "žádný z bajtů 80 až 9F, je nejspíš v něm. Jediné z písmen š, ž a Š nestačí, jeho bajt je ve Windows-1250 „ą“, "
        "„ľ“ nebo „©“. Hlásí se první takový bajt každého souboru.",
        "The two code pages differ mainly in the letters š, ť and ž. A file that has their bytes of ISO-8859-2 beside "
        "letters and none of the bytes 80 to 9F is most likely in it. One letter alone of š, ž and Š is no evidence, "
        "for Windows-1250 has \"ą\", \"ľ\" or \"©\" there. The first such byte of each file is reported."},
    {Rule::DigitsLost, "digits-lost", RuleGroup::Records, Severity::Warning,
        "{0}: {1} se uloží jako {2}; hodnota se tím změní", "{0}: {1} will be saved as {2}, which is another value",
        "Reálná čísla se ukládají nejvýše na 7 platných číslic, celá (číslo zdroje, X, Y, výška, skupina, shluk) bez "
        "desetinných míst. Delší číslo první uložení změní. Poslední pole popisu bodového zdroje se nečte a uloží se "
        "jako 0, ať v něm stojí cokoli.",
        "Reals are saved with 7 significant digits at most, whole numbers (source number, X, Y, altitude, group, "
        "cluster) without decimals. The first save changes a longer number. The last field of a point source's "
        "description is not read, and saved as 0 whatever it holds."},
    {Rule::Rewritten, "rewritten", RuleGroup::Records, Severity::Note, "{0} se uloží jako {1}",
        "{0} will be saved as {1}",
        "Hodnoty se nezmění, jen zápis řádku: jiné nuly, mezery, znaménko +, tvar exponentu, chybějící středník, konce "
        "řádků. Soubory se pak po prvním uložení liší, i když se v nich nic nezměnilo. Hlásí se první odlišný znak "
        "řádku, pokud na něm závažnější pravidlo neříká totéž; řádky bez CR LF jednou za soubor.",
        "The values stay, only the form of the line changes: other zeros, blanks, a plus sign, another form of the "
        "exponent, a missing semicolon, line ends. After the first save the files differ although nothing was changed "
        "in them. The first character of a line that differs is reported, unless a more serious rule says the same; "
        "lines without CR LF once a file."},

    {Rule::NoDescription, "no-description", RuleGroup::BetweenFiles, Severity::Error,
        "zdroj nemá záznam v souboru s popisem; doplňte jej, jinak má všechny hodnoty 0 nebo se nenačte",
        "the source has no record in the description file; add it, otherwise all its values are 0 or it is not loaded",
        "Zda se zdroj bez popisu načte s nulami, nebo vynechá, záleží na nastavení programu. V souboru s prachem se "
        "pak ani nehledá.",
        "Whether a source without a description is loaded with zeros or left out is a setting of the program. It is "
        "then not looked up in the dust file either."},
    {Rule::NoDust, "no-dust", RuleGroup::BetweenFiles, Severity::Warning,
        "zdroj nemá záznam v souboru s prachem; zůstane u něj 0,0,0",
        "the source has no record in the dust file; it "
        "keeps 0,0,0",
        "Když se pracuje s prachem, má mít záznam každý zdroj: komín s popisem prachu, plošný a liniový zdroj jen "
        "číslo.",
        "With a dust file every source should have a record: a stack with its dust, an area or line source its number "
        "alone."},
    {Rule::OrphanDescription, "orphan-description", RuleGroup::BetweenFiles, Severity::Warning,
        "popis nepatří k žádnému bodu ({0}); příští uložení jej zahodí",
        "the description belongs to no point ({0}); the next save drops it",
        "Zdroje určuje soubor s body. Popis s číslem, které v něm není, se nečte. Doplňte bod nebo opravte číslo; i "
        "popis s číslem 12.4 k bodu 12 nepatří.",
        "The points file decides which sources there are. A description with a number that is not in it is ignored. "
        "Add the point or correct the number; the number 12.4 does not belong to the point 12 either."},
    {Rule::OrphanDust, "orphan-dust", RuleGroup::BetweenFiles, Severity::Warning,
        "prach nepatří k žádnému bodu ({0}); příští uložení jej zahodí",
        "the dust record belongs to no point ({0}); the next save drops it",
        "Záznam o prachu s číslem, které v souboru s body není, se nečte. Doplňte bod nebo opravte číslo.",
        "A dust record with a number that is not in the points file is ignored. Add the point or correct the number."},
    {Rule::SecondDescription, "second-description", RuleGroup::BetweenFiles, Severity::Warning,
        "zdroj má druhý popis, platí první (řádek {0}); příští uložení tento zahodí",
        "the source has a second description, the first counts (line {0}); the next save drops this one",
        "Ze záznamů s týmž číslem platí první v souboru. Ponechte jen ten správný.",
        "Of records with one number the first in the file counts. Keep only the right one."},
    {Rule::SecondDust, "second-dust", RuleGroup::BetweenFiles, Severity::Warning,
        "zdroj má druhý záznam o prachu, platí první (řádek {0}); příští uložení tento zahodí",
        "the source has a second dust record, the first counts (line {0}); the next save drops this one",
        "Ze záznamů s týmž číslem platí první v souboru. Ponechte jen ten správný.",
        "Of records with one number the first in the file counts. Keep only the right one."},
    {Rule::DustDropped, "dust-dropped", RuleGroup::BetweenFiles, Severity::Warning,
        "plošný a liniový zdroj prach nemá, {0} příští uložení zahodí",
        "an area or line source has no dust, {0} is dropped by the next save",
        "Popis prachu se ukládá jen u komínů. Co u jiného typu za číslem stojí, při uložení zmizí; možná nesouhlasí "
        "typ zdroje.",
        "Dust descriptions are saved for stacks alone. What stands behind the number of another type is gone after "
        "the next save; perhaps the type is wrong."},
    {Rule::SharedNumber, "shared-number", RuleGroup::BetweenFiles, Severity::Error,
        "totéž číslo má zdroj jiného typu na řádku {0}: oba čtou jeden popis; zdroj přečíslujte",
        "a source of another type on line {0} has the same number: both read one description; renumber the source",
        "Komín a plošný nebo liniový zdroj téhož čísla program nepovažuje za duplicitní, protože se liší číslem "
        "komínu. Popis a prach se však hledají jen podle čísla zdroje, jeden z nich tedy čte cizí hodnoty.",
        "A stack and an area or line source with one number are no duplicates for the program, for their stack numbers "
        "differ. Description and dust are looked up by the source number alone, so one of them reads the values of the "
        "other."},
    {Rule::SameNumber, "same-number", RuleGroup::BetweenFiles, Severity::Error,
        "totéž číslo má zdroj na řádku {0}; zdroj přečíslujte nebo odstraňte",
        "the source on line {0} has the same number; renumber or remove one of them",
        "Zdroje se stejným číslem a stejným číslem komínu jsou duplicitní: mají společný popis i prach. Kontrola v "
        "okně programu porovnává jen sousedy, tato celý soubor.",
        "Sources with the same number and stack number are duplicates: they share description and dust. The check in "
        "the program's window compares neighbours only, this one the whole file."},
    {Rule::GroupZero, "group-zero", RuleGroup::BetweenFiles, Severity::Warning,
        "skupina prachu má číslo {0}; zdroj se na ni odkázat nemůže, dejte jí číslo od 1",
        "the dust group has the number {0}; no source can refer to it, give it a number from 1 on",
        "Číslo 0 v popisu prachu znamená částice zadané ručně. Na skupinu 0 se proto nelze odkázat; záporné číslo "
        "program nepřiděluje.",
        "In a dust description the number 0 means particles given by hand, so nothing can refer to a group 0; negative "
        "numbers are not given by the program."},
    {Rule::GroupUnknown, "group-unknown", RuleGroup::BetweenFiles, Severity::Error,
        "skupina prachu {0} v souboru skupin není; doplňte ji nebo opravte odkaz",
        "there is no dust group {0} in the groups file; add it or correct the reference",
        "Při úpravě zdroje se místo neznámé skupiny nabídne prázdný ruční seznam a potvrzení odkaz přepíše. "
        "Kontroluje se jen s volbou --groups.",
        "When the source is edited, an empty list of particles is offered instead of an unknown group, and confirming "
        "replaces the reference. Looked at only with --groups."},
    {Rule::GroupDouble, "group-double", RuleGroup::BetweenFiles, Severity::Error,
        "skupina prachu {0} je už na řádku {1}; odkazy platí pro první, tuto přečíslujte",
        "the dust group {0} stands on line {1} already; references mean the first, renumber this one",
        "Mají-li dvě skupiny jedno číslo, odkaz zdroje znamená první z nich.",
        "When two groups have one number, a reference of a source means the first."},
    {Rule::ParticleCount, "particle-count", RuleGroup::BetweenFiles, Severity::Error,
        "počet částic je {0}, za ním je však hodnot {1} místo {2}; opravte počet nebo hodnoty, čte se jich jen tolik",
        "the count of particles is {0}, but {1} values follow instead of {2}; correct the count or the values, only so "
        "many are read",
        "Počet udává, kolik dvojic průměr a zastoupení se přečte: chybějící jsou 0, nadbytečné se přeskočí.",
        "The count says how many pairs of diameter and share are read: missing ones are 0, surplus ones are skipped."},

    {Rule::VsMismatch, "vs-mismatch", RuleGroup::Physics, Severity::Warning,
        "Vs = {0} m³/s, z ts, d a w0 při tlaku {1} Pa vychází {2} m³/s (rozdíl {3} %, mez {4} %); přepočítejte Vs, d "
        "nebo w0",
        "Vs = {0} m³/s, but ts, d and w0 give {2} m³/s at {1} Pa (difference {3} %, limit {4} %); recalculate Vs, d or "
        "w0",
        "Objem spalin za normálních podmínek plyne ze skutečného průtoku: Vs = (π d² / 4) w0 · 273.15 / (ts + 273.15) "
        "· p / 101325. Tlak vzduchu p se zadá volbou --pressure; bez ní platí 101325 Pa. Častou příčinou je Vs "
        "zadané při provozních podmínkách nebo v m³/h, nebo Vs nevyplněné.",
        "The flue gas volume at normal conditions follows from the actual flow: Vs = (π d² / 4) w0 · 273.15 / (ts + "
        "273.15) · p / 101325. The air pressure p is given by --pressure and is 101325 Pa otherwise. A common cause is "
        "a Vs at working conditions, in m³/h or not filled in."},
    {Rule::DiameterHeight, "diameter-height", RuleGroup::Physics, Severity::Warning,
        "d = {0} m je {2}násobek výšky H = {1} m (mez {3}); zkontrolujte, zda nejsou přehozené nebo v jiných "
        "jednotkách",
        "d = {0} m is {2} times the height H = {1} m (limit {3}); check that they are not swapped or in other units",
        "Průměr komína bývá zlomkem jeho výšky. Velký poměr znamená většinou přehozená pole nebo průměr v milimetrech.",
        "The diameter of a stack mostly is a small part of its height. A large ratio mostly means swapped fields or a "
        "diameter in millimetres."},
    {Rule::RangeTs, "range-ts", RuleGroup::Physics, Severity::Warning,
        "{0} = {1} {4} je mimo {2} až {3} {4}; teplota spalin se zadává ve °C",
        "{0} = {1} {4} is outside {2} to {3} {4}; the flue gas temperature is in °C",
        "Častou příčinou jsou posunutá pole. Teplotu v kelvinech tato mez většinou nepozná, spíše pravidlo "
        "vs-mismatch.",
        "A common cause are shifted fields. A temperature in kelvins mostly lies within; rather vs-mismatch tells it."},
    {Rule::RangeW0, "range-w0", RuleGroup::Physics, Severity::Warning,
        "{0} = {1} {4} je mimo {2} až {3} {4}; rychlost spalin se zadává v m/s, lze ji vypočítat z Vs, ts a d",
        "{0} = {1} {4} is outside {2} to {3} {4}; the exit velocity is in m/s, it can be calculated from Vs, ts and d",
        "Nulová rychlost znamená, že zdroj nemá žádný tok spalin; příliš velká bývá v jiných jednotkách.",
        "Velocity 0 means a source without any flow of gas; one too large mostly is in other units."},
    {Rule::RangeH, "range-h", RuleGroup::Physics, Severity::Warning,
        "{0} = {1} {4} je mimo {2} až {3} {4}; výška se udává nad terénem, ne nad mořem",
        "{0} = {1} {4} is outside {2} to {3} {4}; heights are above the terrain, not above the sea",
        "H je výška koruny komína nad terénem, u silnic výška úseku Z0el. Častou příčinou je nadmořská výška.",
        "H is the height of the stack top above the terrain, for roads the height Z0el of the segment. A common cause "
        "is a height above the sea."},
    {Rule::RangeD, "range-d", RuleGroup::Physics, Severity::Warning,
        "{0} = {1} {4} je mimo {2} až {3} {4}; průměr se zadává v metrech",
        "{0} = {1} {4} is outside {2} to {3} {4}; the diameter is in metres",
        "Častou příčinou je průměr v milimetrech nebo centimetrech.",
        "A common cause is a diameter in millimetres or centimetres."},
    {Rule::RangeAlfa, "range-alfa", RuleGroup::Physics, Severity::Warning,
        "{0} = {1} je mimo {2} až {3}; využití se zadává jako zlomek, ne v procentech",
        "{0} = {1} is outside {2} to {3}; the use is a fraction, not a percentage",
        "Alfa je relativní roční využití maximálního výkonu: 45 % je 0.45.",
        "Alfa is the relative yearly use of the maximum output: 45 % is 0.45."},
    {Rule::RangePd, "range-pd", RuleGroup::Physics, Severity::Warning,
        "{0} = {1} {4} je mimo {2} až {3} {4}; zadává se počet hodin za den",
        "{0} = {1} {4} is outside {2} to {3} {4}; it is in hours a day",
        "Pd je počet hodin za den, kdy je zdroj v činnosti. Častou příčinou je počet hodin za rok.",
        "Pd is the number of hours a day in which the source works. A common cause are hours a year."},
    {Rule::RangeSize, "range-size", RuleGroup::Physics, Severity::Warning,
        "{0} = {1} {4} je mimo {2} až {3} {4}; zkontrolujte rozměr v metrech",
        "{0} = {1} {4} is outside {2} to {3} {4}; check the size, in metres",
        "Y0 je vzdálenost elementů plošného zdroje od sebe, X0el šířka úseku silnice.",
        "Y0 is the distance of the elements of an area source from one another, X0el the width of a road segment."},
    {Rule::Emission, "emission", RuleGroup::Physics, Severity::Warning,
        "{0} = {1} {2}: zdroj nic nevypouští; emise má být větší než {3}",
        "{0} = {1} {2}: the source emits nothing; the emission should be greater than {3}",
        "Zdroj s nulovou emisí do výpočtu nepřispívá, záporná emise nemá smysl. Doplňte emisi, nebo zdroj odstraňte.",
        "A source without an emission adds nothing to a calculation, and a negative one makes no sense. Fill it in or "
        "remove the source."},
    {Rule::Shares, "shares", RuleGroup::Physics, Severity::Warning,
        "zastoupení částic dávají dohromady {0}, mají dát 1 (± {1}); opravte je",
        "the shares of the particles add up to {0} instead of 1 (± {1}); correct them",
        "Zastoupení jsou zlomky celku; program jejich součet nekontroluje. Častou příčinou jsou procenta nebo "
        "zapomenutá frakce. Seznam bez částic se neposuzuje.",
        "Shares are fractions of a whole; the program does not check their sum. Common causes are percentages and a "
        "forgotten fraction. A list without particles is not looked at."},
    {Rule::PlumeRise, "plume-rise", RuleGroup::Physics, Severity::Warning,
        "Delta h = {0} m je nad {1} m: je-li to teplota spalin, doplňte d a w0, bez nich se čte jako vznos vlečky",
        "Delta h = {0} m is above {1} m: if this is a temperature, fill in d and w0, without them it is a plume rise",
        "Třetí hodnota za emisí plošného zdroje je vznos vlečky, když jsou d i w0 rovny 0, jinak teplota spalin. Nic "
        "jiného v souboru to nerozliší.",
        "The third value behind the emission of an area source is the plume rise when d and w0 are both 0, and the "
        "temperature of the gas otherwise. Nothing else in the file tells them apart."},
    {Rule::NoLength, "no-length", RuleGroup::Physics, Severity::Warning,
        "počáteční i koncový bod úseku je {0}, {1}; úsek nemá délku a jeho emise (ML × délka) je 0",
        "the segment begins and ends at {0}, {1}; it has no length and its emission (ML × length) is 0",
        "Emise silnice se udává na metr délky. Úsek s totožnými konci nic nevypouští; doplňte druhý bod.",
        "The emission of a road is given for a metre of its length. A segment whose ends are one point emits nothing; "
        "fill in the other end."},
    {Rule::Midpoint, "midpoint", RuleGroup::Physics, Severity::Warning,
        "X, Y = {0}, {1} je o {4} m mimo střed úseku {2}, {3} (mez {5} m); přepočítejte X, Y",
        "X, Y = {0}, {1} is {4} m off the midpoint {2}, {3} of the segment (limit {5} m); recalculate X, Y",
        "X, Y silnice má být střed jejího úseku; program jej umí vypočítat hromadně. Velký rozdíl znamená, že byl "
        "změněn jen jeden z nich, nebo že popis patří jinému zdroji.",
        "X, Y of a road should be the midpoint of its segment; the program can calculate them in one go. A large "
        "difference means that only one of them was changed, or that the description belongs to another source."},
    {Rule::FarAway, "far-away", RuleGroup::Physics, Severity::Warning,
        "{0} = {1} m leží {2} km od ostatních zdrojů (polovina jich je mezi {3} a {4} m, mez {5} km); zkontrolujte "
        "počet číslic a pořadí X, Y",
        "{0} = {1} m lies {2} km from the other sources (half of them are between {3} and {4} m, limit {5} km); check "
        "the number of digits and the order of X, Y",
        "Osamocená souřadnice bývá překlep: chybějící číslice, přehozené X a Y nebo jiný souřadnicový systém. Mez je "
        "násobek rozpětí, ve kterém leží prostřední polovina zdrojů, nejméně však pevná vzdálenost.",
        "A coordinate on its own mostly is a slip: a missing digit, X and Y swapped, or another coordinate system. The "
        "limit is a multiple of the spread of the middle half of all sources, and at least a fixed distance."},
    {Rule::SamePlace, "same-place", RuleGroup::Physics, Severity::Warning,
        "X, Y = {0}, {1} má i zdroj {2} na řádku {3}; zkontrolujte, zda nejde o jeden zdroj dvakrát",
        "the source {2} on line {3} stands at the same X, Y = {0}, {1}; check that it is not one source twice",
        "Dva zdroje na jednom metru bývají jeden zdroj s dvěma čísly; jeho emise se pak počítá dvakrát. Více komínů na "
        "jednom místě je možných, pak pravidlo vynechte (--skip same-place).",
        "Two sources on one metre mostly are one source with two numbers, whose emission then counts twice. Several "
        "flues in one place are possible; then leave the rule out (--skip same-place)."},
}};

/// The rules are found by their place in the table.
static_assert([] {
    for (std::size_t i = 0; i < ruleTexts.size(); ++i) {
        if (ruleTexts[i].rule != static_cast<Rule>(i))
            return false;
    }
    return true;
}());

}  // namespace korvex
