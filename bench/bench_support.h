#pragma once

#include <benchmark/benchmark.h>

#include <QApplication>

#include "app/main_window.h"
#include "platform/look.h"
#include "support/one_file_desktop.h"

namespace calvora {

/// Takes notice of every message and agrees; a runtime error ends the benchmark.
class SilentQuestions : public Questions {
 public:
  Button ask(const Message& message) override {
    return message.buttons.testFlag(Button::kJa) ? Button::kJa : Button::kOk;
  }
  void reportError(const QString& text) override { qFatal("%s", qUtf8Printable(text)); }
};

using Entries = std::vector<std::pair<int, QString>>;

inline Entries acidWater() {
  const auto t = [](const char* text) { return QString::fromLatin1(text); };
  return {{1, t("420")},  {2, t("7,5")}, {3, t("10")},  {5, t("2,5")},
          {6, t("0,25")}, {23, t("60")}, {24, t("10")}, {25, t("20")}};
}

inline Entries alkalineWater() {
  const auto t = [](const char* text) { return QString::fromLatin1(text); };
  return {{1, t("400")}, {2, t("9,8")}, {3, t("60")}, {5, t("2,4")},
          {4, t("0,9")}, {23, t("2")},  {24, t("1")}, {25, t("20")}};
}

/// The real main window with a complete analysis typed into it.
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
    program.entryChanged = true;
    window.finishEntry();
  }

  Program program;
  SilentQuestions questions;
  OneFileDesktop desktop;
  subcalc chem{program.record, program.fieldIndex, program.narrow, questions};
  main window{program, questions, desktop};
};

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
