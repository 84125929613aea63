#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "dialogs/message_layout.h"
#include "platform/control_array.h"
#include "platform/picture.h"

namespace calvora {

/// The program's own modal message window. Filled by `messein`, shown modally, then asked for its
/// answer. Places count from the upper left corner of the window that asks.
class nachricht : public QDialog {
  Q_OBJECT

 public:
  explicit nachricht(QWidget* parent = nullptr);

  /// Sizes, colours and labels the window for a message. Runtime error 5 for more than three
  /// buttons.
  void messein(const Message& message);

  /// The pressed button; what closing stands for when none was pressed.
  [[nodiscard]] Button answer() const { return answer_; }

  /// Keys that repeat because they are held down must not answer a message unseen.
  bool eventFilter(QObject* receiver, QEvent* event) override;

  QFrame* Shape1;
  QLabel* Label6;
  ControlArray<QPushButton> Command1;
  ControlArray<Picture> Image1;

 private:
  void Command1_Click(int index);
  void place(const MessageLayout& layout);
  void colour(const MessageLayout& layout);

  Button answer_ = Button::kOk;
};

}  // namespace calvora
