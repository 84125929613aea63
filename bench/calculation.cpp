// How long the user waits after an entry: the calculation run alone, with the redisplay of the
// mask, and the whole way from leaving the box.
#include "bench_support.h"
#include "plausi/second_calculation.h"

using namespace calvora;

namespace {

void stepsAlone(benchmark::State& state, const char* water) {
  Bench bench(water);
  subcalc chem(bench.program.record, bench.program.fieldIndex, bench.program.narrow,
               bench.questions);
  for ([[maybe_unused]] auto _ : state) chem.rechenlauf();
}

void berechnen(benchmark::State& state, const char* water) {
  Bench bench(water);
  for ([[maybe_unused]] auto _ : state) bench.window.berechnen();
}

/// Two values in turn, so that every run really redisplays. The mask is painted first, the check
/// and its window follow.
void fromLeavingABox(benchmark::State& state, bool windowOpen, bool toCheckShown) {
  Bench bench;
  if (windowOpen) bench.window.mnu2_plausi->trigger();
  Bench::settle();
  bool high = false;
  for ([[maybe_unused]] auto _ : state) {
    high = !high;
    bench.change(3, high ? u"20"_s : u"10"_s);
    if (!toCheckShown) {
      bench.paintMask();
      state.PauseTiming();
    }
    Bench::settle();
    if (!toCheckShown) state.ResumeTiming();
  }
}

void second(benchmark::State& state, const CarbonateWater& water) {
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(secondCalculation(water));
}

BENCHMARK_CAPTURE(second, acid, {10, 7.5, 420, 2.5, -0.25, 60, 10, 20});
BENCHMARK_CAPTURE(second, alkaline, {60, 9.8, 400, 2.4, 0.9, 2, 1, 20});
BENCHMARK_CAPTURE(second, neverSettles,
                  {45.4089, {}, 1092.86, 74.8725, 32.2175, 1854.19, 1.38947, 0});
BENCHMARK_CAPTURE(stepsAlone, acid, kAcidWater);
BENCHMARK_CAPTURE(stepsAlone, alkaline, kAlkalineWater);
BENCHMARK_CAPTURE(berechnen, acid, kAcidWater);
BENCHMARK_CAPTURE(berechnen, alkaline, kAlkalineWater);
BENCHMARK_CAPTURE(fromLeavingABox, toMaskShown, false, false);
BENCHMARK_CAPTURE(fromLeavingABox, toMaskShownWindowOpen, true, false);
BENCHMARK_CAPTURE(fromLeavingABox, toVerdictShown, false, true);
BENCHMARK_CAPTURE(fromLeavingABox, toCheckShownWindowOpen, true, true);

}  // namespace

CALVORA_BENCHMARK_MAIN()
