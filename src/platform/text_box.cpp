#include "platform/text_box.h"

#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QValidator>
#include <utility>

#include "entry/key_filter.h"
#include "platform/file_drop.h"
#include "platform/form.h"

namespace calvora {

/// The one place that every text passes on its way into the box.
class TextBox::Filter : public QValidator {
 public:
  explicit Filter(TextBox& box) : QValidator(&box), box_(box) {}

  State validate(QString& text, int& cursor) const override {
    const qsizetype length = text.size() - box_.known_.size() + box_.selected_;
    // The toolkit also asks when the focus leaves, even while the box's window is taken down.
    const bool asksOnly = text == box_.known_;
    if (box_.unfiltered_ || asksOnly || length <= 0) return Acceptable;
    const QString incoming = box_.filter(text.mid(box_.start_, length));
    text.replace(box_.start_, length, incoming);
    cursor = static_cast<int>(box_.start_ + incoming.size());
    return box_.accepts(incoming, text) ? Acceptable : Invalid;
  }

 private:
  TextBox& box_;
};

namespace {

/// The code of a key that has a rule of its own, else 0.
int keyCode(const QKeyEvent& event) {
  static const QHash<int, int> kCodes{{Qt::Key_Return, key::kEnter},
                                      {Qt::Key_Enter, key::kEnter},
                                      {Qt::Key_Space, key::kSpace},
                                      {Qt::Key_Up, key::kUp},
                                      {Qt::Key_Down, key::kDown}};
  return kCodes.value(event.key());
}

bool isUndo(const QKeyEvent& event) {
  return event.matches(QKeySequence::Undo);
}

/// The toolkit knows only one of both on each system.
bool isRedo(const QKeyEvent& event) {
  const bool ctrlY = event.key() == Qt::Key_Y && event.modifiers() == Qt::ControlModifier;
  return ctrlY || event.matches(QKeySequence::Redo);
}

bool isEditingKey(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Copy) || event.matches(QKeySequence::SelectAll)) return false;
  if (event.matches(QKeySequence::Paste)) return true;  // Shift+Insert has no text
  const int code = keyCode(event);
  return (code == 0 || code == key::kSpace) && !event.text().isEmpty();
}

}  // namespace

TextBox::TextBox(QWidget* parent) : QLineEdit(parent) {
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  setValidator(new Filter(*this));
  connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
    if (text == known_) return;
    known_ = text;
    emit edited();
  });
  // Both come after a change was let in, so that the filter still sees what it replaces.
  const auto rememberSelection = [this] {
    start_ = hasSelectedText() ? selectionStart() : cursorPosition();
    selected_ = selectionLength();
  };
  connect(this, &QLineEdit::selectionChanged, this, rememberSelection);
  connect(this, &QLineEdit::cursorPositionChanged, this, rememberSelection);
}

void TextBox::showText(const QString& text) {
  if (text == this->text() && !isUndoAvailable() && !isRedoAvailable()) return;
  const QScopedValueRollback unfiltered(unfiltered_, true);
  setText(text);  // also forgets what was typed
  known_ = text;
  if (window()->focusWidget() == this) selectAll();
}

bool TextBox::undoTyping() {
  if (!isUndoAvailable()) return false;
  const QScopedValueRollback unfiltered(unfiltered_, true);
  undo();
  return true;
}

bool TextBox::redoTyping() {
  if (!isRedoAvailable()) return false;
  const QScopedValueRollback unfiltered(unfiltered_, true);
  redo();
  return true;
}

/// Where nothing was typed, undo and redo are commands of the window.
bool TextBox::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (isUndo(key) || isRedo(key)) {
      event->setAccepted(isUndo(key) ? isUndoAvailable() : isRedoAvailable());
      return true;
    }
  }
  return QLineEdit::event(event);
}

void TextBox::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  clickedInto_ = holdsValue && event->reason() == Qt::MouseFocusReason;
  // Back from the menu, which took the selection away.
  const bool back = holdsValue && event->reason() == Qt::MenuBarFocusReason;
  if (back && !isUndoAvailable()) selectAll();
}

void TextBox::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  const bool click = event->button() == Qt::LeftButton && !hasSelectedText();
  if (std::exchange(clickedInto_, false) && click) selectAll();
}

void TextBox::mouseDoubleClickEvent(QMouseEvent* event) {
  QLineEdit::mouseDoubleClickEvent(event);
  if (holdsValue) selectAll();
}

/// A file is for the window, although it is offered as a text as well.
void TextBox::dragEnterEvent(QDragEnterEvent* event) {
  if (!draggedFiles(*event->mimeData()).isEmpty()) return event->ignore();
  QLineEdit::dragEnterEvent(event);
}

/// A dropped text is pasted: the box takes the focus first, and what was left by that is finished
/// before the text comes in.
void TextBox::dropEvent(QDropEvent* event) {
  if (isReadOnly()) return;
  event->acceptProposedAction();
  setFocus(Qt::OtherFocusReason);
  const auto insertText = [this, text = event->mimeData()->text()] {
    if (window()->focusWidget() != this) return;
    if (holdsValue) selectAll();
    insert(text);
  };
  QMetaObject::invokeMethod(this, insertText, Qt::QueuedConnection);
}

void TextBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {  // closes the window, where that is what it does
    event->ignore();
    return;
  }
  if (typesSharpS(*this, *event)) return;
  if (isUndo(*event) || isRedo(*event)) {
    isUndo(*event) ? undoTyping() : redoTyping();
    return;
  }
  emit beforeKey(isEditingKey(*event));
  event->accept();
  if (window()->focusWidget() != this)
    return;  // an earlier entry was rejected and took the focus back
  const bool command = isCommand(*event);
  const int code = command ? 0 : keyCode(*event);
  if (code != 0 && !(isReadOnly() && code == key::kSpace)) emit keyDown(code);
  const QString typed = event->text();
  const bool isCharacter = !command && typed.size() == 1 && event->key() != Qt::Key_Delete;
  if (isCharacter && !isReadOnly()) {
    int character = typed.front().unicode();
    keyPress(character);
    if (character == 0) return;
  }
  // Several characters at once, or one beyond 16 bits, come in as if they were pasted.
  const bool pasted = event->matches(QKeySequence::Paste) || typed.size() > 1;
  const QScopedValueRollback unfiltered(unfiltered_, !pasted);
  if (code == 0 || code == key::kSpace) QLineEdit::keyPressEvent(event);
}

/// Some desktops compose even plain keys: a character that could have been typed comes in as typed,
/// anything else as if it were pasted.
void TextBox::inputMethodEvent(QInputMethodEvent* event) {
  if (!event->commitString().isEmpty()) emit beforeKey(true);
  if (isReadOnly() || window()->focusWidget() != this) return;
  if (event->commitString() == QLatin1String(" ")) emit keyDown(key::kSpace);
  int code = event->commitString().size() == 1 ? event->commitString().front().unicode() : 0;
  if (code != 0) keyPress(code);
  const bool typed = event->commitString().isEmpty() || code != 0;
  const QScopedValueRollback unfiltered(unfiltered_, typed);
  QLineEdit::inputMethodEvent(event);
}

}  // namespace calvora
