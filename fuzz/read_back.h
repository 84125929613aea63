#pragma once

#include "model/fields.h"
#include "overview/overview_content.h"
#include "storage/analysis_file.h"
#include "storage/line_file.h"
#include "storage/project_file.h"
#include "support/files.h"

namespace calvora {

/// What a text is after it went through a file.
inline QString inFile(const QString& text) {
  const QString quoted = LineWriter::quoted(text);
  return quoted.mid(1, quoted.size() - 2);
}

inline void requireSameInFile(const QString& text, const QString& again, const char* what) {
  require(again.trimmed() == inFile(text).trimmed(), what, text);
}

/// The file holds this analysis, which reads back the same.
inline void requireReadsBack(const Program& program, const QString& name, const QString& path) {
  const QByteArray content = analysisContent(program, name);
  require(bytesOf(path) == content, "the file holds this analysis", path);
  Program again;
  require(readAnalysis(again, path, [] {}), "what was written is complete", path);
  for (int slot = 1; slot <= 7; ++slot) {
    requireSameInFile(program.header[slot], again.header[slot], "a header comes back");
  }
  for (int i = 0; i <= 40; ++i) {
    const QString text = isShown(i) ? program.record.text[i] : QString();
    requireSameInFile(text, again.record.text[i], "a text comes back");
    const auto value = text.isEmpty() ? FixedPoint{} : program.record.value[i];
    require(again.record.value[i] == value, "a value comes back", text);
  }
  require(analysisContent(again, again.header[0]) == content, "the same bytes again", path);
}

/// The file holds this project. Its filled slots come back moved up into the gaps between them.
inline void requireReadsBack(const Project& project, const QString& name, const QString& path) {
  const QByteArray content = projectContent(project, name);
  require(bytesOf(path) == content, "the file holds this project", path);
  Project again;
  require(readProject(again, path), "what was written is complete", path);
  for (const int slot : {1, 2, 4, 5, 7}) {
    requireSameInFile(project.header[slot], again.header[slot], "a header comes back");
  }
  int next = 1;
  for (int k = 1; k <= OverviewGrid::kSlots; ++k) {
    const OverviewGrid::Slot& slot = project.grid.slot[k];
    if (!slot.filled) continue;
    const OverviewGrid::Slot& found = again.grid.slot[next++];
    require(found.filled, "a slot comes back", slot.caption);
    requireSameInFile(slot.caption, found.caption, "a caption comes back");
    for (int row = 0; row < OverviewGrid::kRows; ++row) {
      requireSameInFile(slot.cells[row], found.cells[row], "a cell comes back");
    }
  }
  require(filledSlots(again.grid) == next - 1, "no slot comes from nowhere");
  require(projectContent(again, again.header[0]) == content, "the same bytes again", path);
}

}  // namespace calvora
