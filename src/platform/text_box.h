#pragma once

#include <QLineEdit>
#include <functional>

namespace calvora {

/// A box with the key events that the input mask is written for: key down with a key code, key
/// press with a character that the handler may swallow by setting it to 0.
class TextBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit TextBox(QWidget* parent = nullptr);

  /// Shows a text of the program's own: unfiltered, and not counted as typed. In the box that has
  /// the focus it is selected, so that what is typed next replaces it.
  void showText(const QString& text);

  /// Takes back, or brings back, what was typed since the text was shown. False if there is
  /// nothing.
  bool undoTyping();
  bool redoTyping();

  /// Every typed character; one that is set to 0 is swallowed.
  std::function<void(int& code)> keyPress = [](int&) {};
  /// What is left of a text that comes in otherwise: pasted, dropped or composed.
  std::function<QString(const QString& text)> filter = [](const QString& text) { return text; };
  /// Whether such a text, filtered, may come in and make the box hold `whole`. If not, the box
  /// stays as it was.
  std::function<bool(const QString& text, const QString& whole)> accepts =
      [](const QString&, const QString&) { return true; };
  /// Whether the box holds one value. The click that brings the focus, a double click and a dropped
  /// text select the whole text, so that what comes in does not become a part of it.
  bool holdsValue = false;

 signals:
  /// Before a key takes effect. `edits` tells whether it would change the text.
  void beforeKey(bool edits);
  /// Enter, Space, Up and Down, with the codes of `key`; of a read-only box all but Space.
  void keyDown(int code);
  /// The user changed the text, by whatever means.
  void edited();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  class Filter;

  QString known_;             ///< the text before the change that is going on
  qsizetype start_ = 0;       ///< of the selection, or the cursor, before that change
  qsizetype selected_ = 0;    ///< length of the selection before that change
  bool unfiltered_ = false;   ///< the change comes from the program or from an accepted key
  bool clickedInto_ = false;  ///< the click that brought the focus is still going on
};

}  // namespace calvora
