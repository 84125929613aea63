#pragma once

#include <optional>

namespace calvora {

/// What the second calculation takes from a water. Capacities in mmol/l, titrated at 20 °C; ions in
/// mg/l, 0 where they were not measured.
struct CarbonateWater {
  double temperature = 0;         ///< of the medium, where the pH was measured, 0 to 100 °C
  std::optional<double> ph = {};  ///< measured, 0 to 14
  std::optional<double> conductivity = {};  ///< µS/cm at 25 °C
  double ks43 = 0;                          ///< acid to pH 4.3
  double ks82 = 0;  ///< acid to pH 8.2; base to 8.2 (Kb8,2) counts as negative
  double calcium = 0;
  double magnesium = 0;
  double chloride = 0;
};

/// The carbonate system at the temperature of the medium. Every species includes its ion pairs.
struct CarbonateSystem {
  double ph = 0;
  double hydrogencarbonate = 0;                ///< mg/l
  double carbonate = 0;                        ///< mg/l
  double carbonDioxide = 0;                    ///< mg/l
  double ionicStrength = 0;                    ///< mmol/l
  std::optional<double> saturationIndex = {};  ///< of calcite at the measured pH, without one at
                                               ///< `ph`; empty without calcium
};

// Both calculations share constants, activities and ion pairs (their sources stand beside them),
// and close the ions that were not measured: sodium or sulphate by the charges, then sodium
// sulphate until the conductivity is met. They are independent of the ten steps, and empty for a
// water that no chemistry has: an input that is no number, negative or out of its range, an acid
// capacity of 0, no carbon or no pH that fits, or an ionic strength above 0.5 mol/l, where the
// activities end. At most 100 µs, then too.

/// The carbonate system from the two titrations: total alkalinity and inorganic carbon, with the
/// residue at both end points counted, and the pH that they imply. The measured pH is used for the
/// saturation index only. 10 °C, Ks4,3 2.5, Kb8,2 0.25 mmol/l and 60 mg/l calcium imply a pH
/// of 7.43.
std::optional<CarbonateSystem> secondCalculation(const CarbonateWater& water);

/// The carbonate system from the measured pH and Ks4,3; `ks82` is not used. Empty without a pH, and
/// where the acid capacity is too small for its hydroxide.
std::optional<CarbonateSystem> carbonateSystemAtPh(const CarbonateWater& water);

/// The pH of a water that holds nothing but sodium hydroxide, more than 0 mmol/l, at a temperature
/// in °C. 1 mmol/l is 10.98 at 25 °C.
double phOfHydroxide(double hydroxide, double temperature);

}  // namespace calvora
