// How long the user waits after an entry: the calculation run alone, with the redisplay of the
// mask, and the whole way from leaving the box.
#include <benchmark/benchmark.h>

#include <QApplication>

#include "app/main_window.h"
#include "platform/look.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

class SilentQuestions : public Questions {
 public:
  int ask(const Message&) override { return button::kOk; }
  void reportError(const QString& text) override { qFatal("%s", qUtf8Printable(text)); }
};

class NoDesktop : public Desktop {
 public:
  void endProgram() override {}
  bool openDocument(const QString&) override { return false; }
};

using Entries = std::initializer_list<std::pair<int, QString>>;

const Entries kAcid{{1, u"420"_s},  {2, u"7,5"_s}, {3, u"10"_s},  {5, u"2,5"_s},
                    {6, u"0,25"_s}, {23, u"60"_s}, {24, u"10"_s}, {25, u"20"_s}};
const Entries kAlkaline{{1, u"400"_s}, {2, u"9,8"_s}, {3, u"60"_s}, {5, u"2,4"_s},
                        {4, u"0,9"_s}, {23, u"2"_s},  {24, u"1"_s}, {25, u"20"_s}};

struct Bench {
  explicit Bench(const Entries& entries) {
    program.fieldIndex = 0;
    window.show();
    for (const auto& [index, text] : entries) enter(index, text);
  }

  void enter(int index, const QString& text) {
    TextBox& box = window.Text1(index);
    box.setFocus();
    box.selectAll();
    box.insert(text);
    window.finishEntry();
  }

  Program program;
  SilentQuestions questions;
  NoDesktop desktop;
  subcalc chem{program, questions};
  main window{program, questions, desktop};
};

void stepsAlone(benchmark::State& state, const Entries& entries) {
  Bench bench(entries);
  for (auto _ : state) bench.chem.rechenlauf();
}

void berechnen(benchmark::State& state, const Entries& entries) {
  Bench bench(entries);
  for (auto _ : state) bench.window.berechnen();
}

/// Two values in turn, so that every run really redisplays.
void focusLostToMaskShown(benchmark::State& state) {
  Bench bench(kAcid);
  bool high = false;
  for (auto _ : state) {
    high = !high;
    bench.enter(3, high ? u"20"_s : u"10"_s);
    QCoreApplication::processEvents();
  }
}

BENCHMARK_CAPTURE(stepsAlone, acid, kAcid);
BENCHMARK_CAPTURE(stepsAlone, alkaline, kAlkaline);
BENCHMARK_CAPTURE(berechnen, acid, kAcid);
BENCHMARK_CAPTURE(berechnen, alkaline, kAlkaline);
BENCHMARK(focusLostToMaskShown);

}  // namespace

int main(int argc, char* argv[]) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  applyLook(application);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
