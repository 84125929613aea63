#pragma once

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <functional>

#include "platform/control_array.h"
#include "platform/desktop.h"
#include "tools/umrechner.h"

class QGridLayout;

namespace calvora {

/// The unit converter: shows the current field's value in all its units, takes a value in any of
/// them and hands it to the analysis. Not modal, deletes itself on close; the main window, which is
/// disabled meanwhile, listens for `finished`.
class dimum : public QDialog {
  Q_OBJECT

 public:
  /// Hands a field's text to the analysis as if it had been typed. Returns whether the check wants
  /// it to be entered again.
  using TakeOver = std::function<bool(int field, const QString& text)>;

  /// Opens over the main window, on the value that the record holds for a field.
  dimum(const AnalysisRecord& record, int field, Questions& questions, Desktop& desktop,
        TakeOver takeOver, QWidget& mainWindow);

  /// The focus, the mouse and the arrow keys on a unit.
  bool eventFilter(QObject* receiver, QEvent* event) override;

  ControlArray<QPushButton> Label1;  ///< units
  ControlArray<QPushButton> Label3;  ///< values
  QLabel* Label2;                    ///< heading
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
  bool keyOn(int index, const QKeyEvent& key);
  void Command1_Click();
  void Command2_Click();
  void mnuhelp_Click();

  void buildWindow();
  QWidget* buildSlots();
  void addSlot(QGridLayout& grid, int index);
  void showSlots();
  void setLook(int index, Look look);
  void moveFocusTo(int index);

  Questions& questions_;
  Desktop& desktop_;
  TakeOver takeOver_;
  Umrechner converter_;
};

}  // namespace calvora
