#pragma once

#include <QString>
#include <array>

#include "base/runtime_error.h"

namespace calvora {

/// A fixed-size array whose slots are 0 to Size − 1. Any other index is runtime error 9, for
/// reading as for writing.
template <class T, int Size>
class CheckedArray {
 public:
  T& operator[](int index) { return slots_[position(index)]; }
  const T& operator[](int index) const { return slots_[position(index)]; }

  /// Puts every slot back to its empty value.
  void clear() { slots_.fill(T{}); }

  static constexpr int size() { return Size; }

  friend bool operator==(const CheckedArray&, const CheckedArray&) = default;

 private:
  static size_t position(int index) {
    if (index < 0 || index >= Size) {
      throw RuntimeError(ErrorNumber::kIndex, QStringLiteral("index %1").arg(index));
    }
    return static_cast<size_t>(index);
  }

  std::array<T, Size> slots_{};
};

}  // namespace calvora
