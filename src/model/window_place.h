#pragma once

#include <QRect>

namespace calvora {

/// Where a window lies on the desktop, in device-independent pixels. Of a maximised window it is
/// where it would lie otherwise.
struct WindowPlace {
  QRect frame;  ///< with the desktop's frame
  QSize size;   ///< without it
  bool maximised = false;

  friend bool operator==(const WindowPlace&, const WindowPlace&) = default;
};

}  // namespace calvora
