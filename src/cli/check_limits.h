// The limits of the check, all in one place: what --explain prints and docs/checks.md shows is made from these tables.
#pragma once

#include "check_rules.h"
#include "source_type.h"

#include <array>
#include <cstdint>

namespace korvex {

/// Why a limit is what it is.
struct LimitReason {
    const char* czech;
    const char* english;
};

/// A parameter of one type that should lie between two values, both included.
struct ParameterRange {
    Rule rule;
    std::int32_t typeId;
    int parameter;  // index, see source_type.h
    const char* symbol;
    const char* unit;
    float low;
    float high;
    LimitReason reason;
};

namespace reasons {

inline constexpr LimitReason stackHeight{"výdechy u země až po nejvyšší komíny střední Evropy (360 m)",
    "outlets at the ground up to the highest stacks of central Europe (360 m)"};
inline constexpr LimitReason areaHeight{"plochy na zemi až po střechy a výsypky, topeniště obce v úrovni střech",
    "areas on the ground up to roofs and spoil heaps, the heating of a village at its roofs"};
inline constexpr LimitReason roadHeight{
    "silnice na terénu až po nejvyšší mosty", "roads on the terrain up to the highest bridges"};
inline constexpr LimitReason temperature{"odvod vzduchu v zimě až po fléry a pece bez chlazení spalin",
    "ventilation in winter up to flares and furnaces without cooling"};
inline constexpr LimitReason diameter{
    "odvzdušnění nádrže (2 cm) až po chladicí věž (kolem 85 m), která odvádí i spaliny; "
    "průměr v mm je nad tím, v cm většinou nad poměrem k H",
    "the vent of a tank (2 cm) up to a cooling tower (about 85 m), which may carry flue gas too; a diameter in mm is "
    "beyond, one in cm mostly beyond the ratio to H"};
inline constexpr LimitReason velocity{
    "přirozené větrání (pod 0.1 m/s) až po plynové turbíny, motory a fléry (do 122 m/s)",
    "natural ventilation (below 0.1 m/s) up to gas turbines, engines and flares (up to 122 m/s)"};
inline constexpr LimitReason fraction{"podíl roku", "a share of the year"};
inline constexpr LimitReason hours{"den má 24 hodin", "a day has 24 hours"};
inline constexpr LimitReason elements{
    "od jednotlivého stroje po čtverce sítě pro celý kraj", "from a single machine up to the grid squares of a region"};
inline constexpr LimitReason width{
    "od pásového dopravníku po nádraží a letištní plochy", "from a belt conveyor up to railway yards and aprons"};

}  // namespace reasons

inline constexpr std::int32_t stackId = cBodovyZdroj.TypZdrojeId;
inline constexpr std::int32_t areaId = cPlosnyZdroj.TypZdrojeId;
inline constexpr std::int32_t roadId = cLiniovyZdroj.TypZdrojeId;

/// Ordered by type. ts, d and w0 of an area source count only when d or w0 is given.
inline constexpr std::array parameterRanges{
    ParameterRange{Rule::RangeH, stackId, 1, "H", "m", 0.1F, 370.0F, reasons::stackHeight},
    ParameterRange{Rule::RangeTs, stackId, 3, "ts", "°C", -30.0F, 1300.0F, reasons::temperature},
    ParameterRange{Rule::RangeD, stackId, 4, "d", "m", 0.02F, 90.0F, reasons::diameter},
    ParameterRange{Rule::RangeW0, stackId, 5, "w0", "m/s", 0.01F, 125.0F, reasons::velocity},
    ParameterRange{Rule::RangeAlfa, stackId, 6, "Alfa", "", 0.0F, 1.0F, reasons::fraction},
    ParameterRange{Rule::RangePd, stackId, 7, "Pd", "h", 0.0F, 24.0F, reasons::hours},
    ParameterRange{Rule::RangeH, areaId, 1, "H", "m", 0.0F, 200.0F, reasons::areaHeight},
    ParameterRange{Rule::RangeTs, areaId, 3, "ts", "°C", -30.0F, 1300.0F, reasons::temperature},
    ParameterRange{Rule::RangeD, areaId, 4, "d", "m", 0.02F, 90.0F, reasons::diameter},
    ParameterRange{Rule::RangeW0, areaId, 5, "w0", "m/s", 0.01F, 125.0F, reasons::velocity},
    ParameterRange{Rule::RangeAlfa, areaId, 6, "Alfa", "", 0.0F, 1.0F, reasons::fraction},
    ParameterRange{Rule::RangePd, areaId, 7, "Pd", "h", 0.0F, 24.0F, reasons::hours},
    ParameterRange{Rule::RangeSize, areaId, 8, "Y0", "m", 0.1F, 5000.0F, reasons::elements},
    ParameterRange{Rule::RangeSize, roadId, 5, "X0el", "m", 0.3F, 300.0F, reasons::width},
    ParameterRange{Rule::RangeH, roadId, 6, "Z0el", "m", 0.0F, 100.0F, reasons::roadHeight},
    ParameterRange{Rule::RangeAlfa, roadId, 7, "Alfa", "", 0.0F, 1.0F, reasons::fraction},
    ParameterRange{Rule::RangePd, roadId, 8, "Pd", "h", 0.0F, 24.0F, reasons::hours},
};

/// A limit of its own kind.
struct SingleLimit {
    Rule rule;
    float value;
    const char* unit;
    const char* czech;
    const char* english;
    LimitReason reason;
};

namespace limits {

inline constexpr SingleLimit vsDifference{Rule::VsMismatch, 5.0F, "%", "největší rozdíl Vs od výpočtu z ts, d a w0",
    "largest difference of Vs from what ts, d and w0 give",
    {"hodnoty bývají zaokrouhleny na dvě až tři číslice", "values are mostly rounded to two or three digits"}};
inline constexpr SingleLimit diameterToHeight{Rule::DiameterHeight, 1.0F, "", "největší poměr d k H",
    "largest ratio of d to H",
    {"stěnové ventilátory hal a stájí mají až 0.9, chladicí věže 0.6; záměna polí nebo jednotek většinou přes 1",
        "wall fans of halls and stables have up to 0.9, cooling towers 0.6; swapped fields or units mostly give more "
        "than 1"}};
inline constexpr SingleLimit smallestEmission{Rule::Emission, 0.0F, "g/s, g/s/m", "M, ME a ML musí být větší než",
    "M, ME and ML have to be greater than", {"bez emise není co počítat", "without an emission nothing is calculated"}};
inline constexpr SingleLimit shareDifference{Rule::Shares, 0.01F, "", "největší rozdíl součtu zastoupení od 1",
    "largest difference of the sum of the shares from 1",
    {"zaokrouhlení každého zastoupení na dvě místa", "each share rounded to two decimals"}};
inline constexpr SingleLimit highestPlumeRise{Rule::PlumeRise, 50.0F, "m", "největší vznos vlečky Delta h",
    "largest plume rise Delta h",
    {"domácí topeniště mají několik metrů, koksovny a hutní haly desítky; teplota spalin bývá nad 60",
        "domestic heating has a few metres, coke ovens and foundry halls tens; a flue gas temperature is mostly above "
        "60"}};
inline constexpr SingleLimit midpointDistance{Rule::Midpoint, 2.0F, "m", "největší vzdálenost X nebo Y od středu úseku",
    "largest distance of X or Y from the midpoint",
    {"zaokrouhlení konců i středu na celé metry", "the ends and the midpoint rounded to whole metres"}};
inline constexpr SingleLimit spreads{Rule::FarAway, 3.0F, "",
    "kolik rozpětí (mezi čtvrtinou a třemi čtvrtinami zdrojů) smí zdroj ležet za nimi",
    "how many spreads (between a quarter and three quarters of the sources) a source may lie beyond them",
    {"rovnoměrně rozložené zdroje leží do poloviny rozpětí, zbytek je rezerva na shluky",
        "evenly spread sources lie within half a spread, the rest is room for clusters"}};
inline constexpr SingleLimit leastFarAway{Rule::FarAway, 50000.0F, "m", "vzdálenost od nich, která je přípustná vždy",
    "the distance from them that is always allowed",
    {"soupis jednoho města smí mít i vzdálený zdroj v kraji",
        "the inventory of a town may have a distant source of its region"}};
inline constexpr SingleLimit fewestSources{Rule::FarAway, 8.0F, "", "posuzuje se od tohoto počtu zdrojů",
    "looked at from so many sources on", {"z méně zdrojů nelze rozpětí odhadnout", "of fewer no spread can be told"}};

inline constexpr std::array all{vsDifference, diameterToHeight, smallestEmission, shareDifference, highestPlumeRise,
    midpointDistance, spreads, leastFarAway, fewestSources};

}  // namespace limits

}  // namespace korvex
