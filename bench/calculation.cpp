// How long the user waits after an entry: the calculation run alone, with the redisplay of the
// mask, and the whole way from leaving the box.
#include "bench_support.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

void stepsAlone(benchmark::State& state, const Entries& entries) {
  Bench bench(entries);
  for ([[maybe_unused]] auto _ : state) bench.chem.rechenlauf();
}

void berechnen(benchmark::State& state, const Entries& entries) {
  Bench bench(entries);
  for ([[maybe_unused]] auto _ : state) bench.window.berechnen();
}

/// Two values in turn, so that every run really redisplays.
void focusLostToMaskShown(benchmark::State& state) {
  Bench bench(acidWater());
  bool high = false;
  for ([[maybe_unused]] auto _ : state) {
    high = !high;
    bench.enter(3, high ? u"20"_s : u"10"_s);
    QCoreApplication::processEvents();
  }
}

BENCHMARK_CAPTURE(stepsAlone, acid, acidWater());
BENCHMARK_CAPTURE(stepsAlone, alkaline, alkalineWater());
BENCHMARK_CAPTURE(berechnen, acid, acidWater());
BENCHMARK_CAPTURE(berechnen, alkaline, alkalineWater());
BENCHMARK(focusLostToMaskShown);

}  // namespace

CALVORA_BENCHMARK_MAIN()
