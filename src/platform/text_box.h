#pragma once

#include <QLineEdit>
#include <functional>

namespace calvora {

/// A box with the key events that the input mask is written for: key down with a key code, key
/// press with a character that the handler may swallow by setting it to 0. Of a box that is
/// read-only, only Enter, Up and Down are told.
class TextBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit TextBox(QWidget* parent = nullptr);

  /// Shows a text of the program's own: unfiltered, and not counted as typed.
  void showText(const QString& text);

  /// Called before a key takes effect. `edits` tells whether it would change the text.
  std::function<void(bool edits)> beforeKey = [](bool) {};
  /// Enter, Space, Up and Down, with the codes of `key`.
  std::function<void(int code)> keyDown = [](int) {};
  /// Every typed character; one that is set to 0 is swallowed.
  std::function<void(int& code)> keyPress = [](int&) {};
  /// What is left of a text that comes in, by whatever way, and whether it comes in at the start.
  /// What stood in the box before is never touched.
  std::function<QString(const QString& text, bool atStart)> filter = [](const QString& text, bool) {
    return text;
  };
  /// Whether the click that brings the focus selects the text, as Tab does: what is typed then
  /// replaces it and does not become a part of it.
  bool selectsOnClick = false;

 signals:
  /// The user changed the text, by whatever means.
  void edited();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  class Filter;

  QString known_;
  bool showing_ = false;
  bool clickedInto_ = false;  ///< the click that brought the focus is still going on
};

}  // namespace calvora
