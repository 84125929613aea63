#pragma once

#include <optional>

namespace calvora {

/// What the second calculation takes from a water. Capacities in mmol/l, titrated at 20 °C; ions in
/// mg/l, 0 where they were not measured.
struct CarbonateWater {
  double temperature = 0;              ///< of the medium, °C, where the pH was measured
  std::optional<double> ph;            ///< measured; only the saturation index uses it
  std::optional<double> conductivity;  ///< µS/cm at 25 °C
  double ks43 = 0;                     ///< acid to pH 4.3
  double ks82 = 0;                     ///< acid to pH 8.2; base to 8.2 (Kb8,2) counts as negative
  double calcium = 0;
  double magnesium = 0;
  double chloride = 0;
};

/// The carbonate system at the temperature of the medium. Every species includes its ion pairs.
struct CarbonateSystem {
  double ph = 0;                 ///< that the titrations imply
  double hydrogencarbonate = 0;  ///< mg/l
  double carbonate = 0;          ///< mg/l
  double carbonDioxide = 0;      ///< mg/l
  double ionicStrength = 0;      ///< mmol/l
  double saturationIndex = 0;    ///< of calcite at the measured pH, or the implied one without it
};

/// The carbonate system of a water from its two titrations: total alkalinity and inorganic carbon
/// with the residue at both end points counted, the ions that were not measured closed by charge
/// balance and conductivity, everything else by successive substitution. Independent of the ten
/// steps. Empty for a water that no chemistry has. 10 °C, Ks4,3 2.5, Kb8,2 0.25 mmol/l and 60 mg/l
/// calcium imply a pH of 7.4.
std::optional<CarbonateSystem> secondCalculation(const CarbonateWater& water);

}  // namespace calvora
