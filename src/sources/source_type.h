// The three types of sources, each with what sets it apart.
#pragma once

#include <cstdint>
#include <string_view>

namespace korvex {

/// What the sources of one type have in common.
struct SourceType {
    std::string_view TypZdroje;  // display name; also the first word of an automatic name
    std::int32_t TypZdrojeId;    // type code of the points file
    std::int32_t Icon;           // index into the list's small icons; differs from the type code on purpose
    std::int32_t KOMIN;          // stack number; no file carries it and no editor changes it
    int parameterCount;
    bool hasDust;  // only stacks write their dust description; they also close their description
                   // record with a field that is always 0
};

/// Point source, a stack. Parameters: 0 M emission [g/s], 1 H height of the stack top [m], 2 Vs flue gas volume at
/// normal conditions [m3/s], 3 ts flue gas temperature [°C], 4 d inner diameter [m], 5 w0 exit velocity [m/s],
/// 6 Alfa yearly use of the maximum output [fraction of 1], 7 Pd hours in operation a day [h].
inline constexpr SourceType cBodovyZdroj{"Bodový zdroj", 1, 1, 1, 8, true};

/// Area source, a row of elements. Parameters: 0 ME emission [g/s], 1 H height [m], 2 Vs [m3/s], 3 ts temperature
/// [°C] or, when d and w0 are both 0, Delta h plume rise [m], 4 d [m], 5 w0 [m/s], 6 Alfa, 7 Pd [h],
/// 8 Y0 distance of the elements from one another [m].
inline constexpr SourceType cPlosnyZdroj{"Plošný zdroj", 2, 3, 0, 9, false};

/// Line source, a road segment. Parameters: 0 ML emission [g/s/m], 1 X1el, 2 Y1el start point [m], 3 X2el, 4 Y2el
/// end point [m], 5 X0el width [m], 6 Z0el height [m], 7 Alfa, 8 Pd [h].
inline constexpr SourceType cLiniovyZdroj{"Liniový zdroj", 3, 2, 0, 9, false};

/// The type of a type code of the points file; none for any other number.
[[nodiscard]] constexpr const SourceType* sourceTypeOf(std::int32_t typeId)
{
    for (const SourceType* type : {&cBodovyZdroj, &cPlosnyZdroj, &cLiniovyZdroj}) {
        if (type->TypZdrojeId == typeId)
            return type;
    }
    return nullptr;
}

}  // namespace korvex
