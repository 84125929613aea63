#pragma once

#include <QByteArray>

#include "model/overview_grid.h"
#include "model/program.h"

namespace calvora {

/// The content of a project file: name line (flag slot 0), the header slots 1, 2, 4, 5 and 7, a
/// block of caption and cells for every filled slot, end marker.
QByteArray projectContent(const Program& program, const OverviewGrid& grid);

/// Writes the overview. `title` is the file name that the dialog reports; flag slot 0 gets its name
/// line. Runtime error 75 or 61, and the old file untouched, if that fails.
void writeProject(Program& program, const OverviewGrid& grid, const QString& path,
                  const QString& title);

/// Reads a project into the header slots 0, 1, 2, 4, 5 and 7, emptied before, and its blocks into
/// the slots 1, 2, 3, ... of a grid that comes empty. False if reading ended early; what was read
/// up to there stays, and a slot whose block was not read to its end is not filled. Runtime error
/// 53 if the file does not exist, 75 if it cannot be read, and nothing changed.
bool readProject(Program& program, OverviewGrid& grid, const QString& path);

}  // namespace calvora
