// Any bytes as a project file: read into the overview, written and read back.
#include "storage/project_file.h"

#include <optional>

#include "fuzz_support.h"
#include "overview/overview_content.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

/// The bytes of a project. Empty if a text is too long for a line.
std::optional<QByteArray> written(const Project& project) {
  try {
    return projectContent(project, project.header[0]);
  } catch (const RuntimeError&) {
    qsizetype longest = 0;
    const auto measure = [&](const QString& text) { longest = std::max(longest, text.size()); };
    for (int slot = 0; slot <= 7; ++slot) measure(project.header[slot]);
    for (int k = 1; k <= OverviewGrid::kSlots; ++k) {
      measure(project.grid.slot[k].caption);
      for (int row = 0; row < OverviewGrid::kRows; ++row) measure(project.grid.slot[k].cells[row]);
    }
    fuzz::require(longest > fuzz::kSurelyFits, "what was read can be written");
    return std::nullopt;
  }
}

void requireSameSlot(const OverviewGrid::Slot& slot, const OverviewGrid::Slot& again) {
  fuzz::require(again.filled && again.caption == fuzz::inFile(slot.caption), "a slot comes back",
                slot.caption);
  for (int row = 0; row < OverviewGrid::kRows; ++row) {
    fuzz::require(again.cells[row] == fuzz::inFile(slot.cells[row]), "a cell comes back",
                  slot.cells[row]);
  }
}

/// The filled slots, moved up into the gaps between them, and nothing behind them.
void requireSame(const Project& project, const Project& again) {
  for (const int slot : {0, 1, 2, 4, 5, 7}) {
    fuzz::require(again.header[slot] == fuzz::inFile(project.header[slot]), "a header comes back",
                  project.header[slot]);
  }
  int next = 1;
  for (int k = 1; k <= OverviewGrid::kSlots; ++k) {
    if (project.grid.slot[k].filled) requireSameSlot(project.grid.slot[k], again.grid.slot[next++]);
  }
  fuzz::require(filledSlots(again.grid) == next - 1, "no slot comes from nowhere");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const fuzz::TemporaryFile file(QStringLiteral("any.cvp"));
  file.put(fuzz::bytes(data, size));

  Project project;
  for (const int slot : {0, 1, 2, 4, 5, 7}) project.header[slot] = u"of before"_s;
  readProject(project, file.path());
  for (const int slot : {0, 1, 2, 4, 5, 7}) {
    fuzz::require(project.header[slot] != "of before"_L1, "nothing stays of before");
  }
  const auto content = written(project);
  if (!content) return 0;

  file.put(*content);
  Project again;
  fuzz::require(readProject(again, file.path()), "what was written is whole");
  requireSame(project, again);
  fuzz::require(written(again) == content, "writing again gives the same bytes");
  return 0;
}
