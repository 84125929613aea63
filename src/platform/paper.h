#pragma once

#include <QBuffer>
#include <QPdfWriter>
#include <QPrinter>
#include <memory>

namespace calvora {

/// Where a document goes.
class Paper {
 public:
  Paper() = default;
  Paper(const Paper&) = delete;
  Paper& operator=(const Paper&) = delete;
  virtual ~Paper() = default;

  /// What is painted on. Nothing is sent unless something was.
  virtual QPagedPaintDevice& device() = 0;

  /// Sends the finished document on its way. Runtime error 482 if the printer does not take it, 61
  /// or 75 if its file cannot be written.
  virtual void deliver() = 0;

  /// The path of the file that the document becomes; empty for a printer.
  [[nodiscard]] virtual QString file() const { return {}; }

  [[nodiscard]] bool landscape() {
    return device().pageLayout().orientation() == QPageLayout::Landscape;
  }
};

/// A PDF file: complete or not at all, in place of an older one of that name.
class PdfPaper final : public Paper {
 public:
  PdfPaper(const QString& path, const QString& title, const QPageLayout& layout);
  QPagedPaintDevice& device() override { return writer_; }
  void deliver() override;
  [[nodiscard]] QString file() const override { return path_; }

 private:
  QString path_;
  QBuffer content_;
  QPdfWriter writer_;
};

/// A printer.
class PrinterPaper final : public Paper {
 public:
  explicit PrinterPaper(std::unique_ptr<QPrinter> printer) : printer_(std::move(printer)) {}
  QPagedPaintDevice& device() override { return *printer_; }
  void deliver() override;

 private:
  std::unique_ptr<QPrinter> printer_;
};

/// A4 with margins of 10 mm.
QPageLayout reportPage(bool landscape);

}  // namespace calvora
