#pragma once

#include <QStringList>
#include <functional>
#include <memory>
#include <optional>

class QPagedPaintDevice;
class QWidget;

namespace calvora {

class Paper;

/// What a file dialog is to offer.
struct FileRequest {
  QString folder;        ///< where it opens
  QString extension;     ///< without point; the default, and the only kind shown
  QString proposed;      ///< file name that is proposed when saving
  bool several = false;  ///< when opening: more than one file may be chosen
};

/// What an input box asks, and where it lies on the screen.
struct TextRequest {
  QString title;
  QString prompt;
  int left = 0;  ///< twips
  int top = 0;   ///< twips
};

/// What is going to be printed.
struct PrintRequest {
  QString title;    ///< of the document
  QString pdfFile;  ///< path that is proposed where a PDF file is chosen as printer
  bool landscape = false;
};

/// What the windows need of the desktop besides windows. The program uses the real one, a test one
/// that records.
class Desktop {
 public:
  Desktop() = default;
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  virtual ~Desktop() = default;

  /// Ends the program at once, without a question.
  virtual void endProgram() = 0;

  /// Opens a document with the program that the system has for it. False if it has none.
  virtual bool openDocument(const QString& path) = 0;

  /// The paths of the files to open; none if the user cancels.
  virtual QStringList askOpenFile(QWidget* parent, const FileRequest& request) = 0;

  /// The path of the file to save; none if the user cancels. The extension may be missing, and it
  /// is the caller who asks before a file is replaced.
  virtual std::optional<QString> askSaveFile(QWidget* parent, const FileRequest& request) = 0;

  /// The text that the user types into an input box; none if the user cancels.
  virtual std::optional<QString> askText(QWidget* parent, const TextRequest& request) = 0;

  /// The paper that the user chose in the print dialog, which has "PDF-Datei" among its printers;
  /// null if the user cancels.
  virtual std::unique_ptr<Paper> askPrinter(QWidget* parent, const PrintRequest& request) = 0;

  /// Shows a preview, without its ways to print, until the user closes it. Whenever a page is
  /// wanted, `paint` is called, with the orientation that was chosen in the window.
  virtual void showPreview(QWidget* parent, const PrintRequest& request,
                           const std::function<void(QPagedPaintDevice&)>& paint) = 0;
};

/// Lets the toolkit keep what its own dialogs remember in a folder, instead of the user's home.
void keepDialogMemoryIn(const QString& folder);

/// Removes the lock on what the dialogs remember if another host wrote it more than a second ago:
/// that may be gone, and the toolkit, which holds its locks for milliseconds, would wait for it for
/// half a minute. It knows by itself whether a process of this host is gone.
void removeForeignLock();

/// The desktop that the program runs on.
class RealDesktop final : public Desktop {
 public:
  void endProgram() override;
  bool openDocument(const QString& path) override;
  QStringList askOpenFile(QWidget* parent, const FileRequest& request) override;
  std::optional<QString> askSaveFile(QWidget* parent, const FileRequest& request) override;
  std::optional<QString> askText(QWidget* parent, const TextRequest& request) override;
  std::unique_ptr<Paper> askPrinter(QWidget* parent, const PrintRequest& request) override;
  void showPreview(QWidget* parent, const PrintRequest& request,
                   const std::function<void(QPagedPaintDevice&)>& paint) override;

 private:
  QString printer_;  ///< the one chosen last
};

}  // namespace calvora
