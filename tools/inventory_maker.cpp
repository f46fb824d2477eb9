#include "inventory_maker.h"

#include "code_page.h"

#include <array>
#include <cstddef>
#include <limits>
#include <numeric>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex {

namespace {

constexpr std::string_view lineEnd = "\r\n";

constexpr std::int32_t point = 1;
constexpr std::int32_t area = 2;
constexpr std::int32_t road = 3;

constexpr std::uint64_t scrambled(std::uint64_t value)
{
    value = (value ^ (value >> 30U)) * 0xBF58476D1CE4E5B9U;
    value = (value ^ (value >> 27U)) * 0x94D049BB133111EBU;
    return value ^ (value >> 31U);
}

/// What the random numbers are for: every purpose has its own, so that one does not disturb another.
enum class Purpose : std::uint64_t { Sources, Omissions, Doubles, OrderOfPoints, OrderOfDescription, OrderOfDust };

/// The generators and distributions of the standard library differ between libraries; this is the same everywhere.
class RandomNumbers {
public:
    RandomNumbers(std::uint64_t seed, Purpose purpose, std::uint64_t index = 0)
        : m_state(scrambled(scrambled(seed + step) + static_cast<std::uint64_t>(purpose)) + scrambled(index * step))
    {
    }

    /// From 0 to bound - 1.
    std::uint32_t below(std::uint32_t bound)
    {
        m_state += step;
        return static_cast<std::uint32_t>(((scrambled(m_state) >> 32U) * bound) >> 32U);
    }
    /// Both ends included.
    std::uint32_t between(std::uint32_t low, std::uint32_t high) { return low + below(high - low + 1); }
    bool happens(std::uint32_t perMille) { return below(1000) < perMille; }

    template <class Item, std::size_t Size>
    const Item& oneOf(const std::array<Item, Size>& items)
    {
        return items[below(static_cast<std::uint32_t>(Size))];
    }

private:
    static constexpr std::uint64_t step = 0x9E3779B97F4A7C15U;

    std::uint64_t m_state;
};

void appendDigits(std::string& out, std::uint32_t value, std::size_t width = 1)
{
    std::array<char, 10> digits{};
    std::size_t count = 0;
    do {
        digits[count++] = static_cast<char>('0' + value % 10);
        value /= 10;
    } while (value != 0);
    if (count < width)
        out.append(width - count, '0');
    while (count > 0)
        out += digits[--count];
}

/// digits / 10^decimals without needless zeros, as the program writes it; from 0.0001 on.
void appendReal(std::string& out, std::uint32_t digits, std::uint32_t decimals)
{
    while (decimals > 0 && digits % 10 == 0) {
        digits /= 10;
        --decimals;
    }
    std::uint32_t unit = 1;
    for (std::uint32_t i = 0; i < decimals; ++i)
        unit *= 10;
    appendDigits(out, digits / unit);
    if (decimals > 0) {
        out += '.';
        appendDigits(out, digits % unit, decimals);
    }
}

/// A value below 0.0001: one to four digits and the exponent.
void appendTiny(std::string& out, RandomNumbers& random)
{
    const std::uint32_t decimals = random.between(0, 3);
    std::uint32_t unit = 1;
    for (std::uint32_t i = 0; i < decimals; ++i)
        unit *= 10;
    appendReal(out, random.between(unit, 10 * unit - 1), decimals);
    out += random.below(2) == 0 ? "E-05" : "E-06";
}

/// What somebody types: low and high are in units of the last decimal.
struct TypedRange {
    std::uint32_t low;
    std::uint32_t high;
    std::uint32_t decimals;
};

void appendTyped(std::string& out, RandomNumbers& random, const TypedRange& range)
{
    appendReal(out, random.between(range.low, range.high), range.decimals);
}

/// What a calculation left there: seven digits.
void appendComputed(std::string& out, RandomNumbers& random, std::uint32_t decimals)
{
    appendReal(out, random.between(1'000'000, 9'999'999), decimals);
}

/// Names as people type them, also without their accents. Each list is in the code page, ready to be put together.
class Names {
public:
    void append(std::string& out, RandomNumbers& random, std::int32_t type) const
    {
        const bool isAccented = random.below(3) == 0;
        const std::size_t kind = static_cast<std::size_t>(type) - 1;
        out += random.oneOf((isAccented ? m_accentedKinds : m_plainKinds)[kind]);
        out += ' ';
        out += random.oneOf(isAccented ? m_accentedPlaces : m_plainPlaces);
        if (random.below(5) != 0) {
            out += random.oneOf((isAccented ? m_accentedDetails : m_plainDetails)[kind]);
            appendDigits(out, random.between(1, type == road ? 240 : 12));
        }
    }

private:
    static constexpr std::size_t kinds = 3;
    static constexpr std::size_t words = 8;
    using Words = std::array<std::string, words>;

    static Words encoded(const std::array<std::string_view, words>& texts)
    {
        Words bytes;
        for (std::size_t i = 0; i < words; ++i)
            bytes[i] = encodeCodePage(texts[i]);
        return bytes;
    }

    std::array<Words, kinds> m_plainKinds{
        encoded({"Kotelna", "Teplarna", "Lakovna", "Slevarna", "Pila", "Obalovna", "Spalovna", "Mlyn"}),
        encoded({"Skladka", "Lom", "Piskovna", "Depo", "Deponie", "Parkoviste", "Staveniste", "Kompostarna"}),
        encoded({"Silnice", "Ulice", "Obchvat", "Most", "Namesti", "Rampa", "Privadec", "Objezd"})};
    std::array<Words, kinds> m_accentedKinds{encoded({"Výtopna", "Cihelna Pod Hůrkou", "Teplárna", "Slévárna",
                                                 "Sušárna dřeva", "Kotelna školy", "Vápenka", "Truhlářství"}),
        encoded(
            {"Skládka", "Štěrkovna", "Lom U Křížku", "Pískovna", "Odkaliště", "Parkoviště", "Hřiště", "Kompostárna"}),
        encoded(
            {"Průtah", "Náměstí", "Ulice Třešňová", "Příjezd", "Křižovatka", "Loďařská", "Nábřeží", "Silnice č. 3"})};
    Words m_plainPlaces = encoded({"Brod", "Lhota", "Dubina", "Hradek", "Nova Ves", "Lipa", "Olesna", "Podoli"});
    Words m_accentedPlaces
        = encoded({"Brloždín", "Řeporov", "Ďolíky", "Žďárek", "Čížov", "Výhon", "Hůlava, závod ŠTĚPÁN", "Ústín-Křeč"});
    std::array<Words, kinds> m_plainDetails{
        encoded({", kotel K", ", komin ", ", linka ", " hala ", ", pec ", " c. ", " blok ", ", box "}),
        encoded({", pole ", ", etapa ", " c. ", ", sektor ", ", plocha ", ", stena ", " - ", ", deponie "}),
        encoded({", usek ", ", usek c. ", " km ", " - ", " usek ", ", cast ", ", pruh ", " / "})};
    std::array<Words, kinds> m_accentedDetails{
        encoded({", komín č. ", ", kotel K", ", tunelová pec č. ", ", lakovací box ", ", záložní kotel ", ", linka ",
            " – výduch ", ", filtr č. "}),
        encoded({", těleso ", ", etáž ", ", pole č. ", ", sektor ", ", část ", ", plocha č. ", " – hřeben ",
            ", mezideponie "}),
        encoded(
            {", úsek ", ", úsek č. ", ", směr centrum ", ", část ", ", větev ", " – pruh ", ", stoupání ", ", km "})};
};

/// Whole metres, as the data files have them in this country.
struct Place {
    std::uint32_t x;
    std::uint32_t y;
};

/// The middle as the program calculates it: halves go to the even neighbour.
std::uint32_t middle(std::uint32_t from, std::uint32_t to)
{
    const std::uint32_t sum = from + to;
    return sum / 2 + (sum % 2 == 1 && sum / 2 % 2 == 1 ? 1 : 0);
}

/// One file under construction: its lines in source order.
class Lines {
public:
    /// The line being written; ends with endLine.
    [[nodiscard]] std::string& line() { return m_bytes; }
    void endLine()
    {
        m_bytes += lineEnd;
        m_ends.push_back(m_bytes.size());
    }
    void forgetLine() { m_bytes.resize(m_ends.empty() ? 0 : m_ends.back()); }
    void reserve(std::size_t lines, std::size_t bytesPerLine)
    {
        m_ends.reserve(lines);
        m_bytes.reserve(lines * bytesPerLine);
    }

    [[nodiscard]] std::string inOrder(const std::string& header) && { return std::move(m_bytes.insert(0, header)); }

    [[nodiscard]] std::string shuffled(const std::string& header, RandomNumbers random) const
    {
        std::vector<std::uint32_t> order(m_ends.size());
        std::iota(order.begin(), order.end(), 0U);
        for (std::size_t left = order.size(); left > 1; --left)
            std::swap(order[left - 1], order[random.below(static_cast<std::uint32_t>(left))]);
        std::string bytes = header;
        bytes.reserve(header.size() + m_bytes.size());
        for (const std::uint32_t line : order) {
            const std::size_t begin = line == 0 ? 0 : m_ends[line - 1];
            bytes.append(m_bytes, begin, m_ends[line] - begin);
        }
        return bytes;
    }

private:
    std::string m_bytes;
    std::vector<std::size_t> m_ends;
};

std::string header(
    const InventoryRequest& request, std::string_view title, std::string_view other, std::string_view third)
{
    std::string text = ";Vymyšlený soupis pro měření, zdrojů ";
    appendDigits(text, static_cast<std::uint32_t>(request.count));
    text += lineEnd;
    for (const std::string_view line : {title, other, third}) {
        text += ';';
        text += line;
        text += lineEnd;
    }
    return encodeCodePage(text);
}

class Maker {
public:
    explicit Maker(const InventoryRequest& request)
        : m_request(request), m_omissions(request.seed, Purpose::Omissions), m_doubles(request.seed, Purpose::Doubles)
    {
        constexpr std::size_t pointsWidth = 88;
        constexpr std::size_t descriptionWidth = 80;
        constexpr std::size_t dustWidth = 36;
        m_points.reserve(request.count, pointsWidth);
        m_description.reserve(request.count, descriptionWidth);
        m_dust.reserve(request.count, dustWidth);
    }

    void addSource(std::size_t index)
    {
        RandomNumbers random(m_request.seed, Purpose::Sources, index);
        // Drawn in any case: the sources behind a doubled number have the numbers that they have without one.
        m_number += random.below(12) == 0 ? random.between(2, 40) : 1;
        const bool isDouble = index > 0 && m_doubles.happens(doubledPerMille) && m_request.doublesNumbers;
        const std::uint32_t number = isDouble ? m_numberBefore : m_number;
        m_numberBefore = number;

        const std::uint32_t percent = random.below(100);
        const std::int32_t type = percent < 60 ? point : percent < 75 ? area : road;
        addDescription(random, number, type);
        addPoints(random, number, type);
        addDust(random, number, type);
        const bool lacksDescription = m_omissions.happens(leftOutPerMille);
        const bool lacksDust = m_omissions.happens(leftOutPerMille);
        m_points.endLine();
        endOrForget(m_description, lacksDescription);
        endOrForget(m_dust, lacksDust);
    }

    [[nodiscard]] InventoryBytes take()
    {
        constexpr std::string_view points = "Soubor s body: body.txt";
        constexpr std::string_view description = "Soubor s popisem: popis.txt";
        constexpr std::string_view dust = "Soubor s prachem: prach.txt";
        return {finished(m_points, header(m_request, "SOUBOR S BODY", description, dust), Purpose::OrderOfPoints),
            finished(
                m_description, header(m_request, "SOUBOR S POPISEM (bodů)", points, dust), Purpose::OrderOfDescription),
            finished(m_dust, header(m_request, "SOUBOR S PRACHEM", description, points), Purpose::OrderOfDust)};
    }

private:
    static constexpr std::uint32_t leftOutPerMille = 4;
    static constexpr std::uint32_t doubledPerMille = 3;

    void endOrForget(Lines& lines, bool isLeftOut) const
    {
        if (isLeftOut && m_request.leavesOutRecords)
            lines.forgetLine();
        else
            lines.endLine();
    }

    [[nodiscard]] std::string finished(Lines& lines, const std::string& header, Purpose order) const
    {
        return m_request.shuffles ? lines.shuffled(header, {m_request.seed, order}) : std::move(lines).inOrder(header);
    }

    static void beginRecord(std::string& out, std::uint32_t number) { appendDigits(out, number, 9); }

    void addPoints(RandomNumbers& random, std::uint32_t number, std::int32_t type)
    {
        std::string& out = m_points.line();
        beginRecord(out, number);
        out += ", ";
        appendDigits(out, m_place.x, 7);
        out += ", ";
        appendDigits(out, m_place.y, 7);
        out += ", ";
        appendDigits(out, random.between(115, 1480), 4);
        out += ", ";
        appendDigits(out, static_cast<std::uint32_t>(type));
        out += ", ";
        appendDigits(out, random.below(25));
        out += ", ";
        appendDigits(out, random.below(3) == 0 ? random.between(1, 9) : 0);
        out += " ;";
        m_names.append(out, random, type);
    }

    void addDescription(RandomNumbers& random, std::uint32_t number, std::int32_t type)
    {
        beginRecord(m_description.line(), number);
        switch (type) {
        case point:
            addStack(random);
            break;
        case area:
            addArea(random);
            break;
        default:
            addRoad(random);
        }
    }

    std::string& nextField()
    {
        std::string& out = m_description.line();
        out += ", ";
        return out;
    }

    void addEmission(RandomNumbers& random)
    {
        static constexpr std::array<TypedRange, 5> typed{
            {{1, 999, 2}, {1, 60, 1}, {1, 99, 4}, {100, 99'999, 3}, {1'000, 99'999, 5}}};
        if (random.below(4) == 0)
            appendComputed(nextField(), random, random.between(5, 7));
        else
            appendTyped(nextField(), random, random.oneOf(typed));
    }

    /// Gas volume, temperature, diameter and velocity; half of them are as the calculation of a batch leaves them.
    void addGas(RandomNumbers& random)
    {
        const bool isComputed = random.below(2) == 0;
        if (isComputed)
            appendComputed(nextField(), random, random.between(5, 7));
        else
            appendTyped(nextField(), random, {5, 4'500, 2});
        appendTyped(nextField(), random, {20, 480, 0});
        if (isComputed && random.below(3) == 0)
            appendComputed(nextField(), random, 6);
        else
            appendTyped(nextField(), random, {10, 350, 2});
        if (isComputed)
            appendComputed(nextField(), random, random.between(5, 6));
        else
            appendTyped(nextField(), random, {10, 250, 1});
    }

    void addUse(RandomNumbers& random)
    {
        static constexpr std::array<std::uint32_t, 5> hours{24, 24, 16, 8, 10};
        appendTyped(nextField(), random, {1, 100, 2});
        appendDigits(nextField(), random.oneOf(hours));
    }

    void setPlace(RandomNumbers& random)
    {
        m_place = {random.between(432'000, 905'000), random.between(936'000, 1'226'000)};
    }

    void addStack(RandomNumbers& random)
    {
        setPlace(random);
        addEmission(random);
        if (random.below(4) == 0)
            appendTyped(nextField(), random, {50, 1'200, 1});
        else
            appendTyped(nextField(), random, {5, 180, 0});
        addGas(random);
        addUse(random);
        nextField() += '0';
    }

    void addArea(RandomNumbers& random)
    {
        setPlace(random);
        addEmission(random);
        appendTyped(nextField(), random, {0, 30, 0});
        if (random.below(3) == 0) {
            addGas(random);
        } else {
            // Neither diameter nor velocity: the temperature is a plume rise.
            nextField() += '0';
            appendTyped(nextField(), random, {0, 60, 1});
            nextField() += '0';
            nextField() += '0';
        }
        addUse(random);
        appendTyped(nextField(), random, {5, 500, 0});
    }

    /// The source stands in the middle of its segment.
    void addRoad(RandomNumbers& random)
    {
        setPlace(random);
        const Place from = m_place;
        const Place to = {from.x + random.below(600), from.y + random.below(600)};
        appendTiny(nextField(), random);
        for (const Place& end : {from, to}) {
            appendDigits(nextField(), end.x);
            appendDigits(nextField(), end.y);
        }
        m_place = {middle(from.x, to.x), middle(from.y, to.y)};
        appendTyped(nextField(), random, {60, 240, 1});
        appendTyped(nextField(), random, {5, 80, 1});
        addUse(random);
    }

    void addDust(RandomNumbers& random, std::uint32_t number, std::int32_t type)
    {
        std::string& out = m_dust.line();
        beginRecord(out, number);
        if (type != point)
            return;
        out += ',';
        appendDigits(out, random.between(12, 78) * 50);  // density [kg/m3]
        out += ',';
        if (random.below(2) == 0)
            appendDigits(out, random.between(1, 40));
        else
            appendParticles(out, random);
    }

    /// Diameters rise; the shares add up to 1.
    static void appendParticles(std::string& out, RandomNumbers& random)
    {
        static constexpr std::array<TypedRange, 8> diameters{
            {{5, 20, 1}, {25, 45, 1}, {5, 9, 0}, {10, 18, 0}, {20, 28, 0}, {30, 48, 0}, {50, 75, 0}, {80, 120, 0}}};
        constexpr std::uint32_t whole = 100;
        const std::uint32_t count = random.between(1, static_cast<std::uint32_t>(diameters.size()));
        out += "0,";
        appendDigits(out, count);
        std::uint32_t left = whole;
        for (std::uint32_t i = 0; i < count; ++i) {
            const std::uint32_t following = count - i - 1;
            // At least a hundredth is left for each of those that follow.
            const std::uint32_t share
                = following == 0 ? left : random.between(1, (left - following) * 2 / (following + 2));
            left -= share;
            out += ',';
            appendTyped(out, random, diameters[i]);
            out += ',';
            appendReal(out, share, 2);
        }
    }

    const InventoryRequest& m_request;
    RandomNumbers m_omissions;
    RandomNumbers m_doubles;
    Names m_names;
    Lines m_points;
    Lines m_description;
    Lines m_dust;
    Place m_place{};
    std::uint32_t m_number = 0;
    std::uint32_t m_numberBefore = 0;
};

}  // namespace

InventoryBytes makeInventory(const InventoryRequest& request)
{
    Maker maker(request);
    for (std::size_t index = 0; index < request.count; ++index)
        maker.addSource(index);
    return maker.take();
}

}  // namespace korvex
