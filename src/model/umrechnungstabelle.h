#pragma once

#include "base/checked_array.h"
#include "entry/werteingabe.h"

namespace calvora {

/// Columns of the conversion table.
namespace spalte {
inline constexpr int kLadung = 0;    ///< charge number of a field's substance, by field
inline constexpr int kMolmasse = 1;  ///< its molar mass in g/mol, by field
inline constexpr int kWert = 2;      ///< current value in a slot's unit, by slot; empty: none yet
}  // namespace spalte

/// What the unit converter knows and has computed, by field or slot number 0 to 30 and column.
using Umrechnungstabelle = CheckedArray<CheckedArray<NumberCell, 3>, 31>;

}  // namespace calvora
