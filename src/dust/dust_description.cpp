#include "dust_description.h"

#include "fields.h"
#include "number_text.h"

namespace korvex {

DustDescription DustDescription::parse(std::string_view text)
{
    DustDescription description;
    if (text.find(',') == std::string_view::npos)
        return description;
    constexpr std::size_t fieldsBeforeParticles = 3;
    description.isSet = true;
    description.Hustota = field(text, ',', 1);
    description.group = readInteger(field(text, ',', 2));
    if (description.group == 0)
        description.particles.read(text, fieldsBeforeParticles, readInteger(field(text, ',', 3)));
    return description;
}

std::string DustDescription::text() const
{
    std::string out = Hustota;
    out += ',';
    out += integerText(group);
    if (group == 0) {
        out += ',';
        out += integerText(static_cast<std::int32_t>(particles.count()));
        particles.appendTo(out);
    }
    return out;
}

}  // namespace korvex
