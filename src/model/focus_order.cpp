#include "model/focus_order.h"

#include <algorithm>

#include "model/fields.h"

namespace calvora {

namespace {

/// One move without regard to locks.
int move(int from, int step) {
  const auto* box = std::ranges::find(kInputFields, from);
  if (step > 0) return ++box == kInputFields.end() ? kInputFields.front() : *box;
  const bool startOfGroup = from == kInputFields.front() || from == feld::kGesamthärte;
  return startOfGroup ? from : *--box;
}

}  // namespace

int nextBox(int from, int step, const std::function<bool(int)>& isLocked) {
  int target = move(from, step);
  for (size_t tries = 0; isLocked(target); ++tries) {
    if (tries == kInputFields.size()) return from;
    target = move(target, step);
  }
  return target;
}

}  // namespace calvora
