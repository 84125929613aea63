#pragma once

#include <QAbstractButton>

#include "platform/picture.h"

namespace calvora {

/// A drawn picture that can be clicked. It never takes the focus.
class PictureButton : public QAbstractButton {
  Q_OBJECT

 public:
  /// `side` is the edge in twips; `name` says what a click shows, for screen readers.
  PictureButton(Picture::Drawing drawing, int side, const QString& name, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Picture::Drawing drawing_;
};

}  // namespace calvora
