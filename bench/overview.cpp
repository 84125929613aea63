// How long it takes from the confirmed question to eight analyses on the screen again: the grid is
// cleared, the project read, its header window shown and left.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

#include "base/safe_write.h"
#include "bench_support.h"
#include "overview/windows/analysen.h"
#include "storage/project_file.h"
#include "storage/windows/dateien.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

Project eightAnalyses() {
  Project project;
  OverviewGrid& grid = project.grid;
  for (int k = 1; k <= OverviewGrid::kSlots; ++k) {
    grid.slot[k].filled = true;
    grid.slot[k].caption = u"leitungswasser-fuellung-%1"_s.arg(k);
    for (int row = 0; row < OverviewGrid::kRows; ++row) grid.slot[k].cells[row] = u"480,0000"_s;
  }
  return project;
}

void clearAndReloadAProjectOfEight(benchmark::State& state) {
  const QTemporaryDir folder;
  Bench bench(acidWater());
  bench.desktop.file = folder.filePath(u"acht"_s);
  writeFileSafely(folder.filePath(u"acht.cvp"_s), projectContent(eightAnalyses(), u"acht"_s));
  analysen overview(bench.program, bench.questions, bench.desktop);
  overview.setAttribute(Qt::WA_DeleteOnClose, false);
  overview.show();
  for ([[maybe_unused]] auto _ : state) {
    QTimer::singleShot(0, [] {
      auto* header = qobject_cast<Dateien*>(QApplication::activeModalWidget());
      if (header != nullptr) header->reject();
    });
    overview.Command1(5).click();
    overview.grab();  // paints it
    if (!overview.project().grid.slot[OverviewGrid::kSlots].filled) {
      state.SkipWithError("the project was not read");
    }
  }
}

BENCHMARK(clearAndReloadAProjectOfEight)->Unit(benchmark::kMillisecond);

}  // namespace

CALVORA_BENCHMARK_MAIN()
