#pragma once

#include <QString>
#include <array>
#include <span>

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

/// What the mask says about one field.
struct FieldCaption {
  int index;
  QString caption;
  QString shortLabel;
  QString unit;
  QString toolTip = {};
};

/// The fields that the user types, in the order in which the focus walks them.
inline constexpr std::array kInputFields{1, 2, 3, 4, 5, 6, 20, 23, 24, 25, 26};

/// Captions of the fields 1 to 6 and 20 to 26; 21 and 22 are computed, all others are typed.
std::span<const FieldCaption> inputCaptions();

/// Captions of the results 7 to 15, with the unit that each result really has.
std::span<const FieldCaption> resultCaptions();

/// What the mask says about a field; empty for one that it does not show.
const FieldCaption& captionOf(int field);

/// Whether the mask shows the field; these are the fields that analysis files hold.
bool isShown(int field);

}  // namespace calvora
