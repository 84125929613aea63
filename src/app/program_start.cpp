#include <QApplication>

#include "app/application.h"
#include "platform/desktop.h"
#include "platform/look.h"

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Calvora"));
  QApplication::setDesktopFileName(QStringLiteral("example.calvora.calvora"));
  QApplication::setQuitOnLastWindowClosed(false);
  calvora::keepDialogMemoryIn(QApplication::applicationDirPath());
  calvora::applyLook(application);
  calvora::Application program;
  program.show();
  return QApplication::exec();
}
