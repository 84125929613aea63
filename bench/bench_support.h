#pragma once

#include <benchmark/benchmark.h>

#include "app/start_window.h"
#include "storage/project_file.h"
#include "support/files.h"
#include "support/window_support.h"

namespace calvora {

using namespace Qt::StringLiterals;

inline constexpr auto kAcidWater = "1=420 2=7,5 3=10 5=2,5 6=0,25 23=60 24=10 25=20";
inline constexpr auto kAlkalineWater = "1=400 2=9,8 3=60 5=2,4 4=0,9 23=2 24=1 25=20";

/// The real main window with a complete analysis entered into it. Its file dialogs choose the files
/// "bench.*" of its folder.
struct Bench : BasicMask<AnyQuestions> {
  explicit Bench(const char* water = kAcidWater) {
    desktop.file = folder.filePath(u"bench"_s);
    begin();
    for (const QString& entry : QString::fromLatin1(water).split(u' ')) {
      change(entry.section(u'=', 0, 0).toInt(), entry.section(u'=', 1));
    }
  }

  /// As the program starts, so that what is entered is kept for recovery as there.
  void begin() {
    program.fieldIndex = kFirstActivationPending;
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window, &activation);
    settle();
    shownWindow<start>()->accept();
    activate();
  }

  /// What is measured is not the typing.
  void change(int index, const QString& text) {
    TextBox& box = window.Text1(index);
    box.setFocus();
    settle();  // the box that was left is finished before this one changes
    box.showText(text);
    program.entryChanged = true;
    window.finishEntry();
    if (program.record.text[index].isEmpty()) qFatal("the entry was not taken");
  }

  /// What the event loop does up to the painted mask, and nothing of what follows.
  void paintMask() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    QCoreApplication::sendPostedEvents(&window, QEvent::UpdateRequest);
  }
};

inline Project eightAnalyses() {
  Project project;
  OverviewGrid& grid = project.grid;
  for (int k = 1; k <= OverviewGrid::kSlots; ++k) {
    grid.slot[k].filled = true;
    grid.slot[k].caption = u"leitungswasser-fuellung-%1"_s.arg(k);
    for (int row = 0; row < OverviewGrid::kRows; ++row) grid.slot[k].cells[row] = u"1234,5"_s;
  }
  return project;
}

}  // namespace calvora

#define CALVORA_BENCHMARK_MAIN()                         \
  int main(int argc, char* argv[]) {                     \
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) { \
      qputenv("QT_QPA_PLATFORM", "offscreen");           \
    }                                                    \
    QApplication application(argc, argv);                \
    calvora::applyLook(application);                     \
    benchmark::Initialize(&argc, argv);                  \
    benchmark::RunSpecifiedBenchmarks();                 \
    return 0;                                            \
  }
