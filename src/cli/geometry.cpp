#include "geometry.h"

#include "number_text.h"
#include "source.h"

#include <string_view>

namespace korvex {

namespace {

bool isSegment(const cZdroje& source)
{
    return source.TypZdrojeId() == cLiniovyZdroj.TypZdrojeId;
}

std::string joined(std::string x, std::string_view separator, std::string_view y)
{
    return x.append(separator).append(y);
}

std::string position(const cZdroje& source, std::string_view separator)
{
    return joined(integerText(source.X()), separator, integerText(source.Y()));
}

std::string startPoint(const cZdroje& source, std::string_view separator)
{
    return joined(singleText(source.Parameters(1)), separator, singleText(source.Parameters(2)));
}

std::string endPoint(const cZdroje& source, std::string_view separator)
{
    return joined(singleText(source.Parameters(3)), separator, singleText(source.Parameters(4)));
}

}  // namespace

std::string wellKnownText(const cZdroje& source)
{
    if (isSegment(source))
        return "LINESTRING (" + startPoint(source, " ") + ", " + endPoint(source, " ") + ')';
    return "POINT (" + position(source, " ") + ')';
}

std::string geoJsonGeometry(const cZdroje& source)
{
    if (isSegment(source)) {
        return R"({"type": "LineString", "coordinates": [[)" + startPoint(source, ", ") + "], ["
            + endPoint(source, ", ") + "]]}";
    }
    return R"({"type": "Point", "coordinates": [)" + position(source, ", ") + "]}";
}

}  // namespace korvex
