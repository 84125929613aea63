#pragma once

#include <map>

#include "base/runtime_error.h"

namespace calvora {

/// Controls of one kind under one name, told apart by an index: Text1(5). An index without a
/// control is runtime error 9. The controls belong to their window.
template <class Control>
class ControlArray {
 public:
  Control& add(int index, Control* control) {
    controls_[index] = control;
    return *control;
  }

  Control& operator()(int index) const {
    const auto found = controls_.find(index);
    if (found == controls_.end()) {
      throw RuntimeError(ErrorNumber::kIndex, QStringLiteral("control %1").arg(index));
    }
    return *found->second;
  }

  /// All of them, as pairs of index and control in the order of the indices.
  [[nodiscard]] auto begin() const { return controls_.begin(); }
  [[nodiscard]] auto end() const { return controls_.end(); }

 private:
  std::map<int, Control*> controls_;
};

}  // namespace calvora
