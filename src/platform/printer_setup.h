#pragma once

#include <QString>
#include <functional>
#include <memory>

class QPagedPaintDevice;
class QWidget;

namespace calvora {

class Paper;

/// What is going to be printed.
struct PrintRequest {
  QString title;    ///< of the document
  QString pdfFile;  ///< path that is proposed where a PDF file is chosen as printer
  bool landscape = false;
};

/// The platform's print dialog, with "PDF-Datei" among its printers. `printer` is the printer
/// chosen last and becomes the one chosen now. Null if the user cancels.
std::unique_ptr<Paper> askPrinter(QWidget* parent, const PrintRequest& request, QString& printer);

/// The toolkit's preview window, without its ways to print, over the page of a printer; of the
/// default one if that is not there. Whenever a page is wanted, `paint` is called, with the
/// orientation that was chosen in the window.
void showPreview(QWidget* parent, const PrintRequest& request, const QString& printer,
                 const std::function<void(QPagedPaintDevice&)>& paint);

}  // namespace calvora
