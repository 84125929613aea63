// How long a report takes from the confirmed printer set-up to the finished PDF file.
#include "bench_support.h"
#include "print/windows/drucker.h"

using namespace calvora;

namespace {

void printToPdf(benchmark::State& state, Bericht kind) {
  Bench bench;
  Project project = eightAnalyses();
  for ([[maybe_unused]] auto _ : state) {
    Drucker dialog(bench.program, bench.questions, bench.desktop, &bench.window, &project);
    dialog.druckart(kind);
    dialog.Command2->click();
  }
  if (!QFile::exists(bench.desktop.file + u".pdf"_s)) state.SkipWithError("nothing was printed");
}

BENCHMARK_CAPTURE(printToPdf, analysis, Bericht::kAnalyse);
BENCHMARK_CAPTURE(printToPdf, overview, Bericht::kÜbersicht);

}  // namespace

CALVORA_BENCHMARK_MAIN()
