#include "platform/twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QtMath>

namespace calvora {

int twips(int length) {
  const QScreen* screen = QGuiApplication::primaryScreen();
  const double dpi = screen == nullptr ? 96 : screen->logicalDotsPerInch();
  return qRound(length * dpi / 1440);
}

}  // namespace calvora
