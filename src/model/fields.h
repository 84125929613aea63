#pragma once

#include <QString>
#include <functional>
#include <span>
#include <vector>

#include "entry/fixed_point.h"

namespace calvora {

/// Field indices of the analysis record. Conductivity in µS/cm at 25 °C, temperature in °C,
/// capacities and ionic strength in mmol/l, hardness in °d, pH and index without unit, everything
/// else in mg/l.
namespace feld {
inline constexpr int kLeitfähigkeit = 1;
inline constexpr int kPh = 2;
inline constexpr int kTemperatur = 3;
inline constexpr int kKs82 = 4;
inline constexpr int kKs43 = 5;
inline constexpr int kKb82 = 6;
inline constexpr int kPhAusKapazitäten = 7;
inline constexpr int kPhAusKs82 = 8;
inline constexpr int kPhBei25 = 9;
inline constexpr int kPhAusLf = 10;
inline constexpr int kHydrogencarbonat = 11;
inline constexpr int kCarbonat = 12;
inline constexpr int kCo2Frei = 13;
inline constexpr int kCo2Überschüssig = 14;
inline constexpr int kSättigungsindex = 15;
inline constexpr int kGesamthärte = 20;
inline constexpr int kKarbonathärte = 21;
inline constexpr int kNichtkarbonathärte = 22;
inline constexpr int kCalcium = 23;
inline constexpr int kMagnesium = 24;
inline constexpr int kChlorid = 25;
inline constexpr int kEisen = 26;
inline constexpr int kIonenstärke = 31;
inline constexpr int kNatrium = 32;
inline constexpr int kPhNäherung = 35;
}  // namespace feld

/// What a rejected entry, or a hardness that contradicts itself, is told by; the values are the
/// messages' numbers.
enum class InputFault {
  kConductivityTooLowForPh = 1,
  kNotPositive = 2,
  kOutOfRange = 3,
  kKs82AboveHalfKs43 = 4,
  kKs43BelowTwiceKs82 = 5,
  kCapacityOutOfRange = 6,
  kTotalBelowCalcium = 7,
  kTotalBelowMagnesium = 8,
  kCalciumAboveTotal = 9,
  kMagnesiumAboveTotal = 10,
  kPhTooHighForKs82 = 11,
  kKs82TooLowForPh = 12,
  kBothKs82AndKb82 = 13,
};

/// What a typed field admits, bounds included, and what happens to any other value.
struct FieldRange {
  FixedPoint minimum;
  FixedPoint maximum;
  QString text;  ///< as the message names the range
  bool focusBack = false;
  InputFault fault = InputFault::kOutOfRange;
};

/// One row of the field table.
struct Field {
  int index = 0;
  QString caption;
  QString shortLabel;
  QString unit;
  int overviewRow = 0;    ///< 0: the overview does not show the field
  FieldRange range = {};  ///< of a typed field
  QString toolTip = {};   ///< of an input: what it means

  [[nodiscard]] bool isTyped() const { return !range.text.isEmpty(); }
};

/// The fields 1 to 6 and 20 to 26, in the order in which the focus walks those that are typed.
std::span<const Field> inputFields();

/// The results 7 to 15, with the unit that each result really has.
std::span<const Field> resultFields();

/// The row of a field; an empty one for a field that the mask does not show.
const Field& fieldOf(int index);

/// The row of the field that a row of the overview shows; an empty one for a row without a field.
const Field& fieldOfRow(int row);

/// A field's caption with its symbol.
QString fullName(const Field& field);

/// A field's name for those who hear the mask instead of seeing it.
QString spokenName(const Field& field);

/// Whether the mask shows the field; these are the fields that analysis files hold.
bool isShown(int index);

/// The fields that the user types, in the order in which the focus walks them.
const std::vector<int>& typedFields();

/// The box that gets the focus when Enter or an arrow key leaves box `from`. `step` is +1 forward
/// or −1 backward. Computed boxes are never entered, locked ones are skipped. Forward, the first
/// box follows the last; backward, the first box of either group, 1 and 20, is the end. Stays at
/// `from` if every target is locked.
int nextBox(int from, int step, const std::function<bool(int)>& isLocked);

}  // namespace calvora
