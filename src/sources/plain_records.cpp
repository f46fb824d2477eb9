#include "plain_records.h"

#include "fields.h"
#include "plain_number.h"

#include <cstddef>

namespace korvex {

bool PlainPoints::read(std::string_view record)
{
    PlainFields fields(record);
    const bool isPlain = fields.next(number) && fields.next(x) && fields.next(y) && fields.next(altitude)
        && fields.next(typeId) && fields.next(group) && fields.next(cluster);
    if (isPlain)
        name = field(fields.rest(), ';', 2);
    return isPlain;
}

bool readPlainParameters(std::string_view record, int count, PlainParameters& parameters)
{
    PlainFields fields(record);
    std::int32_t number = 0;
    if (!fields.next(number))
        return false;
    parameters = {};
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        if (!fields.next(parameters[i]))
            return false;
    }
    return true;
}

}  // namespace korvex
