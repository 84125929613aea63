#include "platform/remark_box.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>

#include "platform/file_drop.h"
#include "platform/form.h"

namespace calvora {

RemarkBox::RemarkBox(QWidget* parent) : QPlainTextEdit(parent) {
  setTabChangesFocus(true);
}

void RemarkBox::keyPressEvent(QKeyEvent* event) {
  if (isEnter(*event)) {
    event->accept();
    return emit enterPressed();
  }
  if (!isReadOnly() && typesSharpS(*this, *event)) return;
  // A character beyond 16 bits, or several at once.
  if (event->text().size() > 1) return insertPlainText(filter(event->text()));
  if (!isCommand(*event) && event->text().size() == 1 && event->key() != Qt::Key_Delete &&
      event->key() != Qt::Key_Escape) {
    int code = event->text().front().unicode();
    keyPress(code);
    if (code == 0) return event->accept();
  }
  QPlainTextEdit::keyPressEvent(event);
}

/// No file is dropped as a text.
bool RemarkBox::canInsertFromMimeData(const QMimeData* source) const {
  return draggedFiles(*source).isEmpty() && QPlainTextEdit::canInsertFromMimeData(source);
}

void RemarkBox::insertFromMimeData(const QMimeData* source) {
  insertPlainText(filter(source->text()));
}

void RemarkBox::inputMethodEvent(QInputMethodEvent* event) {
  QInputMethodEvent filtered(event->preeditString(), event->attributes());
  filtered.setCommitString(filter(event->commitString()), event->replacementStart(),
                           event->replacementLength());
  QPlainTextEdit::inputMethodEvent(&filtered);
}

}  // namespace calvora
