// Flue gas volume, stack diameter and exit velocity computed from one another.
#pragma once

namespace korvex {

/// The three quantities are linked by the ideal gas law: the actual volume flow (pi d^2 / 4) w0 at the flue gas
/// temperature ts and the air pressure p is brought to normal conditions (273.15 K, 101325 Pa):
///     Vs = (pi d^2 / 4) w0 (273.15 / (ts + 273.15)) (p / 101325)
/// Units: Vs m3/s, ts °C, d m, w0 m/s, p Pa. Arguments and results are 32-bit reals, what lies between is 64-bit. The
/// order of the operations and pi with ten decimals are part of the method: results have to match to the last digit.
///
/// Nothing is checked beforehand: callers look for zero divisors. Every step throws ArithmeticFault for an operation
/// without a result, a division by zero and an overflow.
class StackGas {
public:
    /// currentAirPressure: the program's, in Pa.
    explicit StackGas(float currentAirPressure) : m_currentAirPressure(currentAirPressure) { }

    [[nodiscard]] float CalcVs(float ts, float d, float w0, float p) const;
    /// d and w0 always use the program's pressure: the last argument is accepted and ignored, so that a pressure typed
    /// for one batch run acts on Vs alone.
    [[nodiscard]] float CalcW0(float ts, float Vs, float d, float p) const;
    [[nodiscard]] float CalcD(float ts, float Vs, float w0, float p) const;

private:
    float m_currentAirPressure;
};

}  // namespace korvex
