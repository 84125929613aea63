// How long it takes from the confirmed question to eight analyses on the screen again: the grid is
// cleared, the project read, its header window shown and left.
#include <QTimer>

#include "bench_support.h"
#include "overview/windows/analysen.h"
#include "storage/windows/dateien.h"

using namespace calvora;

namespace {

void clearAndReloadAProjectOfEight(benchmark::State& state) {
  Bench bench;
  put(bench.desktop.file + u".cvp"_s, projectContent(eightAnalyses(), u"bench"_s));
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
