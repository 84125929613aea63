#pragma once

#include <QRectF>
#include <QWidget>
#include <vector>

#include "plausi/plausibility.h"

class QPainter;

namespace calvora {

/// Paints a pH scale from 4 to 12 into an area, with a row for each mark: its name, its shape with
/// its uncertainty bar, its value in figures. The measured pH also is a line through all rows. What
/// lies outside the scale is an arrow at its edge. Readable without colour; the font is the
/// painter's.
void paintPhScale(QPainter& painter, const QRectF& area, const std::vector<PhMark>& marks);

/// The scale in a window. Its accessible description says the marks in words.
class PhScale : public QWidget {
  Q_OBJECT

 public:
  explicit PhScale(QWidget* parent = nullptr);

  void showMarks(const std::vector<PhMark>& marks);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::vector<PhMark> marks_;
};

}  // namespace calvora
