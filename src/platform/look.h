#pragma once

#include <QCursor>
#include <QFont>
#include <QGuiApplication>
#include <QString>

class QApplication;
class QWidget;

namespace calvora {

/// What a control is for; its colours follow from it.
enum class Role {
  kInput,      ///< white, typed by the user
  kCompleted,  ///< white, dotted border, italic: filled in by the program
  kComputed,   ///< grey with blue text
  kKept,       ///< dashed border, italic: a result of earlier inputs
  kLocked,     ///< dark grey, cannot be entered
  kUnit,       ///< light yellow
  kSection,    ///< header of a group
};

/// Gives the program its version, its font, its colours, its icon and German texts in Qt's dialogs.
/// The colours are the program's own, so that a dark desktop never meets a light box.
void applyLook(QApplication& application);

/// The font of texts whose columns stand under one another.
QFont monospacedFont();

/// Sets a property that the style sheet asks for, and lets the control follow it.
void setStyleProperty(QWidget& control, const char* property, const QString& value);

/// Gives a control the colours of its role; changing it later is allowed.
void setRole(QWidget& control, Role role);

/// Gives a field that has no role the colours of a computed one while it is disabled: it cannot be
/// changed, but is there to be read.
void keepReadable(QWidget& field);

/// Shows the busy cursor over all windows while it lives.
class BusyCursor {
 public:
  BusyCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  BusyCursor(const BusyCursor&) = delete;
  BusyCursor& operator=(const BusyCursor&) = delete;
  ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
};

}  // namespace calvora
