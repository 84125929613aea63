// Any bytes as a project file: read into the overview, written and read back.
#include "fuzz_support.h"

using namespace calvora;
using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const fuzz::TemporaryFile file(u"any.cvp"_s);
  file.put(fuzz::bytes(data, size));

  Project project;
  for (const int slot : {0, 1, 2, 4, 5, 7}) project.header[slot] = u"of before"_s;
  readProject(project, file.path());
  for (const int slot : {0, 1, 2, 4, 5, 7}) {
    require(project.header[slot] != "of before"_L1, "nothing stays of before");
  }
  const auto content = fuzz::written([&] { return projectContent(project, project.header[0]); },
                                     [&] {
                                       QStringList texts;
                                       for (int i = 0; i <= 7; ++i) texts += project.header[i];
                                       for (int k = 1; k <= OverviewGrid::kSlots; ++k) {
                                         const OverviewGrid::Slot& slot = project.grid.slot[k];
                                         texts += slot.caption;
                                         for (int row = 0; row < OverviewGrid::kRows; ++row) {
                                           texts += slot.cells[row];
                                         }
                                       }
                                       return texts;
                                     });
  if (!content) return 0;
  file.put(*content);
  requireReadsBack(project, project.header[0], file.path());
  return 0;
}
