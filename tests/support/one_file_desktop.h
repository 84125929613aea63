#pragma once

#include "platform/desktop.h"
#include "platform/paper.h"

namespace calvora {

/// A desktop whose file dialogs choose one file, and whose printer writes it as PDF. Its other
/// windows are the toolkit's own.
class OneFileDesktop : public Desktop {
 public:
  void endProgram() override {}
  bool openDocument(const QString&) override { return false; }
  std::optional<QString> askOpenFile(QWidget*, const FileRequest& request) override {
    return file + QLatin1Char('.') + request.extension;
  }
  std::optional<QString> askSaveFile(QWidget*, const FileRequest& request) override {
    return file + QLatin1Char('.') + request.extension;
  }
  std::optional<QString> askText(QWidget* parent, const TextRequest& request) override {
    return real.askText(parent, request);
  }
  std::unique_ptr<Paper> askPrinter(QWidget*, const PrintRequest& request) override {
    return std::make_unique<PdfPaper>(file + QStringLiteral(".pdf"), request.title,
                                      reportPage(request.landscape));
  }
  void showPreview(QWidget* parent, const PrintRequest& request,
                   const std::function<void(QPagedPaintDevice&)>& paint) override {
    real.showPreview(parent, request, paint);
  }

  QString file;  ///< with its folder, without its extension
  RealDesktop real;
};

}  // namespace calvora
