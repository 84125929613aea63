#pragma once

#include <QPushButton>
#include <functional>
#include <initializer_list>
#include <utility>

#include "platform/control_array.h"

class QBoxLayout;
class QLayout;

namespace calvora {

/// What the windows' designs have in common: margins and buttons.

/// The margins that part a window's content from its edges.
void setWindowMargins(QLayout& layout);

/// A button of the height that all have; `width` is its least one, in twips.
QPushButton* makeButton(const QString& caption, int width);

/// Makes the buttons of an array, by index and caption. A click, or Enter while it has the focus,
/// calls `clicked` with a button's index.
void addButtons(ControlArray<QPushButton>& buttons, int width,
                std::initializer_list<std::pair<int, QString>> captions,
                const std::function<void(int)>& clicked);

/// The row at the foot of a window: the buttons stand at its right, in that order.
QBoxLayout* makeButtonRow(std::initializer_list<QPushButton*> buttons);

}  // namespace calvora
