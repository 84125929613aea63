#include "platform/desktop.h"

#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QInputDialog>
#include <QLineEdit>
#include <QLockFile>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinterInfo>
#include <QPushButton>
#include <QSettings>
#include <QSysInfo>
#include <QTimer>
#include <QTreeView>
#include <QUrl>
#include <algorithm>

#include "platform/look.h"
#include "platform/paper.h"
#include "platform/placement.h"
#include "platform/twips.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kInputBoxWidth = 5400;  // twips
constexpr int kTypeColumn = 2;        // of the toolkit's list of files

QStringList askFile(QFileDialog& dialog, const FileRequest& request) {
  dialog.setDirectory(request.folder);
  dialog.setNameFilter(u"Calvora-Dateien (*.%1)"_s.arg(request.extension));
  if (!request.proposed.isEmpty()) dialog.selectFile(request.proposed);
  if (auto* files = dialog.findChild<QTreeView*>(u"treeView"_s)) {  // the toolkit's own dialog
    files->hideColumn(kTypeColumn);  // all have the same, and it is named in English
    files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  }
  const bool accepted = dialog.exec() == QDialog::Accepted;
  removeForeignLock();  // the dialog writes what it remembers when it goes
  if (!accepted) return {};
  return dialog.selectedFiles();
}

const QString kPdfPrinter = u"PDF-Datei"_s;

/// A printer set to the page of the reports, with wider margins where it cannot print so far out.
std::unique_ptr<QPrinter> makePrinter(const PrintRequest& request, const QString& name) {
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  if (QPrinterInfo::availablePrinterNames().contains(name)) printer->setPrinterName(name);
  printer->setDocName(request.title);
  const QPageLayout wanted = reportPage(request.landscape);
  const bool file = name == kPdfPrinter || printer->outputFormat() == QPrinter::PdfFormat;
  QPageLayout layout = file ? wanted : printer->pageLayout();
  layout.setUnits(QPageLayout::Millimeter);
  layout.setOrientation(wanted.orientation());
  const QMarginsF least = layout.minimumMargins();
  const QMarginsF margins = wanted.margins();
  layout.setMargins({std::max(margins.left(), least.left()), std::max(margins.top(), least.top()),
                     std::max(margins.right(), least.right()),
                     std::max(margins.bottom(), least.bottom())});
  printer->setPageLayout(layout);
  return printer;
}

/// The toolkit's own dialog prints to a file as well; it is shown as one more printer, with the
/// file that is proposed. The platform's dialogs have no such list, but printers for it.
void offerPdfFile(const QPrintDialog& dialog, const QString& file, const QString& printer) {
  auto* printers = dialog.findChild<QComboBox*>(u"printers"_s);
  auto* fileName = dialog.findChild<QLineEdit*>(u"filename"_s);
  if (printers == nullptr || fileName == nullptr) return;
  const int index =
      printers->findText(QCoreApplication::translate("QPrintDialog", "Print to File (PDF)"));
  if (index < 0) return;
  printers->setItemText(index, kPdfPrinter);
  if (printer == kPdfPrinter) printers->setCurrentIndex(index);
  fileName->setText(QDir::toNativeSeparators(file));
  // The toolkit would look for a name without a folder in one place and write it in another.
  const auto complete = [fileName, file] {
    QString typed = fileName->text().trimmed();
    if (typed.isEmpty()) return;
    if (!typed.endsWith(".pdf"_L1, Qt::CaseInsensitive)) typed += u".pdf"_s;
    const QDir folder = QFileInfo(file).absoluteDir();
    fileName->setText(QDir::toNativeSeparators(folder.absoluteFilePath(typed)));
  };
  QObject::connect(fileName, &QLineEdit::editingFinished, fileName, complete);
  for (const QPushButton* button : dialog.findChildren<QPushButton*>()) {
    QObject::connect(button, &QPushButton::pressed, fileName, complete);
  }
}

}  // namespace

void keepDialogMemoryIn(const QString& folder) {
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
}

void removeForeignLock() {
  const QString path = QSettings(QSettings::UserScope, u"QtProject"_s).fileName() + u".lock"_s;
  const QDateTime written = QFileInfo(path).lastModified();
  if (!written.isValid() || written.secsTo(QDateTime::currentDateTime()) < 1) return;
  qint64 process = 0;
  QString host;
  QString program;
  const bool known = QLockFile(path).getLockInfo(&process, &host, &program);
  if (!known || host != QSysInfo::machineHostName()) QFile::remove(path);
}

// exit, not quit: quit would first ask every window whether it may be closed.
void RealDesktop::endProgram() {
  QCoreApplication::exit(0);
}

bool RealDesktop::openDocument(const QString& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

QStringList RealDesktop::askOpenFile(QWidget* parent, const FileRequest& request) {
  QFileDialog dialog(parent, u"Öffnen"_s);
  dialog.setFileMode(request.several ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
  dialog.setDefaultSuffix(request.extension);
  return askFile(dialog, request);
}

std::optional<QString> RealDesktop::askSaveFile(QWidget* parent, const FileRequest& request) {
  QFileDialog dialog(parent, u"Speichern unter"_s);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  const QStringList chosen = askFile(dialog, request);
  return chosen.isEmpty() ? std::nullopt : std::optional(chosen.front());
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

std::unique_ptr<Paper> RealDesktop::askPrinter(QWidget* parent, const PrintRequest& request) {
  std::optional<BusyCursor> busy(std::in_place);  // the print system may take its time
  std::unique_ptr<QPrinter> chosen = makePrinter(request, printer_);
  QPrintDialog dialog(chosen.get(), parent);
  dialog.setOptions(QPrintDialog::PrintToFile | QPrintDialog::PrintShowPageSize);
  removeForeignLock();  // it may open a file dialog
  // The dialog fills its list only when it is shown.
  QTimer::singleShot(0, &dialog, [&] { offerPdfFile(dialog, request.pdfFile, printer_); });
  busy.reset();
  if (dialog.exec() != QDialog::Accepted) return nullptr;
  if (chosen->outputFileName().isEmpty()) {
    printer_ = chosen->printerName();
    return std::make_unique<PrinterPaper>(std::move(chosen));
  }
  printer_ = kPdfPrinter;
  const bool landscape = chosen->pageLayout().orientation() == QPageLayout::Landscape;
  return std::make_unique<PdfPaper>(chosen->outputFileName(), request.title, reportPage(landscape));
}

void RealDesktop::showPreview(QWidget* parent, const PrintRequest& request,
                              const std::function<void(QPagedPaintDevice&)>& paint) {
  std::optional<BusyCursor> busy(std::in_place);
  const std::unique_ptr<QPrinter> page = makePrinter(request, printer_);
  QPrintPreviewDialog dialog(page.get(), parent);
  dialog.setWindowTitle(u"Vorschau - "_s + request.title);
  const QString print = QCoreApplication::translate("QPrintPreviewDialog", "Print");
  const QString pageSetup = QCoreApplication::translate("QPrintPreviewDialog", "Page setup");
  for (QAction* action : dialog.findChildren<QAction*>()) {
    if (action->text() == print || action->text() == pageSetup) action->setVisible(false);
  }
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* shown) {
    const BusyCursor painting;
    paint(*shown);
  });
  dialog.resize(twips(13500), twips(10500));
  busy.reset();
  dialog.exec();
}

}  // namespace calvora
