#pragma once

#include <QString>
#include <array>

namespace calvora {

using CompanyLines = std::array<QString, 4>;

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
