#pragma once

#include <QByteArray>
#include <functional>

#include "model/program.h"

namespace calvora {

/// Extension of an analysis file.
inline const QString kAnalysisFile = QStringLiteral("cva");

/// The content of an analysis file: name line, header slots 1 to 7, every field 1 to 15 and 20 to
/// 26 that has a text, end record. Runtime error 5 for a text that is too long for a file.
QByteArray analysisContent(const Program& program, const QString& name);

/// Reads an analysis file into the record, which `reset` empties as soon as the file is open, and
/// into the header array. It becomes the analysis' own file. False, and it does not, if reading
/// ended early, the end record is missing or the text of a record shows another number than its
/// value: what was read up to there stays, and a field that contradicts itself is left empty.
/// Runtime error 53 if the file does not exist, 75 if it cannot be read, and nothing changed.
bool readAnalysis(Program& program, const QString& path, const std::function<void()>& reset);

/// Writes the current analysis to `path`, which becomes its own file; it counts as saved then.
/// `title` is the file name that its name line is made of. Runtime error 75, 61 or 5, and nothing
/// changed, if that fails.
void saveAnalysis(Program& program, const QString& path, const QString& title);

/// Writes the current analysis to its own file again, as `saveAnalysis`, with the header as it
/// stands. Ask `isUnchanged` first. Runtime error 53 as well, for an analysis without one.
void saveToOwnFile(Program& program);

/// What the overview takes from an analysis file.
struct OverviewAnalysis {
  bool complete = false;  ///< as `readAnalysis` returns it
  AnalysisHeader header;
  CheckedArray<QString, 41> text;  ///< display texts by field
};

/// Reads an analysis file for the overview. Throws as `readAnalysis`.
OverviewAnalysis readForOverview(const QString& path);

}  // namespace calvora
