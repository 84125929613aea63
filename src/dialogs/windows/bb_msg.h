#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "platform/control_array.h"
#include "platform/desktop.h"

namespace calvora {

/// Reports a runtime error and lets the user go on or end the program. Not modal: the program runs
/// on behind it. It can be used while a modal window is open. There is one window; a further error
/// replaces the text of the one that is open.
class bb_msg : public QDialog {
  Q_OBJECT

 public:
  explicit bb_msg(Desktop& desktop);

  /// Mode 2 shows the error: its number as text, directly followed by the location text. Mode 1
  /// shows nothing.
  void message(int mode, const QString& text);

  ControlArray<QLabel> Label1;
  ControlArray<QPushButton> Check1;

 protected:
  bool event(QEvent* event) override;

 private:
  void Check1_Click(int index);
  void joinModalWindow();

  Desktop& desktop_;
};

}  // namespace calvora
