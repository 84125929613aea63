#pragma once

#include <cmath>

namespace calvora {

/// Molar conductivities of the ions at infinite dilution and 25 °C, in S·cm²/mol of charges
/// (rounded values of the usual tables).
namespace lambda {
inline constexpr double kH = 350;
inline constexpr double kOH = 198;
inline constexpr double kNa = 50;
inline constexpr double kNaOH = kNa + kOH;
inline constexpr double kHCO3 = 44.5;
inline constexpr double kCO3 = 86;
inline constexpr double kCa = 59.5;
inline constexpr double kMg = 53.1;
inline constexpr double kCl = 76.3;
inline constexpr double kSO4 = 80;
}  // namespace lambda

/// Share of the conductivity at infinite dilution that is left at conductivity κ in µS/cm at 25 °C:
/// 0.902 at 420 µS/cm, 0.8 above 1399.
inline double conductivityFactor(double conductivity) {
  if (conductivity > 1399) return 0.8;
  return std::abs(1 - 0.000277 * conductivity + 0.000000105 * conductivity * conductivity);
}

}  // namespace calvora
