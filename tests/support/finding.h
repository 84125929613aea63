#pragma once

#include <cstdio>
#include <cstdlib>

#include "base/questions.h"

namespace calvora {

/// A finding: reports what does not hold and ends the process, so that what led to it is kept.
[[noreturn]] inline void finding(const char* what, const QString& details) {
  std::fprintf(stderr, "\nFinding: %s: %s\n", what, qUtf8Printable(details));
  std::abort();
}

inline void require(bool holds, const char* what, const QString& details = {}) {
  if (!holds) finding(what, details);
}

/// Presses the first button of every question. A runtime error is a finding.
class AnyQuestions : public Questions {
 public:
  Button ask(const Message& message) override {
    require(!message.text.contains(QLatin1String("%1")), "a place left empty", message.text);
    const int buttons = message.buttons.toInt();
    return static_cast<Button>(buttons & -buttons);
  }
  void reportError(const QString& numberAndLocation) override {
    finding("a procedure fails", numberAndLocation);
  }
};

}  // namespace calvora
