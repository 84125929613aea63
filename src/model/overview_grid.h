#pragma once

#include <QString>

#include "base/checked_array.h"

namespace calvora {

/// What the overview shows, as display texts: a header row and 24 rows of up to eight analyses side
/// by side. Separator rows are empty.
struct OverviewGrid {
  static constexpr int kRows = 25;
  static constexpr int kSlots = 8;
  static constexpr int kColumns = kSlots + 2;  ///< names, units, one of each slot

  /// One analysis.
  struct Slot {
    QString caption;                     ///< the name line of its file
    bool filled = false;                 ///< the only record of which slots are occupied
    CheckedArray<QString, kRows> cells;  ///< row 0: the creation date line of its file

    friend bool operator==(const Slot&, const Slot&) = default;
  };

  CheckedArray<QString, kRows> names;   ///< column 0; row 0 "Probe-Datum"
  CheckedArray<QString, kRows> units;   ///< column 1
  CheckedArray<Slot, kSlots + 1> slot;  ///< 1 to 8; slot k is column k + 1

  friend bool operator==(const OverviewGrid&, const OverviewGrid&) = default;
};

}  // namespace calvora
