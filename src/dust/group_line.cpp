#include "group_line.h"

#include "arithmetic_fault.h"
#include "fields.h"
#include "number_text.h"

namespace korvex {

DustGroup DustGroup::parse(std::string_view line)
{
    constexpr std::size_t fieldsBeforeParticles = 2;
    const std::string_view particlePart = field(line, ';', 1);
    DustGroup group;
    group.SkupinaCislo = readInteger(field(particlePart, ',', 1));
    group.SkupinaNazev = groupNameOf(line);
    group.Castice.read(particlePart, fieldsBeforeParticles, readInteger(field(particlePart, ',', 2)));
    return group;
}

std::string DustGroup::line() const
{
    std::string out = integerText(SkupinaCislo);
    out += ',';
    out += integerText(static_cast<std::int32_t>(Castice.count()));
    Castice.appendTo(out);
    out += ';';
    out += SkupinaNazev;
    return out;
}

std::int32_t groupNumberOf(std::string_view line)
{
    try {
        return readInteger(field(line, ',', 1));
    } catch (const ArithmeticFault&) {
        return 0;
    }
}

std::string_view groupNameOf(std::string_view line)
{
    return field(line, ';', 2);
}

bool hasParticlePart(std::string_view line)
{
    return field(line, ';', 1).find(',') != std::string_view::npos;
}

}  // namespace korvex
