#pragma once

#include <QStringList>

#include "platform/desktop.h"
#include "platform/paper.h"

namespace calvora {

/// A desktop that records what it was asked for and answers with what was lined up; a dialog
/// without an answer is cancelled. With a `file` the dialogs choose that, the printer writes it as
/// PDF, and the other windows are Qt's own.
class RecordingDesktop : public Desktop {
 public:
  /// Where several files may be chosen, one answer is all of them, parted by "|".
  QStringList askOpenFile(QWidget*, const FileRequest& request) override {
    const auto path = nextPath(request);
    if (!path) return {};
    return request.several ? path->split(QLatin1Char('|')) : QStringList{*path};
  }
  std::optional<QString> askSaveFile(QWidget*, const FileRequest& request) override {
    return nextPath(request);
  }
  std::optional<QString> askText(QWidget* parent, const TextRequest& request) override {
    textRequests.push_back(request);
    if (!file.isEmpty()) return real.askText(parent, request);
    return texts.isEmpty() ? std::nullopt : std::optional(texts.takeFirst());
  }
  std::unique_ptr<Paper> askPrinter(QWidget*, const PrintRequest& request) override {
    printRequests.push_back(request);
    if (paper) return paper(request);
    if (file.isEmpty()) return nullptr;
    return std::make_unique<PdfPaper>(file + QStringLiteral(".pdf"), request.title,
                                      reportPage(request.landscape));
  }
  void showPreview(QWidget* parent, const PrintRequest& request,
                   const std::function<void(QPagedPaintDevice&)>& paint) override {
    preview ? preview(request, paint) : real.showPreview(parent, request, paint);
  }
  void endProgram() override { ++ended; }
  bool openDocument(const QString& path) override {
    opened += path;
    return true;
  }

  int ended = 0;
  QStringList opened;
  QStringList paths;
  QString file;  ///< with its folder, without its extension
  std::vector<FileRequest> requests;
  QStringList texts;  ///< answers of the input box
  std::vector<TextRequest> textRequests;
  std::vector<PrintRequest> printRequests;
  std::function<std::unique_ptr<Paper>(const PrintRequest&)> paper;
  std::function<void(const PrintRequest&, const std::function<void(QPagedPaintDevice&)>&)> preview;
  RealDesktop real;

 private:
  std::optional<QString> nextPath(const FileRequest& request) {
    requests.push_back(request);
    if (!paths.isEmpty()) return paths.takeFirst();
    if (file.isEmpty()) return std::nullopt;
    return file + QLatin1Char('.') + request.extension;
  }
};

}  // namespace calvora
