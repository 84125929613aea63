#pragma once

#include <QPoint>

class QApplication;
class QWidget;

namespace calvora {

/// Moves a window, before it is shown, to a place on its screen (pixels from the screen's corner),
/// or as near to it as the whole window with its frame can be seen.
void placeOnScreen(QWidget& window, QPoint wanted);

/// From now on every window opens where it can be seen whole. One that needs more room than its
/// screen has becomes as large as the screen, and its content scrolls.
void keepWindowsOnScreen(QApplication& application);

}  // namespace calvora
