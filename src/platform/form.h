#pragma once

#include <QPushButton>
#include <functional>
#include <initializer_list>
#include <utility>

#include "platform/control_array.h"

class QBoxLayout;
class QKeyEvent;
class QLabel;
class QLayout;

namespace calvora {

/// What the windows' designs have in common: margins, buttons and keys.

/// The margins that part a window's content from its edges.
void setWindowMargins(QLayout& layout);

/// A button of the height that all have; `width` is its least one, in twips.
QPushButton* makeButton(const QString& caption, int width);

/// A button that looks like a link.
QPushButton* makeLink();

/// Makes the buttons of an array, by index and caption. A click, or Enter while it has the focus,
/// calls `clicked` with a button's index.
void addButtons(ControlArray<QPushButton>& buttons, int width,
                std::initializer_list<std::pair<int, QString>> captions,
                const std::function<void(int)>& clicked);

/// The row at the foot of a window: the buttons stand at its right, in that order.
QBoxLayout* makeButtonRow(std::initializer_list<QPushButton*> buttons);

/// The red line in a window that says why something was not done. Takes no room until then.
QLabel* makeFailureLine();

/// Shows a text in the red line and makes room for it in its window; an empty one hides the line.
void showFailure(QLabel& line, const QString& text);

/// Lets Enter press a button that has the focus, and only then: in a dialog Enter would otherwise
/// press a button out of any field.
void pressOnEnter(QPushButton& button);

/// Whether a key is Enter, that of the numeric pad included.
bool isEnter(const QKeyEvent& key);

/// Whether a key is a command: held with Ctrl, but not with AltGr.
bool isCommand(const QKeyEvent& key);

/// Types "ss" for "ß", which no text field takes as a key. False for any other key.
bool typesSharpS(QWidget& field, const QKeyEvent& key);

}  // namespace calvora
