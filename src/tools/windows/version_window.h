#pragma once

#include <QDate>
#include <QDialog>
#include <QLabel>

#include "platform/control_array.h"
#include "platform/picture.h"

namespace calvora {

/// Shows the program's version, its build month and its years. Modal; a click anywhere in it and
/// any key close it.
class Version : public QDialog {
  Q_OBJECT

 public:
  Version(QDate today, QWidget* parent);

  /// The month in which a program file was built, which is that of its last change, in local time:
  /// "03-2021". Empty if there is no such file.
  static QString vdate(const QString& programFile);

  ControlArray<QLabel> Label1;
  Picture* Image1;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace calvora
