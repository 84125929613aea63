#include "platform/date_picker.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>

#include "entry/date_text.h"
#include "platform/form.h"

namespace calvora {

using namespace Qt::StringLiterals;

DatePicker::DatePicker(QWidget* parent) : QDateEdit(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setDisplayFormat(kDateFormat);
  setLocale(QLocale(QLocale::German));
  setCalendarPopup(true);
  calendarWidget()->setFirstDayOfWeek(Qt::Monday);
  calendarWidget()->setDateEditEnabled(false);
  // The toolkit selects and finishes sections as the cursor moves.
  disconnect(lineEdit(), &QLineEdit::cursorPositionChanged, this, nullptr);
  // The toolkit never forgets what it works out for a line inside another control, unless that has
  // a style of its own.
  for (auto* line : findChildren<QLineEdit*>()) line->setStyleSheet(u" "_s);
}

/// The date of a text, where it is one of the range; leading zeros may be missing.
QDate DatePicker::typedDate(const QString& text) const {
  const QDate date = QDate::fromString(text, u"d.M.yyyy"_s);
  return date >= minimumDate() && date <= maximumDate() ? date : QDate();
}

QValidator::State DatePicker::validate(QString& text, int& /*position*/) const {
  static const QRegularExpression kDigitsAndPoints(u"^[0-9.]{0,10}$"_s);
  if (!kDigitsAndPoints.match(text).hasMatch()) return QValidator::Invalid;
  return typedDate(text).isValid() ? QValidator::Acceptable : QValidator::Intermediate;
}

QDateTime DatePicker::dateTimeFromText(const QString& text) const {
  return typedDate(text).startOfDay(timeSpec());
}

/// Takes what was typed; or returns to the date before, says so and is false.
bool DatePicker::finish() {
  const QString typed = text();
  const QDate date = typedDate(typed);
  setDate(date.isValid() ? date : this->date());
  if (!date.isValid()) emit refused(typed);
  return date.isValid();
}

void DatePicker::stepBy(int steps) {
  const bool selected = lineEdit()->hasSelectedText();
  const int cursor = selected ? lineEdit()->selectionStart() : lineEdit()->cursorPosition();
  if (!finish()) return;
  const bool isDay = cursor <= 2;
  const bool isMonth = !isDay && cursor <= 5;
  setDate(isDay     ? date().addDays(steps)
          : isMonth ? date().addMonths(steps)
                    : date().addYears(steps));
  lineEdit()->setSelection(isDay ? 0 : isMonth ? 3 : 6, isDay || isMonth ? 2 : 4);
}

void DatePicker::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
    QDateEdit::keyPressEvent(event);  // steps, or opens the calendar with Alt
  } else if (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown) {
    if (finish()) setDate(date().addMonths(event->key() == Qt::Key_PageUp ? 1 : -1));
  } else if (isEnter(*event)) {
    finish();
    event->ignore();
  } else {
    lineEdit()->event(event);
  }
}

/// Tab leaves the field at once, past the sections.
bool DatePicker::focusNextPrevChild(bool next) {
  return QWidget::focusNextPrevChild(next);  // NOLINT(bugprone-parent-virtual-call)
}

void DatePicker::focusInEvent(QFocusEvent* event) {
  QDateEdit::focusInEvent(event);
  if (event->reason() != Qt::MouseFocusReason) selectAll();
}

void DatePicker::focusOutEvent(QFocusEvent* event) {
  finish();
  QDateEdit::focusOutEvent(event);
}

}  // namespace calvora
