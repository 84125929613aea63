#pragma once

#include <QByteArray>
#include <functional>

#include "model/program.h"

namespace calvora {

/// Name line of a file: its title without blanks at the ends and without the extension.
QString nameLine(const QString& title, const QString& extension);

/// The content of an analysis file: name line (flag slot 0), header slots 1 to 7, every field 1 to
/// 15 and 20 to 26 that has a text, end record.
QByteArray analysisContent(const Program& program);

/// Writes a file whose content starts with the name line in flag slot 0. If that fails, the slot
/// keeps what it held, the old file is untouched, and the runtime error is 75, 61 or 5.
void writeNamed(Program& program, const QString& path, const QString& nameLine,
                const std::function<QByteArray()>& content);

/// Writes the current analysis. `title` is the file name that the dialog reports; flag slot 0 gets
/// its name line. Runtime error 75 or 61, and the old file untouched, if that fails.
void writeAnalysis(Program& program, const QString& path, const QString& title);

/// Reads an analysis file into the record, which `reset` empties as soon as the file is open, and
/// into the header array. False if reading ended early; what was read up to there stays. Runtime
/// error 53 if the file does not exist, 75 if it cannot be read, and nothing changed.
bool readAnalysis(Program& program, const QString& path, const std::function<void()>& reset);

/// Reads an analysis file for the overview: its header lines into `header`, which comes empty, its
/// display texts into the overview texts, its name line and creation date into their flag slots.
/// The record and the header of the main window stay. Returns and throws as `readAnalysis`.
bool readForOverview(Program& program, const QString& path, AnalysisHeader& header);

}  // namespace calvora
