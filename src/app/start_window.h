#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "platform/control_array.h"
#include "platform/desktop.h"
#include "platform/picture.h"

namespace calvora {

/// Lies over the main window at program start; ends the program or is closed, in whatever way, to
/// go on. Not modal, deletes itself on close.
class start : public QDialog {
  Q_OBJECT

 public:
  start(QWidget& mainWindow, Desktop& desktop);

  ControlArray<QLabel> Label1;
  ControlArray<QLabel> Label2;
  ControlArray<QLabel> Label3;
  ControlArray<QPushButton> Command1;
  ControlArray<Picture> Image2;
  QFrame* Frame1;
  QFrame* Frame2;

 private:
  void Command1_Click(int index);
  void buildHeader();
  void buildExplanation();
  void buildContact();

  Desktop& desktop_;
};

}  // namespace calvora
