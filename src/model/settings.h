#pragma once

#include <QString>
#include <array>
#include <set>

#include "base/checked_array.h"

namespace calvora {

/// Slots of the settings array that the program uses.
namespace setting {
inline constexpr int kPrintLine = 5;     ///< the company line as it is printed
inline constexpr int kSegmentList = 6;   ///< its four segments, each followed by "|"
inline constexpr int kFirstSegment = 5;  ///< in the file: the four segments themselves
inline constexpr int kLastSegment = 8;
inline constexpr int kDataFolder = 10;
inline constexpr int kUncertainties = 11;  ///< measurement uncertainties; empty: the defaults
}  // namespace setting

/// The program's few settings, kept in `cvra.ini` in the program folder.
struct Settings {
  CheckedArray<QString, 21> slot;

  /// The company line's segments as last read or stored; written to the file in place of what the
  /// slots 5 to 8 hold while the program runs.
  std::array<QString, 4> segments;

  /// Slots of the file that were changed here but could not be written, the company line by its
  /// first. The running program keeps them and must not read the old ones.
  std::set<int> unsaved;
};

}  // namespace calvora
