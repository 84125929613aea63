#pragma once

#include <QWidget>
#include <functional>

class QPainter;

namespace calvora {

/// A drawn picture. The drawing fills a square of 100 × 100 units, whatever size it is shown at.
class Picture : public QWidget {
  Q_OBJECT

 public:
  using Drawing = std::function<void(QPainter&)>;

  /// `side` is the edge in twips.
  Picture(Drawing drawing, int side, QWidget* parent = nullptr);

  /// Paints a drawing over a whole widget, from its paint event.
  static void paint(QWidget& widget, const Drawing& drawing);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Drawing drawing_;
};

}  // namespace calvora
