#pragma once

#include <QByteArray>

#include "model/overview_grid.h"
#include "model/program.h"

namespace calvora {

/// Extension of a project file.
inline const QString kProjectFile = QStringLiteral("cvp");

/// The overview and the header that describes it.
struct Project {
  AnalysisHeader header;
  OverviewGrid grid;
  KnownFile file = {};  ///< that it was read from or saved as
};

/// The content of a project file: name line, the header slots 1, 2, 4, 5 and 7, a block of caption
/// and cells for every filled slot, end marker. Runtime error 5 for a text that is too long.
QByteArray projectContent(const Project& project, const QString& name);

/// Reads a project: the header slots 0, 1, 2, 4, 5 and 7, the others are emptied, and the blocks
/// into the slots 1, 2, 3, ... of a grid that comes empty; the file becomes the project's own.
/// False, and it does not, if reading ended early; what was read up to there stays, and a slot
/// whose block was not read to its end is not filled. Runtime error 53 if the file does not exist,
/// 75 if it cannot be read, and nothing changed.
bool readProject(Project& project, const QString& path);

}  // namespace calvora
