// How long saving takes from the confirmed dialog to the closed window, and loading with computing
// and redisplaying everything.
#include "bench_support.h"
#include "storage/analysis_file.h"
#include "storage/windows/dateien.h"

using namespace calvora;

namespace {

void saveFromTheConfirmedDialog(benchmark::State& state) {
  Bench bench;
  for ([[maybe_unused]] auto _ : state) {
    Dateien window(Dateien::Mode::kSaveAnalysis, bench.program, bench.questions, bench.desktop,
                   &bench.window);
    window.show();
    window.Command1->click();
    if (window.isVisible()) state.SkipWithError("the analysis was not saved");
  }
}

void loadAndCompute(benchmark::State& state) {
  Bench bench;
  const QString path = bench.desktop.file + u".cva"_s;
  put(path, analysisContent(bench.program, u"bench"_s));
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
