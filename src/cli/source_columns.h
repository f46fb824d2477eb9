// The values of a source as named columns: one table for the difference, for CSV and for GeoJSON.
#pragma once

#include "source_editor.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvex {

class cZdroje;

enum class ColumnKind { Integer, Real, Text };

struct SourceColumn {
    std::string_view name;  // the quantity and behind it the unit
    ColumnKind kind;
};

namespace column {

enum Index : std::size_t {
    Number,
    Type,
    Name,
    X,
    Y,
    Altitude,
    Group,
    Cluster,
    Emission,  // of a stack (M) or an area (ME)
    Height,
    GasVolume,
    Temperature,
    PlumeRise,
    Diameter,
    Velocity,
    YearlyUse,
    DailyHours,
    ElementDistance,
    EmissionOfMetre,
    StartX,
    StartY,
    EndX,
    EndY,
    Width,
    HeightOfSegment,
    Dust,
    Count,
};

}  // namespace column

/// In the order of column::Index.
inline constexpr std::array<SourceColumn, column::Count> sourceColumns{{
    {"cislo", ColumnKind::Integer},
    {"typ", ColumnKind::Integer},
    {"nazev", ColumnKind::Text},
    {"X_m", ColumnKind::Integer},
    {"Y_m", ColumnKind::Integer},
    {"Z_m", ColumnKind::Integer},
    {"skupina", ColumnKind::Integer},
    {"shluk", ColumnKind::Integer},
    {"M_g_s", ColumnKind::Real},
    {"H_m", ColumnKind::Real},
    {"Vs_m3_s", ColumnKind::Real},
    {"ts_C", ColumnKind::Real},
    {"Delta_h_m", ColumnKind::Real},
    {"d_m", ColumnKind::Real},
    {"w0_m_s", ColumnKind::Real},
    {"Alfa", ColumnKind::Real},
    {"Pd_h", ColumnKind::Real},
    {"Y0_m", ColumnKind::Real},
    {"ML_g_s_m", ColumnKind::Real},
    {"X1el_m", ColumnKind::Real},
    {"Y1el_m", ColumnKind::Real},
    {"X2el_m", ColumnKind::Real},
    {"Y2el_m", ColumnKind::Real},
    {"X0el_m", ColumnKind::Real},
    {"Z0el_m", ColumnKind::Real},
    {"prach", ColumnKind::Text},
}};

/// The index of the column of this name.
[[nodiscard]] std::optional<std::size_t> columnNamed(std::string_view name);

/// The column in which a parameter of a source stands. The fourth of an area source is its plume rise when its
/// diameter and velocity are both 0, and the temperature otherwise.
[[nodiscard]] std::size_t columnOfParameter(
    const SourceType& type, std::size_t index, const std::array<float, 9>& parameters);

/// A source's values as texts. Made once and filled again for each source.
struct SourceRow {
    std::array<std::string, column::Count> texts;
    std::bitset<column::Count> applies;  // the columns that the source's type has

    /// Numbers as the files hold them, without padding.
    void fill(const cZdroje& source);
};

/// The shortest text that reads back to the same 32-bit real, however many digits that takes: tells values apart that
/// the files do not.
[[nodiscard]] std::string exactText(float value);

}  // namespace korvex
