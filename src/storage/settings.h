#pragma once

#include <array>

#include "app/checked_array.h"

namespace calvora {

/// Slots of the settings array that the program uses.
namespace setting {
inline constexpr int kPrintLine = 5;     ///< the company line as it is printed
inline constexpr int kSegmentList = 6;   ///< its four segments, each followed by "|"
inline constexpr int kFirstSegment = 5;  ///< in the file: the four segments themselves
inline constexpr int kDataFolder = 10;
}  // namespace setting

inline constexpr int kLongestPrintLine = 115;

/// The program's few settings, kept in `cvra.ini` in the program folder.
struct Settings {
  CheckedArray<QString, 21> slot;

  /// The company line's segments as last read or stored; written to the file in place of what the
  /// slots 5 to 8 hold while the program runs.
  std::array<QString, 4> segments;

  /// They could not be written; the running program keeps them and must not read the old ones.
  bool unsaved = false;

  /// The file holds more than could be read; it must not be lost by writing it anew.
  bool readInPart = false;
};

/// The folder that analyses are kept in unless another was chosen.
QString defaultDataFolder(const QString& programFolder);

/// Where file dialogs open: the data folder; where there is none, as after the program was moved
/// with all its files or the settings could not be read, the default one.
QString dialogFolder(const Settings& settings, const QString& programFolder);

/// Reads the settings file and derives print line and segment list. Without a file, or a folder in
/// it, the data folder is the default; a fault ends reading silently, with neither line derived.
void readSettings(Settings& settings, const QString& programFolder);

/// Writes the settings file, slots 1 to 12. What was not readable in the old file is kept beside it
/// as `cvra.ini.alt`, `.alt2` and so on. Runtime error 75 or 61, and the old file untouched, if
/// that fails or the old one is larger than any settings are (4 MiB); the settings then count as
/// unsaved.
void writeSettings(Settings& settings, const QString& programFolder);

/// The four segments as one list: each followed by "|", and a "|" in them as "/".
QString segmentList(const std::array<QString, 4>& segments);

/// The segments joined without separator.
QString joinedSegments(const std::array<QString, 4>& segments);

}  // namespace calvora
