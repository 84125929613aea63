#pragma once

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "platform/control_array.h"
#include "platform/desktop.h"
#include "tools/click_label.h"
#include "tools/umrechner.h"

class QGridLayout;

namespace calvora {

class main;

/// The unit converter: shows the current field's value in all its units, takes a value in any of
/// them and hands it to the analysis. Not modal, deletes itself on close; the main window, which is
/// disabled meanwhile, listens for `finished`.
class dimum : public QDialog {
  Q_OBJECT

 public:
  dimum(main& mainWindow, Program& program, Questions& questions, Desktop& desktop);

  ControlArray<ClickLabel> Label1;  ///< units
  ControlArray<ClickLabel> Label3;  ///< values
  QLabel* Label2;                   ///< heading
  QPushButton* Command1;
  QPushButton* Command2;
  QAction* mnuhelp;
  int Text2 = 0;  ///< the field's own slot
  int Text3 = 0;  ///< the slot marked last; 0: none

 private:
  enum class Look { kNormal, kOwn, kMarked, kMassless, kEmpty };

  void Form_Load();
  void Label1_MouseMove(int index);
  void labclick(int index);
  void Command1_Click();
  void Command2_Click();
  void mnuhelp_Click();

  void buildWindow();
  QWidget* buildSlots();
  void addSlot(QGridLayout& grid, int index);
  void showSlots();
  void setLook(int index, Look look);
  void moveFocusTo(int index);

  main& main_;
  Questions& questions_;
  Desktop& desktop_;
  Umrechner converter_;
};

}  // namespace calvora
