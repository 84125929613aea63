#include "app/focus_order.h"

#include "app/fields.h"

namespace calvora {

namespace {

constexpr int kFirstBox = 1;
constexpr int kLastBox = 26;

/// One move without regard to locks. The two computed hardness boxes are jumped over by a longer
/// step, the gap between 6 and 20 always ends at 20.
int move(int from, int step) {
  int target = from + step;
  for (;;) {
    if (target > 6 && target < feld::kGesamthärte) {
      target = feld::kGesamthärte;
    } else if (target == feld::kKarbonathärte || target == feld::kNichtkarbonathärte) {
      step *= target == feld::kKarbonathärte ? 3 : 2;
      target = from + step;
    } else if (target > kLastBox || target < kFirstBox) {
      target = kFirstBox;
    } else {
      return target;
    }
  }
}

}  // namespace

int nextBox(int from, int step, const std::function<bool(int)>& isLocked) {
  int target = move(from, step);
  for (int tries = 0; isLocked(target); ++tries) {
    const int further = move(target, step);
    if (further == target || tries > kLastBox) return from;
    target = further;
  }
  return target;
}

}  // namespace calvora
