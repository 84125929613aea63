#include "platform/picture_button.h"

#include "platform/twips.h"

namespace calvora {

PictureButton::PictureButton(Picture::Drawing drawing, int side, const QString& name,
                             QWidget* parent)
    : QAbstractButton(parent), drawing_(std::move(drawing)) {
  setFixedSize(twips(side), twips(side));
  setFocusPolicy(Qt::NoFocus);
  setCursor(Qt::PointingHandCursor);
  setAccessibleName(name);
}

void PictureButton::paintEvent(QPaintEvent*) {
  Picture::paint(*this, drawing_);
}

}  // namespace calvora
