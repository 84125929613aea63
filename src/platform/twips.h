#pragma once

#include <QGuiApplication>
#include <QScreen>

namespace calvora {

/// Pixels of a length in twips (1/1440 inch, 15 to a pixel at 96 dpi) on the primary screen.
inline int twips(int length) {
  const QScreen* screen = QGuiApplication::primaryScreen();
  return qRound(length * (screen == nullptr ? 96 : screen->logicalDotsPerInch()) / 1440);
}

}  // namespace calvora
