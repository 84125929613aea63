#pragma once

#include <QDateEdit>
#include <QWheelEvent>

namespace calvora {

/// A date, typed as dd.mm.yyyy, stepped with the arrow keys, by a month with the page keys, or
/// picked in the calendar. The mouse wheel passes over it on its way through a form.
///
/// It is edited as one line of text. In the toolkit's sections a digit of a date that is impossible
/// on the way goes into the next section, and another date results unseen.
class DatePicker : public QDateEdit {
  Q_OBJECT

 public:
  explicit DatePicker(QWidget* parent);

  /// Steps the day, month or year that the cursor is at.
  void stepBy(int steps) override;

 signals:
  /// The field was left with a text that is no date of its range. It shows the date before again.
  void refused(const QString& text);

 protected:
  QValidator::State validate(QString& text, int& position) const override;
  [[nodiscard]] QDateTime dateTimeFromText(const QString& text) const override;
  [[nodiscard]] StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }

 private:
  [[nodiscard]] QDate typedDate(const QString& text) const;
  bool finish();
};

}  // namespace calvora
