#include <QApplication>

#include "app/application.h"
#include "platform/look.h"

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Calvora"));
  QApplication::setQuitOnLastWindowClosed(false);
  calvora::applyLook(application);
  calvora::Application program;
  program.show();
  return QApplication::exec();
}
