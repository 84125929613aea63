#pragma once

#include <QString>
#include <initializer_list>

class QBoxLayout;
class QLayout;
class QPushButton;

namespace calvora {

/// What the windows' designs have in common: margins and buttons.

/// The margins that part a window's content from its edges.
void setWindowMargins(QLayout& layout);

/// A button of the height that all have; `width` is its least one, in twips.
QPushButton* makeButton(const QString& caption, int width);

/// The row at the foot of a window: the buttons stand at its right, in that order.
QBoxLayout* makeButtonRow(std::initializer_list<QPushButton*> buttons);

}  // namespace calvora
