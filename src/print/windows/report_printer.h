#pragma once

#include <QFont>
#include <QPagedPaintDevice>
#include <QPainter>
#include <functional>

#include "print/report.h"

namespace calvora {

/// Puts print statements on the pages of a device, from the top left of the printable area. It
/// keeps a current position and a current font.
class ReportPrinter {
 public:
  /// Begins a document. Runtime error 482 if the device takes none.
  explicit ReportPrinter(QPagedPaintDevice& device);

  /// Carries out one statement. A tab to a column that the position is already beyond goes to that
  /// column on the next line. A text that does not fit the height left goes to a new page; one that
  /// does not fit the width left is printed smaller, down to half its size, and then cut with "…".
  /// Blanks in front of a text are as wide as digits, so that padded numbers end in one place.
  /// Runtime error 482 if there is no new page; position and font then stay.
  void print(const Statement& statement);

  /// Paints the report's picture into an area of the page. Nothing without it.
  std::function<void(QPainter&, const QRectF&)> picture = [](QPainter&, const QRectF&) {};

  /// Ends the document; the device may send it now.
  void end();

 private:
  void tab(int column);
  void text(const QString& text);
  void endLine();
  void paintPicture(int lines);
  void newPageUnlessFits(int lines = 1);
  [[nodiscard]] double pixels(double points) const;
  [[nodiscard]] QFontMetricsF metrics(const QFont& font) const;
  [[nodiscard]] QFont fitted(const QString& text, double room) const;

  QPagedPaintDevice& device_;
  QPainter painter_;
  QFont font_{QStringLiteral("Arial"), 10};
  double x_ = 0;  ///< device pixels
  double y_ = 0;  ///< device pixels, top of the line
};

}  // namespace calvora
