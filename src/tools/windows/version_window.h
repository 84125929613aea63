#pragma once

#include <QDialog>
#include <QLabel>

#include "model/program.h"
#include "platform/control_array.h"
#include "platform/picture.h"

namespace calvora {

/// Tells the program's version, its build month and its years. Modal; a click anywhere in it and
/// any key close it.
class Version : public QDialog {
  Q_OBJECT

 public:
  Version(const Program& program, QWidget* parent);

  ControlArray<QLabel> Label1;
  Picture* Image1;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// Where a label stands, in twips.
  struct Place {
    int left;
    int top;
    int width;
  };

  void Form_Load(const Program& program);
  void addLabel(int index, const QString& text, const Place& place);
};

}  // namespace calvora
