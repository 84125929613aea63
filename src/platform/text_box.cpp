#include "platform/text_box.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QValidator>
#include <utility>

#include "entry/key_filter.h"

namespace calvora {

/// The one place that every text passes on its way into the box.
class TextBox::Filter : public QValidator {
 public:
  explicit Filter(TextBox& box) : QValidator(&box), box_(box) {}

  State validate(QString& text, int& cursor) const override {
    if (box_.showing_) return Acceptable;
    const QString& known = box_.known_;
    const qsizetype shorter = std::min(text.size(), known.size());
    qsizetype before = 0;
    while (before < shorter && text[before] == known[before]) ++before;
    qsizetype after = 0;
    while (after < shorter - before &&
           text[text.size() - 1 - after] == known[known.size() - 1 - after]) {
      ++after;
    }
    const qsizetype incoming = text.size() - before - after;
    const QString kept = box_.filter(text.mid(before, incoming), before == 0);
    text.replace(before, incoming, kept);
    cursor = std::min(cursor, static_cast<int>(before + kept.size()));
    return Acceptable;
  }

 private:
  TextBox& box_;
};

namespace {

int keyCode(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return key::kEnter;
    case Qt::Key_Space:
      return key::kSpace;
    case Qt::Key_Up:
      return key::kUp;
    case Qt::Key_Down:
      return key::kDown;
    default:
      return 0;
  }
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
}

void TextBox::showText(const QString& text) {
  if (text == this->text()) return;
  showing_ = true;
  setText(text);
  showing_ = false;
  known_ = text;
}

void TextBox::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  clickedInto_ = selectsOnClick && event->reason() == Qt::MouseFocusReason;
}

void TextBox::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  const bool click = event->button() == Qt::LeftButton && !hasSelectedText();
  if (std::exchange(clickedInto_, false) && click) selectAll();
}

/// A dropped text is typed: the box takes the focus first, and what was left by that is finished
/// before the text comes in.
void TextBox::dropEvent(QDropEvent* event) {
  if (isReadOnly()) return;
  event->acceptProposedAction();
  setFocus(Qt::OtherFocusReason);
  const auto insertText = [this, text = event->mimeData()->text()] {
    if (window()->focusWidget() == this) insert(text);
  };
  QMetaObject::invokeMethod(this, insertText, Qt::QueuedConnection);
}

void TextBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {  // closes the window, where that is what it does
    event->ignore();
    return;
  }
  beforeKey(isEditingKey(*event));
  event->accept();
  if (window()->focusWidget() != this)
    return;  // an earlier entry was rejected and took the focus back
  const bool command = event->modifiers().testFlag(Qt::ControlModifier) &&
                       !event->modifiers().testFlag(Qt::AltModifier);
  const int code = command ? 0 : keyCode(*event);
  if (code != 0 && !(isReadOnly() && code == key::kSpace)) keyDown(code);
  const QString typed = event->text();
  const bool isCharacter = !command && typed.size() == 1 && event->key() != Qt::Key_Delete;
  if (isCharacter && !isReadOnly()) {
    int character = typed.front().unicode();
    keyPress(character);
    if (character == 0) return;
  }
  if (code == 0 || code == key::kSpace) QLineEdit::keyPressEvent(event);
}

}  // namespace calvora
