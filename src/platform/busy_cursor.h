#pragma once

#include <QGuiApplication>

namespace calvora {

/// Shows the busy cursor over all windows while it lives.
class BusyCursor {
 public:
  BusyCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  BusyCursor(const BusyCursor&) = delete;
  BusyCursor& operator=(const BusyCursor&) = delete;
  ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
};

}  // namespace calvora
