#pragma once

#include <new>

#include "base/questions.h"
#include "base/runtime_error.h"

namespace calvora {

/// Runs a procedure's body. Whatever escapes from it is reported with the procedure's location
/// text; the procedure is left and the program goes on.
template <class Body>
void guarded(Questions& questions, const QString& location, Body&& body) {
  const auto report = [&](int number) {
    questions.reportError(QString::number(number) + location);
  };
  try {
    body();
  } catch (const RuntimeError& error) {
    report(error.number());
  } catch (const std::bad_alloc&) {
    report(static_cast<int>(ErrorNumber::kOutOfMemory));
  } catch (...) {
    report(static_cast<int>(ErrorNumber::kInternal));
  }
}

}  // namespace calvora
