#include "print/windows/report_printer.h"

#include <QFontMetricsF>

#include "base/runtime_error.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

/// Average character width of Arial in parts of the font size, from the font's own table. A font
/// that stands in for it may say otherwise.
constexpr double kAverageWidth = 904.0 / 2048;

constexpr double kSmallest = 0.5;

}  // namespace

ReportPrinter::ReportPrinter(QPagedPaintDevice& device) : device_(device) {
  font_.setStyleHint(QFont::SansSerif);
  if (!painter_.begin(&device)) throw RuntimeError(ErrorNumber::kPrinter);
}

void ReportPrinter::print(const Statement& statement) {
  switch (statement.kind) {
    case Statement::Kind::kFont:
      return font_.setFamily(statement.text);
    case Statement::Kind::kSize:
      return font_.setPointSize(statement.number);
    case Statement::Kind::kEmphasis:
      return font_.setBold(statement.number != 0);
    case Statement::Kind::kTab:
      return tab(statement.number);
    case Statement::Kind::kText:
      return text(statement.text);
    case Statement::Kind::kEndLine:
      return endLine();
    case Statement::Kind::kTogether:
      return newPageUnlessFits(statement.number);
    case Statement::Kind::kPicture:
      return paintPicture(statement.number);
  }
}

void ReportPrinter::end() {
  painter_.end();
}

void ReportPrinter::tab(int column) {
  const double target = (column - 1) * kAverageWidth * pixels(font_.pointSizeF());
  if (x_ > target) endLine();
  x_ = target;
}

void ReportPrinter::text(const QString& text) {
  qsizetype blanks = 0;
  while (blanks < text.size() && text[blanks] == ' '_L1) ++blanks;
  const QString visible = text.mid(blanks);
  const double indent = static_cast<double>(blanks) * metrics(font_).horizontalAdvance('0'_L1);
  if (!visible.isEmpty()) {
    newPageUnlessFits();
    const double room = painter_.window().width() - x_ - indent;
    const QFont font = fitted(visible, room);
    const bool whole = font.pointSizeF() > kSmallest * font_.pointSizeF();
    QString shown = whole ? visible : metrics(font).elidedText(visible, Qt::ElideRight, room);
    const double least = metrics(font).horizontalAdvance(u"…"_s);
    if (!whole && room < least) {  // what lies off the page is not left out unseen
      shown = u"…"_s;
      x_ += room - least;
    }
    painter_.setFont(font);
    painter_.drawText(QPointF(x_ + indent, y_ + metrics(font_).ascent()), shown);
    x_ += metrics(font).horizontalAdvance(shown);
  }
  x_ += indent;
}

void ReportPrinter::endLine() {
  x_ = 0;
  y_ += metrics(font_).lineSpacing();
}

/// From the current position to the right edge.
void ReportPrinter::paintPicture(int lines) {
  newPageUnlessFits(lines);
  const double height = lines * metrics(font_).lineSpacing();
  painter_.setFont(font_);
  picture(painter_, QRectF(x_, y_, painter_.window().width() - x_, height));
  y_ += height;
}

void ReportPrinter::newPageUnlessFits(int lines) {
  const double needed = (lines - 1) * metrics(font_).lineSpacing() + metrics(font_).height();
  const bool fits = y_ + needed <= painter_.window().height();
  if (fits || y_ == 0) return;
  if (!device_.newPage()) throw RuntimeError(ErrorNumber::kPrinter);
  y_ = 0;
}

double ReportPrinter::pixels(double points) const {
  return points * device_.logicalDpiX() / 72;
}

QFontMetricsF ReportPrinter::metrics(const QFont& font) const {
  return QFontMetricsF(font, &device_);
}

/// The current font, as much smaller as it takes for the text to fit.
QFont ReportPrinter::fitted(const QString& text, double room) const {
  const double width = metrics(font_).horizontalAdvance(text);
  QFont font = font_;
  if (width > room) font.setPointSizeF(font_.pointSizeF() * std::max(kSmallest, room / width));
  return font;
}

}  // namespace calvora
