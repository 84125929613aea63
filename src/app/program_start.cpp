#include <QApplication>
#include <QFileInfo>

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
  QStringList files;  // counted from the folder that the user is in now
  for (const QString& name : QApplication::arguments().mid(1)) {
    files += QFileInfo(name).absoluteFilePath();
  }
  program.show(files);
  return QApplication::exec();
}
