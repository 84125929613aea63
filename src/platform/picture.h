#pragma once

#include <QAbstractButton>
#include <QPainter>
#include <functional>
#include <utility>

#include "platform/twips.h"

namespace calvora {

/// A control that is a drawn picture. The drawing fills a square of 100 × 100 units, whatever size
/// it is shown at.
template <class Control>
class Drawn : public Control {
 public:
  using Drawing = std::function<void(QPainter&)>;

  /// `side` is the edge in twips.
  Drawn(Drawing drawing, int side, QWidget* parent = nullptr)
      : Control(parent), drawing_(std::move(drawing)) {
    Control::setFixedSize(twips(side), twips(side));
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(Control::width() / 100.0, Control::height() / 100.0);
    drawing_(painter);
  }

 private:
  Drawing drawing_;
};

using Picture = Drawn<QWidget>;
using PictureButton = Drawn<QAbstractButton>;

/// A drop of water with a wave in it: the program's own sign.
void drawDrop(QPainter& painter);

/// The empty place of the user's company sign.
void drawCompanySign(QPainter& painter);

}  // namespace calvora
