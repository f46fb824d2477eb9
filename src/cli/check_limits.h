// The limits of the check, all in one place: what --explain prints and docs/checks.md shows is made from these tables.
#pragma once

#include "check_rules.h"
#include "source_type.h"

#include <array>
#include <cstdint>

namespace korvex {

/// A parameter of one type that should lie between two values, both included.
struct ParameterRange {
    Rule rule;
    std::int32_t typeId;
    int parameter;  // index, see source_type.h
    const char* symbol;
    const char* unit;
    float low;
    float high;
};

inline constexpr std::int32_t stackId = cBodovyZdroj.TypZdrojeId;
inline constexpr std::int32_t areaId = cPlosnyZdroj.TypZdrojeId;
inline constexpr std::int32_t roadId = cLiniovyZdroj.TypZdrojeId;

/// Ordered by type. ts, d and w0 of an area source count only when d or w0 is given.
inline constexpr std::array parameterRanges{
    ParameterRange{Rule::RangeH, stackId, 1, "H", "m", 1.0F, 420.0F},
    ParameterRange{Rule::RangeTs, stackId, 3, "ts", "°C", -30.0F, 1200.0F},
    ParameterRange{Rule::RangeD, stackId, 4, "d", "m", 0.02F, 15.0F},
    ParameterRange{Rule::RangeW0, stackId, 5, "w0", "m/s", 0.05F, 60.0F},
    ParameterRange{Rule::RangeAlfa, stackId, 6, "Alfa", "", 0.0F, 1.0F},
    ParameterRange{Rule::RangePd, stackId, 7, "Pd", "h", 0.0F, 24.0F},
    ParameterRange{Rule::RangeH, areaId, 1, "H", "m", 0.0F, 200.0F},
    ParameterRange{Rule::RangeTs, areaId, 3, "ts", "°C", -30.0F, 1200.0F},
    ParameterRange{Rule::RangeD, areaId, 4, "d", "m", 0.02F, 15.0F},
    ParameterRange{Rule::RangeW0, areaId, 5, "w0", "m/s", 0.05F, 60.0F},
    ParameterRange{Rule::RangeAlfa, areaId, 6, "Alfa", "", 0.0F, 1.0F},
    ParameterRange{Rule::RangePd, areaId, 7, "Pd", "h", 0.0F, 24.0F},
    ParameterRange{Rule::RangeSize, areaId, 8, "Y0", "m", 0.1F, 5000.0F},
    ParameterRange{Rule::RangeSize, roadId, 5, "X0el", "m", 0.5F, 300.0F},
    ParameterRange{Rule::RangeH, roadId, 6, "Z0el", "m", 0.0F, 100.0F},
    ParameterRange{Rule::RangeAlfa, roadId, 7, "Alfa", "", 0.0F, 1.0F},
    ParameterRange{Rule::RangePd, roadId, 8, "Pd", "h", 0.0F, 24.0F},
};

/// A limit of its own kind.
struct SingleLimit {
    Rule rule;
    float value;
    const char* unit;
    const char* czech;
    const char* english;
};

namespace limits {

inline constexpr SingleLimit vsDifference{Rule::VsMismatch, 5.0F, "%", "největší rozdíl Vs od výpočtu z ts, d a w0",
    "largest difference of Vs from what ts, d and w0 give"};
inline constexpr SingleLimit diameterToHeight{
    Rule::DiameterHeight, 0.5F, "", "největší poměr d k H", "largest ratio of d to H"};
inline constexpr SingleLimit smallestEmission{
    Rule::Emission, 0.0F, "g/s, g/s/m", "M, ME a ML musí být větší než", "M, ME and ML have to be greater than"};
inline constexpr SingleLimit shareDifference{Rule::Shares, 0.01F, "", "největší rozdíl součtu zastoupení od 1",
    "largest difference of the sum of the shares from 1"};
inline constexpr SingleLimit highestPlumeRise{
    Rule::PlumeRise, 30.0F, "m", "největší vznos vlečky Delta h", "largest plume rise Delta h"};
inline constexpr SingleLimit midpointDistance{Rule::Midpoint, 2.0F, "m", "největší vzdálenost X nebo Y od středu úseku",
    "largest distance of X or Y from the midpoint"};
inline constexpr SingleLimit spreads{Rule::FarAway, 3.0F, "",
    "kolik rozpětí (mezi čtvrtinou a třemi čtvrtinami zdrojů) smí zdroj ležet za nimi",
    "how many spreads (between a quarter and three quarters of the sources) a source may lie beyond them"};
inline constexpr SingleLimit leastFarAway{Rule::FarAway, 50000.0F, "m", "vzdálenost od nich, která je přípustná vždy",
    "the distance from them that is always allowed"};
inline constexpr SingleLimit fewestSources{
    Rule::FarAway, 8.0F, "", "posuzuje se od tohoto počtu zdrojů", "looked at from so many sources on"};

inline constexpr std::array all{vsDifference, diameterToHeight, smallestEmission, shareDifference, highestPlumeRise,
    midpointDistance, spreads, leastFarAway, fewestSources};

}  // namespace limits

}  // namespace korvex
