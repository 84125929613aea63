#pragma once

#include <QApplication>
#include <QWidget>

namespace calvora {

/// The window of a kind that is shown, or nothing.
template <class Window>
Window* shownWindow() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    auto* window = dynamic_cast<Window*>(widget);
    if (window != nullptr && window->isVisible()) return window;
  }
  return nullptr;
}

}  // namespace calvora
