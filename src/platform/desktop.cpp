#include "platform/desktop.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QLineEdit>
#include <QSettings>
#include <QTreeView>
#include <QUrl>

#include "platform/paper.h"
#include "platform/placement.h"
#include "platform/twips.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kInputBoxWidth = 5400;  // twips
constexpr int kTypeColumn = 2;        // of the toolkit's list of files

std::optional<QString> askFile(QFileDialog& dialog, const FileRequest& request) {
  dialog.setDirectory(request.folder);
  dialog.setNameFilter(u"Calvora-Dateien (*.%1)"_s.arg(request.extension));
  if (!request.proposed.isEmpty()) dialog.selectFile(request.proposed);
  if (auto* files = dialog.findChild<QTreeView*>(u"treeView"_s)) {  // the toolkit's own dialog
    files->hideColumn(kTypeColumn);  // all have the same, and it is named in English
    files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  }
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.selectedFiles().value(0);
}

}  // namespace

void keepDialogMemoryIn(const QString& folder) {
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
}

// exit, not quit: quit would first ask every window whether it may be closed.
void RealDesktop::endProgram() {
  QCoreApplication::exit(0);
}

bool RealDesktop::openDocument(const QString& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

std::optional<QString> RealDesktop::askOpenFile(QWidget* parent, const FileRequest& request) {
  QFileDialog dialog(parent, u"Öffnen"_s);
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setDefaultSuffix(request.extension);
  return askFile(dialog, request);
}

std::optional<QString> RealDesktop::askSaveFile(QWidget* parent, const FileRequest& request) {
  QFileDialog dialog(parent, u"Speichern unter"_s);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  return askFile(dialog, request);
}

std::optional<QString> RealDesktop::askText(QWidget* parent, const TextRequest& request) {
  QInputDialog box(parent);
  box.setWindowTitle(request.title);
  box.setLabelText(request.prompt);
  box.setOkButtonText(u"OK"_s);
  box.setCancelButtonText(u"abbrechen"_s);
  box.findChild<QLineEdit*>()->setMinimumWidth(twips(kInputBoxWidth));
  placeOnScreen(box, {twips(request.left), twips(request.top)});
  if (box.exec() != QDialog::Accepted) return std::nullopt;
  return box.textValue();
}

}  // namespace calvora
