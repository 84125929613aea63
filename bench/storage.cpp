// How long saving takes from the confirmed dialog to the closed window, and loading with computing
// and redisplaying everything.
#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include "base/safe_write.h"
#include "bench_support.h"
#include "storage/analysis_file.h"
#include "storage/windows/dateien.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

void saveFromTheConfirmedDialog(benchmark::State& state) {
  const QTemporaryDir folder;
  Bench bench(acidWater());
  bench.desktop.file = folder.filePath(u"analyse"_s);
  for ([[maybe_unused]] auto _ : state) {
    Dateien window(Dateien::Mode::kSaveAnalysis, bench.program, bench.questions, bench.desktop,
                   &bench.window);
    window.show();
    window.Command1->click();
    if (window.isVisible()) state.SkipWithError("the analysis was not saved");
  }
}

void loadAndCompute(benchmark::State& state) {
  const QTemporaryDir folder;
  Bench bench(acidWater());
  const QString path = folder.filePath(u"analyse.cva"_s);
  writeFileSafely(path, analysisContent(bench.program, u"analyse"_s));
  for ([[maybe_unused]] auto _ : state) {
    if (!readAnalysis(bench.program, path, [&] { bench.window.datenkill(0); })) {
      state.SkipWithError("the analysis was not read");
    }
    bench.window.berechnen();
  }
}

BENCHMARK(saveFromTheConfirmedDialog);
BENCHMARK(loadAndCompute);

}  // namespace

CALVORA_BENCHMARK_MAIN()
