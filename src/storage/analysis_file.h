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
/// into the header array. False if reading ended early; what was read up to there stays. Runtime
/// error 53 if the file does not exist, 75 if it cannot be read, and nothing changed.
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
  bool complete = false;  ///< false if reading ended early; the rest is what was read up to there
  AnalysisHeader header;
  CheckedArray<QString, 41> text;  ///< display texts by field
};

/// Reads an analysis file for the overview. Throws as `readAnalysis`.
OverviewAnalysis readForOverview(const QString& path);

}  // namespace calvora
