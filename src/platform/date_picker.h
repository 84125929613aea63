#pragma once

#include <QDateEdit>
#include <QWheelEvent>

namespace calvora {

/// A date field that the mouse wheel does not change: it passes over it on its way through a form.
class DatePicker : public QDateEdit {
 public:
  explicit DatePicker(QWidget* parent) : QDateEdit(parent) { setFocusPolicy(Qt::StrongFocus); }

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

}  // namespace calvora
