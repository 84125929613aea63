#pragma once

namespace calvora {

// What turns concentrations into hardness.
inline constexpr double kDegreePerMmol = 5.6;              ///< °d per mmol/l of alkaline earths
inline constexpr double kMolarMassCa = 40.08;              ///< g/mol
inline constexpr double kMolarMassMg = 24.31;              ///< g/mol
inline constexpr double kKarbonathärteJeMg = 2.8 / 61.01;  ///< °d per mg/l of hydrogencarbonate

}  // namespace calvora
