#pragma once

#include <array>

#include "model/settings.h"

namespace calvora {

inline constexpr int kLongestPrintLine = 115;

/// The four lines of the company line, or its segments.
using CompanyLines = std::array<QString, 4>;

/// The folder that analyses are kept in unless another was chosen.
QString defaultDataFolder(const QString& programFolder);

/// Where file dialogs open: the data folder; where there is none, as after the program was moved
/// with all its files or the settings could not be read, the default one.
QString dialogFolder(const Settings& settings, const QString& programFolder);

/// Reads the settings file and derives print line and segment list. Without a file, or a folder in
/// it, the data folder is the default; a fault ends reading silently, with neither line derived.
void readSettings(Settings& settings, const QString& programFolder);

/// Writes the settings file, slots 1 to 12, after slot `changed` was changed here; the first
/// segment stands for the whole company line. What is not changed here comes from the file, which
/// another instance may have written, and is in force here from then on. A file that cannot be read
/// to its end is kept beside the new one as `cvra.ini.alt`, `.alt2` and so on. Runtime error 75 or
/// 61, and the old file untouched, if writing fails or the old one is larger than any settings are
/// (4 MiB); what was changed then counts as unsaved.
void writeSettings(Settings& settings, const QString& programFolder, int changed);

/// The four segments as one list: each followed by "|", and a "|" in them as "/".
QString segmentList(const CompanyLines& segments);

/// The segments joined without separator.
QString joinedSegments(const CompanyLines& segments);

/// The segments that are stored: lines without blanks at their end, then seven blanks after the
/// first, four after the second and third, also where those are empty.
CompanyLines storedSegments(const CompanyLines& lines);

/// The line as it is previewed while typing: an empty second or third line gets no padding, and it
/// is cut at the longest print line.
QString companyPreview(const CompanyLines& lines);

/// The lines that a segment list shows: the texts before its first four "|". What is not followed
/// by one is dropped.
CompanyLines linesOfSegmentList(const QString& list);

}  // namespace calvora
