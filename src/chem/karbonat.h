#pragma once

#include <cmath>

#include "entry/fixed_point.h"

namespace calvora {

// The carbonic acid system at one pH. Between two neighbouring species stands their dissociation
// constant: hydrogencarbonate / carbon dioxide = 10^(pH − pK1), carbonate / hydrogencarbonate =
// 10^(pH − pK2). A species follows from its neighbour by that ratio alone, so that the sum of all
// three is never formed and nothing is lost to rounding. Concentrations in mmol/l.

/// Carbonate that belongs to a concentration of hydrogencarbonate.
inline double carbonateAt(double ph, double pk2, double hydrogencarbonate) {
  return hydrogencarbonate * std::pow(10.0, ph - pk2);
}

/// Hydroxide at a pH, for a dissociation constant of water of 10^−14.
inline double hydroxideAt(double ph) {
  return std::pow(10.0, ph - 11);
}

/// The same for a measured pH, whose exponent is formed in fixed point.
inline double hydroxideAt(FixedPoint ph) {
  return std::pow(10.0, saturatedDifference(ph, 11_fp).toDouble());
}

}  // namespace calvora
