#pragma once

#include <array>

#include "model/settings.h"

namespace calvora {

inline constexpr int kLongestPrintLine = 115;

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
