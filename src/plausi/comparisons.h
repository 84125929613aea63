#pragma once

#include <vector>

#include "plausi/figures.h"
#include "plausi/plausibility.h"

namespace calvora {

/// What the note of a row is made from.
struct Finding {
  const Inputs& inputs;
  const Spread& spread;
  const Comparison& row;  ///< values, uncertainty and verdict are there already

  [[nodiscard]] std::optional<double> operator[](Figure figure) const {
    return spread.figures()[figure];
  }
};

/// What a comparison needs, where that is not simply one field.
namespace need {
inline constexpr int kCapacity = -1;  ///< Kb8,2 below pH 8.2, Ks8,2 from there on
inline constexpr int kHardness = -2;  ///< total hardness, or calcium and magnesium
inline constexpr int kCalcium = -3;   ///< calcium, or total hardness and magnesium
}  // namespace need

/// One comparison: what is compared, from what, and what is said about it.
struct Rule {
  int group;
  QString first;
  QString second;
  QString unit;
  Format format;
  Figure a;
  Figure b;
  Fault fault;
  std::vector<int> needs;  ///< fields and `need`

  /// Why the comparison has no sense for this water; empty where it has.
  QString (*ruledOut)(const Finding&) = nullptr;

  /// What a row with both values says; empty for nothing.
  QString (*note)(const Finding&) = nullptr;
};

/// All comparisons in the order of their groups.
const std::vector<Rule>& rules();

/// The comparisons 2 hold for salt-poor water above pH 8.2: whether this is one.
bool isSaltPoorAndAlkaline(const Inputs& inputs);

/// A number for a note or a cell, with decimal comma and the decimals of a format.
QString shown(double number, Format format);

}  // namespace calvora
