#include "platform/desktop.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QUrl>

#include "dialogs/runtime_error.h"
#include "platform/paper.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

QString askFile(QFileDialog& dialog, const FileRequest& request) {
  dialog.setDirectory(request.folder);
  dialog.setNameFilter(u"Calvora-Dateien (*.%1)"_s.arg(request.extension));
  dialog.setDefaultSuffix(request.extension);
  if (!request.proposed.isEmpty()) dialog.selectFile(request.proposed);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
    throw RuntimeError(ErrorNumber::kDialogCancelled);
  }
  return dialog.selectedFiles().constFirst();
}

}  // namespace

// exit, not quit: quit would first ask every window whether it may be closed.
void RealDesktop::endProgram() {
  QCoreApplication::exit(0);
}

bool RealDesktop::openDocument(const QString& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

QString RealDesktop::askOpenFile(QWidget* parent, const FileRequest& request) {
  QFileDialog dialog(parent, u"Öffnen"_s);
  dialog.setFileMode(QFileDialog::ExistingFile);
  return askFile(dialog, request);
}

QString RealDesktop::askSaveFile(QWidget* parent, const FileRequest& request) {
  QFileDialog dialog(parent, u"Speichern unter"_s);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  return askFile(dialog, request);
}

std::unique_ptr<Paper> RealDesktop::askPrinter(QWidget* parent, const PrintRequest& request) {
  return calvora::askPrinter(parent, request, printer_);
}

void RealDesktop::showPreview(QWidget* parent, const PrintRequest& request,
                              const std::function<void(QPagedPaintDevice&)>& paint) {
  calvora::showPreview(parent, request, paint);
}

}  // namespace calvora
