#include "platform/desktop.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QUrl>

namespace calvora {

// exit, not quit: quit would first ask every window whether it may be closed.
void RealDesktop::endProgram() {
  QCoreApplication::exit(0);
}

bool RealDesktop::openDocument(const QString& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

}  // namespace calvora
