// How long a report takes from the confirmed printer set-up to the finished PDF file.
#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include "bench_support.h"
#include "print/windows/drucker.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

void printToPdf(benchmark::State& state) {
  const QTemporaryDir folder;
  Bench bench(acidWater());
  bench.desktop.file = folder.filePath(u"bericht"_s);
  Project project;
  OverviewGrid& grid = project.grid;
  for (int k = 1; k <= OverviewGrid::kSlots; ++k) {
    grid.slot[k].filled = true;
    for (int row = 0; row < OverviewGrid::kRows; ++row) grid.slot[k].cells[row] = u"1234,5"_s;
  }
  for ([[maybe_unused]] auto _ : state) {
    Drucker dialog(bench.program, bench.questions, bench.desktop, &bench.window, &project);
    dialog.druckart(static_cast<Bericht>(state.range(0)));
    dialog.Command2->click();
  }
  if (!QFile::exists(bench.desktop.file + u".pdf"_s)) state.SkipWithError("nothing was printed");
}

BENCHMARK(printToPdf)->ArgName("kind")->Arg(int(Bericht::kAnalyse))->Arg(int(Bericht::kÜbersicht));

}  // namespace

CALVORA_BENCHMARK_MAIN()
