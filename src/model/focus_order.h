#pragma once

#include <functional>

namespace calvora {

/// The box that gets the focus when Enter or an arrow key leaves box `from`. `step` is +1 forward
/// or −1 backward. Computed boxes are never entered, locked ones are skipped. Forward, the first
/// box follows the last; backward, the first box of either group, 1 and 20, is the end. Stays at
/// `from` if every target is locked.
int nextBox(int from, int step, const std::function<bool(int)>& isLocked);

}  // namespace calvora
