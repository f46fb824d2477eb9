// Arithmetic on 64-bit reals in which no step can end in infinity or not-a-number unseen.
#pragma once

namespace korvex {

/// Operands are finite. Each throws ArithmeticFault when there is no finite result.
[[nodiscard]] double checkedProduct(double a, double b);
[[nodiscard]] double checkedQuotient(double a, double b);
[[nodiscard]] double checkedPower(double base, double exponent);
[[nodiscard]] double checkedRoot(double value);
/// Rounded to 32 bits.
[[nodiscard]] float checkedSingle(double value);

}  // namespace korvex
