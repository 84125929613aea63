#include "platform/paper.h"

#include <QCoreApplication>
#include <QLibrary>

#include "base/runtime_error.h"
#include "base/safe_write.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

/// Whether the print system refused the job that this thread handed over last. The toolkit does so
/// when the painting ends, and keeps the answer to itself.
bool queueRefused() {
#ifdef Q_OS_UNIX
  constexpr int kLastStatusOfSuccess = 7;
  using LastError = int (*)();
  static const auto lastError =
      reinterpret_cast<LastError>(QLibrary::resolve(u"cups"_s, 2, "cupsLastError"));
  return lastError != nullptr && lastError() > kLastStatusOfSuccess;
#else
  return false;
#endif
}

}  // namespace

PdfPaper::PdfPaper(const QString& path, const QString& title, const QPageLayout& layout)
    : path_(path), writer_(&content_) {
  content_.open(QBuffer::WriteOnly);
  writer_.setTitle(title);
  writer_.setCreator(u"Calvora "_s + QCoreApplication::applicationVersion().section('.'_L1, 0, 1));
  writer_.setPageLayout(layout);
}

void PdfPaper::deliver() {
  writeFileSafely(path_, content_.data());
}

void PrinterPaper::deliver() {
  const bool faulty =
      printer_->printerState() == QPrinter::Error || printer_->printerState() == QPrinter::Aborted;
  if (faulty || queueRefused()) throw RuntimeError(ErrorNumber::kPrinter);
}

QPageLayout reportPage(bool landscape) {
  return {QPageSize(QPageSize::A4), landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
          QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter};
}

}  // namespace calvora
