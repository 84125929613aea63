#pragma once

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "platform/picture.h"

namespace calvora {

/// Explains the pH values that the program computes. Modal; filled by `infotxt1` before it is
/// shown.
class info1 : public QDialog {
  Q_OBJECT

 public:
  explicit info1(QWidget* parent);

  /// Fills the list, which is hidden until then.
  void infotxt1();

  QListWidget* List1;
  QPushButton* Command1;
  QLabel* Label1;
  Picture* Image4;
};

}  // namespace calvora
