// The way of an entry through the main window: typed, pasted, undone and done again.
#include <QMenuBar>
#include <QScopeGuard>
#include <algorithm>

#include "app/main_window.h"
#include "base/guarded.h"
#include "entry/decimal.h"
#include "entry/key_filter.h"
#include "plausi/origin.h"

namespace calvora {

using namespace Qt::StringLiterals;

void main::focusMoved(QWidget* now) {
  // Another window, another program or the menu bar: the entry is still going on.
  if (now == nullptr || now->window() != this || now == menuBar()) return;
  const int box = boxIndex(now);
  if (focusedBox_ != 0 && focusedBox_ != box) {
    leftBoxes_ += focusedBox_;
    // A message that opened inside the event that moves the focus would move it again.
    QMetaObject::invokeMethod(this, &main::finishLeftBoxes, Qt::QueuedConnection);
  }
  focusedBox_ = box;
  showStatus();
}

void main::finishLeftBoxes() {
  if (finishing_) return;
  finishing_ = true;
  const auto done = qScopeGuard([this] { finishing_ = false; });
  while (!leftBoxes_.isEmpty()) Text1_LostFocus(leftBoxes_.takeFirst());
}

void main::finishEntry() {
  finishLeftBoxes();
  if (!program_.entryChanged) return;
  int box = boxIndex(focusWidget());
  if (box == 0) box = focusedBox_;  // the menu bar has the focus
  if (box == 0) return;
  leftBoxes_ += box;
  finishLeftBoxes();
}

void main::Text1_KeyPress(int& code) {
  const bool number = isNumberKey(code);
  program_.entryChanged |= number || code == key::kSpace;
  if (!number) code = 0;
}

void main::Text1_KeyDown(int index, int code) {
  if (code == key::kEnter || code == key::kDown) moveFocus(index, +1);
  if (code == key::kUp) moveFocus(index, -1);
  if (code == key::kSpace) {
    Text1(index).showText({});
    program_.record.clearField(index);
  }
}

void main::Text1_LostFocus(int index) {
  guarded(questions_, u" main_T1_lostfocus"_s, [&] {
    program_.fieldIndex = index;
    if (!program_.entryChanged) return;
    program_.entryChanged = false;
    const bool focusBack = takeOver(index, Text1(index).text().trimmed());
    if (focusBack) Text1(index).setFocus(Qt::OtherFocusReason);
  });
}

bool main::takeOver(int index, const QString& text) {
  forgetNotes();
  history_.begin();
  const auto noted = qScopeGuard([&] { history_.note(nameOf(index), index); });
  return enterText(index, text);
}

/// Takes an entry over; what the program did by itself with an earlier one stays told until it does
/// something again.
bool main::enterText(int index, const QString& text) {
  const AnalysisRecord before = program_.record;
  const auto noted = qScopeGuard([&] {
    const QString action = whatChanged(before, program_.record, index, text);
    if (!action.isEmpty()) ownAction_ = action;
    showStatus();
  });
  program_.markUnsaved();
  int status = 0;
  try {
    subcalc_.checkeingabe(index, text, status);
    berechnen();
  } catch (...) {
    subcalc_.clearRuledOutCapacity();
    darstellen();  // the mask must show what the record really holds
    throw;
  }
  return status == kFocusBack;
}

void main::moveFocus(int index, int step) {
  const int target = nextBox(index, step, [this](int box) { return isLocked(box); });
  Text1(target).setFocus(Qt::TabFocusReason);
}

// ---- Pasted numbers ----

/// One number comes in if the box then holds one; several are entered into this and the next boxes.
bool main::acceptsPasted(int index, const QString& text, const QString& whole) {
  const QStringList numbers = pastedNumbers(text);
  if (numbers.size() == 1) return isNumberText(whole);
  if (!numbers.isEmpty() && hasRoom(index, numbers)) {
    QMetaObject::invokeMethod(
        this, [this, index, numbers] { fillFrom(index, numbers); }, Qt::QueuedConnection);
  }
  return false;
}

/// Whether every number finds an open box, from this one to the last.
bool main::hasRoom(int index, const QStringList& numbers) const {
  AnalysisRecord planned = program_.record;
  if (index <= feld::kPh && index + numbers.size() > feld::kPh) {
    const QString ph = QString(numbers[feld::kPh - index]).replace(','_L1, '.'_L1);
    planned.value[feld::kPh] = FixedPoint::tryFromDouble(readNumber(ph)).value_or(FixedPoint());
  }
  const int ruledOut = ruledOutCapacity(planned);
  const auto open = std::ranges::count_if(typedFields(),
                                          [=](int box) { return box >= index && box != ruledOut; });
  return numbers.size() <= open;
}

/// Enters numbers one after the other, as if each were typed and left with Enter. The focus ends
/// behind the last one, or in the first box that wants it back.
void main::fillFrom(int index, const QStringList& numbers) {
  finishLeftBoxes();
  if (focusWidget() != &Text1(index)) return;  // an earlier entry was rejected
  guarded(questions_, u" main_T1_lostfocus"_s, [&] {
    forgetNotes();
    history_.begin();
    const auto noted = qScopeGuard([&] { history_.note(u"eingefügte Werte"_s, index); });
    int box = index;
    int focusBack = 0;
    for (const QString& number : numbers) {
      program_.fieldIndex = box;
      program_.entryChanged = false;
      if (enterText(box, number) && focusBack == 0) focusBack = box;
      box = nextBox(box, +1, [this](int next) { return isLocked(next); });
    }
    if (focusBack == 0) return moveFocus(program_.fieldIndex, +1);
    Text1(focusBack).setFocus(Qt::OtherFocusReason);
  });
}

// ---- Undo and redo ----

/// An entry that is still going on comes first: what was typed, then the entry itself.
void main::mnu3_undo_Click() {
  finishLeftBoxes();
  if (!program_.entryChanged) {
    ownAction_ = u"rückgängig: "_s + history_.stack.undoText();
    return history_.stack.undo();
  }
  if (focusedBox_ != 0 && Text1(focusedBox_).undoTyping()) return;
  history_.abandonEntry();
  darstellen();
}

void main::mnu3_redo_Click() {
  finishLeftBoxes();
  if (!program_.entryChanged) {
    ownAction_ = u"wiederholt: "_s + history_.stack.redoText();
    return history_.stack.redo();
  }
  if (focusedBox_ != 0) Text1(focusedBox_).redoTyping();
}

/// Shows the analysis that undo or redo brought back, and goes to the field that was entered.
void main::restored(int field) {
  subcalc_.konst_k();  // as for an analysis that was loaded
  darstellen();
  if (field != 0 && !isLocked(field)) Text1(field).setFocus(Qt::OtherFocusReason);
  showStatus();
}

int main::boxIndex(const QWidget* control) const {
  for (const auto& [index, box] : Text1) {
    if (box == control) return index;
  }
  return 0;
}

}  // namespace calvora
